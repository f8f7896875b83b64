#include <TalvixWidgets/BaseWidget.h>

#include <QtGui/QAction>
#include <QtGui/QKeyEvent>
#include <QtGui/QShowEvent>
#include <QtWidgets/QLineEdit>

namespace {

bool opensField(const QKeyEvent &key)
{
    switch (key.key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F4:
    case Qt::Key_Down:
        return !(key.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier));
    default:
        return false;
    }
}

} // namespace

BaseWidget::BaseWidget(QWidget *parent, Qt::WindowFlags flags)
    : BaseStyleWidget(parent, flags)
{ }

BaseWidget::~BaseWidget() = default;

bool BaseWidget::event(QEvent *event)
{
    return BaseStyleWidget::event(event);
}

bool BaseWidget::eventFilter(QObject *watched, QEvent *event)
{
    // A field that only its own action can change is opened by the keys that open a combo box.
    if (event->type() == QEvent::KeyPress) {
        const auto *field = qobject_cast<QLineEdit *>(watched);
        const auto *key = static_cast<QKeyEvent *>(event);
        if (field && field->isReadOnly() && !field->actions().isEmpty() && opensField(*key)) {
            field->actions().constFirst()->trigger();
            return true;
        }
    }
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
