#include "PreparedRows.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

constexpr int hours = 24;
constexpr int slices = 6;
constexpr int firstOrganisation = 2;
constexpr int vehicles = 4;
constexpr int pedestrians = 2;
constexpr int majorType = 401;

std::string hourLabel(int hour)
{
    return "2024-05-03 " + std::string(hour < 10 ? "0" : "") + std::to_string(hour);
}

std::string channelUid(int bar)
{
    return "channel-" + std::to_string(bar);
}

std::string deviceUid(int bar)
{
    return "device-" + std::to_string(bar);
}

int falling(int bar, int bars)
{
    return 100 + 7 * (bars - bar);
}

std::vector<SnapTypeCount> snapCounts(int vehicleCount, int pedestrianCount)
{
    return {{vehicles, vehicleCount, 0}, {pedestrians, pedestrianCount, 0}};
}

std::vector<SnapTypeCount> snapCountsOfBar(int bar, int bars)
{
    return snapCounts(falling(bar, bars), falling(bar, bars) / 2);
}

template <typename Row>
std::vector<Row> inOrder(std::vector<Row> rows, bool ascending)
{
    if (ascending)
        std::reverse(rows.begin(), rows.end());
    return rows;
}

void answerMinorTypes(ScriptedStatisticsManager &manager)
{
    SnapDetailMajorItem major;
    major.majorType = majorType;
    for (int i = 1; i <= slices; ++i)
        major.minors.push_back({i, 10 * i});
    TalvixGetSnapDetailSamplesResponseMessage response;
    response.snapDetailList = {major};
    manager.snapDetailSamples.answers(response);
}

void answerTrafficOfOrganisations(ScriptedStatisticsManager &manager, int bars, bool ascending)
{
    TalvixGetSnapDetailSamplesOfOrgasResponseMessage level;
    for (int bar = 0; bar < bars; ++bar)
        level.snapOrgaList.push_back({firstOrganisation + bar, std::string(), snapCountsOfBar(bar, bars)});
    level.snapOrgaList = inOrder(std::move(level.snapOrgaList), ascending);
    manager.trafficsStatisticsOfOrgas.answers(level);

    TalvixGetSnapDetailSamplesOfOrgaResponseMessage day;
    for (int hour = 0; hour < hours; ++hour)
        day.snapOrgaList.push_back({0, hourLabel(hour), snapCounts(hour * 3 + 1, hour % 7)});
    manager.trafficsStatisticsOfOrga.answers(day);
    answerMinorTypes(manager);
}

// The server names a channel in the hours in which it saw something; each saw something in one hour at least,
// the first in all of them.
void answerTrafficOfDevices(ScriptedStatisticsManager &manager, int bars, bool ascending)
{
    TalvixGetSnapSamplesResponseMessage response;
    std::vector<SnapChannelSample> wholeDay;
    for (int bar = 0; bar < bars; ++bar)
        wholeDay.push_back({channelUid(bar), snapCountsOfBar(bar, bars)});
    response.snapSampleList.push_back({hourLabel(0), inOrder(std::move(wholeDay), ascending)});
    const std::string first = response.snapSampleList.front().channels.front().channelUid;
    for (int hour = 1; hour < hours; ++hour)
        response.snapSampleList.push_back({hourLabel(hour), {{first, snapCounts(0, 0)}}});
    manager.snapSamplesResource.answers(response);
    answerMinorTypes(manager);
}

std::vector<AlarmStatisticsRecord> alarmsOfADay()
{
    std::vector<AlarmStatisticsRecord> rows;
    for (int hour = 0; hour < hours; ++hour) {
        AlarmStatisticsRecord row;
        row.timeLabel = hourLabel(hour);
        row.alarmType = 1 + hour % slices;
        row.count = hour * 3 + 1;
        rows.push_back(row);
    }
    return rows;
}

void answerAlarmsOfOrganisations(ScriptedStatisticsManager &manager, int bars, bool ascending)
{
    TalvixGetAlarmStatisticsOfOrgasResponseMessage level;
    for (int bar = 0; bar < bars; ++bar) {
        AlarmStatisticsRecord row;
        row.orgaId = firstOrganisation + bar;
        row.count = falling(bar, bars);
        level.records.push_back(row);
    }
    level.records = inOrder(std::move(level.records), ascending);
    manager.alarmStatisticsOfOrgas.answers(level);

    TalvixGetAlarmStatisticsOfOrgaResponseMessage day;
    day.records = alarmsOfADay();
    manager.alarmStatisticsOfOrga.answers(day);
}

void answerAlarmsOfDevices(ScriptedStatisticsManager &manager, int bars, bool ascending)
{
    TalvixGetAlarmStatisticsOfDevicesResponseMessage level;
    level.curPage = 2;
    level.totalPage = 3;
    for (int bar = 0; bar < bars; ++bar) {
        AlarmStatisticsRecord row;
        row.uid = deviceUid(bar);
        row.count = falling(bar, bars);
        level.records.push_back(row);
    }
    level.records = inOrder(std::move(level.records), ascending);
    manager.alarmStatisticsOfDevices.answers(level);

    TalvixGetAlarmStatisticsOfDeviceResponseMessage day;
    day.records = alarmsOfADay();
    manager.alarmStatisticsOfDevice.answers(day);
}

} // namespace

void fillWorld(FakeKrxClient &client, Kind kind, int bars)
{
    client.setTree(QStringLiteral("1 Company"));
    for (int type = 1; type <= slices; ++type)
        client.addAlarmType(type, "Alarm of type " + std::to_string(type));
    for (int bar = 0; bar < bars; ++bar) {
        if (kind == TrafficOfDevices)
            client.addChannel(channelUid(bar), QStringLiteral("Camera %1").arg(bar + 1));
        else if (kind == AlarmsOfDevices)
            client.addDevice(deviceUid(bar), "Camera " + std::to_string(bar + 1));
        else
            client.addOrganisation(firstOrganisation + bar, "Plant " + std::to_string(bar + 1), 1);
    }
}

void answerRows(ScriptedStatisticsManager &manager, Kind kind, int bars, bool ascending)
{
    switch (kind) {
    case AlarmsOfOrganisations:
        answerAlarmsOfOrganisations(manager, bars, ascending);
        break;
    case AlarmsOfDevices:
        answerAlarmsOfDevices(manager, bars, ascending);
        break;
    case TrafficOfOrganisations:
        answerTrafficOfOrganisations(manager, bars, ascending);
        break;
    case TrafficOfDevices:
        answerTrafficOfDevices(manager, bars, ascending);
        break;
    }
}
