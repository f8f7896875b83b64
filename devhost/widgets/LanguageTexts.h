#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

/// The texts in the language that is loaded.
namespace LanguageTexts {

/// The text of \a key; a key that the language does not know, as it stands. \a number takes the place of
/// "%n".
QString find(const QString &key, int number = -1);

QStringList languages();
QString language();
/// Loads \a code; empty unloads. False, with nothing changed, for an unknown code.
bool load(const QString &code);

} // namespace LanguageTexts
