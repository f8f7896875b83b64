#include "LabelledValues.h"

#include <algorithm>

int wrappingTotal(const LabelledValues &list)
{
    int total = 0;
    for (const auto &entry : list)
        total = wrappingSum(total, entry.second);
    return total;
}

QList<int> listValues(const LabelledValues &list)
{
    QList<int> values;
    values.reserve(list.size());
    for (const auto &entry : list)
        values.append(entry.second);
    return values;
}

LabelledValues sortBarList(const LabelledValues &list)
{
    LabelledValues sorted(list.crbegin(), list.crend());
    std::stable_sort(
        sorted.begin(), sorted.end(), [](const auto &a, const auto &b) { return a.second < b.second; });
    return sorted;
}

LabelledValues sortedByLabel(const LabelledValues &list)
{
    LabelledValues sorted(list.crbegin(), list.crend());
    std::stable_sort(
        sorted.begin(), sorted.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    return sorted;
}
