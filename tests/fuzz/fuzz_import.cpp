// Files of events: single lines, and whole files into one open store that takes each of them back.

#include "FuzzSupport.h"

#include "support/EventStore.h"

#include <devhost/data/CsvLine.h>

#include <QtCore/QFile>

#include <sys/mman.h>

namespace {

constexpr int mostMinutesOnline = 60;

/// A file in memory, which the import finds by its name.
class MemoryFile
{
public:
    MemoryFile()
        : m_descriptor(memfd_create("events.csv", 0))
        , m_name(QStringLiteral("/proc/self/fd/%1").arg(m_descriptor))
    {
        if (!m_file.open(m_descriptor, QIODevice::ReadWrite | QIODevice::Unbuffered))
            qFatal("There is no file in memory.");
    }

    QString name() const { return m_name; }

    void write(const QByteArray &content)
    {
        if (!m_file.resize(0) || !m_file.seek(0) || m_file.write(content) != content.size())
            qFatal("The file in memory cannot be written.");
    }

private:
    int m_descriptor;
    QString m_name;
    QFile m_file;
};

/// How many lines are well formed.
int readLines(const QByteArray &content)
{
    int taken = 0;
    for (const QByteArray &line : content.split('\n')) {
        try {
            const devdata::CsvLine read = devdata::parseCsvLine(line);
            const bool sensible = read.count >= 0 && read.eventClass >= 0 && !read.source.isEmpty()
                && (read.kind != devdata::EventKind::Online || read.count <= mostMinutesOnline);
            Fuzz::report(sensible ? QString() : QStringLiteral("a line was taken that says nothing"));
            ++taken;
        } catch (const devdata::WrongLine &) { }
    }
    return taken;
}

void importFile(EventStore &store, const QString &file, bool skipBadLines)
{
    devdata::ImportOptions options;
    options.skipBadLines = skipBadLines;
    devdata::Transaction transaction(store.store.connection());
    try {
        const devdata::ImportReport report =
            devdata::importCsv(store.store.connection(), file, options, devdata::Minute(testMoment()));
        Fuzz::report(report.kept > 0 && (skipBadLines || report.leftOut == 0)
                ? QString()
                : QStringLiteral("a file was taken that holds no events"));
    } catch (const devdata::StoreError &) { }
}

// Each import reads the places of the whole world; a corner of it is enough, and many times faster.
EventStore *smallStore()
{
    auto *store = new EventStore;
    for (const char *sql : {"DELETE FROM organisation_path WHERE descendant > 11",
             "DELETE FROM source WHERE orga_id > 11", "DELETE FROM person WHERE id > 1003"})
        store->store.connection().execute(QString::fromLatin1(sql));
    return store;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    static EventStore *const store = smallStore();
    static auto *const file = new MemoryFile;
    if (size == 0)
        return 0;
    const QByteArray lines(reinterpret_cast<const char *>(bytes) + 1, static_cast<qsizetype>(size) - 1);
    const bool headerGiven = (bytes[0] & 1) != 0;
    if (readLines(lines) == 0 && !headerGiven)
        return 0;
    file->write(headerGiven ? lines : devdata::csvHeader() + '\n' + lines);
    importFile(*store, file->name(), (bytes[0] & 2) != 0);
    return 0;
}
