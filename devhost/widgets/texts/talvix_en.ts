<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Talvix</name>
    <message>
        <source>TK_OrganizationAlm</source>
        <translation>Alarms by organisation</translation>
    </message>
    <message>
        <source>TK_DeviceAlmStatistics</source>
        <translation>Alarms by device</translation>
    </message>
    <message>
        <source>TK_OrganizationOnline</source>
        <translation>Online by organisation</translation>
    </message>
    <message>
        <source>TK_DeviceOnline</source>
        <translation>Online by device</translation>
    </message>
    <message>
        <source>TK_Organization</source>
        <translation>Organisation</translation>
    </message>
    <message>
        <source>TK_Device</source>
        <translation>Device</translation>
    </message>
    <message>
        <source>TK_AlarmStatisticsOfOrgas</source>
        <translation>Alarms by organisation</translation>
    </message>
    <message>
        <source>TK_AlarmStatisticsOfDevices</source>
        <translation>Alarms by device</translation>
    </message>
    <message>
        <source>TK_AlarmStatisticsOfNum</source>
        <translation> · Number of alarms</translation>
    </message>
    <message>
        <source>TK_AlarmStatisticsOfType</source>
        <translation> · Alarms by type</translation>
    </message>
    <message>
        <source>TK_OnlineStatisticsOfOrgas</source>
        <translation>Online devices by organisation</translation>
    </message>
    <message>
        <source>TK_OnlineStatisticsOfDevices</source>
        <translation>Online rate by device</translation>
    </message>
    <message>
        <source>TK_OnlineStatisticsOfNum</source>
        <translation> · Online figures</translation>
    </message>
    <message>
        <source>TK_OnlineStatisticsOfType</source>
        <translation> · Online by type</translation>
    </message>
    <message>
        <source>TK_TemperatureStatisticsOfNum</source>
        <translation> Temperature records</translation>
    </message>
    <message>
        <source>TK_TemperatureStatisticsOfType</source>
        <translation> · Temperature by type</translation>
    </message>
    <message>
        <source>TK_TemperatureStatisticsOfPersons</source>
        <translation>Temperature records by person</translation>
    </message>
    <message>
        <source>TK_TemperatureStatisticsOfDevGroups</source>
        <translation>Temperature alarms by device group</translation>
    </message>
    <message>
        <source>TK_TrafficsStatisticsOfDevices</source>
        <translation>Traffic</translation>
    </message>
    <message>
        <source>TK_TrafficsStatisticsOfNum</source>
        <translation> · Number of snapshots</translation>
    </message>
    <message>
        <source>TK_TrafficsStatisticsOfType</source>
        <translation> · Snapshots by class</translation>
    </message>
    <message>
        <source>TK_StatisticalDistributionOfBodytemperatureSnapshot</source>
        <translation> · Snapshots by body temperature</translation>
    </message>
    <message>
        <source>TK_StatisticalDistributionOfMaskSnapshot</source>
        <translation> · Snapshots by mask</translation>
    </message>
    <message>
        <source>TK_LowSum</source>
        <translation>Lower levels</translation>
    </message>
    <message>
        <source>TK_AllSum</source>
        <translation>All levels</translation>
    </message>
    <message>
        <source>TK_OnlyCurrent</source>
        <translation>This level only</translation>
    </message>
    <message>
        <source>TK_Month</source>
        <translation>Month</translation>
    </message>
    <message>
        <source>TK_Day</source>
        <translation>Day</translation>
    </message>
    <message>
        <source>TK_Hour</source>
        <translation>Hour</translation>
    </message>
    <message>
        <source>TK_sort</source>
        <translation>Sort</translation>
    </message>
    <message>
        <source>TK_AscMode</source>
        <translation>Ascending</translation>
    </message>
    <message>
        <source>TK_DescMode</source>
        <translation>Descending</translation>
    </message>
    <message>
        <source>TK_NextPage</source>
        <translation>Next page</translation>
    </message>
    <message>
        <source>TK_PreviousPage</source>
        <translation>Previous page</translation>
    </message>
    <message>
        <source>TK_Vehicle</source>
        <translation>Vehicle</translation>
    </message>
    <message>
        <source>TK_Pedestrian</source>
        <translation>Pedestrian</translation>
    </message>
    <message>
        <source>TK_IPC</source>
        <translation>IP camera</translation>
    </message>
    <message>
        <source>TK_NVRAndDVR</source>
        <translation>NVR and DVR</translation>
    </message>
    <message>
        <source>TK_Abnormal</source>
        <translation>Abnormal</translation>
    </message>
    <message>
        <source>TK_Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>TK_AlarmAccepted</source>
        <translation>Accepted</translation>
    </message>
    <message>
        <source>TK_AlarmUnAccepted</source>
        <translation>Not accepted</translation>
    </message>
    <message>
        <source>TK_ByEtiology</source>
        <translation>By cause</translation>
    </message>
    <message>
        <source>TK_ByNumber</source>
        <translation>By number</translation>
    </message>
    <message>
        <source>TK_ByTemperature</source>
        <translation>By temperature</translation>
    </message>
    <message>
        <source>TK_ByMask</source>
        <translation>By mask</translation>
    </message>
    <message>
        <source>TK_NormalTemperature</source>
        <translation>Normal temperature</translation>
    </message>
    <message>
        <source>TK_OvertemperatureOfHighTemperature</source>
        <translation>High temperature</translation>
    </message>
    <message>
        <source>TK_LowTemp</source>
        <translation>Low temperature</translation>
    </message>
    <message>
        <source>TK_AbnormalTemperature</source>
        <translation>Abnormal temperature</translation>
    </message>
    <message>
        <source>TK_MaskUndetected</source>
        <translation>Mask not detected</translation>
    </message>
    <message>
        <source>TK_MaskWeared</source>
        <translation>Mask worn</translation>
    </message>
    <message>
        <source>TK_MaskUncovered</source>
        <translation>No mask worn</translation>
    </message>
    <message>
        <source>TK_Other</source>
        <translation>Other</translation>
    </message>
    <message>
        <source>TK_Million</source>
        <translation> million</translation>
    </message>
    <message>
        <source>TK_PageTotalSize</source>
        <translation>Total</translation>
    </message>
    <message>
        <source>TK_NoRecords</source>
        <translation>There are no records for this choice.</translation>
    </message>
    <message>
        <source>TK_GetFailed</source>
        <translation>The statistics could not be loaded: </translation>
    </message>
    <message>
        <source>TK_orgNotExist</source>
        <translation>There is no organisation to report on.</translation>
    </message>
    <message>
        <source>TK_TimeInterval</source>
        <translation>Time span</translation>
    </message>
    <message>
        <source>TK_TimeInterval(0-6 months)</source>
        <translation>A time span can be at most 6 months long; it was shortened.</translation>
    </message>
    <message>
        <source>TK_TimeInterval(0-7 days)</source>
        <translation>A time span can be at most 7 days long; it was shortened.</translation>
    </message>
    <message>
        <source>TK_TimeInterval(1 day)</source>
        <translation>A time span by hours stays within one day; it was shortened.</translation>
    </message>
    <message>
        <source>TK_Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>TK_ExportMode</source>
        <translation>Format of the file</translation>
    </message>
    <message>
        <source>TK_ExportSuccess</source>
        <translation>The file has been exported.</translation>
    </message>
    <message>
        <source>TK_SaveImportResult</source>
        <translation>Save as PDF</translation>
    </message>
    <message>
        <source>TK_OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>TK_Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>TK_Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>TK_SearchOrganization</source>
        <translation>Search organisations</translation>
    </message>
    <message>
        <source>TK_NothingFound</source>
        <translation>Nothing found</translation>
    </message>
    <message>
        <source>TK_Loading</source>
        <translation>Loading</translation>
    </message>
    <message>
        <source>TK_CalendarMonths</source>
        <translation>Months to report on</translation>
    </message>
    <message>
        <source>TK_CalendarDays</source>
        <translation>Days to report on</translation>
    </message>
    <message>
        <source>TK_CalendarHours</source>
        <translation>Hours to report on</translation>
    </message>
    <message>
        <source>TK_CalendarLimitMonths</source>
        <translation>At most 6 months from the first one</translation>
    </message>
    <message>
        <source>TK_CalendarLimitDays</source>
        <translation>At most 7 days from the first one</translation>
    </message>
    <message>
        <source>TK_CalendarLimitHours</source>
        <translation>Hours of one day</translation>
    </message>
    <message>
        <source>TK_CalendarNoSpan</source>
        <translation>Choose the first end</translation>
    </message>
    <message>
        <source>TK_CalendarSecondEnd</source>
        <translation>Choose the other end</translation>
    </message>
    <message>
        <source>TK_CalendarEarlier</source>
        <translation>Earlier</translation>
    </message>
    <message>
        <source>TK_CalendarLater</source>
        <translation>Later</translation>
    </message>
    <message>
        <source>TK_CalendarToday</source>
        <translation>Today</translation>
    </message>
    <message>
        <source>TK_SnapVehicleColour</source>
        <translation>Vehicle colour</translation>
    </message>
    <message>
        <source>TK_SnapVehicleKind</source>
        <translation>Vehicle type</translation>
    </message>
    <message>
        <source>TK_SnapDirection</source>
        <translation>Direction</translation>
    </message>
    <message>
        <source>TK_SnapAge</source>
        <translation>Age</translation>
    </message>
    <message>
        <source>TK_SnapUpperColour</source>
        <translation>Colour of clothing</translation>
    </message>
    <message>
        <source>TK_SnapBag</source>
        <translation>Bag</translation>
    </message>
    <message>
        <source>TK_SnapColourWhite</source>
        <translation>White</translation>
    </message>
    <message>
        <source>TK_SnapColourBlack</source>
        <translation>Black</translation>
    </message>
    <message>
        <source>TK_SnapColourSilver</source>
        <translation>Silver</translation>
    </message>
    <message>
        <source>TK_SnapColourGrey</source>
        <translation>Grey</translation>
    </message>
    <message>
        <source>TK_SnapColourRed</source>
        <translation>Red</translation>
    </message>
    <message>
        <source>TK_SnapColourBlue</source>
        <translation>Blue</translation>
    </message>
    <message>
        <source>TK_SnapColourYellow</source>
        <translation>Yellow</translation>
    </message>
    <message>
        <source>TK_SnapColourGreen</source>
        <translation>Green</translation>
    </message>
    <message>
        <source>TK_SnapColourBrown</source>
        <translation>Brown</translation>
    </message>
    <message>
        <source>TK_SnapKindCar</source>
        <translation>Car</translation>
    </message>
    <message>
        <source>TK_SnapKindVan</source>
        <translation>Van</translation>
    </message>
    <message>
        <source>TK_SnapKindLorry</source>
        <translation>Lorry</translation>
    </message>
    <message>
        <source>TK_SnapKindBus</source>
        <translation>Bus</translation>
    </message>
    <message>
        <source>TK_SnapKindMotorcycle</source>
        <translation>Motorcycle</translation>
    </message>
    <message>
        <source>TK_SnapKindBicycle</source>
        <translation>Bicycle</translation>
    </message>
    <message>
        <source>TK_SnapDirectionIn</source>
        <translation>Inbound</translation>
    </message>
    <message>
        <source>TK_SnapDirectionOut</source>
        <translation>Outbound</translation>
    </message>
    <message>
        <source>TK_SnapAgeChild</source>
        <translation>Child</translation>
    </message>
    <message>
        <source>TK_SnapAgeYouth</source>
        <translation>Youth</translation>
    </message>
    <message>
        <source>TK_SnapAgeAdult</source>
        <translation>Adult</translation>
    </message>
    <message>
        <source>TK_SnapAgeSenior</source>
        <translation>Senior</translation>
    </message>
    <message>
        <source>TK_SnapBagNone</source>
        <translation>No bag</translation>
    </message>
    <message>
        <source>TK_SnapBagHandbag</source>
        <translation>Handbag</translation>
    </message>
    <message>
        <source>TK_SnapBagBackpack</source>
        <translation>Backpack</translation>
    </message>
    <message>
        <source>TK_SnapBagSuitcase</source>
        <translation>Suitcase</translation>
    </message>
    <message>
        <source>Motion detected</source>
        <translation>Motion detected</translation>
    </message>
    <message>
        <source>Line crossed</source>
        <translation>Line crossed</translation>
    </message>
    <message>
        <source>Intrusion</source>
        <translation>Intrusion</translation>
    </message>
    <message>
        <source>Video loss</source>
        <translation>Video loss</translation>
    </message>
    <message>
        <source>Camera covered</source>
        <translation>Camera covered</translation>
    </message>
    <message>
        <source>Disk full</source>
        <translation>Disk full</translation>
    </message>
    <message>
        <source>High temperature</source>
        <translation>High temperature</translation>
    </message>
    <message>
        <source>Connection lost</source>
        <translation>Connection lost</translation>
    </message>
    <message>
        <source>All sites</source>
        <translation>All sites</translation>
    </message>
    <message>
        <source>Airport</source>
        <translation>Airport</translation>
    </message>
    <message>
        <source>Terminal A</source>
        <translation>Terminal A</translation>
    </message>
    <message>
        <source>Terminal B</source>
        <translation>Terminal B</translation>
    </message>
    <message>
        <source>Car park</source>
        <translation>Car park</translation>
    </message>
    <message>
        <source>Cargo hall</source>
        <translation>Cargo hall</translation>
    </message>
    <message>
        <source>Central station</source>
        <translation>Central station</translation>
    </message>
    <message>
        <source>Main hall</source>
        <translation>Main hall</translation>
    </message>
    <message>
        <source>Platforms</source>
        <translation>Platforms</translation>
    </message>
    <message>
        <source>Underpass</source>
        <translation>Underpass</translation>
    </message>
    <message>
        <source>Shops</source>
        <translation>Shops</translation>
    </message>
    <message>
        <source>Harbour</source>
        <translation>Harbour</translation>
    </message>
    <message>
        <source>Ferry pier</source>
        <translation>Ferry pier</translation>
    </message>
    <message>
        <source>Container yard</source>
        <translation>Container yard</translation>
    </message>
    <message>
        <source>Gate house</source>
        <translation>Gate house</translation>
    </message>
    <message>
        <source>University</source>
        <translation>University</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Library</translation>
    </message>
    <message>
        <source>Campus east</source>
        <translation>Campus east</translation>
    </message>
    <message>
        <source>Laboratories</source>
        <translation>Laboratories</translation>
    </message>
    <message>
        <source>Hospital</source>
        <translation>Hospital</translation>
    </message>
    <message>
        <source>Reception</source>
        <translation>Reception</translation>
    </message>
    <message>
        <source>Emergency room</source>
        <translation>Emergency room</translation>
    </message>
    <message>
        <source>Wards</source>
        <translation>Wards</translation>
    </message>
    <message>
        <source>Town hall</source>
        <translation>Town hall</translation>
    </message>
    <message>
        <source>Imported</source>
        <translation>Imported</translation>
    </message>
</context>
</TS>
