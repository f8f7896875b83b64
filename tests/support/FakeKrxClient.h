#pragma once

#include <TalvixWidgets/KrxClient.h>

#include <QtCore/QStringList>

#include <map>
#include <string>

/// A client with prepared lists. It installs itself for as long as it lives.
class FakeKrxClient : public KrxClient
{
public:
    FakeKrxClient();
    ~FakeKrxClient() override;

    /// Draws the organisation tree as indented text, two blanks a level, each line a number and a name:
    /// \code
    /// 1 Company
    ///   2 Plant North
    ///   3 Plant South
    /// \endcode
    void setTree(const QString &text);
    /// Nodes of the tree without any root item behind them can't be drawn; this makes the list empty.
    void clearTree() { setTree({}); }

    void addOrganisation(int id, const std::string &name, int parent = 0);
    void addChannel(const std::string &uid, const QString &displayName, const std::string &channelName = {},
        const std::string &ip = {}, int type = 1);
    void addDevice(const std::string &uid, const std::string &name, const std::string &ip = {}, int type = 1);
    void addAlarmType(int code, const std::string &name);
    void setRecorderTypes(const QList<int> &types) { m_recorderTypes = types; }
    void setUserId(int id) { m_userId = id; }
    /// Nobody is signed in: `getCurUserInfo` answers false.
    void signOut() { m_signedIn = false; }

    /// Calls so far, by operation name, in order. "getOrgaList" stands for one load of the tree.
    QStringList calls;

    bool getCurUserInfo(TalvixUser &user) override;
    std::list<TalvixGroup> &getOrgaList() override;
    void organizeOrgaNodes(QList<NODE> &nodes, std::list<TalvixGroup> &list) override;
    TalvixChannel *getChannelByUid(const std::string &uid) override;
    TalvixDevice *getDevicesByUid(const std::string &uid) override;
    QString getDevNameByChannelID(std::string uid) override;
    TalvixGroup *getOrgaInfoById(int id) override;
    TalvixAlarmType *getAlarmTypeByCode(int code) override;
    bool isNVROrDVRDevice(int type) override;

private:
    std::list<TalvixGroup> m_groups;
    std::map<std::string, TalvixChannel> m_channels;
    std::map<std::string, QString> m_channelNames;
    std::map<std::string, TalvixDevice> m_devices;
    std::map<int, TalvixAlarmType> m_alarmTypes;
    QList<int> m_recorderTypes = {2, 3};
    int m_userId = 7;
    bool m_signedIn = true;
};
