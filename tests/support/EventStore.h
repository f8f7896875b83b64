#pragma once

#include "TestMain.h"

#include <devhost/data/EventWriter.h>
#include <devhost/data/SqlKrxClient.h>
#include <devhost/data/SqlStatisticsManager.h>
#include <devhost/data/SqlStore.h>

#include <initializer_list>

/// A store in memory with the sample world and only those events that a test puts into it. Its present moment
/// is that of the tests.
class EventStore
{
public:
    EventStore()
        : service(store)
    {
        store.setPresentMoment([] { return testMoment(); });
        QString error;
        if (!store.open(QStringLiteral(":memory:"), &error))
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
