#include "EventWriter.h"

#include <algorithm>
#include <optional>

namespace devdata {

namespace {

// Hourly counts that wait in memory before they are written.
constexpr qsizetype mostWaitingHours = 400'000;

using CountedCell = std::pair<EventWriter::Cell, qint64>;

// The order of the table. Written out, as hundreds of thousands of cells are sorted at a time.
bool isBefore(const CountedCell &left, const CountedCell &right)
{
    const EventWriter::Cell &a = left.first;
    const EventWriter::Cell &b = right.first;
    if (a.fact != b.fact)
        return a.fact < b.fact;
    if (a.scope != b.scope)
        return a.scope < b.scope;
    if (a.subject != b.subject)
        return a.subject < b.subject;
    return a.period != b.period ? a.period < b.period : a.eventClass < b.eventClass;
}

std::optional<Fact> totalOf(Fact fact)
{
    switch (fact) {
    case Fact::AlarmTypes:
        return Fact::Alarms;
    case Fact::ReadingClasses:
        return Fact::Readings;
    default:
        return std::nullopt;
    }
}

std::optional<int> orNull(int id)
{
    return id > 0 ? std::optional<int>(id) : std::nullopt;
}

} // namespace

EventWriter::EventWriter(Connection &connection, const Hierarchy &hierarchy)
    : m_connection(connection)
    , m_hierarchy(hierarchy)
    , m_alarms(connection, QStringLiteral("alarm"), QStringLiteral("at, source_id, type, count"))
    , m_intervals(
          connection, QStringLiteral("online_interval"), QStringLiteral("start_at, source_id, minutes"))
    , m_readings(connection, QStringLiteral("temperature"),
          QStringLiteral("at, source_id, person_id, class, mask, handling, count"))
    , m_snapshots(connection, QStringLiteral("snapshot"),
          QStringLiteral("at, source_id, class, minor_1, minor_2, minor_3, minor_4, count"))
{ }

void EventWriter::add(const AlarmEvent &alarm)
{
    m_alarms.add(alarm.at, alarm.source, alarm.type, alarm.count);
    count(Fact::AlarmTypes, Scope::Source, alarm.source, alarm.at, alarm.type, alarm.count);
}

void EventWriter::add(const OnlineInterval &interval)
{
    m_intervals.add(interval.start, interval.source, interval.minutes);
    Minute at = interval.start;
    for (qint64 left = interval.minutes; left > 0;) {
        const Minute nextHour = at.period(TimeUnit::Hour).next().start();
        const qint64 inHour = std::min(left, at.minutesTo(nextHour));
        count(Fact::OnlineMinutes, Scope::Source, interval.source, at, 0, inHour);
        at = nextHour;
        left -= inHour;
    }
}

void EventWriter::add(const TemperatureReading &reading)
{
    m_readings.add(reading.at, orNull(reading.source), orNull(reading.person), reading.temperatureClass,
        reading.maskClass, reading.handling, reading.count);
    if (reading.person > 0)
        count(Fact::ReadingClasses, Scope::Person, reading.person, reading.at, reading.temperatureClass,
            reading.count);
    const int organisation = reading.source > 0 ? m_hierarchy.organisationOfSource(reading.source)
                                                : m_hierarchy.organisationOfPerson(reading.person);
    const auto countForOrganisation = [&](Fact fact, int eventClass) {
        count(fact, Scope::Organisation, organisation, reading.at, eventClass, reading.count);
    };
    countForOrganisation(Fact::ReadingClasses, reading.temperatureClass);
    countForOrganisation(Fact::MaskClasses, reading.maskClass);
    if (reading.handling != noAlarm)
        countForOrganisation(Fact::HandlingStates, reading.handling);
}

void EventWriter::add(const SnapshotEvent &snapshot)
{
    m_snapshots.add(snapshot.at, snapshot.source, snapshot.snapClass, snapshot.minors[0], snapshot.minors[1],
        snapshot.minors[2], snapshot.minors[3], snapshot.count);
    count(Fact::Snapshots, Scope::Source, snapshot.source, snapshot.at, snapshot.snapClass, snapshot.count);
    countDetails(snapshot);
}

void EventWriter::countDetails(const SnapshotEvent &snapshot)
{
    const Fact fact = snapshot.snapClass == vehicleClass ? Fact::VehicleDetails : Fact::PedestrianDetails;
    const auto majors = majorTypesOf(snapshot.snapClass);
    for (size_t i = 0; i < majors.size() && majors[i] > 0; ++i)
        count(fact, Scope::Source, snapshot.source, snapshot.at, detailClass(majors[i], snapshot.minors[i]),
            snapshot.count);
}

void EventWriter::count(Fact fact, Scope scope, int subject, Minute at, int eventClass, qint64 number)
{
    if (number <= 0)
        return;
    m_hours[{fact, scope, subject, eventClass, at.period(TimeUnit::Hour)}] += number;
    if (m_hours.size() >= mostWaitingHours)
        writeCounts();
}

void EventWriter::aggregateOverTime(const Cell &hour, qint64 number)
{
    for (const TimeUnit unit : {TimeUnit::Hour, TimeUnit::Day, TimeUnit::Month}) {
        Cell cell = hour;
        cell.period = hour.period.period(unit);
        aggregateOverSubjects(cell, number);
        if (const std::optional<Fact> total = totalOf(hour.fact)) {
            cell.fact = *total;
            cell.eventClass = 0;
            aggregateOverSubjects(cell, number);
        }
    }
}

void EventWriter::aggregateOverSubjects(const Cell &cell, qint64 number)
{
    m_counts[cell] += number;
    if (cell.scope == Scope::Source && cell.fact != Fact::OnlineMinutes) {
        Cell own = cell;
        own.scope = Scope::Organisation;
        own.subject = m_hierarchy.organisationOfSource(cell.subject);
        m_counts[own] += number;
        aggregateOverOrganisations(cell, own.subject, number);
    } else if (cell.scope == Scope::Organisation) {
        aggregateOverOrganisations(cell, cell.subject, number);
    } else if (cell.scope == Scope::Person) {
        Cell group = cell;
        group.scope = Scope::PersonGroup;
        group.subject = m_hierarchy.groupOfPerson(cell.subject);
        m_counts[group] += number;
    }
}

void EventWriter::aggregateOverOrganisations(const Cell &cell, int organisation, qint64 number)
{
    Cell above = cell;
    above.scope = Scope::BelowOrganisation;
    for (const int ancestor : m_hierarchy.above(organisation)) {
        above.subject = ancestor;
        m_counts[above] += number;
    }
}

void EventWriter::writeCounts()
{
    for (auto hour = m_hours.cbegin(); hour != m_hours.cend(); ++hour)
        aggregateOverTime(hour.key(), hour.value());
    m_hours.clear();

    // In the order of the table, so that neighbours are written together.
    std::vector<CountedCell> counts;
    counts.reserve(static_cast<size_t>(m_counts.size()));
    for (auto count = m_counts.cbegin(); count != m_counts.cend(); ++count)
        counts.emplace_back(count.key(), count.value());
    m_counts.clear();
    std::sort(counts.begin(), counts.end(), isBefore);

    BatchInsert rows(m_connection, QStringLiteral("figure"),
        QStringLiteral("fact, scope, subject, bucket, class, count"),
        QStringLiteral("ON CONFLICT (fact, scope, subject, bucket, class) "
                       "DO UPDATE SET count = figure.count + excluded.count"));
    for (const auto &[cell, number] : counts)
        rows.add(static_cast<int>(cell.fact), static_cast<int>(cell.scope), cell.subject, cell.period,
            cell.eventClass, number);
    rows.flush();
}

void EventWriter::flush()
{
    for (BatchInsert *events : {&m_alarms, &m_intervals, &m_readings, &m_snapshots})
        events->flush();
    writeCounts();
}

} // namespace devdata
