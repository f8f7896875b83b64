<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Talvix</name>
    <message>
        <source>DH_Title</source>
        <translation>TalvixDataStatics · Development host</translation>
    </message>
    <message>
        <source>DH_Statistics</source>
        <translation>Statistics</translation>
    </message>
    <message>
        <source>DH_Subtitle</source>
        <translation>Development host</translation>
    </message>
    <message>
        <source>DH_InTabs</source>
        <translation>Plug-in widget</translation>
    </message>
    <message>
        <source>DH_AlarmsAndOnline</source>
        <translation>Alarms and online state</translation>
    </message>
    <message>
        <source>DH_SinglePages</source>
        <translation>Single pages</translation>
    </message>
    <message>
        <source>DH_TemperaturesOfGroups</source>
        <translation>Temperatures by group</translation>
    </message>
    <message>
        <source>DH_TemperaturesOfPersons</source>
        <translation>Temperatures by person</translation>
    </message>
    <message>
        <source>DH_TrafficOfOrganisations</source>
        <translation>Traffic by organisation</translation>
    </message>
    <message>
        <source>DH_TrafficOfDevices</source>
        <translation>Traffic by device</translation>
    </message>
    <message>
        <source>DH_TemperatureAlarms</source>
        <translation>Temperature alarms by device group</translation>
    </message>
    <message>
        <source>DH_Language</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>DH_DateOrder</source>
        <translation>Order of dates</translation>
    </message>
    <message>
        <source>DH_Latency</source>
        <translation>Latency</translation>
    </message>
    <message>
        <source>DH_LatencyTip</source>
        <translation>Every query takes at least this long</translation>
    </message>
    <message>
        <source>DH_Failures</source>
        <translation>Failures</translation>
    </message>
    <message>
        <source>DH_FailuresTip</source>
        <translation>So many of a hundred queries fail</translation>
    </message>
    <message>
        <source>DH_FailNext</source>
        <translation>Fail next query</translation>
    </message>
    <message>
        <source>DH_FailNextTip</source>
        <translation>The next query fails once, whatever the rate</translation>
    </message>
    <message>
        <source>DH_Moment</source>
        <translation>It is %1</translation>
    </message>
    <message>
        <source>DH_MomentOfSamples</source>
        <translation>Sample figures, as of %1; %2 chooses another moment</translation>
    </message>
    <message>
        <source>DH_ChoosePage</source>
        <translation>Choose a page</translation>
    </message>
</context>
</TS>
