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

/// More of a name is never seen; all of one that is too long for its place, cut to every length that might
/// fit, takes the square of its length in memory.
constexpr qsizetype mostCharactersShown = 1000;

/// Text from outside (a name, a label, a translation) as part of rich text, which shows exactly its
/// characters. A tag in it would vanish otherwise, and one of a picture that is wider than a layout can count
/// keeps that layout busy for ever.
inline QString inRichText(const QString &text)
{
    return text.left(mostCharactersShown)
        .replace(QLatin1Char('&'), QLatin1String("&amp;"))
        .replace(QLatin1Char('<'), QLatin1String("&lt;"));
}

} // namespace Texts
