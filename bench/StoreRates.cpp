#include "StoreRates.h"

#include "StoreQuestions.h"

#include <devhost/data/EventWriter.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QTemporaryFile>

#include <algorithm>
#include <limits>

using namespace devdata;

namespace {

constexpr int daysOfRows = 9;
constexpr int repetitions = 3;

/// Keeps the events that a file can tell, up to a number.
class Rows : public EventSink
{
public:
    explicit Rows(qint64 most)
        : m_most(most)
    { }

    void add(const AlarmEvent &alarm) override { keep(alarms, alarm); }
    void add(const OnlineInterval &) override { }
    void add(const TemperatureReading &reading) override { keep(readings, reading); }
    void add(const SnapshotEvent &snapshot) override { keep(snapshots, snapshot); }

    qint64 count() const { return static_cast<qint64>(alarms.size() + readings.size() + snapshots.size()); }

    std::vector<AlarmEvent> alarms;
    std::vector<TemperatureReading> readings;
    std::vector<SnapshotEvent> snapshots;

private:
    template <typename Event>
    void keep(std::vector<Event> &events, const Event &event)
    {
        if (count() < m_most)
            events.push_back(event);
    }

    qint64 m_most;
};

Rows someRows(Connection &connection, qint64 most)
{
    SampleOptions options;
    options.singly = true;
    options.from = Minute(QDate(2024, 4, 1), QTime(0, 0));
    options.to = options.from.plus(daysOfRows * 24 * 60);
    const SampleWorld world = readSampleWorld(connection);
    options.density = densityForEvents(world, options, most + most / 5);
    Rows rows(most);
    generateSampleEvents(world, options, rows);
    return rows;
}

QHash<int, QByteArray> uidsOfSources(Connection &connection)
{
    QHash<int, QByteArray> uids;
    Statement sources(connection, QStringLiteral("SELECT id, uid FROM source"));
    sources.execute();
    while (sources.next())
        uids.insert(sources.integer("id"), sources.text("uid").toUtf8());
    return uids;
}

QByteArray line(const char *kind, Minute at, const QByteArray &source, int figureClass, int count)
{
    QByteArray text = kind;
    const Period hour = at.period(TimeUnit::Hour);
    text += ',' + QByteArray::fromStdString(hour.label()).replace(' ', 'T') + ':';
    text += QByteArray::number(hour.start().minutesTo(at)).rightJustified(2, '0') + ',' + source + ',';
    return text + QByteArray::number(figureClass) + ',' + QByteArray::number(count) + '\n';
}

void writeCsv(QTemporaryFile &file, const Rows &rows, const QHash<int, QByteArray> &uids)
{
    if (!file.open())
        qFatal("%s", qUtf8Printable(file.errorString()));
    file.write("kind,time,source,class,count\n");
    for (const AlarmEvent &alarm : rows.alarms)
        file.write(line("alarm", alarm.at, uids[alarm.source], alarm.type, alarm.count));
    for (const TemperatureReading &reading : rows.readings)
        file.write(line("temperature", reading.at, QByteArray::number(reading.person),
            reading.temperatureClass, reading.count));
    for (const SnapshotEvent &snapshot : rows.snapshots)
        file.write(line("snapshot", snapshot.at, uids[snapshot.source], snapshot.snapClass, snapshot.count));
    file.close();
}

double importSeconds(const QString &url, const QString &fileName)
{
    const std::unique_ptr<SqlStore> store = openStore(url);
    QElapsedTimer watch;
    watch.start();
    store->importFile(fileName);
    return static_cast<double>(watch.nsecsElapsed()) / 1e9;
}

double floorSeconds(const QString &url, const Rows &rows)
{
    const std::unique_ptr<SqlStore> store = openStore(url);
    Connection &connection = store->connection();
    QElapsedTimer watch;
    watch.start();
    Transaction transaction(connection);
    BatchInsert alarms(connection, QStringLiteral("alarm"), QStringLiteral("at, source_id, type, count"));
    for (const AlarmEvent &alarm : rows.alarms)
        alarms.add(alarm.at, alarm.source, alarm.type, alarm.count);
    alarms.flush();
    BatchInsert readings(connection, QStringLiteral("temperature"),
        QStringLiteral("at, person_id, class, mask, handling, count"));
    for (const TemperatureReading &reading : rows.readings)
        readings.add(reading.at, reading.person, reading.temperatureClass, reading.maskClass,
            reading.handling, reading.count);
    readings.flush();
    BatchInsert snapshots(connection, QStringLiteral("snapshot"),
        QStringLiteral("at, source_id, class, minor_1, minor_2, minor_3, minor_4, count"));
    for (const SnapshotEvent &snapshot : rows.snapshots)
        snapshots.add(snapshot.at, snapshot.source, snapshot.snapClass, snapshot.minors[0],
            snapshot.minors[1], snapshot.minors[2], snapshot.minors[3], snapshot.count);
    snapshots.flush();
    transaction.commit();
    return static_cast<double>(watch.nsecsElapsed()) / 1e9;
}

} // namespace

std::unique_ptr<SqlStore> openStore(const QString &url)
{
    auto store = std::make_unique<SqlStore>();
    store->setPresentMoment(storeMoment);
    store->open(url);
    return store;
}

StoreRates measureStoreRates(qint64 most, const std::function<QString()> &newDatabase)
{
    const std::unique_ptr<SqlStore> world = openStore(QStringLiteral(":memory:"));
    const Rows rows = someRows(world->connection(), most);
    QTemporaryFile file;
    writeCsv(file, rows, uidsOfSources(world->connection()));
    constexpr double never = std::numeric_limits<double>::max();
    StoreRates rates = {rows.count(), never, never};
    for (int repetition = 0; repetition < repetitions; ++repetition) {
        rates.importSeconds = std::min(rates.importSeconds, importSeconds(newDatabase(), file.fileName()));
        rates.floorSeconds = std::min(rates.floorSeconds, floorSeconds(newDatabase(), rows));
    }
    return rates;
}
