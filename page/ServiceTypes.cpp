#include "ServiceTypes.h"

#include "Codes.h"

namespace {

void splitByDevice(BasicChart::ServiceTypeRow &row)
{
    row.series = BasicChart::ServiceTypeRow::Series::CamerasAndRecorders;
    row.firstSeriesKey = "TK_IPC";
    row.secondSeriesKey = "TK_NVRAndDVR";
}

} // namespace

void BasicChart::ServiceTypeRow::setAlarmRows(Rows &rows)
{
    ServiceTypeRow alarms;
    alarms.figures = Figures::Alarm;
    alarms.lineTitleKey = "TK_AlarmStatisticsOfNum";
    alarms.pieTitleKey = "TK_AlarmStatisticsOfType";

    ServiceTypeRow &alarmsOfOrgas = rows[Codes::AlarmStatisticsOfOrgas] = alarms;
    alarmsOfOrgas.bars = Bars::Organisations;
    alarmsOfOrgas.traits = HasTree;
    alarmsOfOrgas.barTitleKey = "TK_AlarmStatisticsOfOrgas";

    ServiceTypeRow &alarmsOfDevices = rows[Codes::AlarmStatisticsOfDevices] = alarms;
    alarmsOfDevices.query = &BasicChart::getAlarmOfDevices;
    alarmsOfDevices.drillDown = &BasicChart::getAlarmOfDevice;
    alarmsOfDevices.bars = Bars::Devices;
    alarmsOfDevices.traits = HasTree | Paged | SumModeHidden;
    splitByDevice(alarmsOfDevices);
    alarmsOfDevices.barTitleKey = "TK_AlarmStatisticsOfDevices";
}

void BasicChart::ServiceTypeRow::setOnlineRows(Rows &rows)
{
    ServiceTypeRow online;
    online.figures = Figures::Online;
    online.lineTitleKey = "TK_OnlineStatisticsOfNum";
    online.pieTitleKey = "TK_OnlineStatisticsOfType";

    ServiceTypeRow &onlineOfOrgas = rows[Codes::OnlineStatisticsOfOrgas] = online;
    onlineOfOrgas.query = &BasicChart::getOnlineOfOrgas;
    onlineOfOrgas.drillDown = &BasicChart::getOnlineOfOrga;
    onlineOfOrgas.bars = Bars::Organisations;
    onlineOfOrgas.traits = HasTree | Pieless;
    onlineOfOrgas.barTitleKey = "TK_OnlineStatisticsOfOrgas";

    ServiceTypeRow &onlineOfDevices = rows[Codes::OnlineStatisticsOfDevices] = online;
    onlineOfDevices.query = &BasicChart::getOnlineOfDevices;
    onlineOfDevices.drillDown = &BasicChart::getOnlineOfDevice;
    onlineOfDevices.bars = Bars::Devices;
    onlineOfDevices.traits = HasTree | Paged | Pieless | SumModeHidden | CallOutInPercent;
    splitByDevice(onlineOfDevices);
    onlineOfDevices.barTitleKey = "TK_OnlineStatisticsOfDevices";
}

void BasicChart::ServiceTypeRow::setTemperatureRows(Rows &rows)
{
    ServiceTypeRow temperature;
    temperature.traits = StartsByDays;
    temperature.axisRule = AxisRule::Digit;
    temperature.lineTitleKey = "TK_TemperatureStatisticsOfNum";
    temperature.pieTitleKey = "TK_TemperatureStatisticsOfType";

    ServiceTypeRow &temperatureOfGroups = rows[Codes::TemperatureStatisticsOfGroups] = temperature;
    temperatureOfGroups.query = &BasicChart::getTemperatureOfGroups;
    temperatureOfGroups.drillDown = &BasicChart::drillIntoGroup;
    temperatureOfGroups.pieModes = {
        {"TK_ByEtiology", Codes::ByEtiology, &BasicChart::fillEtiologyPie},
        {"TK_ByNumber", Codes::ByNumber, &BasicChart::fillNumberPie, nullptr, true},
    };
    temperatureOfGroups.barTitleKey = "TK_TemperatureStatisticsOfNum";

    ServiceTypeRow &temperatureOfPersons = rows[Codes::TemperatureStatisticsOfPersons] = temperature;
    temperatureOfPersons.query = &BasicChart::getTemperatureOfPersons;
    temperatureOfPersons.drillDown = &BasicChart::getTemperatureOfPerson;
    temperatureOfPersons.traits |= Paged | SumModeHidden;
    temperatureOfPersons.barTitleKey = "TK_TemperatureStatisticsOfPersons";
}

