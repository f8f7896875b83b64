#include "SampleEvents.h"

#include "Hierarchy.h"
#include "Settings.h"
#include "World.h"

#include <algorithm>
#include <array>

namespace devdata {

namespace {

// How busy an hour of the day and a day of the week is, in percent.
constexpr std::array<int, 24> dayRhythm = {
    4, 2, 1, 1, 2, 8, 25, 60, 90, 70, 60, 65, 80, 75, 60, 60, 75, 95, 100, 70, 45, 30, 18, 9};
constexpr std::array<int, 8> weekRhythm = {0, 95, 100, 100, 105, 110, 70, 45};

// The hours that stand for a whole day where events are not made hour by hour.
constexpr std::array<size_t, 2> coarseHours = {9, 17};
constexpr int coarseWeight = 7;

// From this number on the snapshots of an hour differ in their minor types.
constexpr int manySnapshots = 40;

// Most events are snapshots; when single events are made for measuring, the other kinds get a share as well.
constexpr int shareOfOthers = 8;

constexpr int namelessType = 99;
constexpr int minutesOfHour = 60;
constexpr int minutesOfDay = 24 * minutesOfHour;
constexpr qint64 minutesOfWeek = qint64{7} * minutesOfDay;

// A small generator of its own: the numbers must be the same with every library and in every release.
class RandomSource
{
public:
    RandomSource(quint64 seed, quint64 topic, quint64 subject, quint64 time)
        : m_state(mix(mix(mix(mix(seed) ^ topic) ^ subject) ^ time))
    { }

    int below(int limit)
    {
        m_state += 0x9e3779b97f4a7c15ULL;
        return static_cast<int>(mix(m_state) >> 33) % limit;
    }
    bool percent(int chance) { return below(100) < chance; }
    /// A whole number whose mean is \a thousandths / 1000.
    int amount(qint64 thousandths)
    {
        const qint64 varied = thousandths * (75 + below(51)) / 100;
        return static_cast<int>(varied / 1000) + (below(1000) < varied % 1000 ? 1 : 0);
    }
    template <size_t N>
    int weighted(const std::array<int, N> &weights)
    {
        int rest = below(100);
        for (size_t i = 0; i < N; ++i) {
            rest -= weights[i];
            if (rest < 0)
                return static_cast<int>(i);
        }
        return static_cast<int>(N) - 1;
    }

private:
    static quint64 mix(quint64 value)
    {
        value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9ULL;
        value = (value ^ (value >> 27)) * 0x94d049bb133111ebULL;
        return value ^ (value >> 31);
    }

    quint64 m_state;
};

enum Topic : quint64 {
    alarmTopic = 11,
    onlineTopic,
    temperatureTopic,
    vehicleTopic,
    pedestrianTopic,
    traitTopic
};

class Generator
{
public:
    Generator(const SampleWorld &world, const SampleOptions &options, EventSink &sink)
        : m_world(world)
        , m_options(options)
        , m_sink(sink)
    { }

    void makeDay(Period day);

private:
    void makeHour(Period hour, qint64 busy);
    void makeOnlineIntervals(Period day, int device);
    void emitOnline(Period day, int device, int from, int to);
    void makeAlarms(Period hour, int channel, qint64 busy);
    void makeReadings(Period hour, int person, qint64 busy);
    void makeSnapshots(Period hour, int channel, qint64 busy, int snapClass);
    SnapshotEvent someSnapshot(RandomSource &random, int channel, int snapClass) const;

    RandomSource randomSource(Topic topic, int subject, qint64 time) const
    {
        return RandomSource(m_options.seed, topic, static_cast<quint64>(subject), static_cast<quint64>(time));
    }
    /// What is always the same for a subject.
    int trait(Topic topic, int subject, int limit) const
    {
        return randomSource(traitTopic, subject, static_cast<qint64>(topic)).below(limit);
    }
    bool isWanted(Minute minute) const { return minute >= m_options.from && minute < m_options.to; }

    template <typename Event>
    void emitEvent(Period hour, RandomSource &random, Event event, int count);

