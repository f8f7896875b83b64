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
    return Minute(now.date().addDays(-daysAgo), QTime(0, 0));
}

} // namespace

SqlStore::SqlStore() = default;
SqlStore::~SqlStore() = default;

void SqlStore::open(const QString &url)
{
    m_connection.reset();
    auto opened = std::make_unique<Connection>(url);
    migrate(*opened);
    opened->tune();
    createWorld(*opened);
    m_connection = std::move(opened);
}

bool SqlStore::isEmpty()
{
    Statement counts(connection(), QStringLiteral("SELECT fact FROM figure LIMIT 1"));
    return !counts.execute().next();
}

void SqlStore::setPresentMoment(std::function<QDateTime()> presentMoment)
{
    m_presentMoment = std::move(presentMoment);
}

QDateTime SqlStore::presentMoment() const
{
    return m_presentMoment ? m_presentMoment() : QDateTime::currentDateTime();
}

void SqlStore::fill(const Progress &progress)
{
    const QDateTime now = presentMoment();
    SampleOptions options;
    options.seed = sampleSeed;
    options.from = startOfDay(now, fineDays + coarseDays);
    options.fineFrom = startOfDay(now, fineDays);
    options.to = Minute(now);
    changeSamples([&] {
        if (!hasSamples())
            makeSamples(options, progress);
    });
}

void SqlStore::generate(const SampleOptions &options, const Progress &progress)
{
    changeSamples([&] { makeSamples(options, progress); });
}

void SqlStore::topUp(const Progress &progress)
{
    SampleOptions options;
    options.to = Minute(presentMoment());
    const auto isDue = [&] {
        options.seed = static_cast<quint64>(numberOf(connection(), Setting::SampleSeed));
        options.from = Minute::fromStored(numberOf(connection(), Setting::SamplesUntil));
        return !options.from.isNull() && options.from < options.to;
    };
    if (!isDue())
        return;
    changeSamples([&] {
        if (isDue())
            makeSamples(options, progress);
    });
}

void SqlStore::fillForMeasuring(qint64 events, int days, const Progress &progress)
{
    SampleOptions options;
    options.seed = sampleSeed;
    options.from = startOfDay(presentMoment(), days);
    options.to = Minute(presentMoment());
    options.singly = true;
    options.density = densityForEvents(readSampleWorld(connection()), options, events);
    generate(options, progress);
}

bool SqlStore::hasSamples()
{
    return numberOf(connection(), Setting::SamplesUntil) > 0;
}

bool SqlStore::hasImports()
{
    // Databases of earlier versions did not count what they imported.
    return numberOf(connection(), Setting::ImportedEvents) > 0
        || numberOf(connection(), Setting::ImportedOrganisation) > 0;
}

ImportReport SqlStore::importFile(
    const QString &fileName, const ImportOptions &options, const Progress &progress)
{
    Transaction transaction(connection());
    const ImportReport report = importCsv(connection(), fileName, options, Minute(presentMoment()), progress);
    setNumber(
        connection(), Setting::ImportedEvents, numberOf(connection(), Setting::ImportedEvents) + report.kept);
    transaction.commit();
    return report;
}

// What is there decides what is made, so work looks at it only when no other program can change it any
// more: made by two, every sample event would count twice.
template <typename Work>
void SqlStore::changeSamples(const Work &work)
{
    connection().relaxForBulkWork();
    Transaction transaction(connection());
    connection().lockTable(QStringLiteral("setting"));
    work();
    transaction.commit();
}

void SqlStore::makeSamples(const SampleOptions &options, const Progress &progress)
{
    const Hierarchy hierarchy(connection());
    EventWriter writer(connection(), hierarchy);
    generateSampleEvents(readSampleWorld(connection()), options, writer, progress);
    writer.flush();
    setNumber(connection(), Setting::SampleSeed, static_cast<qint64>(options.seed));
    setNumber(connection(), Setting::SamplesUntil, options.to.stored());
}

Connection &SqlStore::connection()
{
    if (!m_connection)
        throw StoreError(QStringLiteral("No database is open."));
    return *m_connection;
}
