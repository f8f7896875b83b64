#pragma once

#include "TalvixWidgetsGlobal.h"

#include <QtCharts/QChartView>

/// Chart view that reports where the pointer is.
///
/// A press, release, double click or wheel turn is harmless wherever it falls, also while the chart is
/// hidden.
class TALVIXWIDGETS_EXPORT ZrChartView : public QChartView
{
    Q_OBJECT

public:
    /// Takes ownership of \a chart. A chart that is replaced later is the caller's to delete.
    explicit ZrChartView(QChart *chart, QWidget *parent = nullptr);
    ~ZrChartView() override;

Q_SIGNALS:
    /// The pointer moved over the chart; \a point is in global screen coordinates.
    void mouseMoved(QPoint point);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
};
