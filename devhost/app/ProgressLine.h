#pragma once

#include <QtCore/QString>

/// A line on standard error that tells how far a long task is. On a terminal it is renewed in place,
/// elsewhere there is one line for the start and one for the end.
class ProgressLine
{
public:
    explicit ProgressLine(const QString &task);
    ~ProgressLine();

    void tell(int done, int total);
    /// The task ended well; without this call it ended with an error.
    void succeed() { m_succeeded = true; }

private:
    Q_DISABLE_COPY_MOVE(ProgressLine)

    void write(const QString &text, const char *end) const;

    QString m_task;
    bool m_onTerminal;
    bool m_begun = false;
    bool m_succeeded = false;
    int m_percent = -1;
};
