#pragma once

#include "Counts.h"

#include <TalvixMessages/SnapStatisticsMessages.h>

namespace devdata {

/// Snapshots of vehicles (class 4) and pedestrians (class 2). Each has one minor type for every major type of
/// its class, so the minor types of any major add up to the bar of the class.

/// One row for each period, with every channel that saw anything in it.
std::vector<SnapTimeSample> snapshotsOfChannels(Connection &connection, const TimeRange &range);

/// One row for each organisation of the level, sorted by both classes together.
std::vector<SnapOrgaItem> snapshotsOfOrganisations(Connection &connection, const std::vector<int> &listOrg,
    SumMode mode, SortOrder order, const TimeRange &range);

/// One row for each period.
std::vector<SnapOrgaItem> snapshotsOfOrganisation(
    Connection &connection, int organisation, SumMode mode, const TimeRange &range);

/// The majors of \a snapClass with their minor types, of a channel. Throws StoreError for an unknown class.
std::vector<SnapDetailMajorItem> snapshotDetailsOfChannel(
    Connection &connection, const std::string &uid, int snapClass, const TimeRange &range);

/// The same of an organisation.
std::vector<SnapDetailMajorItem> snapshotDetailsOfOrganisation(
    Connection &connection, int organisation, SumMode mode, int snapClass, const TimeRange &range);

} // namespace devdata
