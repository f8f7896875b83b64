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
/// Only this file knows of what Qt Charts does inside. Each technique names what it relies on; where another
/// version of Qt does otherwise, the charts are the same and only time is lost.
namespace ChartLayouting {

/// Switches all techniques off or on again, for tests and benchmarks to compare with.
void setPlain(bool plain);

/// The new \a chart, which is not in a view yet, is not laid out until `layOut()` is called.
void hold(QChart &chart);
/// Lays out the chart of \a view, which has its size.
void layOut(QChartView &view);

/// Keeps the layout of a chart valid while it lives: what is changed meanwhile must not need another one.
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
void skipLabels(const QChart &chart, QBarCategoryAxis &axis, double height);
void measureLabels(const QChart &chart, QBarCategoryAxis &axis);

} // namespace ChartLayouting
