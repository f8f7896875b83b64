#include "SpanGrid.h"

#include <QtGui/QAccessible>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>

namespace {

constexpr int wheelStep = 120;

QColor blended(const QColor &below, const QColor &above, double share)
{
    const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return QColor(
        mix(below.red(), above.red()), mix(below.green(), above.green()), mix(below.blue(), above.blue()));
}

} // namespace

SpanGrid::SpanGrid(QWidget *parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void SpanGrid::setCells(const QList<Cell> &cells, int columns, const QStringList &header)
{
    m_cells = cells;
    m_columns = std::max(1, columns);
    m_header = header;
    m_hovered = -1;
    updateGeometry();
    update();
    tellCursor();
}

void SpanGrid::setSpan(qint64 first, qint64 last)
{
    m_first = first;
    m_last = last;
    update();
}

void SpanGrid::setReach(qint64 lowest, qint64 highest)
{
    m_lowest = lowest;
    m_highest = highest;
    m_hasReach = true;
    update();
}

void SpanGrid::setCursor(qint64 unit)
{
    m_cursor = unit;
    update();
    tellCursor();
}

void SpanGrid::tellCursor()
{
    const qsizetype index = indexOf(m_cursor);
    const QString name = index < 0 ? QString() : m_cells.at(index).name;
    if (name == accessibleDescription())
        return;
    setAccessibleDescription(name);
    if (hasFocus()) {
        QAccessibleEvent told(this, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&told);
    }
}

int SpanGrid::rows() const
{
    return static_cast<int>((m_cells.size() + m_columns - 1) / m_columns);
}

int SpanGrid::headerHeight() const
{
    return m_header.isEmpty() ? 0 : fontMetrics().height() + 8;
}

int SpanGrid::rowHeight() const
{
    return fontMetrics().height() + (m_columns < 7 ? 20 : 12);
}

QSize SpanGrid::sizeHint() const
{
    return QSize(m_columns * 32, headerHeight() + rows() * rowHeight());
}

QRect SpanGrid::rectOf(qsizetype index) const
{
    const int column = static_cast<int>(index % m_columns);
    const int row = static_cast<int>(index / m_columns);
    const int left = width() * column / m_columns;
    const int right = width() * (column + 1) / m_columns;
    return QRect(left, headerHeight() + row * rowHeight(), right - left, rowHeight());
}

QRect SpanGrid::cellRect(qint64 unit) const
{
    const qsizetype index = indexOf(unit);
    return index < 0 ? QRect() : rectOf(index);
}

qsizetype SpanGrid::indexOf(qint64 unit) const
{
    for (qsizetype i = 0; i < m_cells.size(); ++i) {
        if (m_cells.at(i).unit == unit)
            return i;
    }
    return -1;
}

qsizetype SpanGrid::indexAt(const QPoint &point) const
{
    for (qsizetype i = 0; i < m_cells.size(); ++i) {
        if (rectOf(i).contains(point))
            return i;
    }
    return -1;
}

bool SpanGrid::event(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateGeometry();
    return QWidget::event(event);
}

void SpanGrid::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    for (qsizetype i = 0; i < m_header.size(); ++i) {
        const QRect below = rectOf(i);
        painter.drawText(
            QRect(below.left(), 0, below.width(), headerHeight()), Qt::AlignCenter, m_header.at(i));
    }
    for (qsizetype i = 0; i < m_cells.size(); ++i)
        paintCell(painter, i);
}

