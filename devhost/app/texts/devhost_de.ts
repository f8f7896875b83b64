<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Talvix</name>
    <message>
        <source>DH_Title</source>
        <translation>TalvixDataStatics · Entwicklungs-Host</translation>
    </message>
    <message>
        <source>DH_Statistics</source>
        <translation>Statistiken</translation>
    </message>
    <message>
        <source>DH_Subtitle</source>
        <translation>Entwicklungs-Host</translation>
    </message>
    <message>
        <source>DH_InTabs</source>
        <translation>Widget des Plug-ins</translation>
    </message>
    <message>
        <source>DH_AlarmsAndOnline</source>
        <translation>Alarme und Online-Status</translation>
    </message>
    <message>
        <source>DH_SinglePages</source>
        <translation>Einzelne Seiten</translation>
    </message>
    <message>
        <source>DH_TemperaturesOfGroups</source>
        <translation>Temperaturen nach Gruppe</translation>
    </message>
    <message>
        <source>DH_TemperaturesOfPersons</source>
        <translation>Temperaturen nach Person</translation>
    </message>
    <message>
        <source>DH_TrafficOfOrganisations</source>
        <translation>Verkehr nach Organisation</translation>
    </message>
    <message>
        <source>DH_TrafficOfDevices</source>
        <translation>Verkehr nach Gerät</translation>
    </message>
    <message>
        <source>DH_TemperatureAlarms</source>
        <translation>Temperaturalarme nach Gerätegruppe</translation>
    </message>
    <message>
        <source>DH_Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>DH_DateOrder</source>
        <translation>Schreibweise von Daten</translation>
    </message>
    <message>
        <source>DH_Latency</source>
        <translation>Verzögerung</translation>
    </message>
    <message>
        <source>DH_LatencyTip</source>
        <translation>Jede Abfrage dauert mindestens so lange</translation>
    </message>
    <message>
        <source>DH_Failures</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>DH_FailuresTip</source>
        <translation>So viele von hundert Abfragen scheitern</translation>
    </message>
    <message>
        <source>DH_FailNext</source>
        <translation>Nächste scheitert</translation>
    </message>
    <message>
        <source>DH_FailNextTip</source>
        <translation>Die nächste Abfrage scheitert einmal, unabhängig von der Rate</translation>
    </message>
    <message>
        <source>DH_Moment</source>
        <translation>Es ist %1</translation>
    </message>
    <message>
        <source>DH_MomentOfSamples</source>
        <translation>Beispieldaten, Stand %1; %2 wählt einen anderen Zeitpunkt</translation>
    </message>
    <message>
        <source>DH_ChoosePage</source>
        <translation>Seite wählen</translation>
    </message>
</context>
</TS>
