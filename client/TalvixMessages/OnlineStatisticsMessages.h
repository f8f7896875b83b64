#pragma once

#include "TalvixMessage.h"

/// Online figure of one organisation, device or period.
struct OnlineStatisticsRecord
{
    std::string timeLabel; ///< period that the row counts, in the form of the request's span
    int orgaId = 0;        ///< organisation of the row, in answers of organisations
    std::string uid;       ///< device or channel of the row, in answers of devices
    int value = 0;         ///< devices that were online; for a single device its online time in percent
};

/// Asks for the online figure of every organisation of a level.
class TalvixGetOnlineStatisticsOfOrgasRequestMessage : public TalvixStatisticsOfOrgasRequest
{ };

class TalvixGetOnlineStatisticsOfOrgasResponseMessage : public TalvixRecordsResponse<OnlineStatisticsRecord>
{ };

/// Asks for the online figure of one organisation, by period.
class TalvixGetOnlineStatisticsOfOrgaRequestMessage : public TalvixStatisticsOfOrgaRequest
{ };

class TalvixGetOnlineStatisticsOfOrgaResponseMessage : public TalvixRecordsResponse<OnlineStatisticsRecord>
{ };

/// Asks for one page of the online figures of an organisation's devices.
class TalvixGetOnlineStatisticsOfDevicesRequestMessage : public TalvixStatisticsOfDevicesRequest
{ };

class TalvixGetOnlineStatisticsOfDevicesResponseMessage
    : public TalvixPagedRecordsResponse<OnlineStatisticsRecord>
{ };

/// Asks for the online figure of one device, by period.
class TalvixGetOnlineStatisticsOfDeviceRequestMessage : public TalvixStatisticsOfDeviceRequest
{ };

class TalvixGetOnlineStatisticsOfDeviceResponseMessage : public TalvixRecordsResponse<OnlineStatisticsRecord>
{ };
