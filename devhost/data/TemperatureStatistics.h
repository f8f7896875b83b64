#pragma once

#include "Counts.h"

#include <TalvixMessages/TemperatureStatisticsMessages.h>

namespace devdata {

/// Temperature readings of persons and their groups, and temperature alarms. A bar is the sum of its line and
/// of its pie.

/// One row for each person group of the organisations that \a mode counts.
std::vector<TemperatureStatisticsItem> readingsOfGroups(Connection &connection,
    const std::vector<int> &listOrg, SumMode mode, SortOrder order, const TimeRange &range);

/// One row for each period.
std::vector<TemperatureStatisticsItem> readingsOfGroup(
    Connection &connection, int group, const TimeRange &range);

/// The persons of the organisation and of everything below it who have readings.
TalvixGetTemperatureStatisticsOfPersonsResponseMessage readingsOfPersons(
    Connection &connection, int organisation, SortOrder order, const Page &page, const TimeRange &range);

/// One row for each period and temperature class; a period without readings has one row of class -1.
std::vector<TemperatureStatisticsItem> readingsOfPerson(
    Connection &connection, int person, const TimeRange &range);

/// The groups' readings by temperature class.
std::vector<TempDistributionItem> readingsByClass(
    Connection &connection, const std::vector<int> &groups, const TimeRange &range);

/// One row: how many of the groups' readings were not normal, and how many there were.
std::vector<TempDistributionItem> readingsByNumber(
    Connection &connection, const std::vector<int> &groups, const TimeRange &range);

/// Readings of the organisations and of everything below them by temperature class or by mask class.
std::vector<TempDistributionItem> readingsOfOrganisations(
    Connection &connection, Fact fact, const std::vector<int> &listOrg, const TimeRange &range);

/// Temperature alarms of the organisations and of everything below them: one row for each period and handling
/// state; a period without alarms has one row of state 0.
std::vector<TempAlarmHandleItem> handledAlarms(
    Connection &connection, const std::vector<int> &listOrg, const TimeRange &range);

} // namespace devdata
