#pragma once

#include <QtCore/QList>
#include <QtCore/QStringList>
#include <QtGui/QColor>

QT_BEGIN_NAMESPACE
class QAbstractAxis;
class QAbstractSeries;
class QBarCategoryAxis;
class QBrush;
class QChart;
class QChartView;
class QPen;
class QValueAxis;
QT_END_NAMESPACE

class ZrChartView;

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
/// Lessens or turns the labels of the axis where they have no room side by side, for as long as the chart
/// lives. A chart that is meant for \a view starts with labels that fit there, and so is measured once; there
/// is none before the first load.
void keepLabelsReadable(QChart &chart, QBarCategoryAxis *axis, const ZrChartView *view);
/// Lessens the font of the legend where its texts have no room beside the chart, likewise.
void keepLegendReadable(QChart &chart, const ZrChartView *view);
/// The chart uses all of its view.
void removeMargins(QChart &chart);
/// Series grow into their place, and what lies behind the chart shows through.
void setRenderLook(QChart &chart);
/// A new chart, not in a view yet, lays itself out no more until layOut is called, and then once and for all.
void holdLayout(QChart &chart);
/// Lays out the chart of a view that has its size.
void layOut(QChartView &view);

/// Keeps views from painting while it lives, so that they paint once what came of all changes and of the
/// first step of the animations.
class HeldPainting
{
public:
    explicit HeldPainting(const QList<ZrChartView *> &views);
    ~HeldPainting();
    Q_DISABLE_COPY(HeldPainting)

private:
    QList<ZrChartView *> m_views;
};

} // namespace ChartLook
