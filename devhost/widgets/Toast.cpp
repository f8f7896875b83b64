#include "Toast.h"

#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCore/QEvent>
#include <QtCore/QPropertyAnimation>
#include <QtCore/QTimer>
#include <QtCore/QTimerEvent>
#include <QtCore/QVariantAnimation>
#include <QtGui/QAccessible>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>

#include <algorithm>
#include <cmath>

namespace {

constexpr int edge = 16;
/// Where there is no chart yet: below the controls that stand along the upper edge of a page.
constexpr int upperEdge = 64;
constexpr QSize smallestPlot(240, 80);
constexpr int spacing = 8;
constexpr int padding = 12;
constexpr int markWidth = 32;
constexpr int widestToast = 520;
constexpr int mostToasts = 4;
constexpr qsizetype longestText = 1000;
constexpr int fadeMilliseconds = 180;

struct Look
{
    QColor background;
    QColor mark;
};

Look lookOf(Toast::Kind kind)
{
    switch (kind) {
    case Toast::Warning:
        return {QColor(0x3A, 0x32, 0x20), QColor(0xF9, 0xCE, 0x4F)};
    case Toast::Failure:
        return {QColor(0x40, 0x26, 0x2B), QColor(0xF0, 0x6A, 0x78)};
    case Toast::Success:
        return {QColor(0x1F, 0x37, 0x30), QColor(0x3D, 0xCB, 0x96)};
    case Toast::Statement:
        break;
    }
    return {QColor(0x29, 0x2F, 0x45), QColor(0x9D, 0xAC, 0xFD)};
}

/// Long enough to be read, with more time for what has to be acted upon.
int usualTime(Toast::Kind kind, qsizetype length)
{
    const int base = kind == Toast::Failure ? 6000 : kind == Toast::Warning ? 4500 : 3000;
    return std::min(base + 30 * static_cast<int>(std::max<qsizetype>(0, length - 60)), 15000);
}

bool isControl(const QWidget *widget)
{
    return qobject_cast<const QAbstractButton *>(widget) || qobject_cast<const QComboBox *>(widget)
        || qobject_cast<const QLineEdit *>(widget);
}

/// The plot of a chart without legend and axes, in the coordinates of \a host.
QRect plotOf(const QChartView &view, const QWidget *host)
{
    const QRectF plot = view.chart()->mapRectToScene(view.chart()->plotArea());
    return view.mapFromScene(plot).boundingRect().translated(view.viewport()->mapTo(host, QPoint()));
}

/// Paints the sign of a kind around the origin, about 16 pixels wide.
void paintMark(QPainter &painter, Toast::Kind kind, const QColor &color)
{
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    switch (kind) {
    case Toast::Warning:
        painter.drawPolygon(QPolygonF{{0, -7.5}, {8, 6.5}, {-8, 6.5}});
        painter.drawLine(QPointF(0, -2.5), QPointF(0, 1.5));
        painter.drawPoint(QPointF(0, 4.2));
        return;
    case Toast::Failure:
        painter.drawEllipse(QPointF(), 7.5, 7.5);
        painter.drawLine(QPointF(-2.6, -2.6), QPointF(2.6, 2.6));
        painter.drawLine(QPointF(-2.6, 2.6), QPointF(2.6, -2.6));
        return;
    case Toast::Success:
        painter.drawEllipse(QPointF(), 7.5, 7.5);
        painter.drawPolyline(QPolygonF{{-3.4, 0.3}, {-0.9, 2.9}, {3.6, -2.5}});
        return;
    case Toast::Statement:
        break;
    }
    painter.drawEllipse(QPointF(), 7.5, 7.5);
    painter.drawLine(QPointF(0, -0.5), QPointF(0, 3.6));
    painter.drawPoint(QPointF(0, -3.6));
}

} // namespace

/// The notes over a widget. It belongs to that widget and is found again by its name.
class ToastStack : public QObject
{
public:
    static ToastStack *of(QWidget *host)
    {
        const QString name = QStringLiteral("toastStack");
        if (auto *known = host->findChild<QObject *>(name, Qt::FindDirectChildrenOnly))
            return static_cast<ToastStack *>(known);
        auto *stack = new ToastStack(host);
        stack->setObjectName(name);
        return stack;
    }

