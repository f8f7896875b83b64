#pragma once

#include "SqlStore.h"

#include <TalvixWidgets/KrxClient.h>

#include <map>

/// The platform's client over a store: it knows the organisations, devices, channels and alarm types that the
/// store held when it was created or last reloaded.
class SqlKrxClient : public KrxClient
{
    Q_OBJECT

public:
    /// Throws StoreError when the store cannot be read.
    explicit SqlKrxClient(SqlStore &store);
    ~SqlKrxClient() override;

    /// Reads everything anew and emits signals for organisations that came, changed or went. Pointers that
    /// were given out become invalid. Throws StoreError, with everything as it was, when the store cannot be
    /// read.
    void reload();

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
    struct Model
    {
        std::list<TalvixGroup> organisations;
        std::map<int, TalvixGroup *> organisationById;
        std::map<std::string, TalvixDevice> devices;
        std::map<std::string, TalvixChannel> channels;
        std::map<std::string, QString> channelNames;
        std::map<int, TalvixAlarmType> alarmTypes;
    };

    static Model read(devdata::Connection &connection);
    static void readOrganisations(devdata::Connection &connection, Model &model);
    static void readSources(devdata::Connection &connection, Model &model);
    static void readAlarmTypes(devdata::Connection &connection, Model &model);
    void emitChanges(const std::list<TalvixGroup> &before);

    SqlStore &m_store;
    Model m_model;
};
