#pragma once

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <utility>

/// Display text and value: what bars, lines and pies are drawn from.
using LabelledValues = QList<std::pair<QString, int>>;
/// Display text of a bar and the key that its detail is asked by.
using LabelledKeys = QList<std::pair<QString, QString>>;

/// Sum of two values, wrapping as 32-bit integers do on every machine of the platform.
constexpr int wrappingSum(int a, int b)
{
    return static_cast<int>(static_cast<unsigned int>(a) + static_cast<unsigned int>(b));
}

/// Difference of two values, wrapping likewise.
constexpr int wrappingDifference(int a, int b)
{
    return static_cast<int>(static_cast<unsigned int>(a) - static_cast<unsigned int>(b));
}

/// Sum of all values, wrapping.
int wrappingTotal(const LabelledValues &list);

/// The values in list order.
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

/// The list by ascending value; entries of one value stand in the reverse of their order in \a list.
LabelledValues sortBarList(const LabelledValues &list);

/// The list by ascending label, compared by code units; of equal labels the later entry comes first.
LabelledValues sortedByLabel(const LabelledValues &list);

/// Finds entries of a list of pairs by their texts without searching the list.
///
/// The index keeps a shared copy of the list as it knows it. Whoever changes the list gives it data of its
/// own by that, and the next look-up begins anew; so an answer is what a search would find. Only changes
/// through the index itself are followed in place. Keep no reference or iterator into a list over a look-up:
/// what is written through it then is a change behind the back of list and index alike.
template <typename Value>
class ListIndex
{
public:
    using Entry = std::pair<QString, Value>;
    using List = QList<Entry>;

    /// Position of the first entry of \a list whose display text is \a label, or -1.
    int indexOf(const List &list, const QString &label)
    {
        follow(list);
        return m_labels.find(list, label, &Entry::first);
    }

    /// Position of the first entry of \a list whose key is \a key, or -1.
    int indexOfKey(const List &list, const QString &key)
    {
        follow(list);
        return m_keys.find(list, key, &Entry::second);
    }

    /// Appends \a entry to \a list.
    void append(List &list, const Entry &entry)
    {
        follow(list);
        m_known = List();
        list.append(entry);
        m_known = list;
    }

    /// Adds \a value to the first entry of \a list that bears \a label, in its place, or appends a new entry.
    void fold(List &list, const QString &label, Value value)
    {
        const int position = indexOf(list, label);
        if (position < 0) {
            append(list, {label, value});
            return;
        }
        m_known = List();
        list[position].second = wrappingSum(list.at(position).second, value);
        m_known = list;
    }

private:
    /// First position of each text, of as many entries as have been asked about so far.
    struct Positions
    {
        int find(const List &list, const QString &text, QString Entry::*member)
        {
            for (; known < list.size(); ++known) {
                const QString &taken = list.at(known).*member;
                if (!first.contains(taken))
                    first.insert(taken, known);
            }
            return first.value(text, -1);
        }

        QHash<QString, int> first;
        int known = 0;
    };

    void follow(const List &list)
    {
        if (list.constData() == m_known.constData() && list.size() == m_known.size())
            return;
        m_known = list;
        m_labels = Positions();
        m_keys = Positions();
    }

    List m_known;
    Positions m_labels;
    Positions m_keys;
};
