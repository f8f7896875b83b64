#pragma once

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <utility>

/// Display text and figure: what bars, lines and pies are drawn from.
using LabelledValues = QList<std::pair<QString, int>>;
/// Display text of a bar and the key that its detail is asked by.
using LabelledKeys = QList<std::pair<QString, QString>>;

/// Sum of two figures, wrapping as 32-bit integers do on every machine of the platform.
constexpr int wrappingSum(int a, int b)
{
    return static_cast<int>(static_cast<unsigned int>(a) + static_cast<unsigned int>(b));
}

/// Difference of two figures, wrapping likewise.
constexpr int wrappingDifference(int a, int b)
{
    return static_cast<int>(static_cast<unsigned int>(a) - static_cast<unsigned int>(b));
}

/// Sum of all figures, wrapping.
int wrappingTotal(const LabelledValues &list);

/// The figures in list order.
QList<int> listValues(const LabelledValues &list);

/// The display texts in list order.
template <typename Value>
QStringList listKeys(const QList<std::pair<QString, Value>> &list)
{
    QStringList keys;
    keys.reserve(list.size());
    for (const auto &entry : list)
        keys.append(entry.first);
    return keys;
}

/// The list by ascending figure; entries of one figure stand in the reverse of their order in \a list.
LabelledValues sortBarList(const LabelledValues &list);

/// The list by ascending label, compared by code units; of equal labels the later entry comes first.
LabelledValues sortedByLabel(const LabelledValues &list);

/// Finds the first entry with a text in a growing list of pairs, without searching the list.
///
/// Entries that were appended since the last look-up are taken in then. Whoever clears or reorders the list
/// calls `reset()`; a list that was replaced without it is noticed by its last known entry or by a wrong hit.
class LabelIndex
{
public:
    void reset();

    /// Position of the first entry whose display text is \a label, or -1.
    template <typename Value>
    int indexOf(const QList<std::pair<QString, Value>> &list, const QString &label)
    {
        return find(list, label, &std::pair<QString, Value>::first);
    }

    /// Position of the first entry whose key is \a key, or -1.
    int indexOfKey(const LabelledKeys &list, const QString &key)
    {
        return find(list, key, &LabelledKeys::value_type::second);
    }

private:
    template <typename Entry>
    int find(const QList<Entry> &list, const QString &text, QString Entry::*member)
    {
        if (m_known > list.size() || (m_known > 0 && list.at(m_known - 1).*member != m_lastKnown))
            reset();
        takeIn(list, member);
        int position = m_first.value(text, -1);
        if (position >= 0 && list.at(position).*member != text) {
            reset();
            takeIn(list, member);
            position = m_first.value(text, -1);
        }
        return position;
    }

    template <typename Entry>
    void takeIn(const QList<Entry> &list, QString Entry::*member)
    {
        for (; m_known < list.size(); ++m_known) {
            m_lastKnown = list.at(m_known).*member;
            if (!m_first.contains(m_lastKnown))
                m_first.insert(m_lastKnown, m_known);
        }
    }

    QHash<QString, int> m_first;
    QString m_lastKnown;
    int m_known = 0;
};

/// Adds \a value to the entry that bears \a label, in its place, or appends a new entry.
void fold(LabelledValues &list, LabelIndex &index, const QString &label, int value);
