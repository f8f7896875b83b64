#pragma once

#include <tests/support/FakeKrxClient.h>
#include <tests/support/ScriptedStatisticsManager.h>

/// Kinds of statistics that are measured, by the number that a page bears.
enum Kind : int {
    AlarmsOfOrganisations = 1,
    AlarmsOfDevices = 2,
    TrafficOfOrganisations = 7,
    TrafficOfDevices = 8
};

/// The world that \a bars bars of \a kind are about: as many organisations, channels or devices,
/// all alarm types.
void fillWorld(FakeKrxClient &client, Kind kind, int bars);

/// Makes the client answer with rows for \a bars bars, a day of 24 hours behind each and six slices. The
/// server's order is the page's order, and a paged answer is the second page of three; so nothing is
/// reordered and each search builds the charts once. With \a ascending it is the other way round, for a page
/// that sorts so.
void answerRows(ScriptedStatisticsManager &manager, Kind kind, int bars, bool ascending = false);
