#include "SqlKrxClient.h"

#include "Hierarchy.h"

#include <TalvixWidgets/AppTranslationHelper.h>

#include <unordered_map>
#include <unordered_set>

using namespace devdata;

namespace {

constexpr int onlyUser = 1;

bool isRecorder(int type)
{
    return type == nvrDevice || type == dvrDevice;
}

/// A recorder's channels need their own names; any other device is known by its name alone.
QString displayName(const QString &device, int deviceType, const QString &channel)
{
    if (device.isEmpty())
        return channel;
    return isRecorder(deviceType) ? QStringLiteral("%1 - %2").arg(device, channel) : device;
}

/// Puts groups into the order of the tree. Whatever has no parent in the list, or belongs to a circle, is a
/// root.
class TreeWriter
{
public:
    TreeWriter(QList<NODE> &nodes, const std::list<TalvixGroup> &groups)
        : m_nodes(nodes)
    {
        for (const TalvixGroup &group : groups)
            m_known.insert(group.get_group_id());
        for (const TalvixGroup &group : groups)
            m_children[group.get_parent_id()].push_back(&group);
    }

    void write(const std::list<TalvixGroup> &groups)
    {
        for (const TalvixGroup &group : groups)
            if (m_known.count(group.get_parent_id()) == 0)
                writeBranch(group);
        for (const TalvixGroup &group : groups)
            writeBranch(group);
    }

private:
    struct Waiting
    {
        const TalvixGroup *group;
        int level;
    };

    void writeBranch(const TalvixGroup &root)
    {
        std::vector<Waiting> waiting = {{&root, 0}};
        while (!waiting.empty()) {
            const Waiting next = waiting.back();
            waiting.pop_back();
            if (!m_written.insert(next.group->get_group_id()).second)
                continue;
            const auto &children = m_children[next.group->get_group_id()];
            writeNode(next, static_cast<int>(children.size()));
            for (auto child = children.rbegin(); child != children.rend(); ++child)
                waiting.push_back({*child, next.level + 1});
        }
    }

    void writeNode(const Waiting &item, int children)
    {
        const std::string name = item.group->get_group_name();
        NODE node;
        node.id = item.group->get_group_id();
        node.name = AppTranslationHelper::instance()->getStringAfterTranslation(name.c_str());
        if (item.level > 0)
            node.parentId = QString::number(item.group->get_parent_id());
        node.level = item.level;
        node.childCount = children;
        m_nodes.append(node);
    }

    QList<NODE> &m_nodes;
    std::unordered_set<int> m_known;
    std::unordered_set<int> m_written;
    std::unordered_map<int, std::vector<const TalvixGroup *>> m_children;
};

template <typename Key, typename Value>
Value *pointerTo(std::map<Key, Value> &values, const Key &key)
{
    const auto found = values.find(key);
    return found == values.end() ? nullptr : &found->second;
}

bool isSame(const TalvixGroup &a, const TalvixGroup &b)
{
    return a.get_parent_id() == b.get_parent_id() && a.get_group_name() == b.get_group_name();
}

} // namespace

SqlKrxClient::SqlKrxClient(SqlStore &store)
    : m_store(store)
    , m_model(read(store.connection()))
{ }

SqlKrxClient::~SqlKrxClient() = default;

void SqlKrxClient::reload()
{
    Model model = read(m_store.connection());
    std::swap(model, m_model);
    emitChanges(model.organisations);
}

SqlKrxClient::Model SqlKrxClient::read(Connection &connection)
{
    Model model;
    readOrganisations(connection, model);
    readSources(connection, model);
    readAlarmTypes(connection, model);
    return model;
}

void SqlKrxClient::readOrganisations(Connection &connection, Model &model)
{
    Statement rows(connection, QStringLiteral("SELECT id, parent_id, name FROM organisation ORDER BY id"));
    rows.execute();
    while (rows.next()) {
        TalvixGroup group;
        group.set_group_id(rows.integer("id"));
        group.set_parent_id(rows.integer("parent_id"));
        group.set_group_name(rows.text("name").toStdString());
        model.organisations.push_back(group);
        model.organisationById[group.get_group_id()] = &model.organisations.back();
    }
}

