#pragma once

#include "Sql.h"

#include <QtCore/QHash>

#include <vector>

namespace devdata {

/// Kind of a source. The numbers are stored.
enum class SourceKind : int { Channel = 1, Device = 2 };

/// Type codes of devices and channels.
enum DeviceType : int { ipcDevice = 1, nvrDevice = 2, dvrDevice = 3, unknownDevice = 9 };

/// Which organisation each source and person belongs to, and which organisations lie above it: an event
/// counts for all of them.
class Hierarchy
{
public:
    explicit Hierarchy(Connection &connection);

    /// Organisation of a source; 0 when there is no such source.
    int organisationOfSource(int source) const { return m_organisationOfSource.value(source); }
    /// Group of a person; 0 when there is no such person.
    int groupOfPerson(int person) const { return m_groupOfPerson.value(person); }
    int organisationOfPerson(int person) const { return m_organisationOfGroup.value(groupOfPerson(person)); }
    /// The organisations above \a organisation, nearest first.
    const std::vector<int> &above(int organisation) const;

    /// A group that belongs to \a organisation; 0 when there is none.
    int anyGroupOf(int organisation) const { return m_organisationOfGroup.key(organisation); }

    void addOrganisation(int organisation, int parent);
    void addSource(int source, int organisation) { m_organisationOfSource.insert(source, organisation); }
    void addPersonGroup(int group, int organisation) { m_organisationOfGroup.insert(group, organisation); }
    void addPerson(int person, int group) { m_groupOfPerson.insert(person, group); }

private:
    QHash<int, int> m_organisationOfSource;
    QHash<int, int> m_groupOfPerson;
    QHash<int, int> m_organisationOfGroup;
    QHash<int, std::vector<int>> m_above;
    std::vector<int> m_nothingAbove;
};

} // namespace devdata
