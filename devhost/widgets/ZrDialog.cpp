#include <TalvixWidgets/ZrDialog.h>

#include <QtGui/QCloseEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QPushButton>

#include <algorithm>

namespace {

QString closeButtonName()
{
    return QStringLiteral("pushButtonClose");
}

} // namespace

class ZrDialog::Private
{
public:
    bool dragging = false;
    QPoint grip;
};

ZrDialog::ZrDialog(QWidget *parent, Qt::WindowFlags flags)
    : BaseWidget(parent, flags | Qt::FramelessWindowHint)
    , d(new Private)
{
    if (isWindow())
        setWindowModality(Qt::WindowModal);
}

ZrDialog::~ZrDialog()
{
    delete d;
}

void ZrDialog::doAfterWidgetShow()
{
    BaseWidget::doAfterWidgetShow();
    // The first control takes the keys at once, unless that is the way out; whatever had them last keeps
    // them.
    if (!focusWidget())
        focusNextChild();
    if (focusWidget() && focusWidget()->objectName() == closeButtonName())
        focusNextChild();
}

void ZrDialog::shortcutEnter()
{
    auto *button = findChild<QPushButton *>(QStringLiteral("pushButtonOK"));
    const QList<QPushButton *> buttons = findChildren<QPushButton *>();
    const auto marked = std::find_if(buttons.cbegin(), buttons.cend(),
        [](const QPushButton *candidate) { return candidate->isDefault(); });
    if (marked != buttons.cend())
        button = *marked;
    if (button && button->isVisible())
        button->click();
}

void ZrDialog::shortcutClose()
{
    // By its own button, so that what the dialog answers to a press of it is answered here as well.
    if (auto *button = findChild<QPushButton *>(closeButtonName()); button && button->isEnabled())
        button->click();
    else
        closeZrDialog();
}

void ZrDialog::showZrDialog()
{
    ensurePolished();
    if (QWidget *over = parentWidget(); over && isWindow()) {
        const QRect area = QRect(over->mapToGlobal(QPoint()), over->size());
        QRect place(QPoint(), isVisible() ? size() : size().expandedTo(minimumSizeHint()));
        place.moveCenter(area.center());
        const QRect room = over->screen()->availableGeometry();
        place.moveLeft(std::max(room.left(), std::min(place.left(), room.right() + 1 - place.width())));
        place.moveTop(std::max(room.top(), std::min(place.top(), room.bottom() + 1 - place.height())));
        move(place.topLeft());
    }
    show();
    raise();
    activateWindow();
}

void ZrDialog::closeZrDialog()
{
    d->dragging = false;
    hide();
}

void ZrDialog::closeEvent(QCloseEvent *event)
{
    // The window system closes it the way the user does; whoever waits for an answer gets one.
    if (isVisible())
        shortcutClose();
    event->setAccepted(!isVisible());
}

void ZrDialog::paintEvent(QPaintEvent *event)
{
    BaseWidget::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(palette().color(QPalette::Window));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ZrDialog::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        BaseWidget::mousePressEvent(event);
        return;
    }
    event->accept();
    if (windowHandle() && windowHandle()->startSystemMove())
        return;
    d->dragging = true;
    d->grip = event->globalPosition().toPoint() - frameGeometry().topLeft();
}

void ZrDialog::mouseMoveEvent(QMouseEvent *event)
{
    if (d->dragging && event->buttons().testFlag(Qt::LeftButton))
        move(event->globalPosition().toPoint() - d->grip);
    else
        BaseWidget::mouseMoveEvent(event);
}

void ZrDialog::mouseReleaseEvent(QMouseEvent *event)
{
    d->dragging = false;
    BaseWidget::mouseReleaseEvent(event);
}

void ZrDialog::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        shortcutClose();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // A button with the focus is what the user sees marked; it goes before the default one.
        if (auto *button = qobject_cast<QPushButton *>(focusWidget()))
            button->click();
        else
            shortcutEnter();
        break;
    default:
        BaseWidget::keyPressEvent(event);
    }
}

bool ZrDialog::nativeEvent(const QByteArray &eventType, void *message, qintptr *result)
{
    return BaseWidget::nativeEvent(eventType, message, result);
}
