#include "Periods.h"

#include "Sql.h"

#include <cstring>
#include <optional>

namespace devdata {

// Times are stored as the number that the digits of their labels form: 202405, 20240503 and 2024050317 are
// May 2024, its third day and 17 o'clock on that day, 202405031720 is a minute.

namespace {

// A year of hours is more than any chart can show; without a bound a request could ask for millions of rows.
constexpr qint64 mostPeriods = 24 * 366;
constexpr qint64 minutesOfHour = 60;
constexpr qint64 minutesOfDay = 24 * minutesOfHour;

const char *formOf(TimeUnit unit)
{
    switch (unit) {
    case TimeUnit::Month:
        return "yyyy-MM";
    case TimeUnit::Day:
        return "yyyy-MM-dd";
    case TimeUnit::Hour:
        return "yyyy-MM-dd hh";
    }
    return "";
}

// The factor from the digits of a period to those of its first minute.
qint64 scaleOf(TimeUnit unit)
{
    switch (unit) {
    case TimeUnit::Month:
        return 1'000'000;
    case TimeUnit::Day:
        return 10'000;
    case TimeUnit::Hour:
        break;
    }
    return 100;
}

TimeUnit unitOf(int timeType)
{
    if (timeType < static_cast<int>(TimeUnit::Month) || timeType > static_cast<int>(TimeUnit::Hour))
        throw StoreError(QStringLiteral("The time unit %1 is unknown.").arg(timeType));
    return static_cast<TimeUnit>(timeType);
}

QDate dateOfDay(qint64 digits)
{
    return QDate(static_cast<int>(digits / 10000), static_cast<int>(digits / 100 % 100),
        static_cast<int>(digits % 100));
}

qint64 digitsOfDay(const QDate &date)
{
    return date.year() * 10000LL + date.month() * 100 + date.day();
}

qint64 minuteOfDay(qint64 digits)
{
    return digits / 100 % 100 * minutesOfHour + digits % 100;
}

// The period whose label is the text; nothing for a time that does not exist or is written otherwise.
std::optional<Period> periodOf(TimeUnit unit, const std::string &text)
{
    if (text.size() != std::strlen(formOf(unit)))
        return std::nullopt;
    qint64 digits = 0;
    for (const char character : text)
        if (character >= '0' && character <= '9')
            digits = digits * 10 + (character - '0');
    const Period period = Period::fromStored(unit, digits);
    // Hour 24 is the first of the next day.
    const bool exists = period.firstDay().isValid() && period.start().plus(0) == period.start();
    return exists && period.label() == text ? std::optional<Period>(period) : std::nullopt;
}

Period parsePeriod(TimeUnit unit, const std::string &text)
{
    if (const std::optional<Period> period = periodOf(unit, text))
        return *period;
    const std::optional<Period> day = periodOf(TimeUnit::Day, text);
    if (unit == TimeUnit::Month && day)
        return day->period(unit);
    throw StoreError(QStringLiteral("The time '%1' is not of the form %2.")
                         .arg(QString::fromStdString(text), QLatin1String(formOf(unit))));
}

qint64 countOf(const TimeRange &range)
{
    const QDate first = range.first.firstDay();
    const QDate last = range.last.firstDay();
    if (range.unit() == TimeUnit::Month)
        return (last.year() - first.year()) * 12 + last.month() - first.month() + 1;
    const qint64 minutes = range.first.start().minutesTo(range.last.start());
    return minutes / (range.unit() == TimeUnit::Day ? minutesOfDay : minutesOfHour) + 1;
}

} // namespace

Minute::Minute(const QDate &date, const QTime &time)
    : m_digits(digitsOfDay(date) * 10000 + time.hour() * 100 + time.minute())
{ }

Period Minute::period(TimeUnit unit) const
{
    return Period::fromStored(unit, m_digits / scaleOf(unit));
}

Minute Minute::plus(qint64 minutes) const
{
    qint64 total = minuteOfDay(m_digits) + minutes;
    qint64 days = total / minutesOfDay;
    total %= minutesOfDay;
    if (total < 0) {
        total += minutesOfDay;
        --days;
    }
    const qint64 today = m_digits / 10000;
    const qint64 day = days == 0 ? today : digitsOfDay(dateOfDay(today).addDays(days));
    return fromStored(day * 10000 + total / minutesOfHour * 100 + total % minutesOfHour);
}

qint64 Minute::minutesTo(Minute other) const
{
    return dateOfDay(m_digits / 10000).daysTo(dateOfDay(other.m_digits / 10000)) * minutesOfDay
        + minuteOfDay(other.m_digits) - minuteOfDay(m_digits);
}

Minute Period::start() const
{
    const qint64 firstDayOfMonth = m_unit == TimeUnit::Month ? 10000 : 0;
    return Minute::fromStored(m_digits * scaleOf(m_unit) + firstDayOfMonth);
}

QDate Period::firstDay() const
{
    return dateOfDay(start().stored() / 10000);
}

Period Period::next() const
{
    switch (m_unit) {
    case TimeUnit::Month:
        return Period(m_unit, digitsOfDay(firstDay().addMonths(1)) / 100);
    case TimeUnit::Day:
        return Period(m_unit, digitsOfDay(firstDay().addDays(1)));
    case TimeUnit::Hour:
        break;
    }
    return start().plus(minutesOfHour).period(m_unit);
}

Period Period::period(TimeUnit unit) const
{
    return start().period(unit);
}

std::string Period::label() const
{
    std::string label = formOf(m_unit);
    qint64 digits = m_digits;
    for (auto character = label.rbegin(); character != label.rend(); ++character) {
        if (*character == '-' || *character == ' ')
            continue;
        *character = static_cast<char>('0' + digits % 10);
        digits /= 10;
    }
    return label;
}

std::vector<Period> TimeRange::periods() const
{
    std::vector<Period> periods;
    for (Period period = first; period <= last; period = period.next())
        periods.push_back(period);
    return periods;
}

TimeRange parseTimeRange(int timeType, const std::string &start, const std::string &end)
{
    const TimeUnit unit = unitOf(timeType);
    const TimeRange range = {parsePeriod(unit, start), parsePeriod(unit, end)};
    if (!range.isEmpty() && countOf(range) > mostPeriods)
        throw StoreError(QStringLiteral("The time range from %1 to %2 is too long.")
                             .arg(QString::fromStdString(start), QString::fromStdString(end)));
    return range;
}

} // namespace devdata
