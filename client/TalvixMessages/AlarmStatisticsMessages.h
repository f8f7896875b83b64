#pragma once

#include "TalvixMessage.h"

/// Alarms of one organisation, device or period.
struct AlarmStatisticsRecord
{
    std::string timeLabel; ///< period that the row counts, in the form of the request's span
    int orgaId = 0;        ///< organisation of the row, in answers of organisations
    std::string uid;       ///< device or channel of the row, in answers of devices
    int reservedValue = 0; ///< carried along; nobody reads it
    int alarmType = 0;     ///< code for `KrxClient::getAlarmTypeByCode`, in answers over time; -1 means none
    int count = 0;         ///< alarms of the row
};

/// Asks for the alarms of every organisation of a level.
class TalvixGetAlarmStatisticsOfOrgasRequestMessage : public TalvixStatisticsOfOrgasRequest
{ };

class TalvixGetAlarmStatisticsOfOrgasResponseMessage : public TalvixRecordsResponse<AlarmStatisticsRecord>
{ };

/// Asks for the alarms of one organisation, by period and alarm type.
class TalvixGetAlarmStatisticsOfOrgaRequestMessage : public TalvixStatisticsOfOrgaRequest
{ };

class TalvixGetAlarmStatisticsOfOrgaResponseMessage : public TalvixRecordsResponse<AlarmStatisticsRecord>
{ };

/// Asks for one page of the alarms of an organisation's devices.
class TalvixGetAlarmStatisticsOfDevicesRequestMessage : public TalvixStatisticsOfDevicesRequest
{ };

class TalvixGetAlarmStatisticsOfDevicesResponseMessage
    : public TalvixPagedRecordsResponse<AlarmStatisticsRecord>
{ };

/// Asks for the alarms of one device, by period and alarm type.
class TalvixGetAlarmStatisticsOfDeviceRequestMessage : public TalvixStatisticsOfDeviceRequest
{ };

class TalvixGetAlarmStatisticsOfDeviceResponseMessage : public TalvixRecordsResponse<AlarmStatisticsRecord>
{ };
