<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Talvix</name>
    <message>
        <source>TK_OrganizationAlm</source>
        <translation>Alarme nach Organisation</translation>
    </message>
    <message>
        <source>TK_DeviceAlmStatistics</source>
        <translation>Alarme nach Gerät</translation>
    </message>
    <message>
        <source>TK_OrganizationOnline</source>
        <translation>Online nach Organisation</translation>
    </message>
    <message>
        <source>TK_DeviceOnline</source>
        <translation>Online nach Gerät</translation>
    </message>
    <message>
        <source>TK_Organization</source>
        <translation>Organisation</translation>
    </message>
    <message>
        <source>TK_Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>TK_AlarmStatisticsOfOrgas</source>
        <translation>Alarme nach Organisation</translation>
    </message>
    <message>
        <source>TK_AlarmStatisticsOfDevices</source>
        <translation>Alarme nach Gerät</translation>
    </message>
    <message>
        <source>TK_AlarmStatisticsOfNum</source>
        <translation> · Anzahl der Alarme</translation>
    </message>
    <message>
        <source>TK_AlarmStatisticsOfType</source>
        <translation> · Alarme nach Art</translation>
    </message>
    <message>
        <source>TK_OnlineStatisticsOfOrgas</source>
        <translation>Geräte online nach Organisation</translation>
    </message>
    <message>
        <source>TK_OnlineStatisticsOfDevices</source>
        <translation>Onlinequote nach Gerät</translation>
    </message>
    <message>
        <source>TK_OnlineStatisticsOfNum</source>
        <translation> · Online-Werte</translation>
    </message>
    <message>
        <source>TK_OnlineStatisticsOfType</source>
        <translation> · Online nach Art</translation>
    </message>
    <message>
        <source>TK_TemperatureStatisticsOfNum</source>
        <translation> Temperaturmessungen</translation>
    </message>
    <message>
        <source>TK_TemperatureStatisticsOfType</source>
        <translation> · Temperatur nach Art</translation>
    </message>
    <message>
        <source>TK_TemperatureStatisticsOfPersons</source>
        <translation>Temperaturmessungen nach Person</translation>
    </message>
    <message>
        <source>TK_TemperatureStatisticsOfDevGroups</source>
        <translation>Temperaturalarme nach Gerätegruppe</translation>
    </message>
    <message>
        <source>TK_TrafficsStatisticsOfDevices</source>
        <translation>Verkehrsaufkommen</translation>
    </message>
    <message>
        <source>TK_TrafficsStatisticsOfNum</source>
        <translation> · Anzahl der Aufnahmen</translation>
    </message>
    <message>
        <source>TK_TrafficsStatisticsOfType</source>
        <translation> · Aufnahmen nach Klasse</translation>
    </message>
    <message>
        <source>TK_StatisticalDistributionOfBodytemperatureSnapshot</source>
        <translation> · Aufnahmen nach Körpertemperatur</translation>
    </message>
    <message>
        <source>TK_StatisticalDistributionOfMaskSnapshot</source>
        <translation> · Aufnahmen nach Maske</translation>
    </message>
    <message>
        <source>TK_LowSum</source>
        <translation>Untere Ebenen</translation>
    </message>
    <message>
        <source>TK_AllSum</source>
        <translation>Alle Ebenen</translation>
    </message>
    <message>
        <source>TK_OnlyCurrent</source>
        <translation>Nur diese Ebene</translation>
    </message>
    <message>
        <source>TK_Month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>TK_Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>TK_Hour</source>
        <translation>Stunde</translation>
    </message>
    <message>
        <source>TK_sort</source>
        <translation>Sortierung</translation>
    </message>
    <message>
        <source>TK_AscMode</source>
        <translation>Aufsteigend</translation>
    </message>
    <message>
        <source>TK_DescMode</source>
        <translation>Absteigend</translation>
    </message>
    <message>
        <source>TK_NextPage</source>
        <translation>Nächste Seite</translation>
    </message>
    <message>
        <source>TK_PreviousPage</source>
        <translation>Vorherige Seite</translation>
    </message>
    <message>
        <source>TK_Vehicle</source>
        <translation>Fahrzeug</translation>
    </message>
    <message>
        <source>TK_Pedestrian</source>
        <translation>Person</translation>
    </message>
    <message>
        <source>TK_IPC</source>
        <translation>IP-Kamera</translation>
    </message>
    <message>
        <source>TK_NVRAndDVR</source>
        <translation>NVR und DVR</translation>
    </message>
    <message>
        <source>TK_Abnormal</source>
        <translation>Auffällig</translation>
    </message>
    <message>
        <source>TK_Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>TK_AlarmAccepted</source>
        <translation>Angenommen</translation>
    </message>
    <message>
        <source>TK_AlarmUnAccepted</source>
        <translation>Nicht angenommen</translation>
    </message>
    <message>
        <source>TK_ByEtiology</source>
        <translation>Nach Ursache</translation>
    </message>
    <message>
        <source>TK_ByNumber</source>
        <translation>Nach Anzahl</translation>
    </message>
    <message>
        <source>TK_ByTemperature</source>
        <translation>Nach Temperatur</translation>
    </message>
    <message>
        <source>TK_ByMask</source>
        <translation>Nach Maske</translation>
    </message>
    <message>
        <source>TK_NormalTemperature</source>
        <translation>Normale Temperatur</translation>
    </message>
    <message>
        <source>TK_OvertemperatureOfHighTemperature</source>
        <translation>Erhöhte Temperatur</translation>
    </message>
    <message>
        <source>TK_LowTemp</source>
        <translation>Niedrige Temperatur</translation>
    </message>
    <message>
        <source>TK_AbnormalTemperature</source>
        <translation>Auffällige Temperatur</translation>
    </message>
    <message>
        <source>TK_MaskUndetected</source>
        <translation>Maske nicht erkannt</translation>
    </message>
    <message>
        <source>TK_MaskWeared</source>
        <translation>Maske getragen</translation>
    </message>
    <message>
        <source>TK_MaskUncovered</source>
        <translation>Keine Maske getragen</translation>
    </message>
    <message>
        <source>TK_Other</source>
        <translation>Sonstige</translation>
    </message>
    <message>
        <source>TK_Million</source>
        <translation> Mio.</translation>
    </message>
    <message>
        <source>TK_PageTotalSize</source>
        <translation>Gesamt</translation>
    </message>
    <message>
        <source>TK_NoRecords</source>
        <translation>Zu dieser Auswahl gibt es keine Daten.</translation>
    </message>
    <message>
        <source>TK_GetFailed</source>
        <translation>Die Statistik konnte nicht geladen werden: </translation>
    </message>
    <message>
        <source>TK_orgNotExist</source>
        <translation>Es gibt keine Organisation, die ausgewertet werden kann.</translation>
    </message>
    <message>
        <source>TK_TimeInterval</source>
        <translation>Zeitraum</translation>
    </message>
    <message>
        <source>TK_TimeInterval(0-6 months)</source>
        <translation>Ein Zeitraum darf höchstens 6 Monate lang sein; er wurde gekürzt.</translation>
    </message>
    <message>
        <source>TK_TimeInterval(0-7 days)</source>
        <translation>Ein Zeitraum darf höchstens 7 Tage lang sein; er wurde gekürzt.</translation>
    </message>
    <message>
        <source>TK_TimeInterval(1 day)</source>
        <translation>Ein Zeitraum in Stunden bleibt innerhalb eines Tages; er wurde gekürzt.</translation>
    </message>
    <message>
        <source>TK_Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>TK_ExportMode</source>
        <translation>Format der Datei</translation>
    </message>
    <message>
        <source>TK_ExportSuccess</source>
        <translation>Die Datei wurde exportiert.</translation>
    </message>
    <message>
        <source>TK_SaveImportResult</source>
        <translation>Als PDF speichern</translation>
    </message>
    <message>
        <source>TK_OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>TK_Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>TK_Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>TK_SearchOrganization</source>
        <translation>Organisationen suchen</translation>
    </message>
    <message>
        <source>TK_NothingFound</source>
        <translation>Nichts gefunden</translation>
    </message>
    <message>
        <source>TK_Loading</source>
        <translation>Wird geladen</translation>
    </message>
    <message>
        <source>TK_CalendarMonths</source>
        <translation>Auszuwertende Monate</translation>
    </message>
    <message>
        <source>TK_CalendarDays</source>
        <translation>Auszuwertende Tage</translation>
    </message>
    <message>
        <source>TK_CalendarHours</source>
        <translation>Auszuwertende Stunden</translation>
    </message>
    <message>
        <source>TK_CalendarLimitMonths</source>
        <translation>Höchstens 6 Monate ab dem ersten</translation>
    </message>
    <message>
        <source>TK_CalendarLimitDays</source>
        <translation>Höchstens 7 Tage ab dem ersten</translation>
    </message>
    <message>
        <source>TK_CalendarLimitHours</source>
        <translation>Stunden eines Tages</translation>
    </message>
    <message>
        <source>TK_CalendarNoSpan</source>
        <translation>Anfang wählen</translation>
    </message>
    <message>
        <source>TK_CalendarSecondEnd</source>
        <translation>Ende wählen</translation>
    </message>
    <message>
        <source>TK_CalendarEarlier</source>
        <translation>Früher</translation>
    </message>
    <message>
        <source>TK_CalendarLater</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>TK_CalendarToday</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>TK_SnapVehicleColour</source>
        <translation>Fahrzeugfarbe</translation>
    </message>
    <message>
        <source>TK_SnapVehicleKind</source>
        <translation>Fahrzeugart</translation>
    </message>
    <message>
        <source>TK_SnapDirection</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>TK_SnapAge</source>
        <translation>Alter</translation>
    </message>
    <message>
        <source>TK_SnapUpperColour</source>
        <translation>Farbe der Oberbekleidung</translation>
    </message>
    <message>
        <source>TK_SnapBag</source>
        <translation>Tasche</translation>
    </message>
    <message>
        <source>TK_SnapColourWhite</source>
        <translation>Weiß</translation>
    </message>
    <message>
        <source>TK_SnapColourBlack</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>TK_SnapColourSilver</source>
        <translation>Silber</translation>
    </message>
    <message>
        <source>TK_SnapColourGrey</source>
        <translation>Grau</translation>
    </message>
    <message>
        <source>TK_SnapColourRed</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>TK_SnapColourBlue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>TK_SnapColourYellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>TK_SnapColourGreen</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>TK_SnapColourBrown</source>
        <translation>Braun</translation>
    </message>
    <message>
        <source>TK_SnapKindCar</source>
        <translation>Pkw</translation>
    </message>
    <message>
        <source>TK_SnapKindVan</source>
        <translation>Transporter</translation>
    </message>
    <message>
        <source>TK_SnapKindLorry</source>
        <translation>Lkw</translation>
    </message>
    <message>
        <source>TK_SnapKindBus</source>
        <translation>Bus</translation>
    </message>
    <message>
        <source>TK_SnapKindMotorcycle</source>
        <translation>Motorrad</translation>
    </message>
    <message>
        <source>TK_SnapKindBicycle</source>
        <translation>Fahrrad</translation>
    </message>
    <message>
        <source>TK_SnapDirectionIn</source>
        <translation>Einwärts</translation>
    </message>
    <message>
        <source>TK_SnapDirectionOut</source>
        <translation>Auswärts</translation>
    </message>
    <message>
        <source>TK_SnapAgeChild</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>TK_SnapAgeYouth</source>
        <translation>Jugendlich</translation>
    </message>
    <message>
        <source>TK_SnapAgeAdult</source>
        <translation>Erwachsen</translation>
    </message>
    <message>
        <source>TK_SnapAgeSenior</source>
        <translation>Senior</translation>
    </message>
    <message>
        <source>TK_SnapBagNone</source>
        <translation>Keine Tasche</translation>
    </message>
    <message>
        <source>TK_SnapBagHandbag</source>
        <translation>Handtasche</translation>
    </message>
    <message>
        <source>TK_SnapBagBackpack</source>
        <translation>Rucksack</translation>
    </message>
    <message>
        <source>TK_SnapBagSuitcase</source>
        <translation>Koffer</translation>
    </message>
    <message>
        <source>Motion detected</source>
        <translation>Bewegung erkannt</translation>
    </message>
    <message>
        <source>Line crossed</source>
        <translation>Linie überschritten</translation>
    </message>
    <message>
        <source>Intrusion</source>
        <translation>Eindringen</translation>
    </message>
    <message>
        <source>Video loss</source>
        <translation>Videoausfall</translation>
    </message>
    <message>
        <source>Camera covered</source>
        <translation>Kamera verdeckt</translation>
    </message>
    <message>
        <source>Disk full</source>
        <translation>Festplatte voll</translation>
    </message>
    <message>
        <source>High temperature</source>
        <translation>Hohe Temperatur</translation>
    </message>
    <message>
        <source>Connection lost</source>
        <translation>Verbindung verloren</translation>
    </message>
    <message>
        <source>All sites</source>
        <translation>Alle Standorte</translation>
    </message>
    <message>
        <source>Airport</source>
        <translation>Flughafen</translation>
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
        <translation>Parkplatz</translation>
    </message>
    <message>
        <source>Cargo hall</source>
        <translation>Frachthalle</translation>
    </message>
    <message>
        <source>Central station</source>
        <translation>Hauptbahnhof</translation>
    </message>
    <message>
        <source>Main hall</source>
        <translation>Haupthalle</translation>
    </message>
    <message>
        <source>Platforms</source>
        <translation>Bahnsteige</translation>
    </message>
    <message>
        <source>Underpass</source>
        <translation>Unterführung</translation>
    </message>
    <message>
        <source>Shops</source>
        <translation>Geschäfte</translation>
    </message>
    <message>
        <source>Harbour</source>
        <translation>Hafen</translation>
    </message>
    <message>
        <source>Ferry pier</source>
        <translation>Fähranleger</translation>
    </message>
    <message>
        <source>Container yard</source>
        <translation>Containerplatz</translation>
    </message>
    <message>
        <source>Gate house</source>
        <translation>Pförtnerhaus</translation>
    </message>
    <message>
        <source>University</source>
        <translation>Universität</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothek</translation>
    </message>
    <message>
        <source>Campus east</source>
        <translation>Campus Ost</translation>
    </message>
    <message>
        <source>Laboratories</source>
        <translation>Labore</translation>
    </message>
    <message>
        <source>Hospital</source>
        <translation>Krankenhaus</translation>
    </message>
    <message>
        <source>Reception</source>
        <translation>Empfang</translation>
    </message>
    <message>
        <source>Emergency room</source>
        <translation>Notaufnahme</translation>
    </message>
    <message>
        <source>Wards</source>
        <translation>Stationen</translation>
    </message>
    <message>
        <source>Town hall</source>
        <translation>Rathaus</translation>
    </message>
    <message>
        <source>Imported</source>
        <translation>Importiert</translation>
    </message>
</context>
</TS>
