#pragma once

#include "AxisBound.h"
#include "BasicChart.h"

#include <QtCore/QFlags>

#include <array>

/// One way of splitting the pie, as `comboBoxPie` offers it.
struct BasicChart::PieMode
{
    const char *key; ///< its text in the box
    int code;        ///< its number in the box
    void (BasicChart::*fill)();
    /// Title of the pie, where it differs from that of the kind.
    const char *titleKey = nullptr;
    /// Its slices belong to no bar and no period, so bars and line stand empty beside it.
    bool alone = false;
};

/// In what the nine kinds of statistics differ. A tenth kind would be a row and its queries.
struct BasicChart::ServiceTypeRow
{
    /// Rows of which list setter the kind takes, and what one of its bars stands for.
    enum class Figures { Alarm, Online, Other };
    enum class Bars { Organisations, Devices, Other };
    /// How the bars, lines and legends are split.
    enum class Series { One, CamerasAndRecorders, Two };
    enum Trait {
        HasTree = 0x001,             ///< the page fetches the organisations
        Paged = 0x002,               ///< bars come in pages
        Pieless = 0x004,             ///< no pie
        SumModeHidden = 0x008,       ///< nobody chooses which levels below are counted
        SnapClasses = 0x010,         ///< the pie is of one class of snapshots, split by its major types
        StartsByDays = 0x020,        ///< the first show counts days, and never hours
        ExportModeAsked = 0x040,     ///< the export asks for a format first
        CallOutInPercent = 0x080,    ///< a bar's figure is a percentage
        ColoursByClass = 0x100,      ///< slices are coloured by what they stand for, not by their place
        KeepsPieMode = 0x200,        ///< a load leaves the chosen mode of the pie chosen
        LoadsUnknownPieMode = 0x400, ///< a mode of the pie that it doesn't know loads the charts too
    };
    Q_DECLARE_FLAGS(Traits, Trait)

    int (BasicChart::*query)() = &BasicChart::getAlarmOfOrgas;
    void (BasicChart::*drillDown)(const QString &key) = &BasicChart::getAlarmOfOrga;
    Figures figures = Figures::Other;
    Bars bars = Bars::Other;
    Traits traits;

    Series series = Series::One;
    const char *firstSeriesKey = "TK_Organization";
    const char *secondSeriesKey = nullptr;
    AxisRule axisRule = AxisRule::Hundred;
    QList<PieMode> pieModes;

    const char *barTitleKey = nullptr;
    const char *lineTitleKey = nullptr;
    const char *pieTitleKey = nullptr;

    bool has(Trait trait) const { return traits.testFlag(trait); }
    bool dual() const { return series == Series::Two; }
    bool splitsPie() const { return has(SnapClasses) || !pieModes.isEmpty(); }

    /// The row of a kind. Any other number asks and draws like alarms of organisations, but has no tree to
    /// ask by, fills no bars and bears no title.
    static const ServiceTypeRow &of(int serviceType);

private:
    /// By number; the first row is that of any other one.
    using Rows = std::array<ServiceTypeRow, 10>;
    static Rows allRows();
    static void setAlarmRows(Rows &rows);
    static void setOnlineRows(Rows &rows);
    static void setTemperatureRows(Rows &rows);
    static void setTrafficRows(Rows &rows);
    static void setDeviceGroupRow(Rows &rows);
};

Q_DECLARE_OPERATORS_FOR_FLAGS(BasicChart::ServiceTypeRow::Traits)
