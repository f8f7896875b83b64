#include "TimeFormats.h"

#include <TalvixWidgets/BaseHelper.h>

namespace TimeFormats {

namespace {

constexpr int monthsAtMost = 6;
constexpr int daysAtMost = 7;

QDateTime endOfDay(const QDateTime &moment)
{
    return QDateTime(moment.date(), QTime(23, 59, 59));
}

LimitedSpan cutTo(const QDateTime &limit, const QDateTime &start, const QDateTime &stop, const char *tip)
{
    if (start.daysTo(stop) > start.daysTo(limit))
        return {limit, tip};
    return {stop, nullptr};
}

// Hours are counted within one day. A stop on another day of the month than today means the whole start day.
LimitedSpan limitedToOneDay(const QDateTime &start, const QDateTime &stop, const QDate &today)
{
    LimitedSpan span{stop, nullptr};
    if (span.stop.date().day() != today.day())
        span.stop = endOfDay(start);
    if (start.daysTo(span.stop) >= 1)
        span = {endOfDay(start), "TK_TimeInterval(1 day)"};
    return span;
}

} // namespace

QString request(int timeType)
{
    switch (timeType) {
    case ZrCalendarWidget::Day:
        return QStringLiteral("yyyy-MM-dd");
    case ZrCalendarWidget::Hour:
        return QStringLiteral("yyyy-MM-dd hh");
    default:
        return QStringLiteral("yyyy-MM");
    }
}

QString display(int timeType)
{
    return BaseHelper::dateTimeFormatConversion(request(timeType));
}

QString spanText(const QDateTime &start, const QDateTime &stop, const QString &format)
{
    return start.toString(format) + QLatin1Char('~') + stop.toString(format);
}

QStringList spanParts(const QString &text)
{
    return text.split(QLatin1Char('~'), Qt::KeepEmptyParts, Qt::CaseSensitive);
}

LimitedSpan limited(const QDateTime &start, const QDateTime &stop, int timeType, const QDate &today)
{
    switch (timeType) {
    case ZrCalendarWidget::Month:
        return cutTo(start.addMonths(monthsAtMost), start, stop, "TK_TimeInterval(0-6 months)");
    case ZrCalendarWidget::Day:
        return cutTo(start.addDays(daysAtMost), start, stop, "TK_TimeInterval(0-7 days)");
    case ZrCalendarWidget::Hour:
        return limitedToOneDay(start, stop, today);
    default:
        return {stop, nullptr};
    }
}

} // namespace TimeFormats
