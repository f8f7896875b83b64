#pragma once

#include <QtCore/QStringList>
#include <QtGui/QColor>

QT_BEGIN_NAMESPACE
class QAbstractAxis;
class QAbstractSeries;
class QBarCategoryAxis;
class QBrush;
class QChart;
class QPen;
class QValueAxis;
QT_END_NAMESPACE

/// The look that all charts share.
namespace ChartLook {

/// Colour of the second of two series.
QColor secondSeries();
/// The theme's colour of a "$" key.
QColor themeColour(const char *key);
/// Pen with square ends and bevelled corners.
QPen pen(const QColor &colour, double width, Qt::PenStyle style);

/// Axis below the chart with one place for each label, also where labels are equal or null.
QBarCategoryAxis *categoryAxis(const QStringList &labels);
/// Axis beside the chart from 0 to \a bound.
QValueAxis *valueAxis(double bound);

/// The chart takes the axis, in place of the default axis of the series.
void setAxisX(QChart &chart, QAbstractAxis *axis, QAbstractSeries *series);
void setAxisY(QChart &chart, QAbstractAxis *axis, QAbstractSeries *series);

/// Takes the first horizontal axis out of the chart and deletes it, if there is one.
void removeAxisX(QChart &chart);

void showLegend(QChart &chart, Qt::Alignment alignment);
/// Turns the labels of the axis where they have no room side by side, for as long as the chart lives.
void keepLabelsReadable(QChart &chart, QBarCategoryAxis *axis);
/// Lessens the font of the legend where its texts have no room beside the chart, for as long as the chart
/// lives.
void keepLegendReadable(QChart &chart);
/// The chart uses all of its view.
void removeMargins(QChart &chart);

} // namespace ChartLook
