#pragma once

#include "Counts.h"

#include <TalvixMessages/OnlineStatisticsMessages.h>

namespace devdata {

/// Online state. Of an organisation: how many of its devices were online at some time of the period, so
/// that a bar is not the sum of its line. Of a device: the share of the period in which it was online, in
/// whole percent. What lies after \a now has not happened: those periods have no rows, and shares are of the
/// time until \a now.

/// One row for each organisation of the level.
std::vector<OnlineStatisticsRecord> onlineOfOrganisations(Connection &connection,
    const std::vector<int> &listOrg, SumMode mode, SortOrder order, const TimeRange &range, Minute now);

/// One row for each period.
std::vector<OnlineStatisticsRecord> onlineOfOrganisation(
    Connection &connection, int organisation, SumMode mode, const TimeRange &range, Minute now);

/// The devices of the organisation and of everything below it, also those that were never online.
TalvixPagedRecordsResponse<OnlineStatisticsRecord> onlineOfDevices(Connection &connection, int organisation,
    SortOrder order, const Page &page, const TimeRange &range, Minute now);

/// One row for each period of a device, or of the device that a channel belongs to.
std::vector<OnlineStatisticsRecord> onlineOfDevice(
    Connection &connection, const std::string &uid, const TimeRange &range, Minute now);

} // namespace devdata
