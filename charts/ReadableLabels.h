#pragma once

#include <QtCore/QSizeF>
#include <QtCore/QStringList>

#include <memory>
#include <utility>

QT_BEGIN_NAMESPACE
class QBarCategoryAxis;
class QChart;
class QFont;
QT_END_NAMESPACE

struct LabelStance;

/// Keeps the texts of a chart readable as its size changes, for as long as the chart lives: font, angle and
/// wording of the labels below it, font and wording of a legend beside it. Where there is no room at all
/// periods shrink, names are left out, and in less than two pixels for each nothing is drawn.
namespace ReadableLabels {

/// A name may be shortened where it fits in no way; a period never is.
enum class Kind { Names, Periods };

/// How labels stand, in degrees: side by side, leaning, upright.
enum Angle : int { Level = 0, Leaning = -45, Upright = -90 };

/// What a label may take: the width of its place, and the height between chart and edge.
struct Room
{
    double width = 0;
    double height = 0;
};

/// Labels as they are drawn.
struct Labels
{
    QStringList texts;
    Angle angle = Level;
    int pixels = 0; ///< size of the font
};

/// The labels for \a texts in the largest font of at most \a usual that \a room allows, in the angle \a first
/// if that is possible.
Labels fitted(const QStringList &texts, Kind kind, const QFont &usual, Room room, Angle first);

/// The texts of an axis' categories. An axis drops equal and null ones, and every bar behind them would stand
/// under a wrong label; invisible marks tell such texts apart.
QStringList categories(const QStringList &texts);

/// Keeps the labels of \a axis readable; it is the axis below \a chart and has a category for each of \a
/// texts. \a size is what the chart will have, or empty as long as that isn't known. The charts of a view
/// share its \a stance.
void keepReadable(QChart &chart, QBarCategoryAxis *axis, const QStringList &texts, Kind kind,
    const QSizeF &size, const std::shared_ptr<LabelStance> &stance);

/// Keeps a legend beside \a chart readable. Each marker's text is a name, which gives way where room is
/// short, and values, which don't.
void keepLegendReadable(QChart &chart, const QList<std::pair<QString, QString>> &texts, const QSizeF &size);

} // namespace ReadableLabels
