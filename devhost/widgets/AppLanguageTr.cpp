#include <TalvixWidgets/AppLanguageTr.h>

#include "LanguageTexts.h"

AppLanguageTr *AppLanguageTr::instance()
{
    static AppLanguageTr texts;
    return &texts;
}

QString AppLanguageTr::translate(const QString &key, CaptitalType, int value)
{
    return LanguageTexts::find(key, value);
}
