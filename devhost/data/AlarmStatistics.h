#pragma once

#include "Counts.h"

#include <TalvixMessages/AlarmStatisticsMessages.h>

namespace devdata {

/// Alarms of channels and devices. A bar is the sum of its line and of its pie.

/// One row for each organisation of the level.
std::vector<AlarmStatisticsRecord> alarmsOfOrganisations(Connection &connection,
    const std::vector<int> &listOrg, SumMode mode, SortOrder order, const TimeRange &range);

/// One row for each period and alarm type; a period without alarms has one row of type -1.
std::vector<AlarmStatisticsRecord> alarmsOfOrganisation(
    Connection &connection, int organisation, SumMode mode, const TimeRange &range);

/// The sources of the organisation and of everything below it that raised alarms.
TalvixPagedRecordsResponse<AlarmStatisticsRecord> alarmsOfDevices(
    Connection &connection, int organisation, SortOrder order, const Page &page, const TimeRange &range);

/// As `alarmsOfOrganisation`, of one channel or device.
std::vector<AlarmStatisticsRecord> alarmsOfDevice(
    Connection &connection, const std::string &uid, const TimeRange &range);

} // namespace devdata
