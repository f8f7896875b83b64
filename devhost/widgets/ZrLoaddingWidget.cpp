#include <TalvixWidgets/ZrLoaddingWidget.h>

#include "LanguageTexts.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>

#include <algorithm>
#include <utility>

class ZrLoaddingWidget::Private
{
public:
    int percent = 0;
};

ZrLoaddingWidget::ZrLoaddingWidget(QWidget *parent, Qt::WindowModality)
    : QWidget(parent)
    , d(new Private)
{
    hide();
    setObjectName(QStringLiteral("loadingOverlay"));
    setFocusPolicy(Qt::NoFocus);
    if (!parent)
        return;
    parent->installEventFilter(this);
    // The overlay lives in a scope, so a parent that dies inside that scope must not take it along.
    connect(parent, &QObject::destroyed, this, [this] { setParent(nullptr); });
}

ZrLoaddingWidget::~ZrLoaddingWidget()
{
    delete d;
}

void ZrLoaddingWidget::start(int value)
{
    d->percent = std::clamp(value, 0, 100);
    if (!parentWidget())
        return;
    setAccessibleName(LanguageTexts::find(QStringLiteral("TK_Loading")));
    setGeometry(parentWidget()->rect());
    show();
    raise();
    paintNow();
}

// Painted here and now: the thread is about to block, and events in between would reach the page. A stack
// that is just turning its pages holds painting back, so its hold is lifted for as long as this takes.
void ZrLoaddingWidget::paintNow()
{
    QList<QWidget *> held;
    for (QWidget *ancestor = parentWidget(); ancestor; ancestor = ancestor->parentWidget()) {
        if (ancestor->testAttribute(Qt::WA_ForceUpdatesDisabled))
            held.prepend(ancestor);
    }
    for (QWidget *ancestor : std::as_const(held))
        ancestor->setUpdatesEnabled(true);
    repaint();
    for (QWidget *ancestor : std::as_const(held))
        ancestor->setUpdatesEnabled(false);
}

void ZrLoaddingWidget::paintEvent(QPaintEvent *)
{
    constexpr int spokes = 12;
    constexpr double markSize = 40.0;

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), QColor(0x0E, 0x0F, 0x12, 150));

    painter.translate(QRectF(rect()).center());
    if (d->percent > 0) {
        painter.setPen(QColor(0xD6, 0xD6, 0xD6));
        painter.drawText(QRectF(-60, markSize * 0.7, 120, 24), Qt::AlignCenter,
            QString::number(d->percent) + QLatin1Char('%'));
    }
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < spokes; ++i) {
        QColor color(0x9D, 0xAC, 0xFD);
        color.setAlphaF(0.15F + 0.85F * static_cast<float>(i) / (spokes - 1));
        painter.setBrush(color);
        painter.save();
        painter.rotate(360.0 * i / spokes);
        painter.drawRoundedRect(QRectF(-2, -markSize / 2, 4, markSize * 0.3), 2, 2);
        painter.restore();
    }
}

bool ZrLoaddingWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}
