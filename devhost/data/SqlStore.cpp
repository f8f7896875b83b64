#include "SqlStore.h"

#include "EventWriter.h"
#include "Schema.h"
#include "Settings.h"
#include "World.h"

using namespace devdata;

namespace {

constexpr quint64 sampleSeed = 20240503;
constexpr int fineDays = 35;
constexpr int coarseDays = 180;

Minute startOfDay(const QDateTime &now, int daysAgo)
{
    return minuteOf(QDateTime(now.date().addDays(-daysAgo), QTime(0, 0), Qt::UTC));
}

} // namespace

SqlStore::SqlStore() = default;
SqlStore::~SqlStore() = default;

template <typename Work>
bool SqlStore::attempt(QString *error, const Work &work)
{
    try {
        work();
        return true;
    } catch (const std::exception &exception) {
        if (error)
            *error = QString::fromUtf8(exception.what());
        return false;
    }
}

bool SqlStore::open(const QString &url, QString *error)
{
    m_connection.reset();
    return attempt(error, [&] {
        auto opened = std::make_unique<Connection>(url);
        migrate(*opened);
        opened->tune();
        Transaction transaction(*opened);
        if (numberOf(*opened, Setting::WorldCreated) == 0) {
            createWorld(*opened);
            setNumber(*opened, Setting::WorldCreated, 1);
        }
        transaction.commit();
        m_connection = std::move(opened);
    });
}

bool SqlStore::isEmpty()
{
    bool empty = true;
    attempt(nullptr, [&] {
        Query figures(connection(), QStringLiteral("SELECT fact FROM figure LIMIT 1"));
        empty = !figures.run().next();
    });
    return empty;
}

void SqlStore::setPresentMoment(std::function<QDateTime()> presentMoment)
{
    m_presentMoment = std::move(presentMoment);
}

QDateTime SqlStore::presentMoment() const
{
    return m_presentMoment ? m_presentMoment() : QDateTime::currentDateTime();
}

bool SqlStore::fill(QString *error, const Progress &progress)
{
    const QDateTime now = presentMoment();
    SampleOptions options;
    options.seed = sampleSeed;
    options.from = startOfDay(now, fineDays + coarseDays);
    options.fineFrom = startOfDay(now, fineDays);
    options.to = minuteOf(now);
    return generate(options, error, progress);
}

bool SqlStore::generate(const SampleOptions &options, QString *error, const Progress &progress)
{
    return attempt(error, [&] {
        connection().relaxForBulkWork();
        Transaction transaction(connection());
        makeEvents(options, progress);
        setNumber(connection(), Setting::SampleSeed, static_cast<qint64>(options.seed));
        setNumber(connection(), Setting::SamplesUntil, options.to);
        transaction.commit();
    });
}

bool SqlStore::topUp(QString *error, const Progress &progress)
{
    SampleOptions options;
    const bool known = attempt(error, [&] {
        options.seed = static_cast<quint64>(numberOf(connection(), Setting::SampleSeed));
        options.from = numberOf(connection(), Setting::SamplesUntil);
    });
    options.to = minuteOf(presentMoment());
    if (!known || options.from == 0 || options.from >= options.to)
        return known;
    return generate(options, error, progress);
}

bool SqlStore::fillForMeasuring(qint64 events, int days, QString *error, const Progress &progress)
{
    SampleOptions options;
    options.seed = sampleSeed;
    options.from = startOfDay(presentMoment(), days);
    options.to = minuteOf(presentMoment());
    options.singly = true;
    return attempt(error, [&] {
        options.density = densityForEvents(readSampleWorld(connection()), options, events);
    }) && generate(options, error, progress);
}

bool SqlStore::hasSamples()
{
    bool present = false;
    attempt(nullptr, [&] { present = numberOf(connection(), Setting::SamplesUntil) > 0; });
    return present;
}

bool SqlStore::importFile(const QString &fileName, const ImportOptions &options, ImportReport *report,
    QString *error, const Progress &progress)
{
    return attempt(error, [&] {
        Transaction transaction(connection());
        const ImportReport result =
            importCsv(connection(), fileName, options, minuteOf(presentMoment()), progress);
        transaction.commit();
        if (report)
            *report = result;
    });
}

void SqlStore::makeEvents(const SampleOptions &options, const Progress &progress)
{
    const Places places(connection());
    EventWriter writer(connection(), places);
    generateSampleEvents(readSampleWorld(connection()), options, writer, progress);
    writer.flush();
}

Connection &SqlStore::connection()
{
    if (!m_connection)
        throw StoreError(QStringLiteral("No database is open."));
    return *m_connection;
}