void SpanGrid::paintCell(QPainter &painter, qsizetype index) const
{
    const Cell &cell = m_cells.at(index);
    const QRectF area = QRectF(rectOf(index)).adjusted(0, 2, 0, -2);
    const QColor chosen = palette().color(QPalette::Highlight);
    const bool inSpan = cell.unit >= m_first && cell.unit <= m_last;
    const bool isEnd = inSpan && (cell.unit == m_first || cell.unit == m_last);
    const bool inReach = !m_hasReach || (cell.unit >= m_lowest && cell.unit <= m_highest);

    painter.setPen(Qt::NoPen);
    if (inSpan && m_first != m_last) {
        // A band runs through the span, and leaves and enters at its ends.
        QRectF band = area;
        if (cell.unit == m_first)
            band.setLeft(area.center().x());
        if (cell.unit == m_last)
            band.setRight(area.center().x());
        painter.setBrush(blended(palette().color(QPalette::Window), chosen, 0.45));
        painter.drawRect(band);
    }
    const QRectF body = area.adjusted(2, 0, -2, 0);
    if (isEnd) {
        painter.setBrush(chosen);
        painter.drawRoundedRect(body, 4, 4);
    } else if (index == m_hovered && !inSpan) {
        painter.setBrush(palette().color(QPalette::Midlight));
        painter.drawRoundedRect(body, 4, 4);
    }
    painter.setBrush(Qt::NoBrush);
    if (cell.present && !isEnd) {
        painter.setPen(QPen(palette().color(QPalette::Link), 1));
        painter.drawLine(QPointF(area.center().x() - 5, area.bottom() - 3),
            QPointF(area.center().x() + 5, area.bottom() - 3));
    }
    if (hasFocus() && cell.unit == m_cursor) {
        painter.setPen(
            QPen(isEnd ? palette().color(QPalette::HighlightedText) : palette().color(QPalette::Link), 1.2));
        painter.drawRoundedRect(body.adjusted(0.6, 0.6, -0.6, -0.6), 4, 4);
    }

    QColor text = palette().color(QPalette::Text);
    if (isEnd)
        text = palette().color(QPalette::HighlightedText);
    else if (!inSpan && !inReach)
        text = palette().color(QPalette::Disabled, QPalette::Text);
    else if (!inSpan && cell.muted)
        text = palette().color(QPalette::PlaceholderText);
    painter.setPen(text);
    painter.drawText(area, Qt::AlignCenter, cell.text);
}

void SpanGrid::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_pressed = indexAt(event->position().toPoint());
    if (m_pressed >= 0)
        Q_EMIT pressed(m_cells.at(m_pressed).unit);
}

void SpanGrid::mouseMoveEvent(QMouseEvent *event)
{
    const qsizetype index = indexAt(event->position().toPoint());
    if (index != m_hovered) {
        m_hovered = index;
        update();
    }
    if (event->buttons().testFlag(Qt::LeftButton) && m_pressed >= 0 && index >= 0 && index != m_pressed)
        Q_EMIT dragged(m_cells.at(index).unit);
}

void SpanGrid::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || m_pressed < 0)
        return;
    m_pressed = -1;
    Q_EMIT released();
}

void SpanGrid::leaveEvent(QEvent *event)
{
    m_hovered = -1;
    update();
    QWidget::leaveEvent(event);
}

void SpanGrid::wheelEvent(QWheelEvent *event)
{
    m_wheel += event->angleDelta().y();
    const int pages = m_wheel / wheelStep;
    m_wheel -= pages * wheelStep;
    if (pages != 0)
        Q_EMIT pageWanted(-pages);
    event->accept();
}

void SpanGrid::keyPressEvent(QKeyEvent *event)
{
    const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
    switch (event->key()) {
    case Qt::Key_Left:
        Q_EMIT cursorWanted(m_cursor - 1, extend);
        break;
    case Qt::Key_Right:
        Q_EMIT cursorWanted(m_cursor + 1, extend);
        break;
    case Qt::Key_Up:
        Q_EMIT cursorWanted(m_cursor - m_columns, extend);
        break;
    case Qt::Key_Down:
        Q_EMIT cursorWanted(m_cursor + m_columns, extend);
        break;
    case Qt::Key_PageUp:
        Q_EMIT pageWanted(-1);
        break;
    case Qt::Key_PageDown:
        Q_EMIT pageWanted(1);
        break;
    case Qt::Key_Space:
        Q_EMIT pressed(m_cursor);
        Q_EMIT released();
        break;
    default:
        // Enter and Escape are the popup's.
        event->ignore();
    }
}

void SpanGrid::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    update();
}

void SpanGrid::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    update();
}
