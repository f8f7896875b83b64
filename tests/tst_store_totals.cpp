#include "support/StorePageTest.h"

#include <page/Codes.h>
#include <TalvixWidgets/ZrComboBoxWithTree.h>
#include <TalvixWidgets/ZrTreeView.h>

#include <QtWidgets/QComboBox>

#include <map>
#include <memory>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

using Values = QList<std::pair<QString, int>>;

template <typename List>
int sumOf(const List &list)
{
    return std::accumulate(
        list.begin(), list.end(), 0, [](int sum, const auto &entry) { return sum + entry.second; });
}

template <typename List>
int valueOf(const List &list, const QString &label)
{
    for (const auto &entry : list)
        if (entry.first == label)
            return entry.second;
    return -1;
}

template <typename Item>
int countOf(const std::vector<Item> &items)
{
    return std::accumulate(
        items.begin(), items.end(), 0, [](int sum, const Item &item) { return sum + item.count; });
}

/// Minor types of each major type of a class.
std::map<int, int> sumsByMajor(const std::vector<SnapDetailMajorItem> &items)
{
    std::map<int, int> sums;
    for (const SnapDetailMajorItem &item : items)
        for (const SnapDetailMinorCount &minor : item.minors)
            sums[item.majorType] += minor.count;
    return sums;
}

} // namespace

/// Whatever organisation, sum mode and unit is chosen: what a bar shows is what its line and its pie show.
class TestStoreTotals : public StorePageTest
{
    Q_OBJECT

private:
    int barsSeen = 0;

    /// Calls \a look for each organisation of the tree, made current in each of the three sum modes.
    template <typename Look>
    void forEachChoice(const Look &look)
    {
        auto *orgType = page->part<QComboBox>("comboBoxOrgType");
        for (int mode = 0; mode < orgType->count(); ++mode) {
            orgType->setCurrentIndex(mode);
            ZrTreeView *tree = page->part<ZrComboBoxWithTree>("comboBox")->m_pTreeView;
            forEachIndex(tree->model(), {}, [&](const QModelIndex &index) {
                tree->setCurrentIndex(index);
                NODE node;
                QVERIFY(tree->getCurrentItemData(node));
                page->setBarList(std::vector<AlarmStatisticsRecord>());
                page->slotSearch();
                look(u"organisation %1, mode %2"_s.arg(node.id).arg(mode));
            });
        }
    }

    template <typename Look>
    static void forEachIndex(const QAbstractItemModel *model, const QModelIndex &parent, const Look &look)
    {
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QModelIndex index = model->index(row, 0, parent);
            look(index);
            forEachIndex(model, index, look);
        }
    }

    /// Calls \a look for each bar with its label, its lines and pie being those on the page.
    template <typename Look>
    void forEachBar(const Look &look)
    {
        const auto keys = page->devDataList;
        for (const auto &bar : keys) {
            page->getChartDataByBarId(bar.second);
            ++barsSeen;
            look(bar.first);
        }
    }

    void open(int service)
    {
        showPageOf(service);
        barsSeen = 0;
    }

