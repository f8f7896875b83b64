// Measures what the statistics service costs as the events in its database grow tenfold: by ten times the
// time at the same rate, and by ten times the rate in the same time. Prints tables in Markdown.

#include "StoreQuestions.h"
#include "StoreRates.h"
#include "support/PostgresServer.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <algorithm>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

using namespace devdata;

namespace {

constexpr int growth = 10;
constexpr int longDays = 90;
constexpr int shortDays = longDays / growth;

constexpr double mostMilliseconds = 35;
constexpr double mostGrowth = 1.25;
// What takes less than this is ruled by the clock, by parsing and by what travels to the server and back.
constexpr double leastComparable = 1;

enum class Engine { Sqlite, Postgres };

const char *nameOf(Engine engine)
{
    return engine == Engine::Sqlite ? "SQLite" : "PostgreSQL";
}

const char *nameOf(TimeUnit unit)
{
    return unit == TimeUnit::Hour ? "hour" : unit == TimeUnit::Day ? "day" : "month";
}

/// Where an engine's databases come from.
class Databases
{
public:
    explicit Databases(Engine engine)
        : m_engine(engine)
    {
        if (engine == Engine::Postgres && !PostgresServer::missing().isEmpty())
            qFatal("%s", qUtf8Printable(PostgresServer::missing()));
    }

    QString newDatabase()
    {
        if (m_engine == Engine::Postgres)
            return PostgresServer::shared().takeDatabase();
        return m_folder.filePath(QStringLiteral("%1.db").arg(++m_count));
    }

private:
    Engine m_engine;
    QTemporaryDir m_folder;
    int m_count = 0;
};

qint64 numberFrom(SqlStore &store, const QString &sql)
{
    return Statement(store.connection(), sql).execute().single();
}

/// A database full of events.
class FilledStore
{
public:
    FilledStore(Engine engine, const QString &url, qint64 aboutEvents, int days)
        : m_engine(engine)
        , m_url(url)
        , m_days(days)
    {
        reopen();
        QElapsedTimer watch;
        watch.start();
        m_store->fillForMeasuring(aboutEvents, days);
        m_seconds = static_cast<double>(watch.nsecsElapsed()) / 1e9;
        // A server in use does so by itself.
        if (engine == Engine::Postgres)
            m_store->connection().execute(QStringLiteral("VACUUM ANALYZE"));
        m_events = numberFrom(*m_store,
            QStringLiteral("SELECT (SELECT COUNT(*) FROM alarm) + (SELECT COUNT(*) FROM online_interval) + "
                           "(SELECT COUNT(*) FROM temperature) + (SELECT COUNT(*) FROM snapshot) AS n"));
        m_figures = numberFrom(*m_store, QStringLiteral("SELECT COUNT(*) AS n FROM figure"));
        reopen();
    }

    /// Over a new connection. A file's pages are dropped from the system's cache as well.
    void reopen()
    {
        m_service.reset();
        m_store.reset();
        if (m_engine == Engine::Sqlite)
            dropFromCache();
        m_store = openStore(m_url);
        m_service = std::make_unique<SqlStatisticsManager>(*m_store);
    }

    SqlStatisticsManager &service() { return *m_service; }

    QString row()
    {
        const auto events = static_cast<double>(m_events);
        return QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 |\n")
            .arg(QLatin1String(nameOf(m_engine)))
            .arg(m_events)
            .arg(m_days)
            .arg(m_figures)
            .arg(events / m_seconds, 0, 'f', 0)
            .arg(static_cast<double>(bytes()) / events, 0, 'f', 0);
    }

private:
    void dropFromCache() const
    {
        const int file = ::open(QFile::encodeName(m_url).constData(), O_RDONLY);
        if (file < 0)
            return;
        ::fsync(file);
        ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
        ::close(file);
    }

    qint64 bytes()
    {
        if (m_engine == Engine::Sqlite)
            return QFileInfo(m_url).size();
        return numberFrom(*m_store, QStringLiteral("SELECT pg_database_size(current_database()) AS n"));
    }