    const SampleWorld &m_world;
    const SampleOptions &m_options;
    EventSink &m_sink;
    bool m_fine = true;
};

void Generator::makeDay(Period day)
{
    m_fine = day.start() >= m_options.fineFrom;
    for (const SampleWorld::Device &device : m_world.devices)
        if (device.everOnline)
            makeOnlineIntervals(day, device.id);
    const qint64 busyDay =
        qint64{weekRhythm[static_cast<size_t>(day.firstDay().dayOfWeek())]} * (m_fine ? 1 : coarseWeight);
    const auto makeAt = [&](size_t hour) {
        const Minute start = day.start().plus(static_cast<qint64>(hour) * minutesOfHour);
        makeHour(start.period(TimeUnit::Hour), dayRhythm[hour] * busyDay / 100 * m_options.density);
    };
    if (m_fine) {
        for (size_t hour = 0; hour < dayRhythm.size(); ++hour)
            makeAt(hour);
    } else {
        std::for_each(coarseHours.begin(), coarseHours.end(), makeAt);
    }
}

void Generator::makeHour(Period hour, qint64 busy)
{
    if (m_options.from >= hour.next().start() || hour.start() >= m_options.to)
        return;
    const qint64 busyOthers = busy * (m_options.singly ? shareOfOthers : 1);
    for (const SampleWorld::Channel &channel : m_world.channels) {
        makeAlarms(hour, channel.id, busyOthers);
        if (channel.countsTraffic) {
            makeSnapshots(hour, channel.id, busy, vehicleClass);
            makeSnapshots(hour, channel.id, busy, pedestrianClass);
        }
    }
    for (const int person : m_world.persons)
        makeReadings(hour, person, busyOthers);
}

// The random numbers are the same for minutes that are not wanted, so that an hour can be made in pieces.
template <typename Event>
void Generator::emitEvent(Period hour, RandomSource &random, Event event, int count)
{
    event.at = hour.start().plus(random.below(minutesOfHour));
    event.count = count;
    if (isWanted(event.at))
        m_sink.add(event);
}

void Generator::makeAlarms(Period hour, int channel, qint64 busy)
{
    static constexpr std::array<int, 8> typeWeights = {34, 22, 12, 9, 8, 5, 5, 5};
    RandomSource random = randomSource(alarmTopic, channel, hour.stored());
    const int most = 150 + trait(alarmTopic, channel, 750);
    int number = random.amount(most * busy / 100000);
    while (number > 0) {
        AlarmEvent alarm;
        alarm.source = channel;
        alarm.type = random.below(150) == 0 ? namelessType : 1 + random.weighted(typeWeights);
        const int alike = m_fine ? 1 : number;
        emitEvent(hour, random, alarm, alike);
        number -= alike;
    }
}

void Generator::makeReadings(Period hour, int person, qint64 busy)
{
    static constexpr std::array<int, 4> classWeights = {93, 4, 2, 1};
    static constexpr std::array<int, 3> maskWeights = {12, 80, 8};
    static constexpr std::array<int, 3> handlingWeights = {30, 10, 60};
    RandomSource random = randomSource(temperatureTopic, person, hour.stored());
    int number = random.amount((120 + trait(temperatureTopic, person, 200)) * busy / 100000);
    while (number > 0) {
        TemperatureReading reading;
        reading.person = person;
        reading.temperatureClass = random.weighted(classWeights);
        reading.maskClass = random.weighted(maskWeights);
        const int handling = random.weighted(handlingWeights);
        reading.handling = reading.temperatureClass == 0 ? noAlarm : handling;
        emitEvent(hour, random, reading, 1);
        --number;
    }
}

SnapshotEvent Generator::someSnapshot(RandomSource &random, int channel, int snapClass) const
{
    static constexpr std::array<int, 8> paints = {26, 20, 15, 12, 10, 8, 6, 3};
    static constexpr std::array<int, 6> kinds = {50, 20, 12, 6, 7, 5};
    static constexpr std::array<int, 4> ages = {12, 28, 45, 15};
    static constexpr std::array<int, 7> coats = {22, 26, 18, 10, 12, 7, 5};
    static constexpr std::array<int, 4> bags = {38, 26, 28, 8};
    const bool reversed = trait(traitTopic, channel, 2) == 1;
    const int direction = 1 + (random.percent(62) == reversed ? 1 : 0);
    const bool hasName = !random.percent(4);
    SnapshotEvent snapshot;
    snapshot.source = channel;
    snapshot.snapClass = snapClass;
    if (snapClass == vehicleClass)
        snapshot.minors = {
            hasName ? 1 + random.weighted(paints) : namelessType, 1 + random.weighted(kinds), direction, 0};
    else
        snapshot.minors = {1 + random.weighted(ages), hasName ? 1 + random.weighted(coats) : namelessType,
            1 + random.weighted(bags), direction};
    return snapshot;
}

void Generator::makeSnapshots(Period hour, int channel, qint64 busy, int snapClass)
{
    const Topic topic = snapClass == vehicleClass ? vehicleTopic : pedestrianTopic;
    RandomSource random = randomSource(topic, channel, hour.stored());
    const int most =
        snapClass == vehicleClass ? 2000 + trait(topic, channel, 30000) : 6000 + trait(topic, channel, 70000);
    int number = random.amount(most * busy / 100000);
    int groups = m_options.singly ? number : std::min(number, m_fine && number >= manySnapshots ? 2 : 1);
    for (; groups > 0; --groups) {
        const int alike = number / groups;
        emitEvent(hour, random, someSnapshot(random, channel, snapClass), alike);
        number -= alike;
    }
}

// A quarter of the devices is switched off at night; any of them may fail for some hours.
void Generator::makeOnlineIntervals(Period day, int device)
{
    RandomSource random = randomSource(onlineTopic, device, day.stored());
    const bool sleeps = trait(onlineTopic, device, 4) == 0;
    const int wakes = sleeps ? 6 * 60 + random.below(30) : 0;
    const int rests = sleeps ? 21 * 60 + random.below(60) : minutesOfDay;
    const bool fails = random.percent(8);
    const int failure = fails ? random.below(minutesOfDay) : minutesOfDay;
    const int repair = std::min(failure + 20 + random.below(300), minutesOfDay);
    emitOnline(day, device, wakes, std::min(rests, failure));
    emitOnline(day, device, std::max(wakes, repair), rests);
}

void Generator::emitOnline(Period day, int device, int from, int to)
{
    const Minute midnight = day.start();
    if (midnight < m_options.from)
        from = static_cast<int>(std::max<qint64>(from, midnight.minutesTo(m_options.from)));
    to = static_cast<int>(std::min<qint64>(to, midnight.minutesTo(m_options.to)));
    if (from < to)
        m_sink.add(OnlineInterval{midnight.plus(from), device, to - from});
}

class CountingSink : public EventSink
{
public:
    void add(const AlarmEvent &) override { ++events; }
    void add(const OnlineInterval &) override { }
    void add(const TemperatureReading &) override { ++events; }
    void add(const SnapshotEvent &) override { ++events; }

