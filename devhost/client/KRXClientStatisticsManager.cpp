#include "ClientInstances.h"

#include <TalvixWidgets/KRXClientStatisticsManager.h>

namespace {

KRXClientStatisticsManager *installedManager = nullptr;

QString noService()
{
    return QStringLiteral("There is no statistics service.");
}

} // namespace

void installStatisticsManager(KRXClientStatisticsManager *manager)
{
    installedManager = manager;
}

KRXClientStatisticsManager::KRXClientStatisticsManager() = default;
KRXClientStatisticsManager::~KRXClientStatisticsManager() = default;

KRXClientStatisticsManager *KRXClientStatisticsManager::instance()
{
    static KRXClientStatisticsManager builtIn;
    return installedManager ? installedManager : &builtIn;
}

bool KRXClientStatisticsManager::getAlarmStatisticsOfOrgas(
    TalvixGetAlarmStatisticsOfOrgasRequestMessage &, TalvixGetAlarmStatisticsOfOrgasResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getAlarmStatisticsOfOrga(
    TalvixGetAlarmStatisticsOfOrgaRequestMessage &, TalvixGetAlarmStatisticsOfOrgaResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getAlarmStatisticsOfDevices(
    TalvixGetAlarmStatisticsOfDevicesRequestMessage &, TalvixGetAlarmStatisticsOfDevicesResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getAlarmStatisticsOfDevice(
    TalvixGetAlarmStatisticsOfDeviceRequestMessage &, TalvixGetAlarmStatisticsOfDeviceResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getOnlineStatisticsOfOrgas(
    TalvixGetOnlineStatisticsOfOrgasRequestMessage &, TalvixGetOnlineStatisticsOfOrgasResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getOnlineStatisticsOfOrga(
    TalvixGetOnlineStatisticsOfOrgaRequestMessage &, TalvixGetOnlineStatisticsOfOrgaResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getOnlineStatisticsOfDevices(
    TalvixGetOnlineStatisticsOfDevicesRequestMessage &, TalvixGetOnlineStatisticsOfDevicesResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getOnlineStatisticsOfDevice(
    TalvixGetOnlineStatisticsOfDeviceRequestMessage &, TalvixGetOnlineStatisticsOfDeviceResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getTemperatureStatisticsOfGroups(
    TalvixGetTemperatureStatisticsOfGroupsRequestMessage &,
    TalvixGetTemperatureStatisticsOfGroupsResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getTemperatureStatisticsOfGroup(
    TalvixGetTemperatureStatisticsOfGroupRequestMessage &,
    TalvixGetTemperatureStatisticsOfGroupResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getTemperatureStatisticsOfPersons(
    TalvixGetTemperatureStatisticsOfPersonsRequestMessage &,
    TalvixGetTemperatureStatisticsOfPersonsResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getTemperatureStatisticsOfPerson(
    TalvixGetTemperatureStatisticsOfPersonRequestMessage &,
    TalvixGetTemperatureStatisticsOfPersonResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getTempStatisticsDistributionOfGroups(
    TalvixGetTempStatisticsDistributionOfGroupsRequestMessage &,
    TalvixGetTempStatisticsDistributionOfGroupsResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getTemperatureOfDevice(
    TalvixGetTempStatisticsDistributionOfOrgasRequestMessage &,
    TalvixGetTempStatisticsDistributionOfOrgasResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getTempAlarmHandleStatistics(
    TalvixGetTempAlarmHandleStatisticsOfOrgaRequestMessage &,
    TalvixGetTempAlarmHandleStatisticsOfOrgaResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getSnapSamplesResource(
    TalvixGetSnapSamplesRequestMessage &, TalvixGetSnapSamplesResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getSnapDetailSamples(
    TalvixGetSnapDetailSamplesRequestMessage &, TalvixGetSnapDetailSamplesResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getTrafficsStatisticsOfOrgas(
    TalvixGetSnapDetailSamplesOfOrgasRequestMessage &, TalvixGetSnapDetailSamplesOfOrgasResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}

bool KRXClientStatisticsManager::getTrafficsStatisticsOfOrga(
    TalvixGetSnapDetailSamplesOfOrgaRequestMessage &, TalvixGetSnapDetailSamplesOfOrgaResponseMessage &)
{
    setLastErrorString(noService());
    return false;
}
