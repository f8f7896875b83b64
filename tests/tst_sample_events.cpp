#include "support/EventStore.h"

#include <devhost/data/Settings.h>

#include <QtCore/QMap>
#include <QtCore/QSet>

#include <algorithm>
#include <memory>
#include <numeric>

using namespace devdata;

namespace {

class RecordingSink : public EventSink
{
public:
    void add(const AlarmEvent &alarm) override { alarms.push_back(alarm); }
    void add(const OnlineInterval &interval) override { intervals.push_back(interval); }
    void add(const TemperatureReading &reading) override { readings.push_back(reading); }
    void add(const Snapshot &snapshot) override { snapshots.push_back(snapshot); }

    size_t events() const { return alarms.size() + readings.size() + snapshots.size(); }

    std::vector<AlarmEvent> alarms;
    std::vector<OnlineInterval> intervals;
    std::vector<TemperatureReading> readings;
    std::vector<Snapshot> snapshots;
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

QStringList figuresIn(SqlStore &store)
{
    Query rows(store.connection(),
        QStringLiteral("SELECT fact, scope, subject, bucket, class, count FROM figure "
                       "ORDER BY fact, scope, subject, bucket, class"));
    rows.run();
    QStringList figures;
    while (rows.next())
        figures += QStringLiteral("%1 %2 %3 %4 %5 %6")
                       .arg(rows.number("fact"))
                       .arg(rows.number("scope"))
                       .arg(rows.number("subject"))
                       .arg(rows.number("bucket"))
                       .arg(rows.number("class"))
                       .arg(rows.number("count"));
    return figures;
}

SampleOptions between(Minute from, Minute to)
{
    SampleOptions options;
    options.seed = 7;
    options.from = from;
    options.to = to;
    return options;
}

constexpr Minute monday = 202404220000;
constexpr Minute nextMonday = 202404290000;

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
        const RecordingSink sink = eventsOf(between(202405020800, 202405020900));
        QStringList snapshots;
        for (const Snapshot &snapshot : sink.snapshots)
            snapshots += QStringLiteral("%1 %2 %3 %4")
                             .arg(snapshot.at)
                             .arg(snapshot.source)
                             .arg(snapshot.snapClass)
                             .arg(snapshot.count);
        QVERIFY(snapshots.size() > 20);
        QCOMPARE(snapshots.mid(0, 3).join(QStringLiteral(", ")),
            QStringLiteral("202405020815 2 4 11, 202405020814 2 2 18, 202405020804 5 4 1"));
    }

    void anotherSeedGivesOthers()
    {
        SampleOptions options = between(202405020800, 202405020900);
        const RecordingSink first = eventsOf(options);
        options.seed = 8;
        const RecordingSink second = eventsOf(options);
        QVERIFY(countOf(first.snapshots) != countOf(second.snapshots));
    }

    void aStretchMadeInPiecesIsTheSameAsMadeAtOnce()
    {
        QString error;
        QVERIFY2(store->store.generate(between(202405022130, 202405031720), &error), qUtf8Printable(error));
        EventStore pieces;
        for (const auto &[from, to] :
            {std::pair(202405022130, 202405022131), std::pair(202405022131, 202405030842),
                std::pair(202405030842, 202405030842), std::pair(202405030842, 202405031720)})
            QVERIFY2(pieces.store.generate(between(from, to), &error), qUtf8Printable(error));
        QCOMPARE(figuresIn(pieces.store), figuresIn(store->store));
    }

    void toppingUpContinuesTheSameEvents()
    {
        QString error;
        QVERIFY2(store->store.generate(between(202405030600, 202405031720), &error), qUtf8Printable(error));
        EventStore later;
        QVERIFY2(later.store.generate(between(202405030600, 202405031015), &error), qUtf8Printable(error));
        QVERIFY(later.store.hasSamples());
        QVERIFY2(later.store.topUp(&error), qUtf8Printable(error));
        QCOMPARE(figuresIn(later.store), figuresIn(store->store));
        QVERIFY(later.store.topUp());
        QCOMPARE(figuresIn(later.store), figuresIn(store->store));
    }

    void thereIsNothingToTopUpInAnEmptyStore()
    {
        QVERIFY(store->store.topUp());
        QVERIFY(store->store.isEmpty());
        QVERIFY(!store->store.hasSamples());
    }

    void noEventLiesOutsideTheStretch()
    {
        const Minute from = 202405010817;
        const Minute to = 202405021143;
        const RecordingSink sink = eventsOf(between(from, to));
        const auto inside = [&](const auto &event) { return event.at >= from && event.at < to; };
        QVERIFY(std::all_of(sink.alarms.begin(), sink.alarms.end(), inside));
        QVERIFY(std::all_of(sink.readings.begin(), sink.readings.end(), inside));
        QVERIFY(std::all_of(sink.snapshots.begin(), sink.snapshots.end(), inside));
        for (const OnlineInterval &interval : sink.intervals) {
            QVERIFY(interval.start >= from);
            QVERIFY(addMinutes(interval.start, interval.minutes) <= to);
            QVERIFY(interval.minutes > 0);
        }
        QVERIFY(!sink.alarms.empty());
        QVERIFY(!sink.readings.empty());
        QVERIFY(!sink.snapshots.empty());
        QVERIFY(!sink.intervals.empty());
    }

