#include "EventWriter.h"

#include <algorithm>
#include <optional>

namespace devdata {

namespace {

// Hourly figures that wait in memory before they are written.
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
    return a.bucket != b.bucket ? a.bucket < b.bucket : a.figureClass < b.figureClass;
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

EventWriter::EventWriter(Connection &connection, const Places &places)
    : m_connection(connection)
    , m_places(places)
    , m_alarms(connection, QStringLiteral("alarm"),
          {QStringLiteral("at"), QStringLiteral("source_id"), QStringLiteral("type"),
              QStringLiteral("count")})
    , m_intervals(connection, QStringLiteral("online_interval"),
          {QStringLiteral("start_at"), QStringLiteral("source_id"), QStringLiteral("minutes")})
    , m_readings(connection, QStringLiteral("temperature"),
          {QStringLiteral("at"), QStringLiteral("source_id"), QStringLiteral("person_id"),
              QStringLiteral("class"), QStringLiteral("mask"), QStringLiteral("handling"),
              QStringLiteral("count")})
    , m_snapshots(connection, QStringLiteral("snapshot"),
          {QStringLiteral("at"), QStringLiteral("source_id"), QStringLiteral("class"),
              QStringLiteral("minor_1"), QStringLiteral("minor_2"), QStringLiteral("minor_3"),
              QStringLiteral("minor_4"), QStringLiteral("count")})
{ }

void EventWriter::add(const AlarmEvent &alarm)
{
    m_alarms.add(alarm.at, alarm.source, alarm.type, alarm.count);
    ++m_eventCount;
    count(Fact::AlarmTypes, Scope::Source, alarm.source, alarm.at, alarm.type, alarm.count);
}

void EventWriter::add(const OnlineInterval &interval)
{
    m_intervals.add(interval.start, interval.source, interval.minutes);
    ++m_eventCount;
    Minute at = interval.start;
    for (qint64 left = interval.minutes; left > 0;) {
        const qint64 inHour = std::min(left, 60 - at % 100);
        count(Fact::OnlineMinutes, Scope::Source, interval.source, at, 0, inHour);
        at = addMinutes(at, inHour);
        left -= inHour;
    }
}

void EventWriter::add(const TemperatureReading &reading)
{
    m_readings.add(reading.at, orNull(reading.source), orNull(reading.person), reading.temperatureClass,
        reading.maskClass, reading.handling, reading.count);
    ++m_eventCount;
    if (reading.person > 0)
        count(Fact::ReadingClasses, Scope::Person, reading.person, reading.at, reading.temperatureClass,
            reading.count);
    const int organisation = reading.source > 0 ? m_places.organisationOfSource(reading.source)
                                                : m_places.organisationOfPerson(reading.person);
    const auto countForOrganisation = [&](Fact fact, int figureClass) {
        count(fact, Scope::Organisation, organisation, reading.at, figureClass, reading.count);
    };
    countForOrganisation(Fact::ReadingClasses, reading.temperatureClass);
    countForOrganisation(Fact::MaskClasses, reading.maskClass);
    if (reading.handling != noAlarm)
        countForOrganisation(Fact::HandlingStates, reading.handling);
}

void EventWriter::add(const Snapshot &snapshot)
{
    m_snapshots.add(snapshot.at, snapshot.source, snapshot.snapClass, snapshot.minors[0], snapshot.minors[1],
        snapshot.minors[2], snapshot.minors[3], snapshot.count);
    ++m_eventCount;
    count(Fact::Snapshots, Scope::Source, snapshot.source, snapshot.at, snapshot.snapClass, snapshot.count);
    countDetails(snapshot);
}

void EventWriter::countDetails(const Snapshot &snapshot)
{
    const Fact fact = snapshot.snapClass == vehicleClass ? Fact::VehicleDetails : Fact::PedestrianDetails;
    const auto majors = majorTypesOf(snapshot.snapClass);
    for (size_t i = 0; i < majors.size() && majors[i] > 0; ++i)
        count(fact, Scope::Source, snapshot.source, snapshot.at, detailClass(majors[i], snapshot.minors[i]),
            snapshot.count);
}

void EventWriter::count(Fact fact, Scope scope, int subject, Minute at, int figureClass, qint64 number)
{
    if (number <= 0)
        return;
    m_hours[{fact, scope, subject, figureClass, bucketOf(at, TimeUnit::Hour)}] += number;
    if (m_hours.size() >= mostWaitingHours)
        writeFigures();
}

void EventWriter::spreadOverTime(const Cell &hour, qint64 number)
{
    for (const TimeUnit unit : {TimeUnit::Hour, TimeUnit::Day, TimeUnit::Month}) {
        Cell cell = hour;
        cell.bucket = bucketOfHour(hour.bucket, unit);
        spreadOverSubjects(cell, number);
        if (const std::optional<Fact> total = totalOf(hour.fact)) {
            cell.fact = *total;
            cell.figureClass = 0;
            spreadOverSubjects(cell, number);
        }
    }
}

void EventWriter::spreadOverSubjects(const Cell &cell, qint64 number)
{
    m_figures[cell] += number;
    if (cell.scope == Scope::Source && cell.fact != Fact::OnlineMinutes) {
        Cell own = cell;
        own.scope = Scope::Organisation;
        own.subject = m_places.organisationOfSource(cell.subject);
        m_figures[own] += number;
        spreadOverOrganisations(cell, own.subject, number);
    } else if (cell.scope == Scope::Organisation) {
        spreadOverOrganisations(cell, cell.subject, number);
    } else if (cell.scope == Scope::Person) {
        Cell group = cell;
        group.scope = Scope::PersonGroup;
        group.subject = m_places.groupOfPerson(cell.subject);
        m_figures[group] += number;
    }
}

void EventWriter::spreadOverOrganisations(const Cell &cell, int organisation, qint64 number)
{
    Cell above = cell;
    above.scope = Scope::BelowOrganisation;
    for (const int ancestor : m_places.above(organisation)) {
        above.subject = ancestor;
        m_figures[above] += number;
    }
}

void EventWriter::writeFigures()
{
    for (auto hour = m_hours.cbegin(); hour != m_hours.cend(); ++hour)
        spreadOverTime(hour.key(), hour.value());
    m_hours.clear();

    // In the order of the table, so that neighbours are written together.
    std::vector<CountedCell> figures;
    figures.reserve(static_cast<size_t>(m_figures.size()));
    for (auto figure = m_figures.cbegin(); figure != m_figures.cend(); ++figure)
        figures.emplace_back(figure.key(), figure.value());
    m_figures.clear();
    std::sort(figures.begin(), figures.end(), isBefore);

    BatchInsert rows(m_connection, QStringLiteral("figure"),
        {QStringLiteral("fact"), QStringLiteral("scope"), QStringLiteral("subject"), QStringLiteral("bucket"),
            QStringLiteral("class"), QStringLiteral("count")},
        QStringLiteral("ON CONFLICT (fact, scope, subject, bucket, class) "
                       "DO UPDATE SET count = figure.count + excluded.count"));
    for (const auto &[cell, number] : figures)
        rows.add(static_cast<int>(cell.fact), static_cast<int>(cell.scope), cell.subject, cell.bucket,
            cell.figureClass, number);
    rows.flush();
}

void EventWriter::flush()
{
    for (BatchInsert *events : {&m_alarms, &m_intervals, &m_readings, &m_snapshots})
        events->flush();
    writeFigures();
}

} // namespace devdata
