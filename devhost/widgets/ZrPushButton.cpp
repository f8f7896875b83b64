#include <TalvixWidgets/ZrPushButton.h>

#include <QtGui/QHelpEvent>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QStylePainter>
#include <QtWidgets/QToolTip>

static QString fittingText(const QStyleOptionButton &button)
{
    constexpr int leastMargin = 4;
    int width = button.rect.width() - 2 * leastMargin;
    if (!button.icon.isNull())
        width -= button.iconSize.width() + leastMargin;
    return button.fontMetrics.elidedText(button.text, Qt::ElideRight, width, Qt::TextShowMnemonic);
}

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
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty()) {
        QStyleOptionButton option;
        initStyleOption(&option);
        if (fittingText(option) != option.text) {
            QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), option.text, this);
            return true;
        }
    }
    return QPushButton::event(event);
}

void ZrPushButton::hideEvent(QHideEvent *event)
{
    // No leave event and no release reach a hidden button.
    setDown(false);
    setAttribute(Qt::WA_UnderMouse, false);
    QPushButton::hideEvent(event);
}

void ZrPushButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text = fittingText(option);
    painter.drawControl(QStyle::CE_PushButton, option);
}
