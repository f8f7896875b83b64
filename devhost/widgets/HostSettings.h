#pragma once

#include <TalvixWidgets/TalvixWidgetsGlobal.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

/// What the user of the host has chosen: language, date form and theme.
namespace HostSettings {

/// Codes of the languages on offer: "en", "zh_CN", "de" and two pseudo-languages; "x-long" lengthens every
/// text, "x-rtl" is written from right to left.
TALVIXWIDGETS_EXPORT QStringList languages();
/// Loads a language and tells every widget of the application; false, with nothing changed, for an unknown
/// code. The empty code means no language: keys are shown as they stand. That is how a process starts.
TALVIXWIDGETS_EXPORT bool setLanguage(const QString &code);
TALVIXWIDGETS_EXPORT QString language();

/// Order of the fields in displayed dates.
enum class DateOrder { YearFirst, DayFirst };
/// A process starts with `YearFirst`: displayed dates look like those of requests.
TALVIXWIDGETS_EXPORT void setDateOrder(DateOrder order);
TALVIXWIDGETS_EXPORT DateOrder dateOrder();

/// Gives the application the theme's style sheet, palette and font. Colours by key need no such call.
TALVIXWIDGETS_EXPORT void applyTheme();

} // namespace HostSettings
