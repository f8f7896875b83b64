#include <TalvixWidgets/AppLanguageTr.h>

#include "LanguageTexts.h"
#include "TextRequests.h"

#include <utility>

namespace {

TextRequests::Listener &currentListener()
{
    static TextRequests::Listener listener;
    return listener;
}

} // namespace

void TextRequests::listen(Listener listener)
{
    currentListener() = std::move(listener);
}

AppLanguageTr *AppLanguageTr::instance()
{
    static AppLanguageTr texts;
    return &texts;
}

QString AppLanguageTr::translate(const QString &key, CaptitalType type, int value)
{
    if (currentListener())
        currentListener()(key, type, value);
    return LanguageTexts::find(key, value);
}
