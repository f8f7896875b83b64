#include <TalvixWidgets/AppTranslationHelper.h>

#include "LanguageTexts.h"
#include "SnapClasses.h"

#include <algorithm>

namespace {

const SnapClasses::Major *findMajor(int type)
{
    const QList<SnapClasses::Major> &majors = SnapClasses::majors();
    const auto found = std::find_if(majors.cbegin(), majors.cend(),
        [type](const SnapClasses::Major &major) { return major.type == type; });
    return found == majors.cend() ? nullptr : &*found;
}

} // namespace

AppTranslationHelper *AppTranslationHelper::instance()
{
    static AppTranslationHelper helper;
    return &helper;
}

QString AppTranslationHelper::getStringAfterTranslation(const char *text)
{
    return text ? LanguageTexts::find(QString::fromUtf8(text)) : QString();
}

QString AppTranslationHelper::getSnapDetailMajorTypeName(int type)
{
    const SnapClasses::Major *major = findMajor(type);
    return major ? LanguageTexts::find(QString::fromLatin1(major->key)) : QString::number(type);
}

QString AppTranslationHelper::getSnapDetailMinorTypeName(int major, int minor)
{
    const SnapClasses::Major *known = findMajor(major);
    if (!known || minor < 1 || minor > known->minorKeys.size())
        return {};
    return LanguageTexts::find(QString::fromLatin1(known->minorKeys.at(minor - 1)));
}
