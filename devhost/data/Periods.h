#pragma once

#include <QtCore/QDateTime>

#include <string>
#include <vector>

namespace devdata {

/// Granularity of a query; the numbers are those of the requests.
enum class TimeUnit : int { Month = 1, Day = 2, Hour = 3 };

class Period;

/// A minute of local time without a zone, so changes of the clock do no harm: every day has 24 hours.
class Minute
{
public:
    /// No minute; it lies before all others.
    Minute() = default;
    Minute(const QDate &date, const QTime &time);
    explicit Minute(const QDateTime &time)
        : Minute(time.date(), time.time())
    { }

    /// The number by which a database knows the minute. Numbers have the order of the minutes, but no other
    /// arithmetic.
    qint64 stored() const { return m_digits; }
    static Minute fromStored(qint64 number) { return Minute(number); }

    bool isNull() const { return m_digits == 0; }
    /// The period of \a unit that the minute belongs to.
    Period period(TimeUnit unit) const;
    Minute plus(qint64 minutes) const;
    qint64 minutesTo(Minute other) const;

    friend bool operator==(Minute a, Minute b) { return a.m_digits == b.m_digits; }
    friend bool operator<(Minute a, Minute b) { return a.m_digits < b.m_digits; }
    friend bool operator>=(Minute a, Minute b) { return !(a < b); }

private:
    explicit Minute(qint64 digits)
        : m_digits(digits)
    { }

    qint64 m_digits = 0;
};

/// A month, day or hour.
class Period
{
public:
    /// Before all others.
    Period() = default;

    /// The number by which a database knows the period among those of its unit. Numbers have the order of the
    /// periods, but no other arithmetic.
    qint64 stored() const { return m_digits; }
    static Period fromStored(TimeUnit unit, qint64 number) { return Period(unit, number); }

    TimeUnit unit() const { return m_unit; }
    Minute start() const;
    QDate firstDay() const;
    Period next() const;
    /// The period of \a unit that this one, which must not be longer, belongs to.
    Period period(TimeUnit unit) const;
    /// The form that requests and answers use, such as "2024-05-03 17".
    std::string label() const;

    friend bool operator==(Period a, Period b) { return a.m_digits == b.m_digits && a.m_unit == b.m_unit; }
    friend bool operator!=(Period a, Period b) { return !(a == b); }
    /// Meaningful for periods of one unit only.
    friend bool operator<(Period a, Period b) { return a.m_digits < b.m_digits; }
    friend bool operator<=(Period a, Period b) { return !(b < a); }

private:
    Period(TimeUnit unit, qint64 digits)
        : m_digits(digits)
        , m_unit(unit)
    { }

    qint64 m_digits = 0;
    TimeUnit m_unit = TimeUnit::Hour;
};

/// The periods from the first to the last, both included and of one unit. None when the last is before the
/// first.
struct TimeRange
{
    Period first;
    Period last;

    TimeUnit unit() const { return first.unit(); }
    bool isEmpty() const { return last < first; }
    std::vector<Period> periods() const;
};

/// Reads the time range of a request. A month may also be written as one of its days. Throws StoreError when
/// \a timeType or one of the times is malformed, or when the range has more periods than anybody can look at.
TimeRange parseTimeRange(int timeType, const std::string &start, const std::string &end);

} // namespace devdata
