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
        QString error;
        if (!store.open(database.url(), &error))
            qFatal("%s", qUtf8Printable(error));
    }

    /// Number of the channel, or else of the device, with this uid.
    int source(const char *uid) { return devdata::sourceOfUid(store.connection(), uid); }

    template <typename Event>
    void add(std::initializer_list<Event> events)
    {
        devdata::Transaction transaction(store.connection());
        const devdata::Places places(store.connection());
        devdata::EventWriter writer(store.connection(), places);
        for (const Event &event : events)
            writer.add(event);
        writer.flush();
        transaction.commit();
    }

    void addAlarms(const char *uid, devdata::Minute at, int count, int type = 1)
    {
        add({devdata::AlarmEvent{at, source(uid), type, count}});
    }
    void addOnline(const char *uid, devdata::Minute start, int minutes)
    {
        add({devdata::OnlineInterval{start, source(uid), minutes}});
    }
    void addReadings(
        int person, devdata::Minute at, int temperatureClass, int maskClass, int handling, int count = 1)
    {
        add({devdata::TemperatureReading{at, 0, person, temperatureClass, maskClass, handling, count}});
    }
    void addSnapshots(const char *uid, devdata::Minute at, int snapClass,
        const std::array<int, devdata::mostMajorTypes> &minors, int count)
    {
        add({devdata::Snapshot{at, source(uid), snapClass, minors, count}});
    }

    TestDatabase database;
    SqlStore store;
    SqlStatisticsManager service;
};

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
