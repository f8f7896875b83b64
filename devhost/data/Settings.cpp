#include "Settings.h"

namespace devdata {

namespace {

QString nameOf(Setting setting)
{
    switch (setting) {
    case Setting::WorldCreated:
        return QStringLiteral("world_created");
    case Setting::SampleSeed:
        return QStringLiteral("sample_seed");
    case Setting::SamplesUntil:
        return QStringLiteral("samples_until");
    case Setting::ImportedOrganisation:
        return QStringLiteral("imported_organisation");
    case Setting::ImportedEvents:
        return QStringLiteral("imported_events");
    }
    return {};
}

} // namespace

qint64 numberOf(Connection &connection, Setting setting)
{
    Statement rows(connection, QStringLiteral("SELECT number FROM setting WHERE name = ?"));
    rows.execute(nameOf(setting));
    return rows.next() ? rows.number("number") : 0;
}

void setNumber(Connection &connection, Setting setting, qint64 number)
{
    Statement(connection,
        QStringLiteral("INSERT INTO setting (name, number) VALUES (?, ?) "
                       "ON CONFLICT (name) DO UPDATE SET number = excluded.number"))
        .execute(nameOf(setting), number);
}

} // namespace devdata
