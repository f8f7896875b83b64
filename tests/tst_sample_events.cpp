#include "support/EventStore.h"

#include <devhost/data/Settings.h>

#include <QtCore/QMap>
#include <QtCore/QSet>

#include <algorithm>
#include <memory>
#include <numeric>

using namespace Qt::StringLiterals;

using namespace devdata;

namespace {

class RecordingSink : public EventSink
{
public:
    void add(const AlarmEvent &alarm) override { alarms.push_back(alarm); }
    void add(const OnlineInterval &interval) override { intervals.push_back(interval); }
    void add(const TemperatureReading &reading) override { readings.push_back(reading); }
    void add(const SnapshotEvent &snapshot) override { snapshots.push_back(snapshot); }

    size_t events() const { return alarms.size() + readings.size() + snapshots.size(); }

    std::vector<AlarmEvent> alarms;
    std::vector<OnlineInterval> intervals;
    std::vector<TemperatureReading> readings;
    std::vector<SnapshotEvent> snapshots;
};

template <typename Event>
qint64 countOf(const std::vector<Event> &events)
{
    return std::accumulate(events.begin(), events.end(), qint64(0),
        [](qint64 sum, const Event &event) { return sum + event.count; });
}

template <typename Event, typename Wanted>
qint64 countOf(const std::vector<Event> &events, const Wanted &wanted)
{
    qint64 sum = 0;
    for (const Event &event : events)
        sum += wanted(event) ? event.count : 0;
    return sum;
}

qint64 hourOf(Minute at)
{
    return at.period(TimeUnit::Day).start().minutesTo(at) / 60;
}

SampleOptions between(const char *from, const char *to)
{
    SampleOptions options;
    options.seed = 7;
    options.from = minute(from);
    options.to = minute(to);
    return options;
}

constexpr const char *monday = "2024-04-22 00:00";
constexpr const char *nextMonday = "2024-04-29 00:00";

} // namespace

class TestSampleEvents : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<EventStore> store;
    SampleWorld world;

    RecordingSink eventsOf(const SampleOptions &options)
    {
        RecordingSink sink;
        generateSampleEvents(world, options, sink);
        return sink;
    }

