#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <algorithm>

/// Whether \a lines hold all of \a wanted in this order, with others between them or not.
/// A wanted line that ends in "*" stands for each that begins so.
inline bool inOrder(const QStringList &lines, const QStringList &wanted)
{
    const auto matches = [](const QString &line, const QString &pattern) {
        return pattern.endsWith(QLatin1Char('*')) ? line.startsWith(pattern.chopped(1)) : line == pattern;
    };
    auto from = lines.cbegin();
    for (const QString &pattern : wanted) {
        from = std::find_if(
            from, lines.cend(), [&matches, &pattern](const QString &line) { return matches(line, pattern); });
        if (from == lines.cend())
            return false;
        ++from;
    }
    return true;
}

/// Whether \a lines are \a wanted and nothing else.
inline bool exactly(const QStringList &lines, const QStringList &wanted)
{
    return lines.size() == wanted.size() && inOrder(lines, wanted);
}

/// What stands behind \a start on the first line that begins so, without blanks and quotes around it.
/// Null when no line begins so.
inline QString loggedBehind(const QStringList &lines, const QString &start)
{
    for (const QString &line : lines) {
        if (!line.startsWith(start))
            continue;
        QString value = line.mid(start.size()).trimmed();
        if (value.size() >= 2 && value.startsWith(QLatin1Char('"')) && value.endsWith(QLatin1Char('"')))
            value = value.mid(1, value.size() - 2);
        return value.isNull() ? QStringLiteral("") : value;
    }
    return {};
}
