#pragma once

#include <QtCore/QSizeF>
#include <QtGui/QColor>

QT_BEGIN_NAMESPACE
class QAbstractAxis;
class QAbstractSeries;
class QBarCategoryAxis;
class QChart;
class QLegend;
class QPen;
class QValueAxis;
QT_END_NAMESPACE

class ZrChartView;

/// The look that all charts share: pens, colours, axes and legends.
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
/// The markers, which draw rich text, show the names of their series to the letter.
void showNamesAsTheyStand(const QLegend &legend);
/// Size that a chart will have in \a view; empty before the first load, when there is none.
QSizeF sizeIn(const ZrChartView *view);
/// The chart uses all of its view.
void removeMargins(QChart &chart);

} // namespace ChartLook
