#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

#include <string>
#include <vector>

namespace devdata {

/// Granularity of a query; the numbers are those of the requests.
enum class TimeUnit : int { Month = 1, Day = 2, Hour = 3 };

/// A period of time, written as the number that its label's digits make: 202405, 20240503 or 2024050317 for
/// May 2024, its third day, or 17 o'clock on that day. It is local time without a zone, so changes of the
/// clock do no harm, and the length of the number tells the granularity.
using Bucket = qint64;

/// A minute, written likewise: 202405031720.
using Minute = qint64;

/// The periods from the first to the last, both included. None when the last is before the first.
struct Span
{
    TimeUnit unit = TimeUnit::Hour;
    Bucket first = 0;
    Bucket last = -1;

    bool isEmpty() const { return last < first; }
};

/// Reads a request's span. A month may also be written as one of its days. Throws StoreError when \a timeType
/// or one of the times is malformed, or when the span has more periods than anybody can look at.
Span parseSpan(int timeType, const std::string &start, const std::string &end);

Minute minuteOf(const QDateTime &moment);
Bucket bucketOf(Minute minute, TimeUnit unit);
Bucket bucketOfHour(Bucket hour, TimeUnit unit);
Bucket nextBucket(Bucket bucket, TimeUnit unit);
Minute firstMinuteOf(Bucket bucket, TimeUnit unit);
/// The form that requests and answers use, such as "2024-05-03 17".
std::string labelOf(Bucket bucket, TimeUnit unit);
/// All periods of \a span in order.
std::vector<Bucket> bucketsOf(const Span &span);
/// Minutes between two moments on the wall clock, where every day has 24 hours.
qint64 minutesBetween(Minute from, Minute to);
/// \a minute moved by \a minutes on that wall clock.
Minute addMinutes(Minute minute, qint64 minutes);

} // namespace devdata
