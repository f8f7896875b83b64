#include "ChartLayout.h"

#include <TalvixWidgets/ZrChartView.h>

#include <QtCharts/QBarCategoryAxis>
#include <QtCharts/QChart>
#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtWidgets/QGraphicsLayout>
#include <QtWidgets/QGraphicsScene>

namespace ChartLayouting {

namespace {

bool isPlain = false;

// While a chart has such a child it is not laid out.
class HeldLayout : public QObject
{
public:
    explicit HeldLayout(QChart &chart)
        : QObject(&chart)
    {
        chart.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        return event->type() == QEvent::GraphicsSceneResize || event->type() == QEvent::LayoutRequest;
    }
};

// A scene tells its items that they are on show, and its view what to paint, by calls that it posts to
// itself.
void deliverCalls(const QChartView &view)
{
    QCoreApplication::sendPostedEvents(view.scene(), QEvent::MetaCall);
}

// The item by which a chart lays its category axis out. That of a replaced axis is still there, hidden.
QGraphicsLayoutItem *layoutItem(const QChart &chart)
{
    const auto items = chart.childItems();
    for (QGraphicsItem *item : items) {
        const QGraphicsObject *object = item->toGraphicsObject();
        if (object && object->isVisible()
            && object->metaObject()->className() == QByteArrayView("ChartBarCategoryAxisX"))
            return dynamic_cast<QGraphicsLayoutItem *>(item);
    }
    return nullptr;
}

} // namespace

void setPlain(bool plain)
{
    isPlain = plain;
}

void hold(QChart &chart)
{
    if (!isPlain)
        new HeldLayout(chart);
}

// Left to itself a chart lays itself out when it gets its size, and again when its legend learns that it is
// on show, which is what the delivered calls are for.
void layOut(QChartView &view)
{
    if (isPlain)
        return;
    QChart *chart = view.chart();
    deliverCalls(view);
    const QObjectList children = chart->children();
    for (QObject *child : children)
        delete dynamic_cast<HeldLayout *>(child);
    chart->layout()->activate();
}

// A layout without a parent item has nobody to ask for being activated again, and stays as it is.
KeptLayout::KeptLayout(QChart &chart)
    : m_chart(chart)
    , m_layout(isPlain ? nullptr : chart.layout())
{
    if (m_layout)
        m_layout->setParentLayoutItem(nullptr);
}

KeptLayout::~KeptLayout()
{
    if (m_layout)
        m_layout->setParentLayoutItem(&m_chart);
}

UpdatesBlocker::UpdatesBlocker(const QList<ZrChartView *> &views)
{
    if (isPlain)
        return;
    for (ZrChartView *view : views) {
        // A parent may hold still as well, as that of a tab does while the tab is shown.
        if (view && !view->testAttribute(Qt::WA_ForceUpdatesDisabled)) {
            view->setUpdatesEnabled(false);
            m_views.append(view);
        }
    }
}

UpdatesBlocker::~UpdatesBlocker()
{
    for (const auto &view : std::as_const(m_views)) {
        if (view)
            deliverCalls(*view);
    }
    for (const auto &view : std::as_const(m_views)) {
        if (view)
            view->setUpdatesEnabled(true);
    }
}

void skipLabels(const QChart &chart, QBarCategoryAxis &axis, double height)
{
    QGraphicsLayoutItem *item = isPlain ? nullptr : layoutItem(chart);
    if (!item)
        return;
    axis.setLabelsVisible(false);
    item->setPreferredHeight(height);
}

void measureLabels(const QChart &chart, QBarCategoryAxis &axis)
{
    if (axis.labelsVisible())
        return;
    axis.setLabelsVisible(true);
    if (QGraphicsLayoutItem *item = layoutItem(chart))
        item->setPreferredHeight(-1);
}

} // namespace ChartLayouting
