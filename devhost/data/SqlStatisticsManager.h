#pragma once

#include "SqlStore.h"

#include <TalvixWidgets/KRXClientStatisticsManager.h>

#include <QtCore/QObject>

#include <functional>

/// The statistics service over a store. AlarmStatistics.h, OnlineStatistics.h, TemperatureStatistics.h and
/// SnapshotStatistics.h describe its answers. Common to all:
///
/// - A malformed request (time, time unit, sum mode) is refused with a reason.
/// - A time range that ends before it starts, and an unknown organisation, device, group or person, have a
///   successful answer without rows.
/// - When nothing at all was counted there are no rows. Otherwise lines have a row for every period of the
///   time range, and bars a row for every organisation of the level, also where the count is 0.
/// - Of equal counts the lower id comes first.
///
/// It can be made slow or let fail, for trying out how pages look then. A query blocks the thread, and no
/// event is processed meanwhile; the wait cursor says so until the thread is free again.
class SqlStatisticsManager : public KRXClientStatisticsManager
{
public:
    explicit SqlStatisticsManager(SqlStore &store);
    ~SqlStatisticsManager() override;

    /// Every query takes at least this long; at most a minute.
    void setLatency(int milliseconds);
    int latency() const { return m_latency; }
    /// How many of a hundred queries fail.
    void setFailureRate(int percent);
    int failureRate() const { return m_failureRate; }
    /// The next \a queries queries fail, whatever the rate.
    void failNext(int queries = 1);
    /// \a told is called before the first query since the thread was free.
    void whenAsked(std::function<void()> told) { m_asked = std::move(told); }
    /// \a told is called after each query that was answered.
    void whenAnswered(std::function<void()> told) { m_answered = std::move(told); }

    bool getAlarmStatisticsOfOrgas(TalvixGetAlarmStatisticsOfOrgasRequestMessage &request,
        TalvixGetAlarmStatisticsOfOrgasResponseMessage &response) override;
    bool getAlarmStatisticsOfOrga(TalvixGetAlarmStatisticsOfOrgaRequestMessage &request,
        TalvixGetAlarmStatisticsOfOrgaResponseMessage &response) override;
    bool getAlarmStatisticsOfDevices(TalvixGetAlarmStatisticsOfDevicesRequestMessage &request,
        TalvixGetAlarmStatisticsOfDevicesResponseMessage &response) override;
    bool getAlarmStatisticsOfDevice(TalvixGetAlarmStatisticsOfDeviceRequestMessage &request,
        TalvixGetAlarmStatisticsOfDeviceResponseMessage &response) override;
    bool getOnlineStatisticsOfOrgas(TalvixGetOnlineStatisticsOfOrgasRequestMessage &request,
        TalvixGetOnlineStatisticsOfOrgasResponseMessage &response) override;
    bool getOnlineStatisticsOfOrga(TalvixGetOnlineStatisticsOfOrgaRequestMessage &request,
        TalvixGetOnlineStatisticsOfOrgaResponseMessage &response) override;
    bool getOnlineStatisticsOfDevices(TalvixGetOnlineStatisticsOfDevicesRequestMessage &request,
        TalvixGetOnlineStatisticsOfDevicesResponseMessage &response) override;
    bool getOnlineStatisticsOfDevice(TalvixGetOnlineStatisticsOfDeviceRequestMessage &request,
        TalvixGetOnlineStatisticsOfDeviceResponseMessage &response) override;
    bool getTemperatureStatisticsOfGroups(TalvixGetTemperatureStatisticsOfGroupsRequestMessage &request,
        TalvixGetTemperatureStatisticsOfGroupsResponseMessage &response) override;
    bool getTemperatureStatisticsOfGroup(TalvixGetTemperatureStatisticsOfGroupRequestMessage &request,
        TalvixGetTemperatureStatisticsOfGroupResponseMessage &response) override;
    bool getTemperatureStatisticsOfPersons(TalvixGetTemperatureStatisticsOfPersonsRequestMessage &request,
        TalvixGetTemperatureStatisticsOfPersonsResponseMessage &response) override;
    bool getTemperatureStatisticsOfPerson(TalvixGetTemperatureStatisticsOfPersonRequestMessage &request,
        TalvixGetTemperatureStatisticsOfPersonResponseMessage &response) override;
    bool getTempStatisticsDistributionOfGroups(
        TalvixGetTempStatisticsDistributionOfGroupsRequestMessage &request,
        TalvixGetTempStatisticsDistributionOfGroupsResponseMessage &response) override;
    bool getTemperatureOfDevice(TalvixGetTempStatisticsDistributionOfOrgasRequestMessage &request,
        TalvixGetTempStatisticsDistributionOfOrgasResponseMessage &response) override;
    bool getTempAlarmHandleStatistics(TalvixGetTempAlarmHandleStatisticsOfOrgaRequestMessage &request,
        TalvixGetTempAlarmHandleStatisticsOfOrgaResponseMessage &response) override;
    bool getSnapSamplesResource(
        TalvixGetSnapSamplesRequestMessage &request, TalvixGetSnapSamplesResponseMessage &response) override;
    bool getSnapDetailSamples(TalvixGetSnapDetailSamplesRequestMessage &request,
        TalvixGetSnapDetailSamplesResponseMessage &response) override;
    bool getTrafficsStatisticsOfOrgas(TalvixGetSnapDetailSamplesOfOrgasRequestMessage &request,
        TalvixGetSnapDetailSamplesOfOrgasResponseMessage &response) override;
    bool getTrafficsStatisticsOfOrga(TalvixGetSnapDetailSamplesOfOrgaRequestMessage &request,
        TalvixGetSnapDetailSamplesOfOrgaResponseMessage &response) override;

private:
    template <typename Answer>
    bool run(const Answer &answer);
    bool isToFail();
    void showWaiting();
    void endWaiting();
    devdata::Minute now() const;

    SqlStore &m_store;
    int m_latency = 0;
    int m_failureRate = 0;
    int m_failures = 0;
    std::function<void()> m_asked;
    std::function<void()> m_answered;
    bool m_waiting = false;
    QObject m_endOfWaiting; ///< receives the event that the thread is free again
};
