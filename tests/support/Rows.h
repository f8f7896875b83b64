#pragma once

#include <QtTest/QtTest>

#include <climits>
#include <initializer_list>
#include <tuple>

/// Fills the table of a test: the names of its columns, then its rows, each a name and the values.
template <typename... Values>
void addRows(const char *const (&columns)[sizeof...(Values)],
    std::initializer_list<std::tuple<const char *, Values...>> rows)
{
    const char *const *column = columns;
    (QTest::addColumn<Values>(*column++), ...);
    for (const auto &row : rows) {
        std::apply(
            [](const char *name, const Values &...values) {
                QTestData &data = QTest::newRow(name);
                ((data << values), ...);
            },
            row);
    }
}

inline const QList<int> knownTypes = {1, 2, 3, 4, 5, 6, 7, 8, 9};
inline const QList<int> typesOutside = {0, 10, -1, INT_MAX, INT_MIN};

/// A row "type 1" and so on for each of the kinds of statistics, in the column "type".
inline void addTypes(const QList<int> &types)
{
    QTest::addColumn<int>("type");
    for (const int type : types)
        QTest::addRow("type %d", type) << type;
}