void BasicChart::ServiceTypeRow::setTrafficRows(Rows &rows)
{
    ServiceTypeRow traffic;
    traffic.traits = HasTree | SnapClasses;
    traffic.series = Series::Two;
    traffic.firstSeriesKey = "TK_Vehicle";
    traffic.secondSeriesKey = "TK_Pedestrian";
    traffic.axisRule = AxisRule::Digit;
    traffic.barTitleKey = "TK_TrafficsStatisticsOfDevices";
    traffic.lineTitleKey = "TK_TrafficsStatisticsOfNum";
    traffic.pieTitleKey = "TK_TrafficsStatisticsOfType";

    ServiceTypeRow &trafficOfOrgas = rows[Codes::TrafficsStatisticsOfOrgas] = traffic;
    trafficOfOrgas.query = &BasicChart::getTrafficsStatisticsOfOrgas;
    trafficOfOrgas.drillDown = &BasicChart::getTrafficsStatisticsOfOrgas;

    ServiceTypeRow &trafficOfDevices = rows[Codes::TrafficsStatisticsOfDevices] = traffic;
    trafficOfDevices.query = &BasicChart::getTrafficsStatisticsOfDevice;
    trafficOfDevices.drillDown = &BasicChart::drillIntoChannel;
    trafficOfDevices.traits |= SumModeHidden;
}

void BasicChart::ServiceTypeRow::setDeviceGroupRow(Rows &rows)
{
    ServiceTypeRow &deviceGroups = rows[Codes::TemperatureStatisticsOfDevGroups];
    deviceGroups.query = &BasicChart::getTemperatureStatisticsOfDevGroups;
    deviceGroups.drillDown = &BasicChart::drillIntoDeviceGroup;
    deviceGroups.traits =
        HasTree | SumModeHidden | ExportModeAsked | KeepsPieMode | LoadsUnknownPieMode | ColoursByClass;
    deviceGroups.series = Series::Two;
    deviceGroups.firstSeriesKey = "TK_AlarmAccepted";
    deviceGroups.secondSeriesKey = "TK_AlarmUnAccepted";
    deviceGroups.axisRule = AxisRule::Digit;
    deviceGroups.pieModes = {
        {"TK_ByTemperature", Codes::ByTemperature, &BasicChart::fillTemperaturePie},
        {"TK_ByMask", Codes::ByMask, &BasicChart::fillMaskPie, "TK_StatisticalDistributionOfMaskSnapshot"},
    };
    deviceGroups.barTitleKey = "TK_TemperatureStatisticsOfDevGroups";
    deviceGroups.lineTitleKey = "TK_TemperatureStatisticsOfNum";
    deviceGroups.pieTitleKey = "TK_StatisticalDistributionOfBodytemperatureSnapshot";
}

BasicChart::ServiceTypeRow::Rows BasicChart::ServiceTypeRow::allRows()
{
    Rows rows;
    setAlarmRows(rows);
    setOnlineRows(rows);
    setTemperatureRows(rows);
    setTrafficRows(rows);
    setDeviceGroupRow(rows);
    return rows;
}

const BasicChart::ServiceTypeRow &BasicChart::ServiceTypeRow::of(int serviceType)
{
    static const Rows known = allRows();
    const bool isKnown = serviceType >= Codes::AlarmStatisticsOfOrgas
        && serviceType <= Codes::TemperatureStatisticsOfDevGroups;
    return known[isKnown ? static_cast<std::size_t>(serviceType) : 0];
}
