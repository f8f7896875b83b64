#include "Kinds.h"

const std::vector<Kind> &allKinds()
{
    static const std::vector<Kind> kinds = {
        {1, QStringLiteral("alarms-of-organisations"), QStringLiteral("TK_OrganizationAlm")},
        {2, QStringLiteral("alarms-of-devices"), QStringLiteral("TK_DeviceAlmStatistics")},
        {3, QStringLiteral("online-of-organisations"), QStringLiteral("TK_OrganizationOnline")},
        {4, QStringLiteral("online-of-devices"), QStringLiteral("TK_DeviceOnline")},
        {5, QStringLiteral("temperatures-of-groups"), QStringLiteral("DH_TemperaturesOfGroups")},
        {6, QStringLiteral("temperatures-of-persons"), QStringLiteral("DH_TemperaturesOfPersons")},
        {7, QStringLiteral("traffic-of-organisations"), QStringLiteral("DH_TrafficOfOrganisations")},
        {8, QStringLiteral("traffic-of-devices"), QStringLiteral("DH_TrafficOfDevices")},
        {9, QStringLiteral("temperature-alarms-of-device-groups"), QStringLiteral("DH_TemperatureAlarms")},
    };
    return kinds;
}
