#include "CsvImport.h"

#include "CsvLine.h"
#include "EventWriter.h"
#include "ImportedSources.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <map>
#include <utility>

namespace devdata {

namespace {

constexpr qint64 longestLine = 4096;
constexpr qint64 linesBetweenProgress = 2000;
constexpr int minutesOfHour = 60;

StoreError unreadable(const QFile &file)
{
    return StoreError(
        QStringLiteral("The file %1 cannot be read: %2.").arg(file.fileName(), file.errorString()));
}

void openForReading(QFile &file)
{
    const QString name = file.fileName();
    const QFileInfo info(name);
    if (!info.exists())
        throw StoreError(QStringLiteral("There is no file %1.").arg(name));
    if (!info.isFile())
        throw StoreError(QStringLiteral("%1 is not a file.").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        throw unreadable(file);
    if (file.size() == 0)
        throw StoreError(QStringLiteral("The file %1 is empty.").arg(name));
}

QString hashOf(QFile &file)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!hash.addData(&file) || !file.seek(0))
        throw unreadable(file);
    return QString::fromLatin1(hash.result().toHex());
}

void refuseSecondTime(Connection &connection, const QString &hash, const QString &name)
{
    Statement rows(connection, QStringLiteral("SELECT name, imported_at FROM imported_file WHERE hash = ?"));
    rows.execute(hash);
    if (rows.next())
        throw StoreError(
            QStringLiteral("The file %1 was already imported on %2.")
                .arg(name,
                    QString::fromStdString(
                        Minute::fromStored(rows.number("imported_at")).period(TimeUnit::Day).label())));
}

void registerFile(Connection &connection, const QString &hash, const QString &name, Minute now)
{
    Statement(
        connection, QStringLiteral("INSERT INTO imported_file (hash, name, imported_at) VALUES (?, ?, ?)"))
        .execute(hash, QFileInfo(name).fileName(), now);
}

/// The lines of a file without their ends.
class LineReader
{
public:
    explicit LineReader(QFile &file)
        : m_file(file)
    { }

    bool next()
    {
        if (m_file.atEnd())
            return false;
        ++m_number;
        m_line = readPart();
        m_tooLong = !m_line.endsWith('\n') && !m_file.atEnd();
        for (QByteArray rest = m_line; !rest.endsWith('\n') && !m_file.atEnd();)
            rest = readPart();
        while (m_line.endsWith('\n') || m_line.endsWith('\r'))
            m_line.chop(1);
        return true;
    }

    qint64 number() const { return m_number; }
    const QByteArray &line() const { return m_line; }
    bool isTooLong() const { return m_tooLong; }
    int percent() const { return static_cast<int>(m_file.pos() * 100 / m_file.size()); }

private:
    QByteArray readPart()
    {
        const QByteArray part = m_file.readLine(longestLine);
        if (part.isEmpty())
            throw unreadable(m_file);
        return part;
    }

    QFile &m_file;
    QByteArray m_line;
    qint64 m_number = 0;
    bool m_tooLong = false;
};

void readHeader(LineReader &lines, const QString &name)
{
    lines.next();
    QByteArray header = lines.line();
    if (header.contains('\0') || header.startsWith("\xff\xfe") || header.startsWith("\xfe\xff"))
        throw StoreError(QStringLiteral("The file %1 is not a text in UTF-8.").arg(name));
    if (header.startsWith("\xef\xbb\xbf"))
        header.remove(0, 3);
    if (header.trimmed() != csvHeader())
        throw StoreError(QStringLiteral("The file %1 does not begin with the line \"%2\".")
                             .arg(name, QString::fromLatin1(csvHeader())));
}

class LineImporter
{
public:
    explicit LineImporter(Connection &connection)
        : m_connection(connection)
        , m_hierarchy(connection)
        , m_sources(connection, m_hierarchy)
        , m_writer(connection, m_hierarchy)
    { }

    void import(const CsvLine &line)
    {
        switch (line.kind) {
        case EventKind::Alarm:
            return importAlarm(line);
        case EventKind::Online:
            return importOnline(line);
        case EventKind::Temperature:
            return importReading(line);
        case EventKind::SnapshotEvent:
            return importSnapshot(line);
        }
    }

