#include "ScriptedStatisticsManager.h"

#include <devhost/client/ClientInstances.h>

ScriptedStatisticsManager::ScriptedStatisticsManager()
{
    installStatisticsManager(this);
}

ScriptedStatisticsManager::~ScriptedStatisticsManager()
{
    installStatisticsManager(nullptr);
}

template <typename Request, typename Response>
bool ScriptedStatisticsManager::run(
    const char *name, Operation<Request, Response> &operation, const Request &request, Response &response)
{
    const QString operationName = QString::fromLatin1(name);
    calls.append(operationName);
    operation.requests.append(request);
    const QString reason = failure.isNull() ? failures.value(operationName) : failure;
    setLastErrorString(reason);
    if (!reason.isNull())
        return false;
    return !operation.answer || operation.answer(request, response);
}

bool ScriptedStatisticsManager::getAlarmStatisticsOfOrgas(
    TalvixGetAlarmStatisticsOfOrgasRequestMessage &request,
    TalvixGetAlarmStatisticsOfOrgasResponseMessage &response)
{
    return run("getAlarmStatisticsOfOrgas", alarmStatisticsOfOrgas, request, response);
}

bool ScriptedStatisticsManager::getAlarmStatisticsOfOrga(
    TalvixGetAlarmStatisticsOfOrgaRequestMessage &request,
    TalvixGetAlarmStatisticsOfOrgaResponseMessage &response)
{
    return run("getAlarmStatisticsOfOrga", alarmStatisticsOfOrga, request, response);
}

bool ScriptedStatisticsManager::getAlarmStatisticsOfDevices(
    TalvixGetAlarmStatisticsOfDevicesRequestMessage &request,
    TalvixGetAlarmStatisticsOfDevicesResponseMessage &response)
{
    return run("getAlarmStatisticsOfDevices", alarmStatisticsOfDevices, request, response);
}

bool ScriptedStatisticsManager::getAlarmStatisticsOfDevice(
    TalvixGetAlarmStatisticsOfDeviceRequestMessage &request,
    TalvixGetAlarmStatisticsOfDeviceResponseMessage &response)
{
    return run("getAlarmStatisticsOfDevice", alarmStatisticsOfDevice, request, response);
}

bool ScriptedStatisticsManager::getOnlineStatisticsOfOrgas(
    TalvixGetOnlineStatisticsOfOrgasRequestMessage &request,
    TalvixGetOnlineStatisticsOfOrgasResponseMessage &response)
{
    return run("getOnlineStatisticsOfOrgas", onlineStatisticsOfOrgas, request, response);
}

bool ScriptedStatisticsManager::getOnlineStatisticsOfOrga(
    TalvixGetOnlineStatisticsOfOrgaRequestMessage &request,
    TalvixGetOnlineStatisticsOfOrgaResponseMessage &response)
{
    return run("getOnlineStatisticsOfOrga", onlineStatisticsOfOrga, request, response);
}

bool ScriptedStatisticsManager::getOnlineStatisticsOfDevices(
    TalvixGetOnlineStatisticsOfDevicesRequestMessage &request,
    TalvixGetOnlineStatisticsOfDevicesResponseMessage &response)
{
    return run("getOnlineStatisticsOfDevices", onlineStatisticsOfDevices, request, response);
}

bool ScriptedStatisticsManager::getOnlineStatisticsOfDevice(
    TalvixGetOnlineStatisticsOfDeviceRequestMessage &request,
    TalvixGetOnlineStatisticsOfDeviceResponseMessage &response)
{
    return run("getOnlineStatisticsOfDevice", onlineStatisticsOfDevice, request, response);
}

bool ScriptedStatisticsManager::getTemperatureStatisticsOfGroups(
    TalvixGetTemperatureStatisticsOfGroupsRequestMessage &request,
    TalvixGetTemperatureStatisticsOfGroupsResponseMessage &response)
{
    return run("getTemperatureStatisticsOfGroups", temperatureStatisticsOfGroups, request, response);
}

bool ScriptedStatisticsManager::getTemperatureStatisticsOfGroup(
    TalvixGetTemperatureStatisticsOfGroupRequestMessage &request,
    TalvixGetTemperatureStatisticsOfGroupResponseMessage &response)
{
    return run("getTemperatureStatisticsOfGroup", temperatureStatisticsOfGroup, request, response);
}

