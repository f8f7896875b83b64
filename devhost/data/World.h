#pragma once

#include "Hierarchy.h"
#include "Sql.h"

namespace devdata {

constexpr int rootOrganisation = 1;
/// Uid of the device of the sample world that is never online.
QString neverOnlineUid();

void addOrganisation(Connection &connection, int id, int parent, const QString &name);
void addPersonGroup(Connection &connection, int id, int organisation, const QString &name);
void addPerson(Connection &connection, int id, int group, const QString &name);

struct NewSource
{
    SourceKind kind = SourceKind::Device;
    QString uid;
    int device = 0; ///< the device that a channel belongs to
    int organisation = 0;
    QString name;
    QString ip;
    int type = ipcDevice;
};

/// Returns the number of the new channel or device.
int addSource(Connection &connection, const NewSource &source);
/// The lowest number above all ids in use in \a table.
int nextId(Connection &connection, const QString &table);

/// Fills a database that has no sample world yet with it: organisations, devices, channels, alarm types,
/// person groups and persons. Within it are the cases that pages must cope with: names that two
/// organisations, devices or channels share, a channel without an address, a device of an unknown type, one
/// that is never online.
void createWorld(Connection &connection);

} // namespace devdata
