#include "support/PageScene.h"
#include "support/TestMain.h"
#include "support/TestTable.h"

#include <devhost/widgets/HostSettings.h>

#include <QtWidgets/QComboBox>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const QString reason = u"server busy"_s;
const QString groupsFail = u"BasicChart::getTempStatisticsDistributionOfGroups fail"_s;
const QString devGroupsFail = u"BasicChart::getTemperatureStatisticsOfDevGroups fail"_s;
const QString devGroupsEmpty = u"BasicChart::getTemperatureStatisticsOfDevGroups records is empty"_s;
const QString groupDistribution = u"getTempStatisticsDistributionOfGroups"_s;

using Pairs = QList<std::pair<int, int>>;

const std::vector<TempAlarmHandleItem> threeHours = {
    {0, 3, "2024-05-03 02"}, {2, 5, "2024-05-03 01"}, {2, 7, "2024-05-03 02"}};

/// Sets the page's span to months, as the calendar does.
void chooseMonths(StatisticsScene &scene, const QDate &from, const QDate &to)
{
    scene.press("pushButtonMonth");
    Q_EMIT scene.page.m_pCalendarWidget->signalDataTimeChanged(from.startOfDay(), to.startOfDay());
    scene.forget();
}

/// The user's choice of a pie mode, without what follows from it.
void chooseMode(StatisticsScene &scene, int data)
{
    QVERIFY(scene.page.comboBoxPie);
    scene.page.comboBoxPie->clear();
    scene.page.comboBoxPie->addItem(u"mode"_s, data);
    scene.page.comboBoxPie->setCurrentIndex(0);
}

/// The kinds whose bars keep two distributions: groups and device groups.
void addBothKinds()
{
    table<int>({"type"}, {{"groups", 5}, {"device groups", 9}});
}

/// What is kept of the query types 1 and 2.
std::vector<TempDistributionItem> &kept(StatisticsScene &scene, int queryType)
{
    ProbePage &page = scene.page;
    if (page.m_serviceType == 5)
        return queryType == 1 ? page.numberDistribution : page.etiologyDistribution;
    return queryType == 1 ? page.temperatureDistribution : page.maskDistribution;
}

void keepEntries(StatisticsScene &scene)
{
    kept(scene, 1) = {{1, 1}};
    kept(scene, 2) = {{2, 2}};
}

/// Answers every query type with both lists.
void answerBothLists(StatisticsScene &scene)
{
    scene.manager.tempStatisticsDistributionOfGroups.answer = [](const auto &, auto &response) {
        response.byNumberList = {{7, 70}};
        response.byEtiologyList = {{5, 50}, {6, 60}};
        return true;
    };
    scene.manager.temperatureOfDevice.answer = [](const auto &, auto &response) {
        response.byTemperatureList = {{7, 70}};
        response.byMaskList = {{5, 50}, {6, 60}};
        return true;
    };
}

void ask(StatisticsScene &scene, int queryType)
{
    if (scene.page.m_serviceType == 5)
        scene.page.getTempStatisticsDistributionOfGroups(u"1"_s, queryType);
    else
        scene.page.getTemperatureStatisticsOfDevGroups(u"41"_s, queryType);
}

/// All that requests about device groups have in common, with the span and organisation of the scene.
template <typename Request>
void checkDeviceGroupRequest(const Request &request)
{
    const StatisticsQueryOfOrga condition = request.queryStatisticsOfOrga();
    QCOMPARE(condition.userId, 7);
    QCOMPARE(condition.timeType, 3);
    QCOMPARE(condition.reserved1, -99999);
    QCOMPARE(condition.reserved2, -99999);
    QCOMPARE(text(condition.startTime), spanStart);
    QCOMPARE(text(condition.endTime), spanEnd);
    QCOMPARE(condition.listOrg, std::vector<int>({41}));
    QCOMPARE(text(request.cmd()), QString());
}

} // namespace