    void aStretchThatEndsBeforeItStartsHasNoEvents()
    {
        const RecordingSink sink = eventsOf(between(202405021143, 202405010817));
        QCOMPARE(sink.events(), size_t(0));
        QVERIFY(sink.intervals.empty());
    }

    void daysAreBusierThanNights()
    {
        const RecordingSink sink = eventsOf(between(monday, nextMonday));
        const auto atNight = [](const auto &event) { return event.at / 100 % 100 < 5; };
        const auto atNoon = [](const auto &event) {
            const Minute hour = event.at / 100 % 100;
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
            return [day](const auto &event) { return event.at / 10000 == day; };
        };
        QVERIFY(countOf(sink.snapshots, onDay(20240425)) > 2 * countOf(sink.snapshots, onDay(20240428)));
        QVERIFY(countOf(sink.snapshots, onDay(20240427)) > countOf(sink.snapshots, onDay(20240428)));
    }

    void devicesSleepFailAndOneIsNeverOnline()
    {
        const RecordingSink sink = eventsOf(between(monday, nextMonday));
        QMap<int, int> minutes;
        QSet<int> awakeAtNight;
        for (const OnlineInterval &interval : sink.intervals) {
            minutes[interval.source] += interval.minutes;
            if (interval.start % 10000 <= 300 && interval.minutes > 60)
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
        const RecordingSink sink = eventsOf(between(202404150000, 202404290000));
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
        const auto isNameless = [](const Snapshot &snapshot) {
            return std::find(snapshot.minors.begin(), snapshot.minors.end(), 99) != snapshot.minors.end();
        };
        const auto isComplete = [](const Snapshot &snapshot) {
            const auto majors = majorTypesOf(snapshot.snapClass);
            return std::equal(majors.begin(), majors.end(), snapshot.minors.begin(),
                [](int major, int minor) { return (major > 0) == (minor > 0); });
        };
        QVERIFY(std::any_of(sink.snapshots.begin(), sink.snapshots.end(), isNameless));
        QVERIFY(std::all_of(sink.snapshots.begin(), sink.snapshots.end(), isComplete));
        QVERIFY(countOf(sink.snapshots, [](const Snapshot &snapshot) {
            return snapshot.snapClass == vehicleClass;
        }) > 0);
        QVERIFY(countOf(sink.snapshots, [](const Snapshot &snapshot) {
            return snapshot.snapClass == pedestrianClass;
        }) > 0);
    }

    void channelsThatShareTheirDisplayNameSeeNoTraffic()
    {
        const RecordingSink sink = eventsOf(between(monday, nextMonday));
        const QSet<int> without{
            store->source("ipc-321-1"), store->source("ipc-331-1"), store->source("panel-511-1")};
        QCOMPARE(countOf(sink.snapshots,
                     [&](const Snapshot &snapshot) { return without.contains(snapshot.source); }),
            0);
        QVERIFY(countOf(sink.alarms, [&](const AlarmEvent &alarm) { return without.contains(alarm.source); })
            > 0);
    }

    void daysBeforeTheFineOnesHaveTheirEventsInTwoHours()
    {
        SampleOptions options = between(monday, nextMonday);
        const qint64 fine = countOf(eventsOf(options).snapshots);
        options.fineFrom = nextMonday;
        const RecordingSink coarse = eventsOf(options);
        QSet<int> hoursSeen;
        for (const Snapshot &snapshot : coarse.snapshots)
            hoursSeen.insert(static_cast<int>(snapshot.at / 100 % 100));
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
        QVERIFY(store->store.generate(between(202405012300, 202405030100), nullptr,
            [&](int done, int total) { told += QStringLiteral("%1/%2").arg(done).arg(total); }));
        QCOMPARE(told, (QStringList{"1/3", "2/3", "3/3"}));
    }

    void aNewStoreIsFilledUpToThePresentHour()
    {
        setPresentMoment({});
        QString error;
        QVERIFY2(store->store.fill(&error), qUtf8Printable(error));
        const auto countIn = [&](Fact fact, Bucket bucket) {
            qint64 count = 0;
            for (const ClassFigure &figure : figuresByClass(store->store.connection(),
                     {fact, scopesOf(SumMode::All), {1}, {TimeUnit::Hour, bucket, bucket}}))
                count += figure.count;
            return count;
        };
        for (const Fact fact : {Fact::Alarms, Fact::ReadingClasses, Fact::Snapshots}) {
            QVERIFY(countIn(fact, 2024050317) > 0);
            QVERIFY(countIn(fact, 2024050318) == 0);
            QVERIFY(countIn(fact, 2024033012) > 0);
            QVERIFY(countIn(fact, 202311) > 0);
        }
        QCOMPARE(numberOf(store->store.connection(), Setting::SamplesUntil), qint64(202405031720));
    }
};

TALVIX_TEST_MAIN(TestSampleEvents)
#include "tst_sample_events.moc"