void SqlKrxClient::readSources(Connection &connection, Model &model)
{
    Statement rows(connection,
        QStringLiteral("SELECT s.kind, s.uid, s.name, s.ip, s.type_id, d.name AS device_name, "
                       "d.type_id AS device_type FROM source s LEFT JOIN source d ON d.id = s.device_id"));
    rows.execute();
    while (rows.next()) {
        const std::string uid = rows.text("uid").toStdString();
        if (rows.integer("kind") == static_cast<int>(SourceKind::Device)) {
            TalvixDevice &device = model.devices[uid];
            device.set_device_name(rows.text("name").toStdString());
            device.set_device_ip(rows.text("ip").toStdString());
            device.set_device_type_id(rows.integer("type_id"));
        } else {
            TalvixChannel &channel = model.channels[uid];
            channel.set_channel_name(rows.text("name").toStdString());
            channel.set_channel_ip(rows.text("ip").toStdString());
            channel.set_channel_type_id(rows.integer("type_id"));
            model.channelNames[uid] =
                displayName(rows.text("device_name"), rows.integer("device_type"), rows.text("name"));
        }
    }
}

void SqlKrxClient::readAlarmTypes(Connection &connection, Model &model)
{
    Statement rows(connection, QStringLiteral("SELECT code, name FROM alarm_type"));
    rows.execute();
    while (rows.next())
        model.alarmTypes[rows.integer("code")].set_alarm_type_name(rows.text("name").toStdString());
}

void SqlKrxClient::emitChanges(const std::list<TalvixGroup> &before)
{
    std::map<int, TalvixGroup> gone;
    for (const TalvixGroup &group : before)
        gone.emplace(group.get_group_id(), group);
    const std::list<TalvixGroup> now = m_model.organisations;
    for (const TalvixGroup &group : now) {
        const auto known = gone.find(group.get_group_id());
        if (known == gone.end())
            Q_EMIT signalOrgaInfoChanged(group, TalvixOperatorType::Add);
        else if (!isSame(known->second, group))
            Q_EMIT signalOrgaInfoChanged(group, TalvixOperatorType::Modify);
        gone.erase(group.get_group_id());
    }
    for (const auto &[id, group] : gone)
        Q_EMIT signalOrgaInfoChanged(group, TalvixOperatorType::Delete);
}

bool SqlKrxClient::getCurUserInfo(TalvixUser &user)
{
    user.set_id(onlyUser);
    return true;
}

std::list<TalvixGroup> &SqlKrxClient::getOrgaList()
{
    return m_model.organisations;
}

void SqlKrxClient::organizeOrgaNodes(QList<NODE> &nodes, std::list<TalvixGroup> &list)
{
    TreeWriter(nodes, list).write(list);
}

TalvixChannel *SqlKrxClient::getChannelByUid(const std::string &uid)
{
    return pointerTo(m_model.channels, uid);
}

TalvixDevice *SqlKrxClient::getDevicesByUid(const std::string &uid)
{
    return pointerTo(m_model.devices, uid);
}

QString SqlKrxClient::getDevNameByChannelID(std::string uid)
{
    const QString *name = pointerTo(m_model.channelNames, uid);
    return name ? *name : QString();
}

TalvixGroup *SqlKrxClient::getOrgaInfoById(int id)
{
    const auto found = m_model.organisationById.find(id);
    return found == m_model.organisationById.end() ? nullptr : found->second;
}

TalvixAlarmType *SqlKrxClient::getAlarmTypeByCode(int code)
{
    return pointerTo(m_model.alarmTypes, code);
}

bool SqlKrxClient::isNVROrDVRDevice(int type)
{
    return isRecorder(type);
}
