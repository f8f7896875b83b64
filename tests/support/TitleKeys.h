#pragma once

#include "TestTable.h"

#include <QtCore/QString>

/// The texts of the three titles of a kind.
struct TitleKeys
{
    int type;
    QString bar;
    QString line;
    QString pie;
};

Q_DECLARE_METATYPE(TitleKeys)

inline void titleKeyRows()
{
    table<TitleKeys>({"keys"},
        {{"alarms of organisations",
             {1, "TK_AlarmStatisticsOfOrgas", "TK_AlarmStatisticsOfNum", "TK_AlarmStatisticsOfType"}},
            {"alarms of devices",
                {2, "TK_AlarmStatisticsOfDevices", "TK_AlarmStatisticsOfNum", "TK_AlarmStatisticsOfType"}},
            {"online of organisations",
                {3, "TK_OnlineStatisticsOfOrgas", "TK_OnlineStatisticsOfNum", "TK_OnlineStatisticsOfType"}},
            {"online of devices",
                {4, "TK_OnlineStatisticsOfDevices", "TK_OnlineStatisticsOfNum", "TK_OnlineStatisticsOfType"}},
            {"temperature of groups",
                {5, "TK_TemperatureStatisticsOfNum", "TK_TemperatureStatisticsOfNum",
                    "TK_TemperatureStatisticsOfType"}},
            {"temperature of persons",
                {6, "TK_TemperatureStatisticsOfPersons", "TK_TemperatureStatisticsOfNum",
                    "TK_TemperatureStatisticsOfType"}},
            {"traffics of organisations",
                {7, "TK_TrafficsStatisticsOfDevices", "TK_TrafficsStatisticsOfNum",
                    "TK_TrafficsStatisticsOfType"}},
            {"traffics of devices",
                {8, "TK_TrafficsStatisticsOfDevices", "TK_TrafficsStatisticsOfNum",
                    "TK_TrafficsStatisticsOfType"}},
            {"temperature of device groups",
                {9, "TK_TemperatureStatisticsOfDevGroups", "TK_TemperatureStatisticsOfNum",
                    "TK_StatisticalDistributionOfBodytemperatureSnapshot"}}});
}
