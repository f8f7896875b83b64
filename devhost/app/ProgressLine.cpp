#include "ProgressLine.h"

#include <QtCore/qglobal.h>

#include <algorithm>
#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

bool standardErrorIsTerminal()
{
#ifdef Q_OS_WIN
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

} // namespace

ProgressLine::ProgressLine(const QString &task)
    : m_task(task)
    , m_onTerminal(standardErrorIsTerminal())
{ }

ProgressLine::~ProgressLine()
{
    if (m_begun && m_onTerminal)
        write(QStringLiteral("%1: %2 %").arg(m_task).arg(m_percent), "\n");
    else if (m_begun && m_succeeded)
        write(m_task + QStringLiteral(": done."), "\n");
}

void ProgressLine::tell(int done, int total)
{
    const int percent =
        total > 0 ? static_cast<int>(std::clamp<qint64>(qint64(done) * 100 / total, 0, 100)) : 0;
    if (m_begun && percent == m_percent)
        return;
    const bool first = !m_begun;
    m_begun = true;
    m_percent = percent;
    if (m_onTerminal)
        write(QStringLiteral("%1: %2 %").arg(m_task).arg(percent), "\r");
    else if (first)
        write(m_task + QStringLiteral(" …"), "\n");
}

void ProgressLine::write(const QString &text, const char *end) const
{
    std::fprintf(stderr, "%s%s", qUtf8Printable(text), end);
    std::fflush(stderr);
}
