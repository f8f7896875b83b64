#pragma once

#include "PostgresServer.h"
#include "TestMain.h"

#include <devhost/data/EventWriter.h>
#include <devhost/data/SqlKrxClient.h>
#include <devhost/data/SqlStatisticsManager.h>
#include <devhost/data/SqlStore.h>

#include <initializer_list>

/// A database for one test: in memory, or a new one of the tests' own PostgreSQL server.
class TestDatabase
{
public:
    enum class Place { Memory, Postgres };

    /// What tests use unless they ask for one: the environment's TALVIX_TEST_DATABASE may say "postgres".
    static Place usualPlace()
    {
        return qgetenv("TALVIX_TEST_DATABASE") == "postgres" ? Place::Postgres : Place::Memory;
    }
    /// Why there is no such database here, as a sentence; empty when there is.
    static QString missing(Place place = usualPlace())
    {
        if (place == Place::Memory)
            return {};
        if (!QSqlDatabase::isDriverAvailable(QStringLiteral("QPSQL")))
            return QStringLiteral("There is no driver for PostgreSQL here; Debian's package is "
                                  "libqt6sql6-psql.");
        return PostgresServer::missing();
    }

    explicit TestDatabase(Place place = usualPlace())
        : m_url(
            place == Place::Postgres ? PostgresServer::shared().takeDatabase() : QStringLiteral(":memory:"))
        , m_place(place)
    { }
    ~TestDatabase()
    {
        if (m_place == Place::Postgres)
            PostgresServer::shared().giveBack(m_url);
    }

    const QString &url() const { return m_url; }

private:
    Q_DISABLE_COPY_MOVE(TestDatabase)

    QString m_url;
    Place m_place;
};

/// Skips a test, or from initTestCase a whole program, that has no database to run on.
#define SKIP_WITHOUT_DATABASE(...)                                                                           \
    do {                                                                                                     \
        const QString missingDatabase = TestDatabase::missing(__VA_ARGS__);                                  \
        if (!missingDatabase.isEmpty())                                                                      \
            QSKIP(qPrintable(missingDatabase));                                                              \
    } while (false)

/// The minute that is written as "2024-05-03 17:20".
inline devdata::Minute minute(const char *text)
{
    return devdata::Minute(
        QDateTime::fromString(QString::fromLatin1(text), QStringLiteral("yyyy-MM-dd HH:mm")));
}

/// A store with the sample world and only those events that a test puts into it. Its present moment is that
/// of the tests.
class EventStore
{
public:
    explicit EventStore(TestDatabase::Place place = TestDatabase::usualPlace())
        : database(place)
        , service(store)
    {
        store.setPresentMoment([] { return testMoment(); });
        store.open(database.url());
    }

    /// Number of the channel, or else of the device, with this uid.
    int source(const char *uid) { return devdata::sourceOfUid(store.connection(), uid); }

    template <typename Event>
    void add(std::initializer_list<Event> events)
    {
        devdata::Transaction transaction(store.connection());
        const devdata::Hierarchy places(store.connection());
        devdata::EventWriter writer(store.connection(), places);
        for (const Event &event : events)
            writer.add(event);
        writer.flush();
        transaction.commit();
    }

    void addAlarms(const char *uid, const char *at, int count, int type = 1)
    {
        add({devdata::AlarmEvent{minute(at), source(uid), type, count}});
    }
    void addOnline(const char *uid, const char *start, int minutes)
    {
        add({devdata::OnlineInterval{minute(start), source(uid), minutes}});
    }
    void addReadings(
        int person, const char *at, int temperatureClass, int maskClass, int handling, int count = 1)
    {
        add({devdata::TemperatureReading{
            minute(at), 0, person, temperatureClass, maskClass, handling, count}});
    }
    void addSnapshots(const char *uid, const char *at, int snapClass,
        const std::array<int, devdata::mostMajorTypes> &minors, int count)
    {
        add({devdata::SnapshotEvent{minute(at), source(uid), snapClass, minors, count}});
    }

    TestDatabase database;
    SqlStore store;
    SqlStatisticsManager service;
};

/// How many rows each table has.
inline QStringList rowCounts(SqlStore &store)
{
    QStringList tables = store.connection().tableNames();
    tables.sort();
    QStringList counts;
    for (const QString &table : std::as_const(tables)) {
        devdata::Statement rows(store.connection(), QStringLiteral("SELECT COUNT(*) FROM %1").arg(table));
        counts += QStringLiteral("%1 %2").arg(table).arg(rows.execute().single());
    }
    return counts;
}

/// Every aggregated count that a store holds.
inline QStringList countsIn(SqlStore &store)
{
    devdata::Statement rows(store.connection(),
        QStringLiteral("SELECT fact, scope, subject, bucket, class, count FROM figure "
                       "ORDER BY fact, scope, subject, bucket, class"));
    rows.execute();
    QStringList counts;
    while (rows.next())
        counts += QStringLiteral("%1 %2 %3 %4 %5 %6")
                      .arg(rows.number("fact"))
                      .arg(rows.number("scope"))
                      .arg(rows.number("subject"))
                      .arg(rows.number("bucket"))
                      .arg(rows.number("class"))
                      .arg(rows.number("count"));
    return counts;
}

/// The sentence with which \a work fails; empty when it succeeds.
template <typename Work>
QString failureOf(const Work &work)
{
    try {
        work();
    } catch (const devdata::StoreError &error) {
        return error.text();
    }
    return {};
}

/// Sets unit and span of a request.
template <typename Request>
Request inSpan(int timeType, const char *start, const char *end)
{
    Request request;
    request.timeType = timeType;
    request.setStartTime(start);
    request.setEndTime(end);
    return request;
}