class TestDistributionQueries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { HostSettings::setDateOrder(HostSettings::DateOrder::YearFirst); }

    // Groups
    void aGroupsDistributionIsAskedWithItsKeyAlone()
    {
        StatisticsScene scene(5);
        scene.page.getTempStatisticsDistributionOfGroups(u"93"_s, 2);
        QCOMPARE(scene.manager.calls, QStringList({groupDistribution}));
        const auto request = scene.manager.tempStatisticsDistributionOfGroups.requests.first();
        checkFirstSpan(request);
        QCOMPARE(request.userId, 7);
        QCOMPARE(request.orgType, 2);
        QCOMPARE(request.queryType, 2);
        QCOMPARE(request.personGorupIDList(), std::vector<int>({93}));
    }

    void aGroupsBarAsksForTheGroupThenEtiologyThenNumber()
    {
        StatisticsScene scene(5);
        scene.page.getChartDataByBarId(u"93"_s);
        QCOMPARE(scene.manager.calls,
            QStringList({"getTemperatureStatisticsOfGroup", groupDistribution, groupDistribution}));
        const auto &requests = scene.manager.tempStatisticsDistributionOfGroups.requests;
        QCOMPARE(requests.at(0).queryType, 2);
        QCOMPARE(requests.at(1).queryType, 1);
        QCOMPARE(requests.at(0).personGorupIDList(), std::vector<int>({93}));
        QCOMPARE(requests.at(1).personGorupIDList(), std::vector<int>({93}));
        QCOMPARE(scene.manager.temperatureStatisticsOfGroup.requests.first().groupId, 93);
    }

    void eachAnswerFillsItsOwnMember_data() { addBothKinds(); }

    void eachAnswerFillsItsOwnMember()
    {
        QFETCH(int, type);
        StatisticsScene scene(type);
        keepEntries(scene);
        answerBothLists(scene);
        ask(scene, 2);
        QCOMPARE(pairs(kept(scene, 2)), Pairs({{5, 50}, {6, 60}}));
        QCOMPARE(pairs(kept(scene, 1)), Pairs({{1, 1}}));
        keepEntries(scene);
        ask(scene, 1);
        QCOMPARE(pairs(kept(scene, 2)), Pairs({{2, 2}}));
        QCOMPARE(pairs(kept(scene, 1)), Pairs({{7, 70}}));
        QCOMPARE(scene.tips(), QStringList());
    }

    void anotherQueryTypeIsAskedAndKeepsNothing_data() { addBothKinds(); }

    void anotherQueryTypeIsAskedAndKeepsNothing()
    {
        QFETCH(int, type);
        StatisticsScene scene(type);
        keepEntries(scene);
        answerBothLists(scene);
        for (const int queryType : {0, 3, -1}) {
            ask(scene, queryType);
            QCOMPARE(type == 5
                    ? scene.manager.tempStatisticsDistributionOfGroups.requests.last().queryType
                    : scene.manager.temperatureOfDevice.requests.last().queryStatisticsOfOrga().queryType,
                queryType);
            QCOMPARE(pairs(kept(scene, 1)), Pairs({{1, 1}}));
            QCOMPARE(pairs(kept(scene, 2)), Pairs({{2, 2}}));
        }
        QCOMPARE(scene.tips(), QStringList());
    }

    void aGroupsDistributionLogsOnlyItsEnd_data()
    {
        table<int, bool, QString>({"queryType", "empty", "line"},
            {
                {"etiology with records", 2, false, groupDistribution + " success"},
                {"etiology without records", 2, true, groupDistribution + " records is empty"},
                {"number with records", 1, false, groupDistribution + " success"},
                {"number without records", 1, true, groupDistribution + " records is empty"},
            });
    }

    void aGroupsDistributionLogsOnlyItsEnd()
    {
        QFETCH(int, queryType);
        QFETCH(bool, empty);
        QFETCH(QString, line);
        StatisticsScene scene(5);
        const std::vector<TempDistributionItem> list =
            empty ? std::vector<TempDistributionItem>() : std::vector<TempDistributionItem>({{1, 1}});
        answerGroupDistribution(scene.manager, list, list);
        LogCapture log;
        scene.page.getTempStatisticsDistributionOfGroups(u"1"_s, queryType);
        QCOMPARE(log.lines(), QStringList({line}));
        QCOMPARE(scene.tips(), QStringList());
    }

    void aRefusedGroupsDistributionTellsTheUserAndKeepsTheLastAnswer_data()
    {
        table<int>({"queryType"}, {{"number", 1}, {"etiology", 2}});
    }

    void aRefusedGroupsDistributionTellsTheUserAndKeepsTheLastAnswer()
    {
        QFETCH(int, queryType);
        StatisticsScene scene(5);
        scene.page.etiologyDistribution = {{1, 1}};
        scene.page.numberDistribution = {{2, 2}};
        scene.manager.failOperation(groupDistribution, reason);
        qsizetype tipsAtTheLog = -1;
        LogCapture log;
        log.whenWritten = [&](const QString &) { tipsAtTheLog = scene.page.tips.size(); };
        scene.page.getTempStatisticsDistributionOfGroups(u"1"_s, queryType);
        QCOMPARE(log.lines().size(), 1);
        QCOMPARE(countOfReasonLines(log, groupsFail, reason), 1);
        QCOMPARE(tipsAtTheLog, 1);
        QCOMPARE(scene.tips(), QStringList({"2 TK_GetFailed" + reason}));
        QCOMPARE(pairs(scene.page.etiologyDistribution), Pairs({{1, 1}}));
        QCOMPARE(pairs(scene.page.numberDistribution), Pairs({{2, 2}}));
    }

    void anEmptyAnswerEmptiesItsMember()
    {
        StatisticsScene scene(5);
        scene.page.etiologyDistribution = {{1, 1}};
        scene.page.numberDistribution = {{2, 2}};
        scene.page.getTempStatisticsDistributionOfGroups(u"1"_s, 2);
        QVERIFY(scene.page.etiologyDistribution.empty());
        QCOMPARE(pairs(scene.page.numberDistribution), Pairs({{2, 2}}));
        scene.page.getTempStatisticsDistributionOfGroups(u"1"_s, 1);
        QVERIFY(scene.page.numberDistribution.empty());
    }

    void withoutAnyDistributionTheUserIsToldAndTheLineStays()
    {
        StatisticsScene scene(5);
        answerItems(scene.manager.temperatureStatisticsOfGroup, {{0, "2024-05-03 03", 4}});
        scene.page.pieDataList = {{"old", 1}};
        LogCapture log;
        scene.page.getChartDataByBarId(u"93"_s);
        QVERIFY(!log.contains(u"BasicChart::clearPieChartData"_s));
        QCOMPARE(scene.tips(), QStringList({"2 TK_NoRecords"}));
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"2024-05-03 03", 4}}));
        QCOMPARE(scene.page.pieDataList, LabelledValues());
    }

    void oneDistributionIsEnoughForThePie_data()
    {
        table<bool, LabelledValues>({"etiology", "pie"},
            {
                {"etiology alone fills the pie", true, {{"30", 30}}},
                {"number alone passes, and there is no slice by etiology", false, {}},
            });
    }

    void oneDistributionIsEnoughForThePie()
    {
        QFETCH(bool, etiology);
        StatisticsScene scene(5);
        answerItems(scene.manager.temperatureStatisticsOfGroup, {{0, "2024-05-03 03", 4}});
        if (etiology)
            answerGroupDistribution(scene.manager, {{6, 30}}, {});
        else
            answerGroupDistribution(scene.manager, {}, {{1, 2}});
        LogCapture log;
        scene.page.getChartDataByBarId(u"93"_s);
        QCOMPARE(scene.tips(), QStringList());
        QTEST(scene.page.pieDataList, "pie");
        QCOMPARE(log.count(u"BasicChart::clearPieChartData"_s), 1);
    }

    void thePieOfAGroupStartsByEtiologyWhateverTheModeShows()
    {
        StatisticsScene scene(5);
        answerItems(scene.manager.temperatureStatisticsOfGroups, {{93, "Ward", 4}});
        answerItems(scene.manager.temperatureStatisticsOfGroup, {{0, "2024-05-03 03", 4}});
        answerGroupDistribution(scene.manager, {{6, 30}}, {{1, 2}});
        scene.page.slotSearch();
        QVERIFY(scene.page.comboBoxPie);
        scene.page.comboBoxPie->setCurrentIndex(1);
        QCOMPARE(scene.page.comboBoxPie->currentData().toInt(), 1);
        scene.page.getChartDataByBarId(u"93"_s);
        QCOMPARE(scene.page.pieDataList, LabelledValues({{"30", 30}}));
    }

    void afterARefusalThePieOfAnEarlierGroupStands()
    {
        StatisticsScene scene(5);
        answerItems(scene.manager.temperatureStatisticsOfGroup, {{0, "2024-05-03 03", 4}});
        answerGroupDistribution(scene.manager, {{6, 30}}, {{1, 2}});
        scene.page.getChartDataByBarId(u"93"_s);
        scene.forget();
        answerItems(scene.manager.temperatureStatisticsOfGroup, {{0, "2024-05-03 04", 9}});
        scene.manager.failOperation(groupDistribution, reason);
        scene.page.getChartDataByBarId(u"94"_s);
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"2024-05-03 04", 9}}));
        QCOMPARE(scene.page.pieDataList, LabelledValues({{"30", 30}}));
        QCOMPARE(scene.tips(), QStringList({"2 TK_GetFailed" + reason, "2 TK_GetFailed" + reason}));
    }

    void refusalsOfAGroupsBarAreToldOneByOne()
    {
        StatisticsScene scene(5);
        scene.manager.failWith(reason);
        scene.page.getChartDataByBarId(u"93"_s);
        const QString failed = "2 TK_GetFailed" + reason;
        QCOMPARE(scene.tips(), QStringList({failed, failed, failed, "2 TK_NoRecords"}));
        QCOMPARE(scene.manager.calls.size(), 3);
    }

    // Device groups, whole level
    void deviceGroupsAreAskedWithTheWholeCondition()
    {
        StatisticsScene scene(9);
        scene.page.getTemperatureStatisticsOfDevGroups();
        QCOMPARE(scene.manager.calls, QStringList({"getTempAlarmHandleStatistics"}));
        const auto request = scene.manager.tempAlarmHandleStatistics.requests.first();
        QCOMPARE(request.queryStatisticsOfOrga().queryType, 1);
        checkDeviceGroupRequest(request);
    }

    void aMonthSpanGoesOutAsFirstDaysForDeviceGroupsAlone()
    {
        const QDate march(2024, 3, 17);
        const QDate may(2024, 5, 31);
        {
            StatisticsScene scene(9);
            answerHandling(scene.manager, threeHours);
            chooseMonths(scene, march, may);
            scene.page.getTemperatureStatisticsOfDevGroups();
            QCOMPARE(scene.manager.calls.size(), 3);
            QList<StatisticsQueryOfOrga> conditions = {
                scene.manager.tempAlarmHandleStatistics.requests.at(0).queryStatisticsOfOrga()};
            for (const auto &request : std::as_const(scene.manager.temperatureOfDevice.requests))
                conditions.append(request.queryStatisticsOfOrga());
            for (const StatisticsQueryOfOrga &condition : std::as_const(conditions)) {
                QCOMPARE(condition.timeType, 1);
                QCOMPARE(text(condition.startTime), u"2024-03-01"_s);
                QCOMPARE(text(condition.endTime), u"2024-05-01"_s);
            }
        }
        {
            StatisticsScene scene(5);
            chooseMonths(scene, march, may);
            scene.page.getTempStatisticsDistributionOfGroups(u"1"_s, 1);
            const auto request = scene.manager.tempStatisticsDistributionOfGroups.requests.first();
            QCOMPARE(request.timeType, 1);
            QCOMPARE(text(request.startTime()), u"2024-03"_s);
            QCOMPARE(text(request.endTime()), u"2024-05"_s);
        }
    }

    void otherSpansGoOutUnchanged()
    {
        StatisticsScene scene(9);
        scene.press("pushButtonDay");
        scene.forget();
        scene.page.getTemperatureStatisticsOfDevGroups();
        const StatisticsQueryOfOrga condition =
            scene.manager.tempAlarmHandleStatistics.requests.first().queryStatisticsOfOrga();
        QCOMPARE(condition.timeType, 2);
        QCOMPARE(text(condition.startTime), u"2024-04-26"_s);
        QCOMPARE(text(condition.endTime), u"2024-05-03"_s);
    }

    void aDayFirstDisplayDoesNotReachTheRequest()
    {
        HostSettings::setDateOrder(HostSettings::DateOrder::DayFirst);
        StatisticsScene scene(9);
        chooseMonths(scene, QDate(2023, 12, 2), QDate(2024, 2, 9));
        scene.page.getTemperatureStatisticsOfDevGroups();
        const StatisticsQueryOfOrga condition =
            scene.manager.tempAlarmHandleStatistics.requests.first().queryStatisticsOfOrga();
        QCOMPARE(text(condition.startTime), u"2023-12-01"_s);
        QCOMPARE(text(condition.endTime), u"2024-02-01"_s);
    }

    void refusedHandlingKeepsEverything()
    {
        StatisticsScene scene(9);
        answerHandling(scene.manager, threeHours);
        QCOMPARE(scene.queryWholeLevel(), 4);
        const LabelledValues bars = scene.page.barDataList;
        const LabelledValues bars2 = scene.page.barDataList2;
        const LabelledKeys keys = scene.page.devDataList;
        scene.forget();
        scene.manager.failWith(reason);
        LogCapture log;
        QCOMPARE(scene.queryWholeLevel(), 2);
        QCOMPARE(countOfReasonLines(log, devGroupsFail, reason), 1);
        QCOMPARE(log.count(devGroupsEmpty), 0);
        QCOMPARE(scene.manager.calls.size(), 1);
        QCOMPARE(scene.tips(), QStringList());
        QCOMPARE(scene.page.tempAlarmHandleList.size(), threeHours.size());
        QCOMPARE(scene.page.barDataList, bars);
        QCOMPARE(scene.page.barDataList2, bars2);
        QCOMPARE(scene.page.devDataList, keys);
    }

    void emptyHandlingEmptiesTheKeptAnswerAndKeepsTheBars()
    {
        StatisticsScene scene(9);
        answerHandling(scene.manager, threeHours);
        QCOMPARE(scene.queryWholeLevel(), 4);
        const LabelledValues bars = scene.page.barDataList;
        const LabelledKeys keys = scene.page.devDataList;
        scene.forget();
        answerHandling(scene.manager, {});
        LogCapture log;
        QCOMPARE(scene.queryWholeLevel(), 3);
        QCOMPARE(log.count(devGroupsEmpty), 1);
        QVERIFY(!log.containsStart(devGroupsFail));
        QCOMPARE(scene.manager.calls.size(), 1);
        QCOMPARE(scene.tips(), QStringList());
        QVERIFY(scene.page.tempAlarmHandleList.empty());
        QCOMPARE(scene.page.barDataList, bars);
        QCOMPARE(scene.page.devDataList, keys);
    }

    void handlingMakesOneBarOfTheOrganisation()
    {
        StatisticsScene scene(9);
        scene.page.barDataList = {{"old", 1}};
        scene.page.barDataList2 = {{"old", 1}};
        scene.page.devDataList = {{"old", "1"}};
        answerHandling(scene.manager, threeHours);
        answerOrgaDistribution(scene.manager, {{0, 1}}, {{0, 1}});
        QCOMPARE(scene.queryWholeLevel(), 4);
        QCOMPARE(scene.page.barDataList, LabelledValues({{"Company", 12}}));
        QCOMPARE(scene.page.barDataList2, LabelledValues({{"Company", 3}}));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{"Company", "41"}}));
        QCOMPARE(scene.page.devTypeDataList, LabelledValues());
        QCOMPARE(scene.page.tempAlarmHandleList.size(), threeHours.size());
        QCOMPARE(scene.tips(), QStringList());
    }

    void handlingTellsItsStepsInOrder()
    {
        StatisticsScene scene(9);
        answerHandling(scene.manager, threeHours);
        answerOrgaDistribution(scene.manager, {{0, 1}}, {{0, 1}});
        LogCapture log;
        QCOMPARE(scene.queryWholeLevel(), 4);
        const QStringList lines = log.lines();
        QVERIFY(lines.size() >= 4);
        QVERIFY(lines.at(0).startsWith(u"BasicChart::getOrgaIDList"_s));
        QCOMPARE(lines.at(1), u"BasicChart::clearBarChartData "_s);
        QVERIFY(lines.at(2).startsWith(u"BasicChart::getOrgaIDList"_s));
        QCOMPARE(lines.at(3), u"BasicChart::getChartDataByBarId"_s);
        QVERIFY(!log.containsStart(u"BasicChart::getTemperatureStatisticsOfDevGroups"_s));
    }

    void handlingWithoutAnOrganisationIsAnOutOfRangeError()
    {
        StatisticsScene scene(9, QString());
        answerHandling(scene.manager, threeHours);
        scene.page.barDataList = {{"old", 1}};
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, scene.page.getTemperatureStatisticsOfDevGroups());
        QCOMPARE(scene.manager.tempAlarmHandleStatistics.requests.size(), 1);
        QVERIFY(
            scene.manager.tempAlarmHandleStatistics.requests.first().queryStatisticsOfOrga().listOrg.empty());
        QCOMPARE(scene.page.tempAlarmHandleList.size(), threeHours.size());
        QCOMPARE(scene.page.barDataList, LabelledValues());
    }

    void emptyHandlingWithoutAnOrganisationIsNoError()
    {
        StatisticsScene scene(9, QString());
        QCOMPARE(scene.queryWholeLevel(), 3);
        scene.manager.failWith(reason);
        QCOMPARE(scene.queryWholeLevel(), 2);
    }

    void barsOfAnOrganisation_data()
    {
        table<Pairs, int, int>({"statesAndCounts", "accepted", "unaccepted"},
            {
                {"state 2 is accepted", {{2, 4}}, 4, 0},
                {"state 0 is not accepted", {{0, 4}}, 0, 4},
                {"state 1 adds nothing", {{1, 4}}, 0, 0},
                {"states out of the table add nothing", {{3, 4}, {-1, 5}, {4, 6}}, 0, 0},
                {"all records add up", {{2, 4}, {0, 1}, {1, 100}, {2, 5}, {0, 2}}, 9, 3},
                {"no records make a bar of 0 and 0", {}, 0, 0},
            });
    }

    void barsOfAnOrganisation()
    {
        QFETCH(Pairs, statesAndCounts);
        QFETCH(int, accepted);
        QFETCH(int, unaccepted);
        StatisticsScene scene(9);
        std::vector<TempAlarmHandleItem> records;
        for (const auto &[state, count] : statesAndCounts)
            records.push_back({state, count, "2024-05-03 01"});
        scene.page.setTempAlarmBarItem(42, records);
        QCOMPARE(scene.page.barDataList, LabelledValues({{"Plant North", accepted}}));
        QCOMPARE(scene.page.barDataList2, LabelledValues({{"Plant North", unaccepted}}));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{"Plant North", "42"}}));
    }

    void anUnknownOrganisationIsLabelledByItsNumber()
    {
        StatisticsScene scene(9);
        scene.page.setTempAlarmBarItem(-7, {{2, 4, ""}});
        QCOMPARE(scene.page.barDataList, LabelledValues({{"-7", 4}}));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{"-7", "-7"}}));
    }

    void oneOrganisationTwiceIsOneBarWithTheSum()
    {
        StatisticsScene scene(9);
        scene.page.setTempAlarmBarItem(42, {{2, 4, ""}, {0, 1, ""}});
        scene.page.setTempAlarmBarItem(43, {{2, 9, ""}});
        scene.page.setTempAlarmBarItem(42, {{2, 10, ""}, {0, 20, ""}});
        QCOMPARE(scene.page.barDataList, LabelledValues({{"Plant North", 14}, {"Plant South", 9}}));
        QCOMPARE(scene.page.barDataList2, LabelledValues({{"Plant North", 21}, {"Plant South", 0}}));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{"Plant North", "42"}, {"Plant South", "43"}}));
    }

    void organisationsOfOneNameShareABarAndKeepTheirKeys()
    {
        StatisticsScene scene(9);
        scene.client.setTree(u"1 Gate\n2 Gate\n"_s);
        scene.page.setTempAlarmBarItem(1, {{2, 4, ""}});
        scene.page.setTempAlarmBarItem(2, {{2, 5, ""}, {0, 6, ""}});
        QCOMPARE(scene.page.barDataList, LabelledValues({{"Gate", 9}}));
        QCOMPARE(scene.page.barDataList2, LabelledValues({{"Gate", 6}}));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{"Gate", "1"}, {"Gate", "2"}}));
    }

    void sumsOfABarWrapAs32BitFigures()
    {
        StatisticsScene scene(9);
        scene.page.setTempAlarmBarItem(42, {{2, largest, ""}, {2, 1, ""}, {0, smallest, ""}, {0, -1, ""}});
        QCOMPARE(scene.page.barDataList, LabelledValues({{"Plant North", smallest}}));
        QCOMPARE(scene.page.barDataList2, LabelledValues({{"Plant North", largest}}));
        scene.page.setTempAlarmBarItem(42, {{2, -1, ""}, {0, 1, ""}});
        QCOMPARE(scene.page.barDataList, LabelledValues({{"Plant North", largest}}));
        QCOMPARE(scene.page.barDataList2, LabelledValues({{"Plant North", smallest}}));
    }

    // Device groups, one bar
    void aDeviceGroupsBarAsksForTemperatureThenMask()
    {
        StatisticsScene scene(9);
        scene.page.getChartDataByBarId(u"41"_s);
        QCOMPARE(scene.manager.calls, QStringList({"getTemperatureOfDevice", "getTemperatureOfDevice"}));
        const auto &requests = scene.manager.temperatureOfDevice.requests;
        QCOMPARE(requests.at(0).queryStatisticsOfOrga().queryType, 1);
        QCOMPARE(requests.at(1).queryStatisticsOfOrga().queryType, 2);
        for (const auto &request : requests) {
            checkDeviceGroupRequest(request);
        }
    }

    void theKeyOfADeviceGroupsBarIsNotUsed()
    {
        StatisticsScene scene(9);
        for (const char *key : {"42", "999", "", "no number"}) {
            scene.page.getTemperatureStatisticsOfDevGroups(QString::fromLatin1(key), 1);
            QCOMPARE(scene.manager.temperatureOfDevice.requests.last().queryStatisticsOfOrga().listOrg,
                std::vector<int>({41}));
        }
        QCOMPARE(scene.manager.temperatureOfDevice.requests.size(), 4);
    }

    void theLineComesFromTheKeptAnswerWithoutAQuery()
    {
        StatisticsScene scene(9);
        answerHandling(scene.manager, threeHours);
        QCOMPARE(scene.queryWholeLevel(), 4);
        scene.forget();
        scene.page.lineDataList.clear();
        scene.page.getTemperatureStatisticsOfDevGroups(u"41"_s, 1);
        QCOMPARE(scene.manager.tempAlarmHandleStatistics.requests.size(), 0);
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"2024-05-03 02", 7}, {"2024-05-03 01", 5}}));
        QCOMPARE(scene.page.lineDataList2, LabelledValues({{"2024-05-03 02", 3}, {"2024-05-03 01", 0}}));
    }

    void theLineIsRebuiltByEachOfTheTwoCalls()
    {
        StatisticsScene scene(9);
        scene.page.tempAlarmHandleList = threeHours;
        LogCapture log;
        scene.page.getChartDataByBarId(u"41"_s);
        QCOMPARE(log.count(u"BasicChart::clearPieAndLineChartData"_s), 3);
        QCOMPARE(scene.page.lineDataList.size(), 2);
    }

    void theLineIsOrderedByTime()
    {
        StatisticsScene scene(9);
        scene.page.tempAlarmHandleList = threeHours;
        scene.page.getChartDataByBarId(u"41"_s);
        QCOMPARE(scene.lines(), DualValues({{"2024-05-03 01", 5, 0}, {"2024-05-03 02", 7, 3}}));
    }

    void pointsOfARecord_data()
    {
        table<int, int, int>({"state", "accepted", "unaccepted"},
            {
                {"state 2 is accepted", 2, 8, 0},
                {"state 0 is not accepted", 0, 0, 8},
                {"state 1 is a point of 0 in both", 1, 0, 0},
                {"an unknown state is a point of 0 in both", -3, 0, 0},
            });
    }

    void pointsOfARecord()
    {
        QFETCH(int, state);
        QFETCH(int, accepted);
        QFETCH(int, unaccepted);
        StatisticsScene scene(9);
        scene.page.setTempAlarmLineItem({state, 8, "2024-05-03 01"});
        QCOMPARE(scene.lines(), DualValues({{"2024-05-03 01", accepted, unaccepted}}));
    }

    void recordsOfOnePeriodShareItsPoint()
    {
        StatisticsScene scene(9);
        scene.page.lineDataList = {{"old", 1}};
        scene.page.lineDataList2 = {{"old", 1}};
        scene.page.pieDataList = {{"old", 1}};
        scene.page.setTempAlarmLineList(
            {{2, 5, "b"}, {0, 1, "a"}, {0, 3, "b"}, {2, 6, "b"}, {2, largest, "c"}, {2, 1, "c"}});
        QCOMPARE(scene.lines(), DualValues({{"b", 11, 3}, {"a", 0, 1}, {"c", smallest, 0}}));
        QCOMPARE(scene.page.pieDataList, LabelledValues());
    }

    void lineNamesAreAcceptedAndUnaccepted()
    {
        StatisticsScene scene(9);
        scene.page.lineNames = QStringList({"old", "older", "oldest"});
        scene.manager.failWith(reason);
        scene.page.getTemperatureStatisticsOfDevGroups(u"41"_s, 1);
        QCOMPARE(scene.page.lineNames, QStringList({"TK_AlarmAccepted", "TK_AlarmUnAccepted"}));
    }

    void aRefusedDeviceDistributionIsLoggedAlone_data()
    {
        table<int>({"queryType"}, {{"temperature", 1}, {"mask", 2}});
    }

    void aRefusedDeviceDistributionIsLoggedAlone()
    {
        QFETCH(int, queryType);
        StatisticsScene scene(9);
        scene.page.tempAlarmHandleList = threeHours;
        keepEntries(scene);
        scene.manager.failOperation(u"getTemperatureOfDevice"_s, reason);
        LogCapture log;
        scene.page.getTemperatureStatisticsOfDevGroups(u"41"_s, queryType);
        QCOMPARE(countOfReasonLines(log, devGroupsFail, reason), 1);
        QCOMPARE(log.count(devGroupsEmpty), 0);
        QCOMPARE(scene.tips(), QStringList());
        QCOMPARE(pairs(scene.page.temperatureDistribution), Pairs({{1, 1}}));
        QCOMPARE(pairs(scene.page.maskDistribution), Pairs({{2, 2}}));
        QCOMPARE(scene.page.lineDataList.size(), 2);
    }

    void anEmptyDeviceDistributionIsLogged_data() { aRefusedDeviceDistributionIsLoggedAlone_data(); }

    void anEmptyDeviceDistributionIsLogged()
    {
        QFETCH(int, queryType);
        StatisticsScene scene(9);
        keepEntries(scene);
        LogCapture log;
        scene.page.getTemperatureStatisticsOfDevGroups(u"41"_s, queryType);
        QCOMPARE(log.count(devGroupsEmpty), 1);
        QCOMPARE(scene.page.temperatureDistribution.empty(), queryType == 1);
        QCOMPARE(scene.page.maskDistribution.empty(), queryType == 2);
        QCOMPARE(scene.tips(), QStringList());
    }

    void aSuccessfulDeviceDistributionLogsNothingOfItsOwn()
    {
        StatisticsScene scene(9);
        scene.page.tempAlarmHandleList = threeHours;
        answerOrgaDistribution(scene.manager, {{0, 1}}, {{0, 1}});
        LogCapture log;
        scene.page.getTemperatureStatisticsOfDevGroups(u"41"_s, 1);
        const QStringList lines = log.lines();
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines.at(0), u"BasicChart::clearPieAndLineChartData"_s);
        QVERIFY(lines.at(1).startsWith(u"BasicChart::getOrgaIDList"_s));
    }

    void withoutTemperatureAndMaskTheUserIsToldAndTheLineStays()
    {
        StatisticsScene scene(9);
        scene.page.tempAlarmHandleList = threeHours;
        scene.page.pieDataList = {{"old", 1}};
        scene.page.getChartDataByBarId(u"41"_s);
        QCOMPARE(scene.tips(), QStringList({"2 TK_NoRecords"}));
        QCOMPARE(scene.page.pieDataList, LabelledValues());
        QCOMPARE(scene.page.lineDataList.size(), 2);
        QCOMPARE(scene.page.lineDataList2.size(), 2);

        scene.forget();
        scene.manager.failWith(reason);
        scene.page.getChartDataByBarId(u"41"_s);
        QCOMPARE(scene.tips(), QStringList({"2 TK_NoRecords"}));
    }

    void afterARefusalThePieOfTheLastAnswerStands()
    {
        StatisticsScene scene(9);
        scene.page.tempAlarmHandleList = threeHours;
        answerOrgaDistribution(scene.manager, {{2, 11}}, {{1, 12}});
        scene.page.getChartDataByBarId(u"41"_s);
        QCOMPARE(scene.page.pieDataList, LabelledValues({{"TK_LowTemp", 11}}));
        scene.forget();
        scene.manager.failOperation(u"getTemperatureOfDevice"_s, reason);
        LogCapture log;
        scene.page.getChartDataByBarId(u"42"_s);
        QCOMPARE(scene.page.pieDataList, LabelledValues({{"TK_LowTemp", 11}}));
        QCOMPARE(scene.tips(), QStringList());
        QCOMPARE(countOfReasonLines(log, devGroupsFail, reason), 2);
    }

    void withoutAModeBoxThePieShowsTemperature()
    {
        StatisticsScene scene(9);
        QVERIFY(!scene.page.comboBoxPie);
        answerOrgaDistribution(scene.manager, {{0, 11}}, {{1, 12}});
        scene.page.getChartDataByBarId(u"41"_s);
        QCOMPARE(scene.page.pieDataList, LabelledValues({{"TK_NormalTemperature", 11}}));
    }

    void theModeChoosesThePie_data()
    {
        const Pairs some = {{1, 11}};
        table<int, Pairs, Pairs, LabelledValues>({"mode", "temperature", "mask", "pie"},
            {
                {"mode 1 shows temperature", 1, some, some, {{"TK_OvertemperatureOfHighTemperature", 11}}},
                {"mode 2 shows mask", 2, some, some, {{"TK_MaskWeared", 11}}},
                {"mode 1 shows nothing of masks", 1, {}, some, {}},
                {"mode 2 shows nothing of temperature", 2, some, {}, {}},
                {"mode 3 fills nothing", 3, some, some, {}},
                {"mode 0 fills nothing", 0, some, some, {}},
            });
    }

    void theModeChoosesThePie()
    {
        QFETCH(int, mode);
        QFETCH(Pairs, temperature);
        QFETCH(Pairs, mask);
        StatisticsScene scene(9);
        answerHandling(scene.manager, threeHours);
        scene.page.slotSearch();
        chooseMode(scene, mode);
        scene.forget();
        std::vector<TempDistributionItem> temperatureList;
        for (const auto &[code, count] : temperature)
            temperatureList.push_back({code, count});
        std::vector<TempDistributionItem> maskList;
        for (const auto &[code, count] : mask)
            maskList.push_back({code, count});
        answerOrgaDistribution(scene.manager, temperatureList, maskList);
        scene.page.getChartDataByBarId(u"41"_s);
        QTEST(scene.page.pieDataList, "pie");
        QCOMPARE(scene.tips(), QStringList());
    }

    void anEmptyModeBoxFillsNothing()
    {
        StatisticsScene scene(9);
        answerHandling(scene.manager, threeHours);
        answerOrgaDistribution(scene.manager, {{0, 11}}, {{1, 12}});
        scene.page.slotSearch();
        QVERIFY(scene.page.comboBoxPie);
        scene.page.comboBoxPie->clear();
        scene.page.getChartDataByBarId(u"41"_s);
        QCOMPARE(scene.page.pieDataList, LabelledValues());
    }
};

TALVIX_TEST_MAIN(TestDistributionQueries)
#include "tst_distribution_queries.moc"
