#include "ClientInstances.h"

#include <TalvixWidgets/KrxClient.h>

namespace {

KrxClient *installedClient = nullptr;

} // namespace

void installKrxClient(KrxClient *client)
{
    installedClient = client;
}

KrxClient::KrxClient() = default;
KrxClient::~KrxClient() = default;

KrxClient *KrxClient::instance()
{
    static KrxClient builtIn;
    return installedClient ? installedClient : &builtIn;
}

bool KrxClient::getCurUserInfo(TalvixUser &)
{
    return false;
}

std::list<TalvixGroup> &KrxClient::getOrgaList()
{
    static std::list<TalvixGroup> none;
    return none;
}

void KrxClient::organizeOrgaNodes(QList<NODE> &, std::list<TalvixGroup> &)
{ }

TalvixChannel *KrxClient::getChannelByUid(const std::string &)
{
    return nullptr;
}

TalvixDevice *KrxClient::getDevicesByUid(const std::string &)
{
    return nullptr;
}

QString KrxClient::getDevNameByChannelID(std::string)
{
    return {};
}

TalvixGroup *KrxClient::getOrgaInfoById(int)
{
    return nullptr;
}

TalvixAlarmType *KrxClient::getAlarmTypeByCode(int)
{
    return nullptr;
}

bool KrxClient::isNVROrDVRDevice(int)
{
    return false;
}
