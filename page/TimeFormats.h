#pragma once

#include <TalvixWidgets/ZrCalendarWidget.h>

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// The span of time as text: what stands in the line edit and what goes to the server.
namespace TimeFormats {

/// Format of a time unit in requests and answers.
QString request(int timeType);
/// Format of a time unit as the user reads it.
QString display(int timeType);

/// "start~stop" in the given format.
QString spanText(const QDateTime &start, const QDateTime &stop, const QString &format);
/// The parts of a span text; two when it is well formed.
QStringList spanParts(const QString &text);

/// A span cut back to what a time unit allows.
struct LimitedSpan
{
    QDateTime stop;
    const char *tip = nullptr; ///< key of the tip that says so, or null
};

/// The limits: six months, seven days, or one day of hours. The start is never moved.
LimitedSpan limited(const QDateTime &start, const QDateTime &stop, int timeType, const QDate &today);

} // namespace TimeFormats