private Q_SLOTS:
    void initTestCase()
    {
        SKIP_WITHOUT_DATABASE();
        // Thousands of searches would fill the log.
        QLoggingCategory::setFilterRules(u"*.debug=false"_s);
        setPresentMoment({});
        store = std::make_unique<EventStore>();
        installStore();
        devdata::SampleOptions options;
        options.seed = 3;
        options.from = minute("2024-05-02 15:00");
        options.to = devdata::Minute(testMoment());
        store->store.generate(options);
    }
    void cleanupTestCase() { removeStore(); }
    void cleanup() { page.reset(); }

    void alarmsAddUpOnThePage()
    {
        open(Codes::AlarmStatisticsOfOrgas);
        forEachChoice([&](const QString &choice) {
            forEachBar([&](const QString &label) {
                const int bar = valueOf(page->barDataList, label);
                QVERIFY2(sumOf(page->lineDataList) == bar, qPrintable(choice));
                QVERIFY2(sumOf(page->pieDataList) == bar, qPrintable(choice));
            });
        });
        QVERIFY(barsSeen > 60);
    }

    void trafficAddsUpOnThePage()
    {
        open(Codes::TrafficsStatisticsOfOrgas);
        forEachChoice([&](const QString &choice) {
            forEachBar([&](const QString &label) {
                const int vehicles = valueOf(page->barDataList, label);
                const int pedestrians = valueOf(page->barDataList2, label);
                QVERIFY2(sumOf(page->lineDataList) == vehicles, qPrintable(choice));
                QVERIFY2(sumOf(page->lineDataList2) == pedestrians, qPrintable(choice));
                if (vehicles + pedestrians == 0)
                    return;
                for (const auto &[major, sum] : sumsByMajor(page->snapDetailMap[4]))
                    QVERIFY2(sum == vehicles, qPrintable(choice));
                for (const auto &[major, sum] : sumsByMajor(page->snapDetailMap[2]))
                    QVERIFY2(sum == pedestrians, qPrintable(choice));
            });
        });
        QVERIFY(barsSeen > 60);
    }

    void trafficOfChannelsAddsUpOnThePage()
    {
        open(Codes::TrafficsStatisticsOfDevices);
        forEachBar([&](const QString &label) {
            const int vehicles = valueOf(page->barDataList, label);
            const int pedestrians = valueOf(page->barDataList2, label);
            QCOMPARE(sumOf(page->lineDataList), vehicles);
            QCOMPARE(sumOf(page->lineDataList2), pedestrians);
            QCOMPARE(sumsByMajor(page->snapDetailMap[4]).size(), size_t(vehicles > 0 ? 3 : 0));
            for (const auto &[major, sum] : sumsByMajor(page->snapDetailMap[4]))
                QCOMPARE(sum, vehicles);
            QCOMPARE(sumsByMajor(page->snapDetailMap[2]).size(), size_t(pedestrians > 0 ? 4 : 0));
            for (const auto &[major, sum] : sumsByMajor(page->snapDetailMap[2]))
                QCOMPARE(sum, pedestrians);
        });
        QVERIFY(barsSeen > 20);
    }

    void alarmsOfDevicesAddUpOnThePage()
    {
        open(Codes::AlarmStatisticsOfDevices);
        forEachBar([&](const QString &label) {
            const int bar = valueOf(page->barDataList, label);
            QVERIFY(bar > 0);
            QCOMPARE(sumOf(page->lineDataList), bar);
            QCOMPARE(sumOf(page->pieDataList), bar);
        });
        QCOMPARE(barsSeen, 10);
        QVERIFY(page->m_nTotalPage > 1);
    }

    void handledAlarmsAddUpOnThePage()
    {
        open(Codes::TemperatureStatisticsOfDevGroups);
        forEachChoice([&](const QString &choice) {
            forEachBar([&](const QString &label) {
                QVERIFY2(sumOf(page->lineDataList) == valueOf(page->barDataList, label), qPrintable(choice));
                QVERIFY2(
                    sumOf(page->lineDataList2) == valueOf(page->barDataList2, label), qPrintable(choice));
            });
        });
        QVERIFY(barsSeen > 10);
    }

    void readingsOfGroupsAddUpInTheStore()
    {
        for (const int orgType : {1, 2, 3}) {
            auto request = inSpan<TalvixGetTemperatureStatisticsOfGroupsRequestMessage>(
                3, "2024-05-03 00", "2024-05-03 17");
            request.setPersonGorupIDList({1});
            request.orgType = orgType;
            TalvixGetTemperatureStatisticsOfGroupsResponseMessage groups;
            QVERIFY(store->service.getTemperatureStatisticsOfGroups(request, groups));
            QVERIFY(!groups.statisticsList.empty());
            for (const TemperatureStatisticsItem &group : groups.statisticsList) {
                auto drill = inSpan<TalvixGetTemperatureStatisticsOfGroupRequestMessage>(
                    3, "2024-05-03 00", "2024-05-03 17");
                drill.groupId = group.id;
                TalvixGetTemperatureStatisticsOfGroupResponseMessage line;
                QVERIFY(store->service.getTemperatureStatisticsOfGroup(drill, line));
                QCOMPARE(countOf(line.statisticsList), group.count);

                auto pie = inSpan<TalvixGetTempStatisticsDistributionOfGroupsRequestMessage>(
                    3, "2024-05-03 00", "2024-05-03 17");
                pie.setPersonGorupIDList({group.id});
                pie.queryType = 2;
                TalvixGetTempStatisticsDistributionOfGroupsResponseMessage slices;
                QVERIFY(store->service.getTempStatisticsDistributionOfGroups(pie, slices));
                QCOMPARE(countOf(slices.byEtiologyList), group.count);
            }
        }
    }

    void readingsOfPersonsAddUpInTheStore()
    {
        auto request =
            inSpan<TalvixGetTemperatureStatisticsOfPersonsRequestMessage>(2, "2024-05-02", "2024-05-03");
        request.orgaId = 1;
        request.pageSize = 1000;
        TalvixGetTemperatureStatisticsOfPersonsResponseMessage persons;
        QVERIFY(store->service.getTemperatureStatisticsOfPersons(request, persons));
        QVERIFY(persons.statisticsList.size() > 40);
        for (const TemperatureStatisticsItem &person : persons.statisticsList) {
            auto drill =
                inSpan<TalvixGetTemperatureStatisticsOfPersonRequestMessage>(2, "2024-05-02", "2024-05-03");
            drill.personId = person.id;
            TalvixGetTemperatureStatisticsOfPersonResponseMessage line;
            QVERIFY(store->service.getTemperatureStatisticsOfPerson(drill, line));
            QCOMPARE(countOf(line.statisticsList), person.count);
        }
    }

    void theRollUpsSayWhatTheEventsSay()
    {
        struct Check
        {
            const char *events;
            const char *counts;
        };
        for (const Check &check : {Check{"SELECT SUM(count) FROM alarm", "fact = 1"},
                 Check{"SELECT SUM(count) FROM alarm", "fact = 2"},
                 Check{"SELECT SUM(minutes) FROM online_interval", "fact = 3"},
                 Check{"SELECT SUM(count) FROM snapshot", "fact = 8"},
                 Check{"SELECT 3 * SUM(count) FROM snapshot WHERE class = 4", "fact = 9"},
                 Check{"SELECT 4 * SUM(count) FROM snapshot WHERE class = 2", "fact = 10"}}) {
            devdata::Statement events(store->store.connection(), QLatin1String(check.events));
            const qint64 expected = events.execute().single();
            QVERIFY(expected > 0);
            for (const devdata::TimeRange &range :
                {devdata::parseTimeRange(3, "2024-05-01 00", "2024-05-31 23"),
                    devdata::parseTimeRange(2, "2024-05-01", "2024-05-31"),
                    devdata::parseTimeRange(1, "2024-05", "2024-05")}) {
                devdata::Statement counts(store->store.connection(),
                    u"SELECT SUM(count) FROM figure WHERE scope = 1 AND %1 AND bucket BETWEEN "
                    "? AND ?"_s.arg(QLatin1String(check.counts)));
                QCOMPARE(counts.execute(range).single(), expected);
            }
        }
    }
};

TALVIX_TEST_MAIN(TestStoreTotals)
#include "tst_store_totals.moc"
