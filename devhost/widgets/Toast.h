#pragma once

#include <TalvixWidgets/TalvixWidgetsGlobal.h>

#include <QtCore/QPointer>
#include <QtGui/QTextLayout>
#include <QtWidgets/QWidget>

class QPropertyAnimation;
class QVariantAnimation;
class ToastStack;

/// A note over a widget that takes neither focus nor mouse, fades in and goes by itself.
///
/// Notes over one widget stack, the newest on top, in a corner of its uppermost chart: there they hide
/// neither legend nor axis. The stack belongs to the widget, so a note never outlives what it lies on.
class Toast : public QWidget
{
    Q_OBJECT

public:
    enum Kind { Statement, Warning, Failure, Success };
    Q_ENUM(Kind)

    /// A tip on \a host; \a kind as in `BaseStyleWidget::setTips`.
    static void showTip(QWidget *host, const QString &text, int kind);
    /// A message over \a host; \a milliseconds 0 is the usual time.
    static void showMessage(QWidget *host, const QString &text, Kind kind, int milliseconds);
    /// New figures came to a page of \a window: what its notes said of earlier ones holds no more. Notes stay
    /// that came with the figures, and those of a success.
    static TALVIXWIDGETS_EXPORT void dropOutdated(const QWidget *window);

    Toast(ToastStack *stack, QWidget *host, const QString &text, Kind kind);
    ~Toast() override;

    bool tells(const QString &text, Kind kind) const { return text == m_text && kind == m_kind; }
    bool isLeaving() const { return m_leaving; }
    void stayFor(int milliseconds);
    void leave();
    /// Fits the note into \a width by wrapping, and into \a height by cutting the text.
    void fit(int width, int height);
    void slideTo(const QPoint &place);

protected:
    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void fadeTo(double opacity);
    /// Breaks the shown text into lines of at most \a width pixels; the answer is the room that they take.
    QSizeF layOut(int width);

    /// Dies before its notes when the widget dies.
    QPointer<ToastStack> m_stack;
    QString m_text;
    QString m_shownText;
    QTextLayout m_layout;
    Kind m_kind;
    double m_opacity = 0;
    double m_goal = 1;
    bool m_leaving = false;
    bool m_placed = false;
    bool m_ofEarlierFigures = false;
    int m_leaveTimer = 0;
    QVariantAnimation *m_fade = nullptr;
    QPropertyAnimation *m_slide = nullptr;
};
