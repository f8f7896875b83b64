#include <TalvixWidgets/ZrChartView.h>

#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QGraphicsScene>

ZrChartView::ZrChartView(QChart *chart, QWidget *parent)
    : QChartView(chart ? chart : new QChart, parent)
{
    // The items of a chart all move at once: an index over them costs more than it finds.
    scene()->setItemIndexMethod(QGraphicsScene::NoIndex);
    viewport()->setMouseTracking(true);
}

ZrChartView::~ZrChartView() = default;

void ZrChartView::mousePressEvent(QMouseEvent *event)
{
    if (itemAt(event->position().toPoint()))
        QChartView::mousePressEvent(event);
}

void ZrChartView::mouseReleaseEvent(QMouseEvent *event)
{
    if (scene()->mouseGrabberItem())
        QChartView::mouseReleaseEvent(event);
}

void ZrChartView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (itemAt(event->position().toPoint()))
        QChartView::mouseDoubleClickEvent(event);
}

void ZrChartView::mouseMoveEvent(QMouseEvent *event)
{
    QChartView::mouseMoveEvent(event);
    Q_EMIT mouseMoved(event->globalPosition().toPoint());
}

void ZrChartView::wheelEvent(QWheelEvent *event)
{
    // A chart has nothing to scroll; what holds the page may have.
    event->ignore();
}
