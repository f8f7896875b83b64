#pragma once

#include <QtCore/QList>
#include <QtCore/QPointer>

QT_BEGIN_NAMESPACE
class QBarCategoryAxis;
class QChart;
class QChartView;
class QGraphicsLayout;
QT_END_NAMESPACE

class ZrChartView;

/// Has charts laid out once and painted once for a change, where Qt Charts left to itself does so several
/// times.
///
/// Only this file and its source know the classes, child items and posted calls inside Qt Charts (6.4
/// to 6.11). Each technique says what it relies on and what is lost where another version does otherwise.
/// That is never more than time: the charts are the same.
namespace ChartLayouting {

/// Switches all techniques off or on again, for tests and benchmarks to compare with.
void setPlain(bool plain);

/// The new \a chart, which is not in a view yet, is not laid out until `layOut()` is called.
///
/// Relies on a chart laying itself out when it gets the events of a new size and of a layout request. If it
/// did so by a way of its own, it would be laid out once more.
void hold(QChart &chart);
/// Lays out the chart of \a view, which has its size.
///
/// Relies on the scene telling its items that they are on show by a call that it posts to itself. If it told
/// them at once, there would be nothing to deliver; if later, the legend would have the chart laid out once
/// more.
void layOut(QChartView &view);

/// Keeps the layout of a chart valid while it lives: what is changed meanwhile must not need another one.
///
/// Relies on a layout activating itself by way of its parent item. If it did not, the chart would be laid out
/// once more.
class KeptLayout
{
public:
    explicit KeptLayout(QChart &chart);
    ~KeptLayout();
    Q_DISABLE_COPY(KeptLayout)

private:
    QChart &m_chart;
    QGraphicsLayout *m_layout;
};

/// Blocks the updates of views while it lives, so that they paint what came of all changes at once.
///
/// Relies on the scene handing its changes to its views by a call that it posts to itself. If it did so
/// later, each view would be painted once more.
class UpdatesBlocker
{
public:
    explicit UpdatesBlocker(const QList<ZrChartView *> &views);
    ~UpdatesBlocker();
    Q_DISABLE_COPY(UpdatesBlocker)

private:
    QList<QPointer<ZrChartView>> m_views;
};

/// An axis measures the labels that it has no room to draw as well, to know its height. It is told the \a
/// height instead, until measureLabels() is called.
///
/// Relies on the axis being drawn by an item of a certain class. If there were none, all labels would be
/// measured.
void skipLabels(const QChart &chart, QBarCategoryAxis &axis, double height);
void measureLabels(const QChart &chart, QBarCategoryAxis &axis);

} // namespace ChartLayouting
