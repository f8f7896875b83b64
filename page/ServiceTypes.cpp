#include "ServiceTypes.h"

#include <iterator>

const BasicChart::ServiceTypeRow &BasicChart::ServiceTypeRow::of(int serviceType)
{
    using Row = ServiceTypeRow;
    using Page = BasicChart;
    constexpr bool yes = true;
    constexpr bool no = false;

    // clang-format off
    static const Row rows[] = {
        { // any other number
            &Page::getAlarmOfOrgas, &Page::getAlarmOfOrga, Figures::Other, Bars::Other, no, no,
            no, no, no, no, no,
            Series::One, "TK_Organization", nullptr, AxisRule::Hundred, PieModes::None, no,
            nullptr, nullptr, nullptr},
        { // AlarmStatisticsOfOrgas
            &Page::getAlarmOfOrgas, &Page::getAlarmOfOrga, Figures::Alarm, Bars::Organisations, no, yes,
            no, no, no, no, no,
            Series::One, "TK_Organization", nullptr, AxisRule::Hundred, PieModes::None, no,
            "TK_AlarmStatisticsOfOrgas", "TK_AlarmStatisticsOfNum", "TK_AlarmStatisticsOfType"},
        { // AlarmStatisticsOfDevices
            &Page::getAlarmOfDevices, &Page::getAlarmOfDevice, Figures::Alarm, Bars::Devices, yes, yes,
            no, yes, no, no, no,
            Series::CamerasAndRecorders, "TK_IPC", "TK_NVRAndDVR", AxisRule::Hundred, PieModes::None, no,
            "TK_AlarmStatisticsOfDevices", "TK_AlarmStatisticsOfNum", "TK_AlarmStatisticsOfType"},
        { // OnlineStatisticsOfOrgas
            &Page::getOnlineOfOrgas, &Page::getOnlineOfOrga, Figures::Online, Bars::Organisations, no, yes,
            yes, no, no, no, no,
            Series::One, "TK_Organization", nullptr, AxisRule::Hundred, PieModes::None, no,
            "TK_OnlineStatisticsOfOrgas", "TK_OnlineStatisticsOfNum", "TK_OnlineStatisticsOfType"},
        { // OnlineStatisticsOfDevices
            &Page::getOnlineOfDevices, &Page::getOnlineOfDevice, Figures::Online, Bars::Devices, yes, yes,
            yes, yes, no, no, no,
            Series::CamerasAndRecorders, "TK_IPC", "TK_NVRAndDVR", AxisRule::Hundred, PieModes::None, yes,
            "TK_OnlineStatisticsOfDevices", "TK_OnlineStatisticsOfNum", "TK_OnlineStatisticsOfType"},
        { // TemperatureStatisticsOfGroups
            &Page::getTemperatureOfGroups, &Page::drillIntoGroup, Figures::Other, Bars::Other, no, no,
            no, no, no, yes, no,
            Series::One, "TK_Organization", nullptr, AxisRule::Digit, PieModes::GroupDistribution, no,
            "TK_TemperatureStatisticsOfNum", "TK_TemperatureStatisticsOfNum", "TK_TemperatureStatisticsOfType"},
        { // TemperatureStatisticsOfPersons
            &Page::getTemperatureOfPersons, &Page::getTemperatureOfPerson, Figures::Other, Bars::Other, yes, no,
            no, yes, no, yes, no,
            Series::One, "TK_Organization", nullptr, AxisRule::Digit, PieModes::None, no,
            "TK_TemperatureStatisticsOfPersons", "TK_TemperatureStatisticsOfNum", "TK_TemperatureStatisticsOfType"},
        { // TrafficsStatisticsOfOrgas
            &Page::getTrafficsStatisticsOfOrgas, &Page::getTrafficsStatisticsOfOrgas, Figures::Other, Bars::Other, no, yes,
            no, no, yes, no, no,
            Series::Two, "TK_Vehicle", "TK_Pedestrian", AxisRule::Digit, PieModes::SnapMajorTypes, no,
            "TK_TrafficsStatisticsOfDevices", "TK_TrafficsStatisticsOfNum", "TK_TrafficsStatisticsOfType"},
        { // TrafficsStatisticsOfDevices
            &Page::getTrafficsStatisticsOfDevice, &Page::drillIntoChannel, Figures::Other, Bars::Other, no, yes,
            no, yes, yes, no, no,
            Series::Two, "TK_Vehicle", "TK_Pedestrian", AxisRule::Digit, PieModes::SnapMajorTypes, no,
            "TK_TrafficsStatisticsOfDevices", "TK_TrafficsStatisticsOfNum", "TK_TrafficsStatisticsOfType"},
        { // TemperatureStatisticsOfDevGroups
            &Page::getTemperatureStatisticsOfDevGroups, &Page::drillIntoDeviceGroup, Figures::Other, Bars::Other, no, yes,
            no, yes, no, no, yes,
            Series::Two, "TK_AlarmAccepted", "TK_AlarmUnAccepted", AxisRule::Digit, PieModes::DeviceDistribution, no,
            "TK_TemperatureStatisticsOfDevGroups", "TK_TemperatureStatisticsOfNum",
            "TK_StatisticalDistributionOfBodytemperatureSnapshot"},
    };
    // clang-format on

    const bool known = serviceType >= 1 && serviceType < static_cast<int>(std::size(rows));
    return rows[known ? serviceType : 0];
}
