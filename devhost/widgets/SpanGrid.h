#pragma once

#include <QtCore/QList>
#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

/// A field of months, days or hours in which a run of neighbours can be marked.
///
/// The grid draws and tells what the user does; what it means is its owner's affair. Cells are known by the
/// number of their unit: months since year 0, Julian days, hours.
class SpanGrid : public QWidget
{
    Q_OBJECT

public:
    struct Cell
    {
        qint64 unit = 0;
        QString text;
        /// What a screen reader says.
        QString name;
        /// Belongs to the neighbouring page.
        bool muted = false;
        /// Holds the present moment.
        bool present = false;
    };

    explicit SpanGrid(QWidget *parent = nullptr);

    void setCells(const QList<Cell> &cells, int columns, const QStringList &header = {});
    /// Marks the units from \a first to \a last; nothing when \a last is below \a first.
    void setSpan(qint64 first, qint64 last);
    /// Dims what lies outside; the user can press it all the same.
    void setReach(qint64 lowest, qint64 highest);
    void setCursor(qint64 unit);
    qint64 cursor() const { return m_cursor; }
    /// Where the cell of \a unit is drawn; empty when the grid does not show it.
    Q_INVOKABLE QRect cellRect(qint64 unit) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void pressed(qint64 unit);
    /// The pointer was dragged from the pressed cell to another one.
    void dragged(qint64 unit);
    void released();
    /// A key asks for another cell, which may lie on another page.
    void cursorWanted(qint64 unit, bool extend);
    void pageWanted(int pages);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    int rows() const;
    int headerHeight() const;
    int rowHeight() const;
    QRect rectOf(qsizetype index) const;
    qsizetype indexAt(const QPoint &point) const;
    qsizetype indexOf(qint64 unit) const;
    void paintCell(QPainter &painter, qsizetype index) const;
    void tellCursor();

    QList<Cell> m_cells;
    QStringList m_header;
    int m_columns = 1;
    qint64 m_first = 0;
    qint64 m_last = -1;
    qint64 m_lowest = 0;
    qint64 m_highest = 0;
    bool m_hasReach = false;
    qint64 m_cursor = 0;
    qsizetype m_hovered = -1;
    qsizetype m_pressed = -1;
    int m_wheel = 0;
};
