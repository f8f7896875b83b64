#include "Spans.h"

#include "Sql.h"

namespace devdata {

namespace {

// A year of hours is more than any chart can show; without a bound a request could ask for millions of rows.
constexpr qint64 mostBuckets = 24 * 366;
constexpr qint64 minutesOfDay = 24 * 60;

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

TimeUnit unitOf(int timeType)
{
    if (timeType < static_cast<int>(TimeUnit::Month) || timeType > static_cast<int>(TimeUnit::Hour))
        throw StoreError(QStringLiteral("The time unit %1 is unknown.").arg(timeType));
    return static_cast<TimeUnit>(timeType);
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

// The digits of a text that has the shape of form, in which letters stand for digits; -1 for another shape.
qint64 digitsLike(const std::string &text, const std::string &form)
{
    if (text.size() != form.size())
        return -1;
    qint64 digits = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        const bool wantsDigit = form[i] != '-' && form[i] != ' ';
        if (wantsDigit ? !isDigit(text[i]) : text[i] != form[i])
            return -1;
        if (wantsDigit)
            digits = digits * 10 + (text[i] - '0');
    }
    return digits;
}

QDate dateOfDay(Bucket day)
{
    return QDate(
        static_cast<int>(day / 10000), static_cast<int>(day / 100 % 100), static_cast<int>(day % 100));
}

Bucket dayOfDate(const QDate &date)
{
    return date.year() * 10000LL + date.month() * 100 + date.day();
}

bool exists(Bucket bucket, TimeUnit unit)
{
    switch (unit) {
    case TimeUnit::Month:
        return dateOfDay(bucket * 100 + 1).isValid();
    case TimeUnit::Day:
        return dateOfDay(bucket).isValid();
    case TimeUnit::Hour:
        return bucket % 100 < 24 && dateOfDay(bucket / 100).isValid();
    }
    return false;
}

Bucket parseBucket(TimeUnit unit, const std::string &text)
{
    Bucket bucket = digitsLike(text, formOf(unit));
    if (bucket < 0 && unit == TimeUnit::Month) {
        const Bucket day = digitsLike(text, formOf(TimeUnit::Day));
        bucket = day >= 0 && exists(day, TimeUnit::Day) ? day / 100 : -1;
    }
    if (bucket < 0 || !exists(bucket, unit))
        throw StoreError(QStringLiteral("The time \"%1\" is not of the form %2.")
                             .arg(QString::fromStdString(text), QLatin1String(formOf(unit))));
    return bucket;
}

qint64 bucketCount(const Span &span)
{
    const qint64 first = span.first;
    const qint64 last = span.last;
    switch (span.unit) {
    case TimeUnit::Month:
        return (last / 100 - first / 100) * 12 + last % 100 - first % 100 + 1;
    case TimeUnit::Day:
        return dateOfDay(first).daysTo(dateOfDay(last)) + 1;
    case TimeUnit::Hour:
        return dateOfDay(first / 100).daysTo(dateOfDay(last / 100)) * 24 + last % 100 - first % 100 + 1;
    }
    return 0;
}

qint64 minuteOfDay(Minute minute)
{
    return minute / 100 % 100 * 60 + minute % 100;
}

} // namespace

Span parseSpan(int timeType, const std::string &start, const std::string &end)
{
    Span span;
    span.unit = unitOf(timeType);
    span.first = parseBucket(span.unit, start);
    span.last = parseBucket(span.unit, end);
    if (!span.isEmpty() && bucketCount(span) > mostBuckets)
        throw StoreError(QStringLiteral("The span from %1 to %2 is too long.")
                             .arg(QString::fromStdString(start), QString::fromStdString(end)));
    return span;
}

Minute minuteOf(const QDateTime &moment)
{
    const QTime time = moment.time();
    return dayOfDate(moment.date()) * 10000 + time.hour() * 100 + time.minute();
}

Bucket bucketOf(Minute minute, TimeUnit unit)
{
    return bucketOfHour(minute / 100, unit);
}

Bucket bucketOfHour(Bucket hour, TimeUnit unit)
{
    switch (unit) {
    case TimeUnit::Month:
        return hour / 10000;
    case TimeUnit::Day:
        return hour / 100;
    case TimeUnit::Hour:
        break;
    }
    return hour;
}

Bucket nextBucket(Bucket bucket, TimeUnit unit)
{
    switch (unit) {
    case TimeUnit::Month:
        return bucket % 100 < 12 ? bucket + 1 : (bucket / 100 + 1) * 100 + 1;
    case TimeUnit::Day:
        return dayOfDate(dateOfDay(bucket).addDays(1));
    case TimeUnit::Hour:
        break;
    }
    return bucket % 100 < 23 ? bucket + 1 : nextBucket(bucket / 100, TimeUnit::Day) * 100;
}

Minute firstMinuteOf(Bucket bucket, TimeUnit unit)
{
    switch (unit) {
    case TimeUnit::Month:
        return (bucket * 100 + 1) * 10000;
    case TimeUnit::Day:
        return bucket * 10000;
    case TimeUnit::Hour:
        break;
    }
    return bucket * 100;
}

std::string labelOf(Bucket bucket, TimeUnit unit)
{
    std::string label = formOf(unit);
    for (auto character = label.rbegin(); character != label.rend(); ++character) {
        if (*character == '-' || *character == ' ')
            continue;
        *character = static_cast<char>('0' + bucket % 10);
        bucket /= 10;
    }
    return label;
}

std::vector<Bucket> bucketsOf(const Span &span)
{
    std::vector<Bucket> buckets;
    for (Bucket bucket = span.first; bucket <= span.last; bucket = nextBucket(bucket, span.unit))
        buckets.push_back(bucket);
    return buckets;
}

qint64 minutesBetween(Minute from, Minute to)
{
    return dateOfDay(from / 10000).daysTo(dateOfDay(to / 10000)) * minutesOfDay + minuteOfDay(to)
        - minuteOfDay(from);
}

Minute addMinutes(Minute minute, qint64 minutes)
{
    qint64 total = minuteOfDay(minute) + minutes;
    qint64 days = total / minutesOfDay;
    total %= minutesOfDay;
    if (total < 0) {
        total += minutesOfDay;
        --days;
    }
    return dayOfDate(dateOfDay(minute / 10000).addDays(days)) * 10000 + total / 60 * 100 + total % 60;
}

} // namespace devdata
