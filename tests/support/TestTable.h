#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtTest/QtTest>

#include <array>
#include <climits>
#include <initializer_list>
#include <tuple>

/// The columns and the rows of a table test. A row begins with its name.
template <typename... Cells>
void table(const std::array<const char *, sizeof...(Cells)> &columns,
    std::initializer_list<std::tuple<const char *, Cells...>> rows)
{
    const char *const *column = columns.data();
    (QTest::addColumn<Cells>(*column++), ...);
    for (const auto &row : rows) {
        const auto add = [](const char *name, const Cells &...cells) {
            (QTest::newRow(name) << ... << cells);
        };
        std::apply(add, row);
    }
}

inline const QList<int> knownTypes = {1, 2, 3, 4, 5, 6, 7, 8, 9};
inline const QList<int> typesOutside = {0, 10, -1, INT_MAX, INT_MIN};

/// A row for each of these kinds of statistics.
inline void kinds(const QList<int> &types)
{
    QTest::addColumn<int>("type");
    for (const int type : types)
        QTest::addRow("service type %d", type) << type;
}

/// A row for each of these names.
inline void names(std::initializer_list<const char *> all)
{
    QTest::addColumn<QString>("name");
    for (const char *name : all)
        QTest::newRow(name) << QString::fromUtf8(name);
}

inline void allKinds()
{
    kinds(knownTypes);
}

inline QString rowName()
{
    return QString::fromUtf8(QTest::currentDataTag());
}

/// The kind of statistics in the present row.
inline int kindOfRow()
{
    QFETCH(int, type);
    return type;
}
