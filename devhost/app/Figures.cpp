#include "Figures.h"

#include "ProgressLine.h"

#include "devhost/client/ClientInstances.h"
#include "devhost/data/CsvImport.h"

#include <QtCore/QDebug>
#include <QtCore/QDir>
#include <QtCore/QStandardPaths>

#include <cstdio>
#include <utility>

namespace {

constexpr int daysOfManyEvents = 365;
constexpr int hourOfSamples = 17;

SqlStore::Progress progressOn(ProgressLine &line)
{
    return [&line](int done, int total) { line.tell(done, total); };
}

void tell(const QString &sentence)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(sentence));
}

} // namespace

QDateTime momentOfSamples(const QDateTime &now)
{
    const QDate today = now.date();
    return QDateTime(now.time().hour() < hourOfSamples ? today.addDays(-1) : today, QTime(hourOfSamples, 0));
}

Figures::Figures(const Options &options, Clock clock)
    : m_options(options)
    , m_clock(std::move(clock))
    , m_moment(options.now)
{ }

Figures::~Figures()
{
    installKrxClient(nullptr);
    installStatisticsManager(nullptr);
}

void Figures::open()
{
    // A look ahead, before a database comes into being for a file that is none of events.
    if (!m_options.importFile.isEmpty())
        devdata::checkCsvFile(m_options.importFile);
    m_store.open(place());
    chooseMoment();
    fillAsAsked();
    m_client = std::make_unique<SqlKrxClient>(m_store);
    m_service = std::make_unique<SqlStatisticsManager>(m_store);
    m_service->setLatency(m_options.latency);
    m_service->setFailureRate(m_options.failureRate);
    installKrxClient(m_client.get());
    installStatisticsManager(m_service.get());
}

QString Figures::place() const
{
    if (!m_options.database.isEmpty())
        return m_options.database;
    if (m_options.inMemory())
        return QStringLiteral(":memory:");
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (!QDir().mkpath(folder))
        throw devdata::StoreError(
            QStringLiteral("The folder \"%1\" for the database cannot be made.").arg(folder));
    return QDir(folder).filePath(QStringLiteral("figures.db"));
}

void Figures::chooseMoment()
{
    // The usual database may hold events that somebody has imported into it.
    if (m_options.leavesMomentOpen() && !m_store.hasImports())
        m_moment = momentOfSamples(m_clock());
    if (m_moment.isValid())
        m_store.setPresentMoment([moment = m_moment] { return moment; });
    else
        m_store.setPresentMoment(m_clock);
}

void Figures::fillAsAsked()
{
    if (!m_options.importFile.isEmpty())
        return importFile();
    if (m_options.events > 0) {
        ProgressLine line(QStringLiteral("Making %1 events").arg(m_options.events));
        m_store.fillForMeasuring(m_options.events, daysOfManyEvents, progressOn(line));
        line.succeed();
    } else if (m_store.isEmpty() || (m_options.generate && !m_store.hasSamples())) {
        ProgressLine line(QStringLiteral("Making sample events"));
        m_store.fill(progressOn(line));
        line.succeed();
    } else {
        ProgressLine line(QStringLiteral("Continuing the sample events"));
        m_store.topUp(progressOn(line));
        line.succeed();
    }
}

void Figures::importFile()
{
    devdata::ImportOptions options;
    options.skipBadLines = m_options.skipBadLines;
    devdata::ImportReport report;
    {
        ProgressLine line(QStringLiteral("Importing ") + m_options.importFile);
        report = m_store.importFile(m_options.importFile, options, progressOn(line));
        line.succeed();
    }
    tell(QStringLiteral("%1 lines imported, %2 left out, %3 sources added.")
             .arg(report.kept)
             .arg(report.leftOut)
             .arg(report.added));
    for (const QString &reason : report.reasons)
        tell(QStringLiteral("Left out: ") + reason);
    const auto listed = static_cast<qint64>(report.reasons.size());
    if (report.leftOut > listed)
        tell(QStringLiteral("… and %1 more.").arg(report.leftOut - listed));
}

void Figures::keepUp()
{
    // The event loop lets no exception through, and another attempt follows.
    try {
        m_store.topUp();
    } catch (const devdata::StoreError &error) {
        qWarning("%s", error.what());
    }
}

QString Figures::displayName()
{
    return m_store.connection().displayName();
}
