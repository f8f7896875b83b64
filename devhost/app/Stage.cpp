#include "Stage.h"

#include <QtCore/QEvent>

namespace {

/// Below this the charts have no room for their labels, whatever the page's controls would do with.
constexpr int leastHeight = 640;

} // namespace

void Stage::showPage(QWidget *page)
{
    if (page == m_page)
        return;
    if (m_page)
        m_page->hide();
    m_page = page;
    page->setGeometry(rect());
    page->show();
    updateGeometry();
}

QSize Stage::minimumSizeHint() const
{
    return m_page ? m_page->minimumSizeHint().expandedTo(QSize(0, leastHeight)) : QSize();
}

QSize Stage::sizeHint() const
{
    return minimumSizeHint();
}

bool Stage::event(QEvent *event)
{
    // The page needs more room or less, and the scroll area is the one to know.
    if (event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QWidget::event(event);
}

void Stage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_page)
        m_page->setGeometry(rect());
}
