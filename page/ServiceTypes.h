#pragma once

#include "AxisBound.h"
#include "BasicChart.h"

/// All in which the nine kinds of statistics differ. A tenth kind would be a row and its query.
struct BasicChart::ServiceTypeRow
{
    /// Rows of which list setter the kind takes, and what one of its bars stands for.
    enum class Figures { Alarm, Online, Other };
    enum class Bars { Organisations, Devices, Other };
    /// How the bars, lines and legends are split.
    enum class Series { One, CamerasAndRecorders, Two };
    /// What `comboBoxPie` offers.
    enum class PieModes { None, GroupDistribution, SnapMajorTypes, DeviceDistribution };

    int (BasicChart::*query)();
    void (BasicChart::*drillDown)(const QString &key);
    Figures figures;
    Bars bars;
    bool paged;
    bool treeLoaded;

    bool pieless;
    bool orgTypeHidden;
    bool snapClassShown;
    bool startsByDays;
    bool exportModeAsked;

    Series series;
    const char *firstSeriesKey;
    const char *secondSeriesKey;
    AxisRule axisRule;
    PieModes pieModes;
    bool calloutInPercent;

    const char *barTitleKey;
    const char *lineTitleKey;
    const char *pieTitleKey;

    bool dual() const { return series == Series::Two; }

    /// The row of a kind. Any other number asks and draws like alarms of organisations, but has no tree to
    /// ask by, fills no bars and bears no title.
    static const ServiceTypeRow &of(int serviceType);
};
