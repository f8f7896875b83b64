#pragma once

#include "Counts.h"
#include "Events.h"
#include "Hierarchy.h"

namespace devdata {

/// Stores events and the counts that aggregate them. Everything happens in the transaction that the caller
/// has open; nothing is complete before `flush`.
///
/// An event is counted once, for its own subject and hour; whoever else it concerns (organisations, person
/// group, day, month, total) is aggregated from those hourly counts when they are written.
class EventWriter : public EventSink
{
public:
    EventWriter(Connection &connection, const Hierarchy &hierarchy);

    void add(const AlarmEvent &alarm) override;
    void add(const OnlineInterval &interval) override;
    void add(const TemperatureReading &reading) override;
    void add(const SnapshotEvent &snapshot) override;

    void flush();

    struct Cell
    {
        Fact fact;
        Scope scope;
        int subject;
        int eventClass;
        Period period;

        friend bool operator==(const Cell &a, const Cell &b)
        {
            return a.period == b.period && a.subject == b.subject && a.eventClass == b.eventClass
                && a.fact == b.fact && a.scope == b.scope;
        }
        // Millions of cells are looked up, so this mixes two words where qHashMulti would mix five.
        friend size_t qHash(const Cell &cell, size_t seed = 0) noexcept
        {
            const quint64 who = static_cast<quint64>(cell.fact) << 56 ^ static_cast<quint64>(cell.scope) << 48
                ^ static_cast<quint64>(static_cast<quint32>(cell.subject)) << 22
                ^ static_cast<quint32>(cell.eventClass);
            const quint64 mixed = (who ^ seed) * 0x9e3779b97f4a7c15ULL
                ^ static_cast<quint64>(cell.period.stored()) * 0xc2b2ae3d27d4eb4fULL;
            return static_cast<size_t>(mixed ^ (mixed >> 32));
        }
    };

private:
    using Counts = QHash<Cell, qint64>;

    void count(Fact fact, Scope scope, int subject, Minute at, int eventClass, qint64 number);
    void countDetails(const SnapshotEvent &snapshot);
    void aggregateOverTime(const Cell &hour, qint64 number);
    void aggregateOverSubjects(const Cell &cell, qint64 number);
    void aggregateOverOrganisations(const Cell &cell, int organisation, qint64 number);
    void writeCounts();

    Connection &m_connection;
    const Hierarchy &m_hierarchy;
    BatchInsert m_alarms;
    BatchInsert m_intervals;
    BatchInsert m_readings;
    BatchInsert m_snapshots;
    Counts m_hours;
    Counts m_counts;
};

} // namespace devdata
