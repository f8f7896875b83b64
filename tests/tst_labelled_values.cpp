#include "support/TestMain.h"
#include "support/TestTable.h"

#include <page/LabelledValues.h>

#include <QtCore/QRandomGenerator>

#include <algorithm>
#include <ctime>
#include <limits>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(LabelledValues)

namespace {
constexpr int most = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();

LabelledValues reversed(const LabelledValues &list)
{
    return LabelledValues(list.crbegin(), list.crend());
}

LabelledValues foldAll(const LabelledValues &rows)
{
    LabelledValues list;
    ListIndex<int> index;
    for (const auto &row : rows)
        index.fold(list, row.first, row.second);
    return list;
}

QStringList manyLabels(int count)
{
    QStringList labels;
    labels.reserve(count);
    for (int i = 0; i < count; ++i)
        labels.append(u"label %1"_s.arg(i));
    return labels;
}

/// Processor time of \a work in clock ticks, the least of several runs; waiting and other programs don't
/// count.
template <typename Work>
double leastTicks(const Work &work)
{
    double ticks = std::numeric_limits<double>::max();
    for (int run = 0; run < 3; ++run) {
        const std::clock_t before = std::clock();
        work();
        ticks = std::min(ticks, static_cast<double>(std::clock() - before));
    }
    return std::max(ticks, 1.0);
}

/// Sixteen times the rows may cost sixteen times as much and what caches and allocation add;
/// a search through the list for each row would cost 256 times as much.
constexpr int growth = 16;
constexpr double growthBound = 96.0;

} // namespace

class TestLabelledValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sumsWrap_data()
    {
        table<int, int, int>({"a", "b", "sum"},
            {{"nothing and nothing", 0, 0, 0}, {"plain figures", 2, 3, 5},
                {"a negative figure takes away", 5, -7, -2},
                {"the most and one is the least", most, 1, least},
                {"the least less one is the most", least, -1, most}, {"twice the most", most, most, -2},
                {"twice the least", least, least, 0}, {"the most and the least", most, least, -1}});
    }

    void sumsWrap()
    {
        QFETCH(int, a);
        QFETCH(int, b);
        QTEST(wrappingSum(a, b), "sum");
        QTEST(wrappingSum(b, a), "sum");
    }

    void totalsWrap_data()
    {
        table<LabelledValues, int>({"list", "total"},
            {{"an empty list", {}, 0}, {"one entry", {{"a", 7}}, 7},
                {"equal labels count each", {{"a", 7}, {"a", 7}}, 14},
                {"negative figures take away", {{"a", 7}, {"b", -9}}, -2},
                {"a total beyond 32 bits wraps", {{"a", most}, {"b", 1}}, least},
                {"and comes back", {{"a", most}, {"b", 1}, {"c", -1}}, most}});
    }

    void totalsWrap()
    {
        QFETCH(LabelledValues, list);
        QTEST(wrappingTotal(list), "total");
    }

    void keysAndValuesStandInListOrder()
    {
        const LabelledValues values = {{"b", 2}, {"a", -1}, {"b", 3}, {"", most}};
        QCOMPARE(listKeys(values), QStringList({"b", "a", "b", ""}));
        QCOMPARE(listValues(values), QList<int>({2, -1, 3, most}));

        const LabelledKeys keys = {{"z", "1"}, {"y", "2"}};
        QCOMPARE(listKeys(keys), QStringList({"z", "y"}));

        QVERIFY(listKeys(LabelledValues()).isEmpty());
        QVERIFY(listKeys(LabelledKeys()).isEmpty());
        QVERIFY(listValues({}).isEmpty());
    }

    void barsSortByValue_data()
    {
        table<LabelledValues, LabelledValues>({"list", "sorted"},
            {{"an empty list stays empty", {}, {}}, {"one entry stays", {{"a", 1}}, {{"a", 1}}},
                {"an ascending list stays", {{"c", 1}, {"b", 2}, {"a", 3}}, {{"c", 1}, {"b", 2}, {"a", 3}}},
                {"a descending list is turned round", {{"a", 3}, {"b", 2}, {"c", 1}},
                    {{"c", 1}, {"b", 2}, {"a", 3}}},
                {"all tied: turned round", {{"a", 5}, {"b", 5}, {"c", 5}}, {{"c", 5}, {"b", 5}, {"a", 5}}},
                {"only the tied entries are turned round", {{"a", 5}, {"b", 1}, {"c", 5}, {"d", 1}, {"e", 3}},
                    {{"d", 1}, {"b", 1}, {"e", 3}, {"c", 5}, {"a", 5}}},
                {"the name plays no part", {{"b", 1}, {"a", 1}, {"c", 1}}, {{"c", 1}, {"a", 1}, {"b", 1}}},
                {"equal names stay apart", {{"a", 2}, {"a", 1}, {"a", 2}}, {{"a", 1}, {"a", 2}, {"a", 2}}},
                {"values are signed", {{"a", 0}, {"b", most}, {"c", least}, {"d", -1}},
                    {{"c", least}, {"d", -1}, {"a", 0}, {"b", most}}}});
    }

    void barsSortByValue()
    {
        QFETCH(LabelledValues, list);
        const LabelledValues before = list;
        QTEST(sortBarList(list), "sorted");
        QCOMPARE(list, before);
    }

    void ascendingTwiceTurnsTiesBack()
    {
        const LabelledValues once = sortBarList({{"a", 5}, {"b", 5}, {"c", 1}});
        QCOMPARE(once, (LabelledValues{{"c", 1}, {"b", 5}, {"a", 5}}));
        QCOMPARE(sortBarList(once), (LabelledValues{{"c", 1}, {"a", 5}, {"b", 5}}));
    }

    void ascendingReadBackwardsIsStable()
    {
        const LabelledValues list = {{"a", 1}, {"b", 5}, {"c", 1}, {"d", 5}, {"e", 3}};
        const LabelledValues descending = reversed(sortBarList(list));
        QCOMPARE(descending, (LabelledValues{{"b", 5}, {"d", 5}, {"e", 3}, {"a", 1}, {"c", 1}}));
        QCOMPARE(reversed(sortBarList(descending)), descending);
    }

    void labelsSort_data()
    {
        table<LabelledValues, LabelledValues>({"list", "sorted"},
            {{"an empty list stays empty", {}, {}},
                {"periods come in the order of time",
                    {{"2024-05-03 09", 1}, {"2023-12-31 23", 2}, {"2024-05-03 08", 3}},
                    {{"2023-12-31 23", 2}, {"2024-05-03 08", 3}, {"2024-05-03 09", 1}}},
                {"text, not number", {{"9", 1}, {"10", 2}}, {{"10", 2}, {"9", 1}}},
                {"capitals come before small letters", {{"a", 1}, {"B", 2}, {"b", 3}, {"A", 4}},
                    {{"A", 4}, {"B", 2}, {"a", 1}, {"b", 3}}},
                {"code units, not the alphabet of a language", {{QStringLiteral(u"\u00e4"), 1}, {"z", 2}},
                    {{"z", 2}, {QStringLiteral(u"\u00e4"), 1}}},
                {"an empty label comes first", {{"a", 1}, {"", 2}}, {{"", 2}, {"a", 1}}},
                {"of equal labels the later one comes first", {{"b", 1}, {"a", 2}, {"b", 3}, {"a", 4}},
                    {{"a", 4}, {"a", 2}, {"b", 3}, {"b", 1}}},
                {"the figure plays no part", {{"b", 1}, {"a", 9}}, {{"a", 9}, {"b", 1}}}});
    }

    void labelsSort()
    {
        QFETCH(LabelledValues, list);
        const LabelledValues before = list;
        QTEST(sortedByLabel(list), "sorted");
        QCOMPARE(list, before);
    }

    void foldsRows_data()
    {
        table<LabelledValues, LabelledValues>({"rows", "list"},
            {{"no rows", {}, {}},
                {"different labels stand one behind the other", {{"b", 1}, {"a", 2}}, {{"b", 1}, {"a", 2}}},
                {"a known label adds in its place", {{"b", 1}, {"a", 2}, {"b", 10}}, {{"b", 11}, {"a", 2}}},
                {"zero makes an entry", {{"a", 0}, {"b", 1}}, {{"a", 0}, {"b", 1}}},
                {"zero adds nothing", {{"a", 4}, {"a", 0}}, {{"a", 4}}},
                {"a negative figure takes away", {{"a", 4}, {"a", -6}}, {{"a", -2}}},
                {"case counts", {{"a", 1}, {"A", 2}}, {{"a", 1}, {"A", 2}}},
                {"blanks count", {{"a", 1}, {"a ", 2}}, {{"a", 1}, {"a ", 2}}},
                {"the empty label is a label", {{"", 1}, {"a", 2}, {"", 3}}, {{"", 4}, {"a", 2}}},
                {"null and empty are one label", {{QString(), 1}, {u""_s, 2}}, {{"", 3}}},
                {"a sum beyond 32 bits wraps", {{"a", most}, {"a", 1}}, {{"a", least}}}});
    }

    void foldsRows()
    {
        QFETCH(LabelledValues, rows);
        QTEST(foldAll(rows), "list");
    }

    void theIndexFindsTheFirstOfEqualTexts()
    {
        const LabelledKeys list = {{"a", "1"}, {"b", "2"}, {"a", "3"}, {"c", "2"}};
        ListIndex<QString> index;
        QCOMPARE(index.indexOf(list, u"a"_s), 0);
        QCOMPARE(index.indexOf(list, u"b"_s), 1);
        QCOMPARE(index.indexOfKey(list, u"2"_s), 1);
        QCOMPARE(index.indexOf(list, u"c"_s), 3);
        QCOMPARE(index.indexOf(list, u"A"_s), -1);
        QCOMPARE(index.indexOf(list, QString()), -1);
        QCOMPARE(index.indexOfKey(list, u"3"_s), 2);
        QCOMPARE(index.indexOfKey(list, u"a"_s), -1);
    }

    void theIndexFindsWhatASearchFinds_data()
    {
        const LabelledValues abc = {{"a", 1}, {"b", 2}, {"c", 3}};
        table<LabelledValues, LabelledValues>({"before", "after"},
            {{"another list", abc, {{"b", 1}, {"a", 2}, {"d", 3}}},
                {"another list with the same end", {{"a", 1}, {"b", 2}, {"z", 3}},
                    {{"a", 1}, {"c", 2}, {"z", 3}}},
                {"another list in which an entry moved up", {{"a", 1}, {"b", 2}, {"z", 3}},
                    {{"b", 1}, {"b", 2}, {"z", 3}}},
                {"a shorter list", abc, {{"b", 1}, {"c", 3}}},
                {"a longer list", abc, {{"c", 1}, {"a", 2}, {"d", 3}, {"b", 4}}}, {"an empty list", abc, {}},
                {"a list after none", {}, abc}});
    }

    void theIndexFindsWhatASearchFinds()
    {
        QFETCH(LabelledValues, before);
        QFETCH(LabelledValues, after);
        ListIndex<int> index;
        const auto agrees = [&index](const LabelledValues &list) {
            const QStringList labels = {"a", "b", "c", "d", "z", ""};
            return std::all_of(labels.cbegin(), labels.cend(), [&](const QString &label) {
                return index.indexOf(list, label) == listKeys(list).indexOf(label);
            });
        };
        LabelledValues list = before;
        QVERIFY(agrees(list));
        list = after;
        QVERIFY(agrees(list));
        // In place, one entry after the other, as a subclass may do it.
        list = before;
        QVERIFY(agrees(list));
        list.resize(after.size());
        for (int i = 0; i < after.size(); ++i) {
            list[i] = after.at(i);
            QVERIFY(agrees(list));
        }
    }

    void theIndexFollowsWhateverIsDoneToAList()
    {
        QRandomGenerator random(20260317);
        LabelledValues list;
        LabelledValues plain;
        ListIndex<int> index;
        for (int step = 0; step < 5000; ++step) {
            const QString label = QString::number(random.bounded(12));
            switch (random.bounded(6)) {
            case 0:
                list.append({label, 1});
                plain.append({label, 1});
                break;
            case 1:
                index.append(list, {label, 2});
                plain.append({label, 2});
                break;
            case 2:
                index.fold(list, label, step);
                if (const auto known = listKeys(plain).indexOf(label); known >= 0)
                    plain[known].second = wrappingSum(plain.at(known).second, step);
                else
                    plain.append({label, step});
                break;
            case 3:
                if (!list.isEmpty()) {
                    const int place = random.bounded(static_cast<int>(list.size()));
                    list[place].first = label;
                    plain[place].first = label;
                }
                break;
            case 4:
                list = sortBarList(list);
                plain = sortBarList(plain);
                break;
            default:
                if (list.size() > 20) {
                    list.clear();
                    plain.clear();
                }
                break;
            }
            QCOMPARE(list, plain);
            QCOMPARE(index.indexOf(list, label), listKeys(plain).indexOf(label));
        }
    }

    void oneIndexServesSeveralLists()
    {
        const LabelledValues first = {{"a", 1}, {"b", 2}};
        const LabelledValues second = {{"b", 1}, {"a", 2}};
        ListIndex<int> index;
        for (int round = 0; round < 3; ++round) {
            QCOMPARE(index.indexOf(first, u"b"_s), 1);
            QCOMPARE(index.indexOf(second, u"b"_s), 0);
        }
    }

    void foldingDoesNotSearchTheList()
    {
        constexpr int few = 6250;
        const QStringList labels = manyLabels(few * growth);
        const auto foldFirst = [&labels](int count) {
            LabelledValues list;
            ListIndex<int> index;
            for (int round = 0; round < 2; ++round) {
                for (int i = 0; i < count; ++i)
                    index.fold(list, labels.at(i), i);
            }
            QCOMPARE(list.size(), count);
            QCOMPARE(list.constLast().second, 2 * (count - 1));
        };
        const double fewTicks = leastTicks([&foldFirst] { foldFirst(few); });
        const double manyTicks = leastTicks([&foldFirst] { foldFirst(few * growth); });
        QVERIFY2(
            manyTicks < growthBound * fewTicks, qPrintable(u"%1 against %2"_s.arg(manyTicks).arg(fewTicks)));
    }

    void sortingDoesNotGrowQuadratically()
    {
        constexpr int few = 6250;
        const auto shuffled = [](int count) {
            LabelledValues list;
            list.reserve(count);
            unsigned int seed = 1;
            for (int i = 0; i < count; ++i) {
                seed = seed * 1103515245u + 12345u;
                list.append({QString::number(seed), static_cast<int>(seed % 1000u)});
            }
            return list;
        };
        const LabelledValues fewRows = shuffled(few);
        const LabelledValues manyRows = shuffled(few * growth);
        const auto ascendingByValue = [](const auto &a, const auto &b) { return a.second < b.second; };
        const LabelledValues byValue = sortBarList(manyRows);
        QVERIFY(std::is_sorted(byValue.cbegin(), byValue.cend(), ascendingByValue));
        const double fewTicks = leastTicks([&fewRows] {
            sortBarList(fewRows);
            sortedByLabel(fewRows);
        });
        const double manyTicks = leastTicks([&manyRows] {
            sortBarList(manyRows);
            sortedByLabel(manyRows);
        });
        QVERIFY2(
            manyTicks < growthBound * fewTicks, qPrintable(u"%1 against %2"_s.arg(manyTicks).arg(fewTicks)));
    }
};

TALVIX_TEST_MAIN(TestLabelledValues)
#include "tst_labelled_values.moc"