    void add(const QString &text, Toast::Kind kind, int milliseconds)
    {
        const int time = milliseconds > 0 ? milliseconds : usualTime(kind, text.size());
        // The same news again makes the note stay, not a second one of it.
        const auto known = std::find_if(
            m_toasts.begin(), m_toasts.end(), [&](const Toast *toast) { return toast->tells(text, kind); });
        if (known != m_toasts.end()) {
            (*known)->stayFor(time);
            return;
        }
        auto *toast = new Toast(this, m_host, text, kind);
        m_toasts.append(toast);
        qsizetype staying = std::count_if(
            m_toasts.cbegin(), m_toasts.cend(), [](const Toast *other) { return !other->isLeaving(); });
        for (Toast *other : std::as_const(m_toasts)) {
            if (staying > mostToasts && !other->isLeaving()) {
                other->leave();
                --staying;
            }
        }
        arrange();
        toast->show();
        toast->raise();
        toast->stayFor(time);
        // Charts that come with the same news find their place only now.
        QTimer::singleShot(0, this, [this] { arrange(); });
        QAccessibleEvent alert(toast, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }

    void forget(Toast *toast)
    {
        m_toasts.removeOne(toast);
        arrange();
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_host && event->type() == QEvent::Resize)
            arrange();
        return QObject::eventFilter(watched, event);
    }

private:
    explicit ToastStack(QWidget *host)
        : QObject(host)
        , m_host(host)
    {
        host->installEventFilter(this);
    }

    void arrange()
    {
        const QRect free = room();
        const int height = m_host->height() / 3;
        int top = free.top();
        for (auto toast = m_toasts.crbegin(); toast != m_toasts.crend(); ++toast) {
            (*toast)->fit(std::min(widestToast, free.width()), height);
            QRect place(QPoint(), (*toast)->size());
            place.moveTop(top);
            if (m_host->isRightToLeft())
                place.moveLeft(free.left());
            else
                place.moveRight(free.right());
            keepClearOfControl(place);
            (*toast)->slideTo(place.topLeft());
            top = place.bottom() + 1 + spacing;
        }
    }

    QRect room() const
    {
        QRect uppermost;
        for (const QChartView *view : m_host->findChildren<QChartView *>()) {
            const QRect plot = view->isVisible() ? plotOf(*view, m_host) : QRect();
            if (plot.width() >= smallestPlot.width() && plot.height() >= smallestPlot.height()
                && (uppermost.isNull() || plot.top() < uppermost.top()))
                uppermost = plot;
        }
        if (!uppermost.isNull())
            return uppermost.adjusted(spacing, spacing, -spacing, -spacing);
        return m_host->rect().adjusted(edge, std::min(upperEdge, m_host->height() / 8), -edge, -edge);
    }

    /// Moves \a place away from the control that the user has just used or is about to press.
    void keepClearOfControl(QRect &place) const
    {
        QWidget *underPointer = QApplication::widgetAt(QCursor::pos());
        for (const QWidget *control : {QApplication::focusWidget(), underPointer}) {
            if (!control || !isControl(control) || !m_host->isAncestorOf(control))
                continue;
            const QRect area(control->mapTo(m_host, QPoint()), control->size());
            if (area.intersects(place))
                place.moveTop(area.bottom() + 1 + spacing);
        }
    }

    QWidget *m_host;
    QList<Toast *> m_toasts;
};

void Toast::showTip(QWidget *host, const QString &text, int kind)
{
    if (!host || text.isEmpty())
        return;
    const Kind shown = kind == 3 ? Failure : kind == 2 ? Warning : Statement;
    ToastStack::of(host)->add(text, shown, 0);
}

void Toast::showMessage(QWidget *host, const QString &text, Kind kind, int milliseconds)
{
    if (host && !text.isEmpty())
        ToastStack::of(host)->add(text, kind, milliseconds);
}