    Engine m_engine;
    QString m_url;
    int m_days;
    double m_seconds = 0;
    qint64 m_events = 0;
    qint64 m_figures = 0;
    std::unique_ptr<SqlStore> m_store;
    std::unique_ptr<SqlStatisticsManager> m_service;
};

/// What a question took on one store, in milliseconds.
struct Times
{
    double cold = 0; ///< median
    double warm = 0; ///< least, which other programs disturb least
    double median = 0;
    double worst = 0;
    qsizetype fields = 0;
};

double middleOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

struct Result
{
    Engine engine;
    const StoreQuestion *question;
    Times few;    ///< a tenth of the events in a tenth of the time
    Times sparse; ///< a tenth of the events in the same time
    Times many;

    // A month has all its events only where there are as many days.
    double ratio() const { return many.warm / base().warm; }
    double ratioToSparse() const { return many.warm / sparse.warm; }
    const Times &base() const { return question->unit == TimeUnit::Month ? sparse : few; }

    bool isTooSlow() const { return many.warm > mostMilliseconds; }
    bool growsTooMuch() const
    {
        return (base().warm > leastComparable && ratio() > mostGrowth)
            || (sparse.warm > leastComparable && ratioToSparse() > mostGrowth);
    }

    QString row() const
    {
        const auto time = [](double value) { return QString::number(value, 'f', 2); };
        return QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 | %7 | %8 | %9 | %10 | %11 |\n")
            .arg(QLatin1String(question->operation), QLatin1String(nameOf(question->unit)))
            .arg(base().fields)
            .arg(many.fields)
            .arg(time(base().cold), time(many.cold), time(base().warm), time(many.warm), time(ratio()))
            .arg(time(ratioToSparse()), time(many.worst));
    }
};

class Measurement
{
public:
    Measurement(Engine engine, qint64 events, int rounds)
        : m_engine(engine)
        , m_rounds(rounds)
        , m_databases(engine)
        , m_few(engine, m_databases.newDatabase(), events, shortDays)
        , m_sparse(engine, m_databases.newDatabase(), events, longDays)
        , m_many(engine, m_databases.newDatabase(), events * growth, longDays)
        , m_rates(measureStoreRates(events / growth, [this] { return m_databases.newDatabase(); }))
    { }

    QString stores() { return m_few.row() + m_sparse.row() + m_many.row(); }

    QString rates() const
    {
        const auto rows = static_cast<double>(m_rates.rows);
        return QStringLiteral("| %1 | %2 | %3 | %4 | %5 |\n")
            .arg(QLatin1String(nameOf(m_engine)))
            .arg(m_rates.rows)
            .arg(rows / m_rates.importSeconds, 0, 'f', 0)
            .arg(rows / m_rates.floorSeconds, 0, 'f', 0)
            .arg(m_rates.importSeconds / m_rates.floorSeconds, 0, 'f', 2);
    }

    Result resultOf(const StoreQuestion &question)
    {
        Result result = {m_engine, &question, {}, {}, {}};
        const std::array<FilledStore *, 3> stores = {&m_few, &m_sparse, &m_many};
        const std::array<Times *, 3> times = {&result.few, &result.sparse, &result.many};
        measureCold(question, stores, times);
        measureWarm(question, stores, times);
        return result;
    }

private:
    template <size_t N>
    void measureCold(const StoreQuestion &question, const std::array<FilledStore *, N> &stores,
        const std::array<Times *, N> &times) const
    {
        constexpr int repetitions = 3;
        std::array<std::vector<double>, N> all;
        for (int repetition = 0; repetition < repetitions; ++repetition)
            for (size_t i = 0; i < N; ++i) {
                stores[i]->reopen();
                all[i].push_back(milliseconds(question.ask(stores[i]->service())));
            }
        for (size_t i = 0; i < N; ++i)
            times[i]->cold = middleOf(all[i]);
    }

    // To and fro, so that what the machine does meanwhile concerns all alike.
    template <size_t N>
    void measureWarm(const StoreQuestion &question, const std::array<FilledStore *, N> &stores,
        const std::array<Times *, N> &times) const
    {
        std::array<std::vector<double>, N> all;
        const auto ask = [&](size_t i) {
            const StoreAnswer answer = question.ask(stores[i]->service());
            all[i].push_back(milliseconds(answer));
            times[i]->fields = answer.fields;
        };
        for (int round = 0; round < m_rounds; ++round) {
            for (size_t i = 0; i < N; ++i)
                ask(i);
            for (size_t i = N; i > 0; --i)
                ask(i - 1);
        }
        for (size_t i = 0; i < N; ++i) {
            times[i]->warm = *std::min_element(all[i].begin(), all[i].end());
            times[i]->median = middleOf(all[i]);
            times[i]->worst = *std::max_element(all[i].begin(), all[i].end());
        }
    }

