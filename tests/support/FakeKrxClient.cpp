#include "FakeKrxClient.h"

#include <devhost/client/ClientInstances.h>

#include <algorithm>

FakeKrxClient::FakeKrxClient()
{
    installKrxClient(this);
}

FakeKrxClient::~FakeKrxClient()
{
    installKrxClient(nullptr);
}

void FakeKrxClient::setTree(const QString &text)
{
    m_groups.clear();
    QList<int> path;
    const QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QString entry = line.trimmed();
        const qsizetype blank = entry.indexOf(QLatin1Char(' '));
        const int depth = static_cast<int>((line.size() - line.trimmed().size()) / 2);
        const int id = entry.left(blank).toInt();
        path.resize(std::min<qsizetype>(depth, path.size()));
        addOrganisation(id, entry.mid(blank + 1).toStdString(), path.isEmpty() ? 0 : path.last());
        path.append(id);
    }
}

void FakeKrxClient::addOrganisation(int id, const std::string &name, int parent)
{
    TalvixGroup group;
    group.set_group_id(id);
    group.set_parent_id(parent);
    group.set_group_name(name);
    m_groups.push_back(group);
}

void FakeKrxClient::addChannel(const std::string &uid, const QString &displayName,
    const std::string &channelName, const std::string &ip, int type)
{
    TalvixChannel channel;
    channel.set_channel_name(channelName);
    channel.set_channel_ip(ip);
    channel.set_channel_type_id(type);
    m_channels[uid] = channel;
    m_channelNames[uid] = displayName;
}

void FakeKrxClient::addDevice(
    const std::string &uid, const std::string &name, const std::string &ip, int type)
{
    TalvixDevice device;
    device.set_device_name(name);
    device.set_device_ip(ip);
    device.set_device_type_id(type);
    m_devices[uid] = device;
}

void FakeKrxClient::addAlarmType(int code, const std::string &name)
{
    TalvixAlarmType type;
    type.set_alarm_type_name(name);
    m_alarmTypes[code] = type;
}

bool FakeKrxClient::getCurUserInfo(TalvixUser &user)
{
    calls.append(QStringLiteral("getCurUserInfo"));
    if (m_signedIn)
        user.set_id(m_userId);
    return m_signedIn;
}

std::list<TalvixGroup> &FakeKrxClient::getOrgaList()
{
    calls.append(QStringLiteral("getOrgaList"));
    return m_groups;
}

void FakeKrxClient::organizeOrgaNodes(QList<NODE> &nodes, std::list<TalvixGroup> &list)
{
    calls.append(QStringLiteral("organizeOrgaNodes"));
    for (const TalvixGroup &group : list) {
        NODE node;
        node.id = group.get_group_id();
        node.name = QString::fromStdString(group.get_group_name());
        if (group.get_parent_id() > 0)
            node.parentId = QString::number(group.get_parent_id());
        nodes.append(node);
    }
}

TalvixChannel *FakeKrxClient::getChannelByUid(const std::string &uid)
{
    const auto found = m_channels.find(uid);
    return found == m_channels.end() ? nullptr : &found->second;
}

TalvixDevice *FakeKrxClient::getDevicesByUid(const std::string &uid)
{
    const auto found = m_devices.find(uid);
    return found == m_devices.end() ? nullptr : &found->second;
}

QString FakeKrxClient::getDevNameByChannelID(std::string uid)
{
    const auto found = m_channelNames.find(uid);
    return found == m_channelNames.end() ? QString() : found->second;
}

TalvixGroup *FakeKrxClient::getOrgaInfoById(int id)
{
    const auto found = std::find_if(m_groups.begin(), m_groups.end(),
        [id](const TalvixGroup &group) { return group.get_group_id() == id; });
    return found == m_groups.end() ? nullptr : &*found;
}

TalvixAlarmType *FakeKrxClient::getAlarmTypeByCode(int code)
{
    const auto found = m_alarmTypes.find(code);
    return found == m_alarmTypes.end() ? nullptr : &found->second;
}

bool FakeKrxClient::isNVROrDVRDevice(int type)
{
    return m_recorderTypes.contains(type);
}