void Toast::dropOutdated(const QWidget *window)
{
    for (Toast *toast : window->findChildren<Toast *>()) {
        if (toast->m_ofEarlierFigures && toast->m_kind != Success)
            toast->leave();
    }
}

Toast::Toast(ToastStack *stack, QWidget *host, const QString &text, Kind kind)
    : QWidget(host)
    , m_stack(stack)
    , m_text(text)
    , m_kind(kind)
    , m_fade(new QVariantAnimation(this))
    , m_slide(new QPropertyAnimation(this, "pos", this))
{
    setObjectName(QStringLiteral("toast"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(text.left(longestText));
    m_slide->setDuration(fadeMilliseconds);
    m_slide->setEasingCurve(QEasingCurve::OutCubic);
    m_fade->setDuration(fadeMilliseconds);
    connect(m_fade, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_opacity = value.toDouble();
        update();
    });
    connect(m_fade, &QVariantAnimation::finished, this, [this] {
        if (m_leaving)
            deleteLater();
    });
}

Toast::~Toast()
{
    if (m_stack)
        m_stack->forget(this);
}

void Toast::stayFor(int milliseconds)
{
    if (m_leaveTimer)
        killTimer(m_leaveTimer);
    m_leaveTimer = startTimer(milliseconds);
    m_leaving = false;
    // A search asks several times, and what one answer lacks the next one does not bring.
    m_ofEarlierFigures = false;
    QTimer::singleShot(0, this, [this] { m_ofEarlierFigures = true; });
    fadeTo(1);
}

void Toast::leave()
{
    if (m_leaving)
        return;
    m_leaving = true;
    fadeTo(0);
}

void Toast::fit(int width, int height)
{
    const int room = std::max(width - 2 * padding - markWidth, fontMetrics().averageCharWidth());
    m_shownText = m_text.left(longestText);
    if (m_text.size() > longestText)
        m_shownText += QChar(0x2026);
    QSizeF area = layOut(room);
    // Cut until it fits: the text may be anything that a server sends.
    while (area.height() > std::max(height, fontMetrics().height()) && m_shownText.size() > 8) {
        m_shownText = m_shownText.left(m_shownText.size() * 3 / 4) + QChar(0x2026);
        area = layOut(room);
    }
    resize(static_cast<int>(std::ceil(area.width())) + 2 * padding + markWidth,
        static_cast<int>(std::ceil(area.height())) + 2 * padding);
}

QSizeF Toast::layOut(int width)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QString lines = m_shownText;
    m_layout.setText(lines.replace(u'\n', QChar::LineSeparator));
    m_layout.setFont(font());
    m_layout.setTextOption(option);
    QSizeF area;
    m_layout.beginLayout();
    for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, area.height()));
        area = QSizeF(std::max(area.width(), line.naturalTextWidth()), area.height() + line.height());
    }
    m_layout.endLayout();
    return area;
}

void Toast::slideTo(const QPoint &place)
{
    if (!m_placed) {
        m_placed = true;
        move(place);
        return;
    }
    m_slide->stop();
    m_slide->setStartValue(pos());
    m_slide->setEndValue(place);
    m_slide->start();
}

void Toast::fadeTo(double opacity)
{
    m_fade->stop();
    m_fade->setStartValue(m_opacity);
    m_fade->setEndValue(opacity);
    m_fade->start();
}

void Toast::paintEvent(QPaintEvent *)
{
    const Look look = lookOf(m_kind);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_opacity);
    QColor line = look.mark;
    line.setAlphaF(0.55F);
    painter.setPen(line);
    painter.setBrush(look.background);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);

    painter.save();
    painter.translate(padding + 8, padding + fontMetrics().height() / 2.0);
    paintMark(painter, m_kind, look.mark);
    painter.restore();

    painter.setPen(QColor(0xF0, 0xF0, 0xF2));
    m_layout.draw(&painter, QPointF(padding + markWidth, padding));
}

void Toast::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_leaveTimer)
        return;
    killTimer(m_leaveTimer);
    m_leaveTimer = 0;
    leave();
}
