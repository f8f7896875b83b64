#include "World.h"

#include "Settings.h"

#include <iterator>

namespace devdata {

namespace {

struct OrganisationRow
{
    int id;
    int parent;
    const char *name;
};

constexpr OrganisationRow organisations[] = {
    {1, 0, "All sites"},
    {10, 1, "Airport"},
    {11, 10, "Terminal A"},
    {12, 10, "Terminal B"},
    {13, 10, "Car park"},
    {14, 10, "Cargo hall"},
    {20, 1, "Central station"},
    {21, 20, "Main hall"},
    {22, 20, "Platforms"},
    {23, 20, "Underpass"},
    {24, 20, "Shops"},
    {30, 1, "Harbour"},
    {31, 30, "Ferry pier"},
    {32, 30, "Container yard"},
    {33, 30, "Gate house"},
    {40, 1, "University"},
    {41, 40, "Library"},
    {42, 40, "Campus east"},
    {43, 40, "Car park"},
    {44, 40, "Laboratories"},
    {50, 1, "Hospital"},
    {51, 50, "Reception"},
    {52, 50, "Emergency room"},
    {53, 50, "Wards"},
    {60, 1, "Town hall"},
};

// A device with one channel is a camera; its channel bears the camera's name.
struct DeviceRow
{
    int organisation;
    int type;
    int channels;
    const char *uid;
    const char *name;
};

constexpr DeviceRow devices[] = {
    {1, nvrDevice, 2, "nvr-100", "Control room"},
    {10, nvrDevice, 4, "nvr-110", "Airport recorder"},
    {11, ipcDevice, 1, "ipc-111", "Check-in A"},
    {11, ipcDevice, 1, "ipc-112", "Security lane A"},
    {12, ipcDevice, 1, "ipc-121", "Check-in B"},
    {12, ipcDevice, 1, "ipc-122", "Baggage claim B"},
    {13, ipcDevice, 1, "ipc-131", "Barrier north"},
    {13, ipcDevice, 1, "ipc-132", "Barrier south"},
    {14, ipcDevice, 1, "ipc-141", "Loading dock"},
    {20, nvrDevice, 4, "nvr-200", "Station recorder"},
    {21, ipcDevice, 1, "ipc-211", "Hall east"},
    {21, ipcDevice, 1, "ipc-212", "Hall west"},
    {22, dvrDevice, 4, "dvr-220", "Platform recorder"},
    {23, ipcDevice, 1, "ipc-231", "Underpass stairs"},
    {24, ipcDevice, 1, "ipc-241", "Shopping mall"},
    {30, dvrDevice, 3, "dvr-300", "Harbour recorder"},
    {31, ipcDevice, 1, "ipc-311", "Ferry ramp"},
    {32, ipcDevice, 1, "ipc-321", "Gate camera"},
    {32, ipcDevice, 1, "ipc-322", "Crane"},
    {33, ipcDevice, 1, "ipc-331", "Gate camera"},
    {40, nvrDevice, 3, "nvr-400", "Campus recorder"},
    {41, ipcDevice, 1, "ipc-411", "Reading room"},
    {42, ipcDevice, 1, "ipc-421", "Lecture hall"},
    {43, ipcDevice, 1, "ipc-431", "Student parking"},
    {44, ipcDevice, 1, "ipc-441", "Laboratory corridor"},
    {50, dvrDevice, 3, "dvr-500", "Hospital recorder"},
    {51, unknownDevice, 1, "panel-511", "Door panel"},
    {51, ipcDevice, 1, "ipc-512", "Reception desk"},
    {52, ipcDevice, 1, "ipc-521", "Ambulance bay"},
    {53, ipcDevice, 1, "ipc-531", "Ward corridor"},
    {60, nvrDevice, 2, "nvr-600", "Town hall recorder"},
    {60, ipcDevice, 1, "ipc-601", "Market square"},
    {60, ipcDevice, 1, "ipc-602", "Roof"},
};

struct AlarmTypeRow
{
    int code;
    const char *name;
};

constexpr AlarmTypeRow alarmTypes[] = {
    {1, "Motion detected"},
    {2, "Line crossed"},
    {3, "Intrusion"},
    {4, "Video loss"},
    {5, "Camera covered"},
    {6, "Disk full"},
    {7, "High temperature"},
    {8, "Connection lost"},
};

struct GroupRow
{
    int id;
    int organisation;
    const char *name;
    int persons;
};

constexpr GroupRow personGroups[] = {
    {1, 1, "Management", 3},
    {2, 10, "Airport staff", 7},
    {3, 11, "Check-in crew", 6},
    {4, 14, "Cargo crew", 5},
    {5, 20, "Station staff", 7},
    {6, 24, "Shop assistants", 5},
    {7, 30, "Dock workers", 7},
    {8, 40, "Lecturers", 6},
    {9, 41, "Librarians", 3},
    {10, 50, "Doctors", 5},
    {11, 53, "Nurses", 6},
    {12, 60, "Town clerks", 4},
};

constexpr const char *givenNames[] = {"Anna", "Bruno", "Clara", "Dario", "Elif", "Femi", "Greta", "Hugo",
    "Ines", "Jonas", "Klára", "Leon", "Mei", "Nadia", "Ömer", "Paula"};
constexpr const char *familyNames[] = {"Abel", "Brandt", "Costa", "Dahl", "Eriksen", "Fischer", "Grün",
    "Horváth", "Ito", "Jansen", "Kowalska", "Lindqvist", "Moreau"};

QString addressOf(int organisation, int number)
{
    return QStringLiteral("10.0.%1.%2").arg(organisation).arg(number);
}

// The second gate camera's channel; its page must fall back to the channel's name.
bool isWithoutAddress(const DeviceRow &row)
{
    return qstrcmp(row.uid, "ipc-331") == 0;
}

void addChannels(
    Connection &connection, const DeviceRow &row, const NewSource &device, int deviceId, int number)
{
    for (int i = 1; i <= row.channels; ++i) {
        NewSource channel = device;
        channel.kind = SourceKind::Channel;
        channel.uid = QStringLiteral("%1-%2").arg(device.uid).arg(i);
        channel.device = deviceId;
        channel.name = row.channels == 1 ? device.name : QStringLiteral("Channel %1").arg(i);
        channel.ip = isWithoutAddress(row) ? QString() : addressOf(row.organisation, number + i);
        if (isWithoutAddress(row))
            channel.name = QStringLiteral("Gate camera (inside)");
        addSource(connection, channel);
    }
}

void addDevices(Connection &connection)
{
    int number = 10;
    for (const DeviceRow &row : devices) {
        NewSource device;
        device.uid = QString::fromUtf8(row.uid);
        device.organisation = row.organisation;
        device.name = QString::fromUtf8(row.name);
        device.ip = addressOf(row.organisation, number);
        device.type = row.type;
        const int id = addSource(connection, device);
        addChannels(connection, row, device, id, number);
        number += row.channels == 1 ? 2 : row.channels + 1;
        number = number > 200 ? 10 : number;
    }
}

QString personName(int person)
{
    const size_t number = static_cast<size_t>(person);
    return QStringLiteral("%1 %2").arg(QString::fromUtf8(givenNames[number % std::size(givenNames)]),
        QString::fromUtf8(familyNames[number % std::size(familyNames)]));
}

void addPersons(Connection &connection)
{
    int person = 1000;
    for (const GroupRow &group : personGroups) {
        addPersonGroup(connection, group.id, group.organisation, QString::fromUtf8(group.name));
        for (int i = 0; i < group.persons; ++i, ++person)
            addPerson(connection, person, group.id, personName(person));
    }
}

} // namespace

QString neverOnlineUid()
{
    return QStringLiteral("ipc-602");
}

void addOrganisation(Connection &connection, int id, int parent, const QString &name)
{
    Statement(connection, QStringLiteral("INSERT INTO organisation (id, parent_id, name) VALUES (?, ?, ?)"))
        .execute(id, parent, name);
    Statement(connection,
        QStringLiteral("INSERT INTO organisation_path (ancestor, descendant, distance) "
                       "SELECT p.ancestor, o.id, p.distance + 1 FROM organisation_path p "
                       "JOIN organisation o ON o.parent_id = p.descendant WHERE o.id = ?"))
        .execute(id);
    Statement(connection,
        QStringLiteral("INSERT INTO organisation_path (ancestor, descendant, distance) VALUES (?, ?, 0)"))
        .execute(id, id);
}

void addPersonGroup(Connection &connection, int id, int organisation, const QString &name)
{
    Statement(connection, QStringLiteral("INSERT INTO person_group (id, orga_id, name) VALUES (?, ?, ?)"))
        .execute(id, organisation, name);
}

void addPerson(Connection &connection, int id, int group, const QString &name)
{
    Statement(connection, QStringLiteral("INSERT INTO person (id, group_id, name) VALUES (?, ?, ?)"))
        .execute(id, group, name);
}

int addSource(Connection &connection, const NewSource &source)
{
    const int id = nextId(connection, QStringLiteral("source"));
    Statement(connection,
        QStringLiteral("INSERT INTO source (id, kind, uid, device_id, orga_id, name, ip, type_id) "
                       "VALUES (?, ?, ?, ?, ?, ?, ?, ?)"))
        .execute(id, source.kind, source.uid, source.kind == SourceKind::Device ? id : source.device,
            source.organisation, source.name, source.ip.isNull() ? QStringLiteral("") : source.ip,
            source.type);
    return id;
}

int nextId(Connection &connection, const QString &table)
{
    Statement next(connection, QStringLiteral("SELECT COALESCE(MAX(id), 0) + 1 FROM %1").arg(table));
    return static_cast<int>(next.execute().single());
}

void createWorld(Connection &connection)
{
    const auto isCreated = [&] { return numberOf(connection, Setting::WorldCreated) > 0; };
    if (isCreated())
        return;
    Transaction transaction(connection);
    // Another program may have been quicker.
    if (isCreated())
        return;
    for (const OrganisationRow &row : organisations)
        addOrganisation(connection, row.id, row.parent, QString::fromUtf8(row.name));
    for (const AlarmTypeRow &row : alarmTypes)
        Statement(connection, QStringLiteral("INSERT INTO alarm_type (code, name) VALUES (?, ?)"))
            .execute(row.code, QString::fromUtf8(row.name));
    addDevices(connection);
    addPersons(connection);
    setNumber(connection, Setting::WorldCreated, 1);
    transaction.commit();
}

} // namespace devdata
