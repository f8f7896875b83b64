#pragma once

#include <TalvixWidgets/AppLanguageTr.h>

#include <QtCore/QString>

/// The application's texts by their "TK_" keys, in the form that their place asks for.
namespace Texts {

inline QString translated(const char *key, AppLanguageTr::CaptitalType capitals)
{
    return AppLanguageTr::instance()->translate(QString::fromLatin1(key), capitals, -1);
}

/// Running text, labels and tips.
inline QString sentence(const char *key)
{
    return translated(key, AppLanguageTr::Sentence);
}

/// Short text of a button.
inline QString button(const char *key)
{
    return translated(key, AppLanguageTr::Button);
}

/// Text of a tab.
inline QString title(const char *key)
{
    return translated(key, AppLanguageTr::Title);
}

} // namespace Texts
