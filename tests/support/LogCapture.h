#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>

/// Collects what is written to Qt's log while it lives. Captures may be nested; the innermost takes the
/// lines.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    Q_DISABLE_COPY(LogCapture)

    /// The lines in order, of one kind or of all.
    QStringList lines() const;
    QStringList lines(QtMsgType type) const;
    /// Whether a line is \a line to the letter, or begins with \a start.
    bool contains(const QString &line) const;
    bool containsStart(const QString &start) const;
    int count(const QString &line) const;
    /// Warnings, critical and fatal lines.
    QStringList complaints() const;
    void clear();

    /// Runs when a line is written, so that a test can look at what stands by then.
    std::function<void(const QString &line)> whenWritten;

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &message);

    struct Line
    {
        QtMsgType type;
        QString text;
    };
    QList<Line> m_lines;
    LogCapture *m_outer;
    QtMessageHandler m_previous;
    static LogCapture *s_current;
};