private Q_SLOTS:
    void init()
    {
        store = std::make_unique<EventStore>();
        world = readSampleWorld(store->store.connection());
    }
    void cleanup() { store.reset(); }

    void oneSeedAlwaysGivesTheSameEvents()
    {
        const RecordingSink sink = eventsOf(between("2024-05-02 08:00", "2024-05-02 09:00"));
        QStringList snapshots;
        for (const SnapshotEvent &snapshot : sink.snapshots)
            snapshots += u"%1 %2 %3 %4"_s.arg(snapshot.at.stored())
                             .arg(snapshot.source)
                             .arg(snapshot.snapClass)
                             .arg(snapshot.count);
        QVERIFY(snapshots.size() > 20);
        QCOMPARE(snapshots.mid(0, 3).join(u", "_s),
            u"202405020815 2 4 11, 202405020814 2 2 18, 202405020804 5 4 1"_s);
    }

    void anotherSeedGivesOthers()
    {
        SampleOptions options = between("2024-05-02 08:00", "2024-05-02 09:00");
        const RecordingSink first = eventsOf(options);
        options.seed = 8;
        const RecordingSink second = eventsOf(options);
        QVERIFY(countOf(first.snapshots) != countOf(second.snapshots));
    }

    void aStretchMadeInPiecesIsTheSameAsMadeAtOnce()
    {
        store->store.generate(between("2024-05-02 21:30", "2024-05-03 17:20"));
        EventStore pieces;
        for (const auto &[from, to] : {std::pair("2024-05-02 21:30", "2024-05-02 21:31"),
                 std::pair("2024-05-02 21:31", "2024-05-03 08:42"),
                 std::pair("2024-05-03 08:42", "2024-05-03 08:42"),
                 std::pair("2024-05-03 08:42", "2024-05-03 17:20")})
            pieces.store.generate(between(from, to));
        QCOMPARE(countsIn(pieces.store), countsIn(store->store));
    }

    void toppingUpContinuesTheSameEvents()
    {
        store->store.generate(between("2024-05-03 06:00", "2024-05-03 17:20"));
        EventStore later;
        later.store.generate(between("2024-05-03 06:00", "2024-05-03 10:15"));
        QVERIFY(later.store.hasSamples());
        later.store.topUp();
        QCOMPARE(countsIn(later.store), countsIn(store->store));
        later.store.topUp();
        QCOMPARE(countsIn(later.store), countsIn(store->store));
    }

    void thereIsNothingToTopUpInAnEmptyStore()
    {
        store->store.topUp();
        QVERIFY(store->store.isEmpty());
        QVERIFY(!store->store.hasSamples());
    }

    void noEventLiesOutsideTheStretch()
    {
        const Minute from = minute("2024-05-01 08:17");
        const Minute to = minute("2024-05-02 11:43");
        const RecordingSink sink = eventsOf(between("2024-05-01 08:17", "2024-05-02 11:43"));
        const auto inside = [&](const auto &event) { return event.at >= from && event.at < to; };
        QVERIFY(std::all_of(sink.alarms.begin(), sink.alarms.end(), inside));
        QVERIFY(std::all_of(sink.readings.begin(), sink.readings.end(), inside));
        QVERIFY(std::all_of(sink.snapshots.begin(), sink.snapshots.end(), inside));
        for (const OnlineInterval &interval : sink.intervals) {
            QVERIFY(interval.start >= from);
            QVERIFY(to >= interval.start.plus(interval.minutes));
            QVERIFY(interval.minutes > 0);
        }
        QVERIFY(!sink.alarms.empty());
        QVERIFY(!sink.readings.empty());
        QVERIFY(!sink.snapshots.empty());
        QVERIFY(!sink.intervals.empty());
    }

    void aStretchThatEndsBeforeItStartsHasNoEvents()
    {
        const RecordingSink sink = eventsOf(between("2024-05-02 11:43", "2024-05-01 08:17"));
        QCOMPARE(sink.events(), size_t(0));
        QVERIFY(sink.intervals.empty());
    }

    void daysAreBusierThanNights()
    {
        const RecordingSink sink = eventsOf(between(monday, nextMonday));
        const auto atNight = [](const auto &event) { return hourOf(event.at) < 5; };
        const auto atNoon = [](const auto &event) {
            const qint64 hour = hourOf(event.at);
            return hour >= 10 && hour < 15;
        };
        QVERIFY(countOf(sink.snapshots, atNoon) > 20 * countOf(sink.snapshots, atNight));
        QVERIFY(countOf(sink.alarms, atNoon) > 10 * countOf(sink.alarms, atNight));
        QVERIFY(countOf(sink.readings, atNoon) > 10 * countOf(sink.readings, atNight));
    }

    void workdaysAreBusierThanSundays()
    {
        const RecordingSink sink = eventsOf(between(monday, nextMonday));
        const auto onDay = [](int day) {
            return
                [day](const auto &event) { return event.at.period(TimeUnit::Day).firstDay().day() == day; };
        };
        QVERIFY(countOf(sink.snapshots, onDay(25)) > 2 * countOf(sink.snapshots, onDay(28)));
        QVERIFY(countOf(sink.snapshots, onDay(27)) > countOf(sink.snapshots, onDay(28)));
    }

    void devicesSleepFailAndOneIsNeverOnline()
    {
        const RecordingSink sink = eventsOf(between(monday, nextMonday));
        QMap<int, int> minutes;
        QSet<int> awakeAtNight;
        for (const OnlineInterval &interval : sink.intervals) {
            minutes[interval.source] += interval.minutes;
            if (hourOf(interval.start) < 3 && interval.minutes > 60)
                awakeAtNight.insert(interval.source);
        }
        const int week = 7 * 24 * 60;
        const int dead = store->source("ipc-602");
        QVERIFY(!minutes.contains(dead));
        QCOMPARE(minutes.size(), qsizetype(world.devices.size()) - 1);
        const auto below = [&](int most) {
            return std::count_if(
                minutes.begin(), minutes.end(), [most](int online) { return online < most; });
        };
        QVERIFY(below(week * 3 / 4) > 2);
        QVERIFY(below(week) > below(week * 3 / 4));
        QVERIFY(below(week) < minutes.size());
        QVERIFY(awakeAtNight.size() > minutes.size() / 2);
        QVERIFY(awakeAtNight.size() < minutes.size());
        const int deadChannel = store->source("ipc-602-1");
        QCOMPARE(countOf(sink.alarms,
                     [deadChannel](const AlarmEvent &alarm) { return alarm.source == deadChannel; }),
            0);
    }

    void readingsHaveEveryClassAndOnlyAlarmsAreHandled()
    {
        const RecordingSink sink = eventsOf(between("2024-04-15 00:00", "2024-04-29 00:00"));
        QSet<int> classes;
        QSet<int> masks;
        QSet<int> states;
        for (const TemperatureReading &reading : sink.readings) {
            classes.insert(reading.temperatureClass);
            masks.insert(reading.maskClass);
            QCOMPARE(reading.handling == noAlarm, reading.temperatureClass == 0);
            states.insert(reading.handling);
        }
        QCOMPARE(classes, (QSet<int>{0, 1, 2, 3}));
        QCOMPARE(masks, (QSet<int>{0, 1, 2}));
        QCOMPARE(states, (QSet<int>{noAlarm, 0, 1, 2}));
    }

    void snapshotsHaveAMinorTypeForEachMajorType()
    {
        const RecordingSink sink = eventsOf(between(monday, nextMonday));
        const auto isNameless = [](const SnapshotEvent &snapshot) {
            return std::find(snapshot.minors.begin(), snapshot.minors.end(), 99) != snapshot.minors.end();
        };
        const auto isComplete = [](const SnapshotEvent &snapshot) {
            const auto majors = majorTypesOf(snapshot.snapClass);
            return std::equal(majors.begin(), majors.end(), snapshot.minors.begin(),
                [](int major, int minor) { return (major > 0) == (minor > 0); });
        };
        QVERIFY(std::any_of(sink.snapshots.begin(), sink.snapshots.end(), isNameless));
        QVERIFY(std::all_of(sink.snapshots.begin(), sink.snapshots.end(), isComplete));
        QVERIFY(countOf(sink.snapshots, [](const SnapshotEvent &snapshot) {
            return snapshot.snapClass == vehicleClass;
        }) > 0);
        QVERIFY(countOf(sink.snapshots, [](const SnapshotEvent &snapshot) {
            return snapshot.snapClass == pedestrianClass;
        }) > 0);
    }

    void channelsThatShareTheirDisplayNameSeeNoTraffic()
    {
        const RecordingSink sink = eventsOf(between(monday, nextMonday));
        const QSet<int> without{
            store->source("ipc-321-1"), store->source("ipc-331-1"), store->source("panel-511-1")};
        QCOMPARE(countOf(sink.snapshots,
                     [&](const SnapshotEvent &snapshot) { return without.contains(snapshot.source); }),
            0);
        QVERIFY(countOf(sink.alarms, [&](const AlarmEvent &alarm) { return without.contains(alarm.source); })
            > 0);
    }

    void daysBeforeTheFineOnesHaveTheirEventsInTwoHours()
    {
        SampleOptions options = between(monday, nextMonday);
        const qint64 fine = countOf(eventsOf(options).snapshots);
        options.fineFrom = minute(nextMonday);
        const RecordingSink coarse = eventsOf(options);
        QSet<int> hoursSeen;
        for (const SnapshotEvent &snapshot : coarse.snapshots)
            hoursSeen.insert(static_cast<int>(hourOf(snapshot.at)));
        QCOMPARE(hoursSeen, (QSet<int>{9, 17}));
        QVERIFY(countOf(coarse.snapshots) > fine * 8 / 10);
        QVERIFY(countOf(coarse.snapshots) < fine * 12 / 10);
    }

    void densityChoosesTheNumberOfEvents()
    {
        SampleOptions options = between(monday, nextMonday);
        options.singly = true;
        options.density = densityForEvents(world, options, 20000);
        const RecordingSink sink = eventsOf(options);
        QVERIFY2(sink.events() > 18000 && sink.events() < 22000, qPrintable(QString::number(sink.events())));
        QCOMPARE(countOf(sink.alarms), qint64(sink.alarms.size()));
        QCOMPARE(countOf(sink.snapshots), qint64(sink.snapshots.size()));
        QCOMPARE(countOf(sink.readings), qint64(sink.readings.size()));
    }

    void progressIsToldForEachDay()
    {
        QStringList told;
        store->store.generate(between("2024-05-01 23:00", "2024-05-03 01:00"),
            [&](int done, int total) { told += u"%1/%2"_s.arg(done).arg(total); });
        QCOMPARE(told, (QStringList{"1/3", "2/3", "3/3"}));
    }

    void aNewStoreIsFilledUpToThePresentHour()
    {
        setPresentMoment({});
        store->store.fill();
        const auto countIn = [&](Fact fact, TimeUnit unit, const char *period) {
            qint64 count = 0;
            for (const ClassCount &row : countsByClass(store->store.connection(),
                     {fact, scopesOf(SumMode::All), {1},
                         parseTimeRange(static_cast<int>(unit), period, period)}))
                count += row.count;
            return count;
        };
        for (const Fact fact : {Fact::Alarms, Fact::ReadingClasses, Fact::Snapshots}) {
            QVERIFY(countIn(fact, TimeUnit::Hour, "2024-05-03 17") > 0);
            QVERIFY(countIn(fact, TimeUnit::Hour, "2024-05-03 18") == 0);
            QVERIFY(countIn(fact, TimeUnit::Hour, "2024-03-30 12") > 0);
            QVERIFY(countIn(fact, TimeUnit::Month, "2023-11") > 0);
        }
        QCOMPARE(
            numberOf(store->store.connection(), Setting::SamplesUntil), minute("2024-05-03 17:20").stored());
    }
};

TALVIX_TEST_MAIN(TestSampleEvents)
#include "tst_sample_events.moc"
