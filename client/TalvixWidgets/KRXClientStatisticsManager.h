#pragma once

#include "TalvixWidgetsGlobal.h"
#include "VuKRXClientManager.h"

#include <TalvixMessages/AlarmStatisticsMessages.h>
#include <TalvixMessages/OnlineStatisticsMessages.h>
#include <TalvixMessages/SnapStatisticsMessages.h>
#include <TalvixMessages/TemperatureStatisticsMessages.h>

/// The statistics service of the platform.
///
/// Each query blocks until the server has answered and fills \a response. It returns true on success, also
/// when there is nothing to report and the lists are empty; after false the response means nothing and
/// `getLastErrorString()` tells the reason. No query throws. All are called on the GUI thread, one at a time.
///
/// Names of operations and messages do not agree everywhere; the pairing below is the service's own.
/// The manager itself refuses every query; the host's manager derives from it.
class TALVIXWIDGETS_EXPORT KRXClientStatisticsManager : public VuKRXClientManager
{
public:
    KRXClientStatisticsManager();
    ~KRXClientStatisticsManager() override;

    /// The manager in use. Never null. Callers fetch it anew for each query.
    static KRXClientStatisticsManager *instance();

    /// The bars of alarms by organisation.
    virtual bool getAlarmStatisticsOfOrgas(TalvixGetAlarmStatisticsOfOrgasRequestMessage &request,
        TalvixGetAlarmStatisticsOfOrgasResponseMessage &response);
    /// The periods and types of one organisation's alarms.
    virtual bool getAlarmStatisticsOfOrga(TalvixGetAlarmStatisticsOfOrgaRequestMessage &request,
        TalvixGetAlarmStatisticsOfOrgaResponseMessage &response);
    /// One page of the bars of alarms by device.
    virtual bool getAlarmStatisticsOfDevices(TalvixGetAlarmStatisticsOfDevicesRequestMessage &request,
        TalvixGetAlarmStatisticsOfDevicesResponseMessage &response);
    /// The periods and types of one device's alarms.
    virtual bool getAlarmStatisticsOfDevice(TalvixGetAlarmStatisticsOfDeviceRequestMessage &request,
        TalvixGetAlarmStatisticsOfDeviceResponseMessage &response);
    /// The bars of online figures by organisation.
    virtual bool getOnlineStatisticsOfOrgas(TalvixGetOnlineStatisticsOfOrgasRequestMessage &request,
        TalvixGetOnlineStatisticsOfOrgasResponseMessage &response);
    /// The periods of one organisation's online figure.
    virtual bool getOnlineStatisticsOfOrga(TalvixGetOnlineStatisticsOfOrgaRequestMessage &request,
        TalvixGetOnlineStatisticsOfOrgaResponseMessage &response);
    /// One page of the bars of online figures by device.
    virtual bool getOnlineStatisticsOfDevices(TalvixGetOnlineStatisticsOfDevicesRequestMessage &request,
        TalvixGetOnlineStatisticsOfDevicesResponseMessage &response);
    /// The periods of one device's online figure.
    virtual bool getOnlineStatisticsOfDevice(TalvixGetOnlineStatisticsOfDeviceRequestMessage &request,
        TalvixGetOnlineStatisticsOfDeviceResponseMessage &response);
    /// The bars of temperature by person group.
    virtual bool getTemperatureStatisticsOfGroups(
        TalvixGetTemperatureStatisticsOfGroupsRequestMessage &request,
        TalvixGetTemperatureStatisticsOfGroupsResponseMessage &response);
    /// The periods of one person group.
    virtual bool getTemperatureStatisticsOfGroup(TalvixGetTemperatureStatisticsOfGroupRequestMessage &request,
        TalvixGetTemperatureStatisticsOfGroupResponseMessage &response);
    /// One page of the bars of temperature by person.
    virtual bool getTemperatureStatisticsOfPersons(
        TalvixGetTemperatureStatisticsOfPersonsRequestMessage &request,
        TalvixGetTemperatureStatisticsOfPersonsResponseMessage &response);
    /// The periods of one person.
    virtual bool getTemperatureStatisticsOfPerson(
        TalvixGetTemperatureStatisticsOfPersonRequestMessage &request,
        TalvixGetTemperatureStatisticsOfPersonResponseMessage &response);
    /// The distribution of a person group by number or by cause.
    virtual bool getTempStatisticsDistributionOfGroups(
        TalvixGetTempStatisticsDistributionOfGroupsRequestMessage &request,
        TalvixGetTempStatisticsDistributionOfGroupsResponseMessage &response);
    /// The distribution of device groups by temperature or by mask.
    virtual bool getTemperatureOfDevice(TalvixGetTempStatisticsDistributionOfOrgasRequestMessage &request,
        TalvixGetTempStatisticsDistributionOfOrgasResponseMessage &response);
    /// Accepted and unaccepted temperature alarms of device groups, by period.
    virtual bool getTempAlarmHandleStatistics(TalvixGetTempAlarmHandleStatisticsOfOrgaRequestMessage &request,
        TalvixGetTempAlarmHandleStatisticsOfOrgaResponseMessage &response);
    /// Snapshots of all channels, by period.
    virtual bool getSnapSamplesResource(
        TalvixGetSnapSamplesRequestMessage &request, TalvixGetSnapSamplesResponseMessage &response);
    /// The minor types of one channel's or organisation's snapshots.
    virtual bool getSnapDetailSamples(TalvixGetSnapDetailSamplesRequestMessage &request,
        TalvixGetSnapDetailSamplesResponseMessage &response);
    /// The bars of snapshots by organisation.
    virtual bool getTrafficsStatisticsOfOrgas(TalvixGetSnapDetailSamplesOfOrgasRequestMessage &request,
        TalvixGetSnapDetailSamplesOfOrgasResponseMessage &response);
    /// The periods of one organisation's snapshots.
    virtual bool getTrafficsStatisticsOfOrga(TalvixGetSnapDetailSamplesOfOrgaRequestMessage &request,
        TalvixGetSnapDetailSamplesOfOrgaResponseMessage &response);
};