bool ScriptedStatisticsManager::getTemperatureStatisticsOfPersons(
    TalvixGetTemperatureStatisticsOfPersonsRequestMessage &request,
    TalvixGetTemperatureStatisticsOfPersonsResponseMessage &response)
{
    return run("getTemperatureStatisticsOfPersons", temperatureStatisticsOfPersons, request, response);
}

bool ScriptedStatisticsManager::getTemperatureStatisticsOfPerson(
    TalvixGetTemperatureStatisticsOfPersonRequestMessage &request,
    TalvixGetTemperatureStatisticsOfPersonResponseMessage &response)
{
    return run("getTemperatureStatisticsOfPerson", temperatureStatisticsOfPerson, request, response);
}

bool ScriptedStatisticsManager::getTempStatisticsDistributionOfGroups(
    TalvixGetTempStatisticsDistributionOfGroupsRequestMessage &request,
    TalvixGetTempStatisticsDistributionOfGroupsResponseMessage &response)
{
    return run(
        "getTempStatisticsDistributionOfGroups", tempStatisticsDistributionOfGroups, request, response);
}

bool ScriptedStatisticsManager::getTemperatureOfDevice(
    TalvixGetTempStatisticsDistributionOfOrgasRequestMessage &request,
    TalvixGetTempStatisticsDistributionOfOrgasResponseMessage &response)
{
    return run("getTemperatureOfDevice", temperatureOfDevice, request, response);
}

bool ScriptedStatisticsManager::getTempAlarmHandleStatistics(
    TalvixGetTempAlarmHandleStatisticsOfOrgaRequestMessage &request,
    TalvixGetTempAlarmHandleStatisticsOfOrgaResponseMessage &response)
{
    return run("getTempAlarmHandleStatistics", tempAlarmHandleStatistics, request, response);
}

bool ScriptedStatisticsManager::getSnapSamplesResource(
    TalvixGetSnapSamplesRequestMessage &request, TalvixGetSnapSamplesResponseMessage &response)
{
    return run("getSnapSamplesResource", snapSamplesResource, request, response);
}

bool ScriptedStatisticsManager::getSnapDetailSamples(
    TalvixGetSnapDetailSamplesRequestMessage &request, TalvixGetSnapDetailSamplesResponseMessage &response)
{
    return run("getSnapDetailSamples", snapDetailSamples, request, response);
}

bool ScriptedStatisticsManager::getTrafficsStatisticsOfOrgas(
    TalvixGetSnapDetailSamplesOfOrgasRequestMessage &request,
    TalvixGetSnapDetailSamplesOfOrgasResponseMessage &response)
{
    return run("getTrafficsStatisticsOfOrgas", trafficsStatisticsOfOrgas, request, response);
}

bool ScriptedStatisticsManager::getTrafficsStatisticsOfOrga(
    TalvixGetSnapDetailSamplesOfOrgaRequestMessage &request,
    TalvixGetSnapDetailSamplesOfOrgaResponseMessage &response)
{
    return run("getTrafficsStatisticsOfOrga", trafficsStatisticsOfOrga, request, response);
}

void forgetRequests(ScriptedStatisticsManager &manager)
{
    manager.calls.clear();
    manager.alarmStatisticsOfOrgas.requests.clear();
    manager.alarmStatisticsOfOrga.requests.clear();
    manager.alarmStatisticsOfDevices.requests.clear();
    manager.alarmStatisticsOfDevice.requests.clear();
    manager.onlineStatisticsOfOrgas.requests.clear();
    manager.onlineStatisticsOfOrga.requests.clear();
    manager.onlineStatisticsOfDevices.requests.clear();
    manager.onlineStatisticsOfDevice.requests.clear();
    manager.temperatureStatisticsOfGroups.requests.clear();
    manager.temperatureStatisticsOfGroup.requests.clear();
    manager.temperatureStatisticsOfPersons.requests.clear();
    manager.temperatureStatisticsOfPerson.requests.clear();
    manager.tempStatisticsDistributionOfGroups.requests.clear();
    manager.temperatureOfDevice.requests.clear();
    manager.tempAlarmHandleStatistics.requests.clear();
    manager.snapSamplesResource.requests.clear();
    manager.snapDetailSamples.requests.clear();
    manager.trafficsStatisticsOfOrgas.requests.clear();
    manager.trafficsStatisticsOfOrga.requests.clear();
}