    int finish()
    {
        m_writer.flush();
        return m_sources.added();
    }

private:
    void importAlarm(const CsvLine &line)
    {
        const int source = m_sources.channelOrDevice(line.source);
        if (line.count > 0)
            m_writer.add(AlarmEvent{line.at, source, line.eventClass, line.count});
    }

    void importOnline(const CsvLine &line)
    {
        const int device = m_sources.device(line.source);
        const Period hour = line.at.period(TimeUnit::Hour);
        int &minutes = onlineMinutes(device, hour);
        if (minutes + line.count > minutesOfHour)
            throw WrongLine(QStringLiteral("%1 was already online for %2 minutes of this hour")
                                .arg(line.source)
                                .arg(minutes));
        minutes += line.count;
        if (line.count > 0)
            m_writer.add(OnlineInterval{hour.start(), device, line.count});
    }

    void importReading(const CsvLine &line)
    {
        const ImportedSources::Subject subject = m_sources.subject(line.source);
        TemperatureReading reading;
        reading.at = line.at;
        reading.source = subject.source;
        reading.person = subject.person;
        reading.temperatureClass = line.eventClass;
        reading.handling = line.eventClass == 0 ? noAlarm : 0;
        reading.count = line.count;
        if (line.count > 0)
            m_writer.add(reading);
    }

    void importSnapshot(const CsvLine &line)
    {
        const int channel = m_sources.channel(line.source);
        if (line.count > 0)
            m_writer.add(SnapshotEvent{line.at, channel, line.eventClass, {}, line.count});
    }

    /// Minutes that a device was online in an hour, with those that this import has added.
    int &onlineMinutes(int device, Period hour)
    {
        const auto [entry, isNew] = m_minutes.try_emplace({device, hour}, 0);
        if (!isNew)
            return entry->second;
        const Selection stored = {Fact::OnlineMinutes, {Scope::Source}, {device}, {hour, hour}};
        for (const ClassCount &count : countsByClass(m_connection, stored))
            entry->second += static_cast<int>(count.count);
        return entry->second;
    }

    Connection &m_connection;
    Hierarchy m_hierarchy;
    ImportedSources m_sources;
    EventWriter m_writer;
    std::map<std::pair<int, Period>, int> m_minutes;
};

void importLine(LineImporter &importer, const LineReader &lines)
{
    if (lines.isTooLong())
        throw WrongLine(QStringLiteral("the line is too long"));
    importer.import(parseCsvLine(lines.line()));
}

} // namespace

void checkCsvFile(const QString &fileName)
{
    QFile file(fileName);
    openForReading(file);
    LineReader lines(file);
    readHeader(lines, fileName);
}

ImportReport importCsv(Connection &connection, const QString &fileName, const ImportOptions &options,
    Minute now, const Progress &progress)
{
    QFile file(fileName);
    openForReading(file);
    const QString hash = hashOf(file);
    refuseSecondTime(connection, hash, fileName);

    LineReader lines(file);
    readHeader(lines, fileName);
    LineImporter importer(connection);
    ImportReport report;
    while (lines.next()) {
        if (progress && lines.number() % linesBetweenProgress == 0)
            progress(lines.percent(), 100);
        if (lines.line().trimmed().isEmpty())
            continue;
        try {
            importLine(importer, lines);
            ++report.kept;
        } catch (const WrongLine &wrong) {
            const QString reason = QStringLiteral("line %1: %2").arg(lines.number()).arg(wrong.text());
            if (!options.skipBadLines)
                throw StoreError(QStringLiteral("The file %1, %2.").arg(fileName, reason));
            if (++report.leftOut <= static_cast<qint64>(ImportReport::mostListed))
                report.reasons.push_back(reason);
        }
    }
    if (report.kept == 0)
        throw StoreError(QStringLiteral("The file %1 holds no events.").arg(fileName));
    report.added = importer.finish();
    registerFile(connection, hash, fileName, now);
    if (progress)
        progress(100, 100);
    return report;
}

} // namespace devdata
