#include "Schema.h"

#include <vector>

namespace devdata {

namespace {

QString versionTable()
{
    return QStringLiteral("talvix_schema");
}

using Step = QStringList (*)(const Connection &);

QStringList worldEventsAndCounts(const Connection &connection)
{
    return {
        QStringLiteral("CREATE TABLE organisation (id INTEGER PRIMARY KEY, parent_id INTEGER NOT NULL, "
                       "name TEXT NOT NULL)"),
        QStringLiteral(
            "CREATE TABLE organisation_path (ancestor INTEGER NOT NULL, descendant INTEGER NOT NULL, "
            "distance INTEGER NOT NULL, PRIMARY KEY (ancestor, descendant))"),
        QStringLiteral(
            "CREATE TABLE source (id INTEGER PRIMARY KEY, kind INTEGER NOT NULL, uid TEXT NOT NULL, "
            "device_id INTEGER NOT NULL, orga_id INTEGER NOT NULL, name TEXT NOT NULL, "
            "ip TEXT NOT NULL, type_id INTEGER NOT NULL, UNIQUE (uid, kind))"),
        QStringLiteral("CREATE INDEX source_orga ON source (orga_id)"),
        QStringLiteral("CREATE TABLE alarm_type (code INTEGER PRIMARY KEY, name TEXT NOT NULL)"),
        QStringLiteral("CREATE TABLE person_group (id INTEGER PRIMARY KEY, orga_id INTEGER NOT NULL, "
                       "name TEXT NOT NULL)"),
        QStringLiteral("CREATE TABLE person (id INTEGER PRIMARY KEY, group_id INTEGER NOT NULL, "
                       "name TEXT NOT NULL)"),
        QStringLiteral("CREATE INDEX person_of_group ON person (group_id)"),
        QStringLiteral(
            "CREATE TABLE alarm (at BIGINT NOT NULL, source_id INTEGER NOT NULL, type INTEGER NOT NULL, "
            "count INTEGER NOT NULL)"),
        QStringLiteral("CREATE TABLE online_interval (start_at BIGINT NOT NULL, source_id INTEGER NOT NULL, "
                       "minutes INTEGER NOT NULL)"),
        QStringLiteral("CREATE TABLE temperature (at BIGINT NOT NULL, source_id INTEGER, person_id INTEGER, "
                       "class INTEGER NOT NULL, mask INTEGER NOT NULL, handling INTEGER NOT NULL, "
                       "count INTEGER NOT NULL)"),
        QStringLiteral("CREATE TABLE snapshot (at BIGINT NOT NULL, source_id INTEGER NOT NULL, "
                       "class INTEGER NOT NULL, minor_1 INTEGER NOT NULL, minor_2 INTEGER NOT NULL, "
                       "minor_3 INTEGER NOT NULL, minor_4 INTEGER NOT NULL, count INTEGER NOT NULL)"),
        QStringLiteral("CREATE TABLE figure (fact INTEGER NOT NULL, scope INTEGER NOT NULL, "
                       "subject INTEGER NOT NULL, bucket BIGINT NOT NULL, class INTEGER NOT NULL, "
                       "count BIGINT NOT NULL, PRIMARY KEY (fact, scope, subject, bucket, class))")
            + connection.clusteredTable(),
        QStringLiteral("CREATE TABLE setting (name TEXT PRIMARY KEY, number BIGINT NOT NULL)"),
    };
}

QStringList importRegister(const Connection &)
{
    return {
        QStringLiteral("CREATE TABLE imported_file (hash TEXT PRIMARY KEY, name TEXT NOT NULL, "
                       "imported_at BIGINT NOT NULL)"),
    };
}

const std::vector<Step> &steps()
{
    static const std::vector<Step> all = {worldEventsAndCounts, importRegister};
    return all;
}

int readVersion(Connection &connection)
{
    const QStringList tables = connection.tableNames();
    if (tables.isEmpty())
        return 0;
    if (!tables.contains(versionTable()))
        throw StoreError(
            QStringLiteral("%1 is a database of another program.").arg(connection.displayName()));
    Statement rows(connection, QStringLiteral("SELECT version FROM %1").arg(versionTable()));
    rows.execute();
    const int version = rows.next() ? rows.integer("version") : 0;
    if (version < 1)
        throw StoreError(
            QStringLiteral("The database %1 does not state its version.").arg(connection.displayName()));
    return version;
}

void recordVersion(Connection &connection, int from, int to)
{
    if (from == 0) {
        connection.execute(QStringLiteral("CREATE TABLE %1 (version INTEGER NOT NULL)").arg(versionTable()));
        connection.execute(
            QStringLiteral("INSERT INTO %1 (version) VALUES (%2)").arg(versionTable()).arg(to));
    } else {
        connection.execute(QStringLiteral("UPDATE %1 SET version = %2").arg(versionTable()).arg(to));
    }
}

} // namespace

int currentSchemaVersion()
{
    return static_cast<int>(steps().size());
}

void migrate(Connection &connection, int version)
{
    int present = readVersion(connection);
    if (present > version)
        throw StoreError(
            QStringLiteral("The database %1 has version %2, but this program knows only up to %3.")
                .arg(connection.displayName())
                .arg(present)
                .arg(version));
    if (present == version)
        return;
    Transaction transaction(connection);
    // Another program may have been quicker.
    present = readVersion(connection);
    for (int step = present; step < version; ++step) {
        const QStringList statements = steps()[static_cast<size_t>(step)](connection);
        for (const QString &statement : statements)
            connection.execute(statement);
    }
    if (present < version)
        recordVersion(connection, present, version);
    transaction.commit();
}

} // namespace devdata
