#pragma once

/// The numbers that the page shares with its host and the server, by name. The fields that hold them stay
/// `int`: a number that is not named here can come and goes through.
///
/// The host's own headers name the units of time (`ZrCalendarWidget::QueryType`), the forms of texts
/// (`AppLanguageTr::CaptitalType`) and the styles of buttons (`AppStyleHelper::newWidgetStyleType`).
namespace Codes {

/// Kinds of statistics.
enum ServiceType : int {
    AlarmStatisticsOfOrgas = 1,
    AlarmStatisticsOfDevices = 2,
    OnlineStatisticsOfOrgas = 3,
    OnlineStatisticsOfDevices = 4,
    TemperatureStatisticsOfGroups = 5,
    TemperatureStatisticsOfPersons = 6,
    TrafficsStatisticsOfOrgas = 7,
    TrafficsStatisticsOfDevices = 8,
    TemperatureStatisticsOfDevGroups = 9
};

/// How a query of a whole level ended.
enum QueryResult : int {
    NoOrganisation = 1, ///< nothing was asked, the tree has no current organisation
    Failed = 2,         ///< the client refused
    NoRecords = 3,      ///< the client answered with nothing
    Success = 4         ///< the data lists are filled
};

/// How loudly the host tells the user something.
enum TipKind : int { Statement = 1, Warning = 2, Failure = 3 };

/// Order of bars, as a request asks for it.
enum SortType : int { Descending = 1, Ascending = 2 };

/// Which levels below an organisation are counted with it.
enum SumMode : int { LowerLevel = 1, AllLevels = 2, OnlyCurrent = 3 };

/// Device types; all others are recorders if the client says so.
enum DeviceType : int { Camera = 1 };

/// What a distribution of a group's temperatures is split by.
enum GroupDistribution : int { ByNumber = 1, ByEtiology = 2 };

/// What a distribution of a device group's snapshots is split by.
enum DeviceDistribution : int { ByTemperature = 1, ByMask = 2 };

/// Classes of body temperature.
enum TemperatureClass : int {
    NormalTemperature = 0,
    HighTemperature = 1,
    LowTemperature = 2,
    AbnormalTemperature = 3
};

/// Classes of masks.
enum MaskClass : int { MaskUndetected = 0, MaskWorn = 1, MaskUncovered = 2 };

/// What a query about device groups asks for where it asks for no distribution.
enum HandlingQuery : int { AlarmHandling = 1 };

/// States of a temperature alarm.
enum HandleState : int { NotAccepted = 0, Accepted = 2 };

/// Classes of snapshots.
enum SnapClass : int { Pedestrian = 2, Vehicle = 4 };

/// What the detail of snapshots is asked for.
enum SnapDetailMode : int { ByDevice = 1, ByOrganisation = 2 };

/// What the export dialog offers, and how it ends.
enum ExportMode : int { Pdf = 0, Excel = 1 };
enum DialogResult : int { Dismissed = 0, Confirmed = 1 };

} // namespace Codes
