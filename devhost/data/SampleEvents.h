#pragma once

#include "Events.h"
#include "Sql.h"

#include <QtCore/QString>

#include <functional>
#include <vector>

namespace devdata {

/// Who takes part in the sample events.
struct SampleWorld
{
    struct Device
    {
        int id;
        bool everOnline;
    };
    struct Channel
    {
        int id;
        bool countsTraffic;
    };

    std::vector<Device> devices;
    std::vector<Channel> channels;
    std::vector<int> persons;
};

/// Reads who takes part; what was imported does not.
SampleWorld readSampleWorld(Connection &connection);

/// How many of how many steps are done.
using Progress = std::function<void(int done, int total)>;

/// The density of an ordinary day; twice as much makes twice as many events.
constexpr int usualDensity = 1000;

struct SampleOptions
{
    quint64 seed = 1;
    Minute from;                ///< first minute
    Minute to;                  ///< first minute after the last
    Minute fineFrom;            ///< days before this one have their events in a few hours only
    int density = usualDensity; ///< how many events
    bool singly = false;        ///< every alarm, reading and snapshot is an event of its own
};

/// Makes events with the rhythm of days and weeks. The same seed gives the same events whether a time
/// range is made at once or in pieces.
void generateSampleEvents(
    const SampleWorld &world, const SampleOptions &options, EventSink &sink, const Progress &progress = {});

/// The density with which about \a events single events are made.
int densityForEvents(const SampleWorld &world, const SampleOptions &options, qint64 events);

} // namespace devdata
