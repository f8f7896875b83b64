#pragma once

#include <TalvixWidgets/KRXClientStatisticsManager.h>

#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QStringList>

#include <functional>

/// A statistics service that answers from prepared rows and keeps every request.
///
/// An operation without an answer succeeds with an untouched response. It installs itself for as long as it
/// lives.
class ScriptedStatisticsManager : public KRXClientStatisticsManager
{
public:
    /// One operation: what it answers, and what it was asked.
    template <typename Request, typename Response>
    struct Operation
    {
        std::function<bool(const Request &, Response &)> answer;
        QList<Request> requests;

        /// Succeeds with \a response from now on.
        void answers(const Response &response)
        {
            answer = [response](const Request &, Response &out) {
                out = response;
                return true;
            };
        }
    };

    ScriptedStatisticsManager();
    ~ScriptedStatisticsManager() override;

    /// Every operation answers false with this reason; null lets them answer again.
    void failWith(const QString &reason) { failure = reason; }
    /// The named operation alone fails with the reason; a null reason lets it answer again.
    void failOperation(const QString &operation, const QString &reason) { failures[operation] = reason; }

    /// Names of the operations in the order of their calls.
    QStringList calls;

    Operation<TalvixGetAlarmStatisticsOfOrgasRequestMessage, TalvixGetAlarmStatisticsOfOrgasResponseMessage>
        alarmStatisticsOfOrgas;
    Operation<TalvixGetAlarmStatisticsOfOrgaRequestMessage, TalvixGetAlarmStatisticsOfOrgaResponseMessage>
        alarmStatisticsOfOrga;
    Operation<TalvixGetAlarmStatisticsOfDevicesRequestMessage,
        TalvixGetAlarmStatisticsOfDevicesResponseMessage>
        alarmStatisticsOfDevices;
    Operation<TalvixGetAlarmStatisticsOfDeviceRequestMessage, TalvixGetAlarmStatisticsOfDeviceResponseMessage>
        alarmStatisticsOfDevice;
    Operation<TalvixGetOnlineStatisticsOfOrgasRequestMessage, TalvixGetOnlineStatisticsOfOrgasResponseMessage>
        onlineStatisticsOfOrgas;
    Operation<TalvixGetOnlineStatisticsOfOrgaRequestMessage, TalvixGetOnlineStatisticsOfOrgaResponseMessage>
        onlineStatisticsOfOrga;
    Operation<TalvixGetOnlineStatisticsOfDevicesRequestMessage,
        TalvixGetOnlineStatisticsOfDevicesResponseMessage>
        onlineStatisticsOfDevices;
    Operation<TalvixGetOnlineStatisticsOfDeviceRequestMessage,
        TalvixGetOnlineStatisticsOfDeviceResponseMessage>
        onlineStatisticsOfDevice;
    Operation<TalvixGetTemperatureStatisticsOfGroupsRequestMessage,
        TalvixGetTemperatureStatisticsOfGroupsResponseMessage>
        temperatureStatisticsOfGroups;
    Operation<TalvixGetTemperatureStatisticsOfGroupRequestMessage,
        TalvixGetTemperatureStatisticsOfGroupResponseMessage>
        temperatureStatisticsOfGroup;
    Operation<TalvixGetTemperatureStatisticsOfPersonsRequestMessage,
        TalvixGetTemperatureStatisticsOfPersonsResponseMessage>
        temperatureStatisticsOfPersons;
    Operation<TalvixGetTemperatureStatisticsOfPersonRequestMessage,
        TalvixGetTemperatureStatisticsOfPersonResponseMessage>
        temperatureStatisticsOfPerson;
    Operation<TalvixGetTempStatisticsDistributionOfGroupsRequestMessage,
        TalvixGetTempStatisticsDistributionOfGroupsResponseMessage>
        tempStatisticsDistributionOfGroups;
    Operation<TalvixGetTempStatisticsDistributionOfOrgasRequestMessage,
        TalvixGetTempStatisticsDistributionOfOrgasResponseMessage>
        temperatureOfDevice;
    Operation<TalvixGetTempAlarmHandleStatisticsOfOrgaRequestMessage,
        TalvixGetTempAlarmHandleStatisticsOfOrgaResponseMessage>
        tempAlarmHandleStatistics;
    Operation<TalvixGetSnapSamplesRequestMessage, TalvixGetSnapSamplesResponseMessage> snapSamplesResource;
    Operation<TalvixGetSnapDetailSamplesRequestMessage, TalvixGetSnapDetailSamplesResponseMessage>
        snapDetailSamples;
    Operation<TalvixGetSnapDetailSamplesOfOrgasRequestMessage,
        TalvixGetSnapDetailSamplesOfOrgasResponseMessage>
        trafficsStatisticsOfOrgas;
    Operation<TalvixGetSnapDetailSamplesOfOrgaRequestMessage, TalvixGetSnapDetailSamplesOfOrgaResponseMessage>
        trafficsStatisticsOfOrga;

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
    template <typename Request, typename Response>
    bool run(const char *name, Operation<Request, Response> &operation, const Request &request,
        Response &response);

    QString failure;
    QMap<QString, QString> failures;
};

/// Drops what the manager was asked so far; its answers stay.
void forgetRequests(ScriptedStatisticsManager &manager);
