#pragma once

#include "Hierarchy.h"

#include <QtCore/QString>

namespace devdata {

/// Finds the channels, devices and persons that imported events name, and adds those that are not there yet
/// under the organisation "Imported".
class ImportedSources
{
public:
    ImportedSources(Connection &connection, Hierarchy &hierarchy);

    /// The channel with this uid, or else the device; new ones are channels.
    int channelOrDevice(const QString &uid);
    /// The channel with this uid, or else the first one of the device.
    int channel(const QString &uid);
    /// The device with this uid, or else the one that the channel belongs to.
    int device(const QString &uid);

    struct Subject
    {
        int source = 0;
        int person = 0;
    };
    /// Whose temperature was read: a channel or device if there is one, else a person if \a name is a number.
    Subject subject(const QString &name);

    int added() const { return m_added; }

private:
    int addCamera(const QString &uid);
    int addChannel(const QString &uid, int device);
    int addPerson(int id);
    int organisation();
    int personGroup();

    Connection &m_connection;
    Hierarchy &m_hierarchy;
    QHash<QString, int> m_channels;
    QHash<QString, int> m_devices;
    QHash<int, int> m_deviceOfChannel;
    QHash<int, int> m_firstChannel;
    int m_added = 0;
};

} // namespace devdata
