#pragma once

#include "NODE.h"
#include "TalvixOperatorType.h"
#include "TalvixWidgetsGlobal.h"

#include <TalvixModel/TalvixAlarmType.h>
#include <TalvixModel/TalvixChannel.h>
#include <TalvixModel/TalvixDevice.h>
#include <TalvixModel/TalvixGroup.h>
#include <TalvixModel/TalvixUser.h>

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QString>

#include <list>
#include <string>

/// The client of the video platform: user, organisations, devices, channels and alarm types.
///
/// The client itself knows nothing (an empty tree, no user, null for every id); the host's client derives
/// from it. Pointers that it returns belong to the client and live until its lists change; callers copy what
/// they keep. Called on the GUI thread.
class TALVIXWIDGETS_EXPORT KrxClient : public QObject
{
    Q_OBJECT

public:
    KrxClient();
    ~KrxClient() override;

    /// The client in use. Never null.
    static KrxClient *instance();

    /// Fills \a user with the signed-in user; false, with \a user untouched, when nobody is.
    virtual bool getCurUserInfo(TalvixUser &user);

    /// The client's current organisations, in its order.
    virtual std::list<TalvixGroup> &getOrgaList();
    /// Appends the tree of \a list to \a nodes, parents before their children.
    virtual void organizeOrgaNodes(QList<NODE> &nodes, std::list<TalvixGroup> &list);

    /// The channel with this uid, or null.
    virtual TalvixChannel *getChannelByUid(const std::string &uid);
    /// The device with this uid, or null.
    virtual TalvixDevice *getDevicesByUid(const std::string &uid);
    /// Display name of the channel's device and channel; empty for an unknown uid.
    virtual QString getDevNameByChannelID(std::string uid);
    /// The organisation with this number, or null.
    virtual TalvixGroup *getOrgaInfoById(int id);
    /// The alarm type with this code, or null.
    virtual TalvixAlarmType *getAlarmTypeByCode(int code);
    /// Whether a device type is a network or digital video recorder.
    virtual bool isNVROrDVRDevice(int type);

Q_SIGNALS:
    /// The organisation list has changed. May be emitted on any thread.
    void signalOrgaInfoChanged(TalvixGroup group, TalvixOperatorType type);
};