    static double milliseconds(const StoreAnswer &answer)
    {
        return static_cast<double>(answer.nanoseconds) / 1e6;
    }

    Engine m_engine;
    int m_rounds;
    Databases m_databases;
    FilledStore m_few;
    FilledStore m_sparse;
    FilledStore m_many;
    StoreRates m_rates;
};

void print(const QString &text)
{
    std::fputs(text.toUtf8().constData(), stdout);
    std::fflush(stdout);
}

/// Tells what misses the goals; returns whether nothing does.
bool judge(const std::vector<Result> &results)
{
    bool good = true;
    const Result *slowest = nullptr;
    double mostRatio = 0;
    double mostSmallRatio = 0;
    for (const Result &result : results) {
        if (!slowest || result.many.warm > slowest->many.warm)
            slowest = &result;
        double &most = result.base().warm > leastComparable ? mostRatio : mostSmallRatio;
        most = std::max(most, result.ratio());
        if (result.isTooSlow() || result.growsTooMuch()) {
            good = false;
            print(QStringLiteral("Misses the goal: %1, %2")
                      .arg(QLatin1String(nameOf(result.engine)), result.row()));
        }
    }
    print(QStringLiteral("\nSlowest: %1, %2 by %3, %4 ms. Greatest growth: %5 of what takes over 1 ms, %6 of "
                         "what takes less.\n")
              .arg(QLatin1String(nameOf(slowest->engine)), QLatin1String(slowest->question->operation),
                  QLatin1String(nameOf(slowest->question->unit)))
              .arg(slowest->many.warm, 0, 'f', 2)
              .arg(mostRatio, 0, 'f', 2)
              .arg(mostSmallRatio, 0, 'f', 2));
    return good;
}

bool measure(const std::vector<Engine> &engines, qint64 events, int rounds)
{
    const std::vector<StoreQuestion> questions = storeQuestions();
    std::vector<Result> results;
    for (const Engine engine : engines) {
        Measurement measurement(engine, events, rounds);
        print(QStringLiteral("\n| database | events | days | figures | events/s | bytes/event |\n"
                             "|---|---:|---:|---:|---:|---:|\n")
            + measurement.stores()
            + QStringLiteral("\n| import | lines | lines/s | bare inserts/s | times the floor |\n"
                             "|---|---:|---:|---:|---:|\n")
            + measurement.rates()
            + QStringLiteral(
                "\n%1, milliseconds:\n\n| operation | unit | fields | fields × 10 | cold | cold × "
                "10 | warm | warm × 10 | ratio | ratio to sparse | worst |\n"
                "|---|---|---:|---:|---:|---:|---:|---:|---:|---:|---:|\n")
                  .arg(QLatin1String(nameOf(engine))));
        for (const StoreQuestion &question : questions) {
            results.push_back(measurement.resultOf(question));
            print(results.back().row());
        }
    }
    return judge(results);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("What the statistics service costs as events grow tenfold."));
    const QCommandLineOption events(QStringLiteral("events"),
        QStringLiteral("Events of the smaller databases."), QStringLiteral("number"),
        QStringLiteral("1000000"));
    const QCommandLineOption rounds(QStringLiteral("rounds"),
        QStringLiteral("How often each question is asked, to and fro."), QStringLiteral("number"),
        QStringLiteral("25"));
    const QCommandLineOption database(QStringLiteral("database"),
        QStringLiteral("sqlite or postgres in place of both."), QStringLiteral("engine"));
    parser.addOptions({events, rounds, database});
    parser.addHelpOption();
    parser.process(application);

    std::vector<Engine> engines;
    if (parser.value(database) != QLatin1String("postgres"))
        engines.push_back(Engine::Sqlite);
    if (parser.value(database) != QLatin1String("sqlite"))
        engines.push_back(Engine::Postgres);
    try {
        return measure(engines, parser.value(events).toLongLong(), parser.value(rounds).toInt()) ? 0 : 1;
    } catch (const StoreError &error) {
        qFatal("%s", error.what());
    }
}