    qint64 events = 0;
};

} // namespace

SampleWorld readSampleWorld(Connection &connection)
{
    const qint64 imported = numberOf(connection, Setting::ImportedOrganisation);
    SampleWorld world;
    Statement devices(
        connection, QStringLiteral("SELECT id, uid FROM source WHERE kind = ? AND orga_id <> ? ORDER BY id"));
    devices.execute(SourceKind::Device, imported);
    while (devices.next())
        world.devices.push_back({devices.integer("id"), devices.text("uid") != neverOnlineUid()});

    // Channels that share their display name would share their bars of traffic as well.
    Statement channels(connection,
        QStringLiteral(
            "SELECT c.id, c.uid, d.uid AS device, d.type_id, "
            "(SELECT COUNT(*) FROM source o WHERE o.kind = d.kind AND o.name = d.name) AS namesakes "
            "FROM source c JOIN source d ON d.id = c.device_id "
            "WHERE c.kind = ? AND c.orga_id <> ? ORDER BY c.id"));
    channels.execute(SourceKind::Channel, imported);
    while (channels.next()) {
        // Only the first channel of a recorder looks at people and vehicles.
        const bool countsTraffic = channels.text("uid").endsWith(QLatin1String("-1"))
            && channels.integer("type_id") != unknownDevice && channels.integer("namesakes") == 1;
        if (channels.text("device") != neverOnlineUid())
            world.channels.push_back({channels.integer("id"), countsTraffic});
    }

    Statement persons(connection,
        QStringLiteral("SELECT p.id FROM person p JOIN person_group g ON g.id = p.group_id "
                       "WHERE g.orga_id <> ? ORDER BY p.id"));
    persons.execute(imported);
    while (persons.next())
        world.persons.push_back(persons.integer("id"));
    return world;
}

void generateSampleEvents(
    const SampleWorld &world, const SampleOptions &options, EventSink &sink, const Progress &progress)
{
    if (options.from >= options.to)
        return;
    Generator generator(world, options, sink);
    Period day = options.from.period(TimeUnit::Day);
    const int days = static_cast<int>(day.start().minutesTo(options.to) / minutesOfDay) + 1;
    for (int done = 0; done < days; ++done) {
        generator.makeDay(day);
        day = day.next();
        if (progress)
            progress(done + 1, days);
    }
}

int densityForEvents(const SampleWorld &world, const SampleOptions &options, qint64 events)
{
    SampleOptions week = options;
    week.density = usualDensity;
    week.to = week.from.plus(minutesOfWeek);
    CountingSink sink;
    generateSampleEvents(world, week, sink);
    const qint64 expected =
        sink.events * std::max<qint64>(options.from.minutesTo(options.to), 1) / minutesOfWeek;
    return static_cast<int>(
        std::clamp<qint64>(events * usualDensity / std::max<qint64>(expected, 1), 1, 10'000'000));
}

} // namespace devdata
