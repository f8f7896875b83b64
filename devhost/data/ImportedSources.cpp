#include "ImportedSources.h"

#include "Settings.h"
#include "World.h"

namespace devdata {

namespace {

QString importedName()
{
    return QStringLiteral("Imported");
}

} // namespace

ImportedSources::ImportedSources(Connection &connection, Hierarchy &hierarchy)
    : m_connection(connection)
    , m_hierarchy(hierarchy)
{
    Statement rows(
        connection, QStringLiteral("SELECT id, kind, uid, device_id FROM source ORDER BY id DESC"));
    rows.execute();
    while (rows.next()) {
        const int id = rows.integer("id");
        if (rows.integer("kind") == static_cast<int>(SourceKind::Device)) {
            m_devices.insert(rows.text("uid"), id);
        } else {
            m_channels.insert(rows.text("uid"), id);
            m_deviceOfChannel.insert(id, rows.integer("device_id"));
            m_firstChannel.insert(rows.integer("device_id"), id);
        }
    }
}

int ImportedSources::channelOrDevice(const QString &uid)
{
    if (const int known = m_channels.value(uid))
        return known;
    if (const int known = m_devices.value(uid))
        return known;
    return addCamera(uid);
}

int ImportedSources::channel(const QString &uid)
{
    if (const int known = m_channels.value(uid))
        return known;
    if (const int device = m_devices.value(uid)) {
        const int first = m_firstChannel.value(device);
        return first ? first : addChannel(uid, device);
    }
    return addCamera(uid);
}

int ImportedSources::device(const QString &uid)
{
    if (const int known = m_devices.value(uid))
        return known;
    const int known = m_channels.value(uid);
    return m_deviceOfChannel.value(known ? known : addCamera(uid));
}

ImportedSources::Subject ImportedSources::subject(const QString &name)
{
    bool isNumber = false;
    const int person = name.toInt(&isNumber);
    if (!isNumber || person <= 0 || m_channels.contains(name) || m_devices.contains(name))
        return {channelOrDevice(name), 0};
    return {0, m_hierarchy.groupOfPerson(person) ? person : addPerson(person)};
}

// A camera is a device and its one channel; both bear the uid that the file knows.
int ImportedSources::addCamera(const QString &uid)
{
    NewSource camera;
    camera.uid = uid;
    camera.organisation = organisation();
    camera.name = uid;
    const int device = addSource(m_connection, camera);
    m_devices.insert(uid, device);
    m_hierarchy.addSource(device, camera.organisation);
    ++m_added;
    return addChannel(uid, device);
}

int ImportedSources::addChannel(const QString &uid, int device)
{
    NewSource channel;
    channel.kind = SourceKind::Channel;
    channel.uid = uid;
    channel.device = device;
    channel.organisation = m_hierarchy.organisationOfSource(device);
    channel.name = uid;
    const int id = addSource(m_connection, channel);
    m_channels.insert(uid, id);
    m_deviceOfChannel.insert(id, device);
    m_firstChannel.insert(device, id);
    m_hierarchy.addSource(id, channel.organisation);
    return id;
}

int ImportedSources::addPerson(int id)
{
    const int group = personGroup();
    devdata::addPerson(m_connection, id, group, QString::number(id));
    m_hierarchy.addPerson(id, group);
    ++m_added;
    return id;
}

int ImportedSources::organisation()
{
    if (const qint64 known = numberOf(m_connection, Setting::ImportedOrganisation))
        return static_cast<int>(known);
    const int id = nextId(m_connection, QStringLiteral("organisation"));
    addOrganisation(m_connection, id, rootOrganisation, importedName());
    m_hierarchy.addOrganisation(id, rootOrganisation);
    setNumber(m_connection, Setting::ImportedOrganisation, id);
    return id;
}

int ImportedSources::personGroup()
{
    const int owner = organisation();
    if (const int known = m_hierarchy.anyGroupOf(owner))
        return known;
    const int id = nextId(m_connection, QStringLiteral("person_group"));
    addPersonGroup(m_connection, id, owner, importedName());
    m_hierarchy.addPersonGroup(id, owner);
    return id;
}

} // namespace devdata
