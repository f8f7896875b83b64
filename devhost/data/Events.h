#pragma once

#include "Periods.h"

#include <array>

namespace devdata {

/// One or more alarms of a source in one minute.
struct AlarmEvent
{
    Minute at;
    int source = 0;
    int type = 0;
    int count = 1;
};

/// A time in which a device was online.
struct OnlineInterval
{
    Minute start;
    int source = 0;
    int minutes = 0;
};

/// Handling state of a reading that raised no alarm.
constexpr int noAlarm = -1;

/// One or more temperature readings alike. Either the source or the person may be missing (0).
struct TemperatureReading
{
    Minute at;
    int source = 0;
    int person = 0;
    int temperatureClass = 0; ///< 0 normal, 1 too high, 2 too low, 3 abnormal
    int maskClass = 0;        ///< 0 not detected, 1 worn, 2 not worn
    int handling = noAlarm;   ///< 2 accepted, 0 not accepted
    int count = 1;
};

constexpr int vehicleClass = 4;
constexpr int pedestrianClass = 2;
constexpr size_t mostMajorTypes = 4;

/// The majors of a snapshot's class (colour, kind, direction …), in a fixed order; 0 where there are fewer.
inline std::array<int, mostMajorTypes> majorTypesOf(int snapClass)
{
    return snapClass == vehicleClass ? std::array<int, mostMajorTypes>{401, 402, 403, 0}
                                     : std::array<int, mostMajorTypes>{201, 202, 203, 204};
}

/// One or more snapshots alike: a vehicle or a pedestrian with one minor type for each major.
struct SnapshotEvent
{
    Minute at;
    int source = 0;
    int snapClass = pedestrianClass;
    std::array<int, mostMajorTypes> minors = {};
    int count = 1;
};

/// Takes events as they come.
class EventSink
{
public:
    virtual ~EventSink() = default;
    virtual void add(const AlarmEvent &alarm) = 0;
    virtual void add(const OnlineInterval &interval) = 0;
    virtual void add(const TemperatureReading &reading) = 0;
    virtual void add(const SnapshotEvent &snapshot) = 0;
};

} // namespace devdata
