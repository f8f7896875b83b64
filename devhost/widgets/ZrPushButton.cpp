#include <TalvixWidgets/ZrPushButton.h>

#include <QtCore/QEvent>

ZrPushButton::ZrPushButton(QWidget *parent)
    : QPushButton(parent)
{ }

ZrPushButton::~ZrPushButton() = default;

bool ZrPushButton::setProperty(const char *name, const QVariant &value)
{
    return name && QObject::setProperty(name, value);
}

bool ZrPushButton::event(QEvent *event)
{
    // A button that shows but an icon is known to a screen reader by its tool tip.
    if (event->type() == QEvent::ToolTipChange && text().isEmpty())
        setAccessibleName(toolTip());
    return QPushButton::event(event);
}

void ZrPushButton::hideEvent(QHideEvent *event)
{
    // No leave event and no release reach a hidden button.
    setDown(false);
    setAttribute(Qt::WA_UnderMouse, false);
    QPushButton::hideEvent(event);
}
