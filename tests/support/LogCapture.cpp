#include "LogCapture.h"

#include <algorithm>

LogCapture *LogCapture::s_current = nullptr;

LogCapture::LogCapture()
    : m_outer(s_current)
    , m_previous(qInstallMessageHandler(&LogCapture::handle))
{
    s_current = this;
}

LogCapture::~LogCapture()
{
    s_current = m_outer;
    qInstallMessageHandler(m_previous);
}

void LogCapture::handle(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (!s_current)
        return;
    s_current->m_lines.append({type, message});
    if (s_current->whenWritten)
        s_current->whenWritten(message);
}

QStringList LogCapture::lines() const
{
    QStringList texts;
    for (const Line &line : m_lines)
        texts.append(line.text);
    return texts;
}

QStringList LogCapture::lines(QtMsgType type) const
{
    QStringList texts;
    for (const Line &line : m_lines) {
        if (line.type == type)
            texts.append(line.text);
    }
    return texts;
}

bool LogCapture::contains(const QString &line) const
{
    return count(line) > 0;
}

bool LogCapture::containsStart(const QString &start) const
{
    return std::any_of(
        m_lines.cbegin(), m_lines.cend(), [&start](const Line &line) { return line.text.startsWith(start); });
}

int LogCapture::count(const QString &line) const
{
    return static_cast<int>(std::count_if(
        m_lines.cbegin(), m_lines.cend(), [&line](const Line &known) { return known.text == line; }));
}

QStringList LogCapture::complaints() const
{
    QStringList texts;
    for (const Line &line : m_lines) {
        if (line.type != QtDebugMsg && line.type != QtInfoMsg)
            texts.append(line.text);
    }
    return texts;
}

void LogCapture::clear()
{
    m_lines.clear();
}
