#include <TalvixWidgets/BaseWidget.h>

#include <QtGui/QShowEvent>

BaseWidget::BaseWidget(QWidget *parent, Qt::WindowFlags flags)
    : BaseStyleWidget(parent, flags)
{
}

BaseWidget::~BaseWidget() = default;

bool BaseWidget::event(QEvent *event)
{
    return BaseStyleWidget::event(event);
}

bool BaseWidget::eventFilter(QObject *watched, QEvent *event)
{
    return BaseStyleWidget::eventFilter(watched, event);
}

void BaseWidget::showEvent(QShowEvent *event)
{
    BaseStyleWidget::showEvent(event);
    // A window that comes back from the task bar was never hidden.
    if (event->spontaneous())
        return;
    m_bAfterHide = false;
    doAfterWidgetShow();
}
