#include "support/StatisticsScene.h"
#include "support/TestMain.h"

#include <devhost/widgets/HostSettings.h>

#include <limits>
#include <stdexcept>

namespace {

const QString spanStart = QStringLiteral("2024-05-03 00");
const QString spanEnd = QStringLiteral("2024-05-03 17");
const QString reason = QStringLiteral("server busy");
const QString groupsFail = QStringLiteral("BasicChart::getTempStatisticsDistributionOfGroups fail");
const QString devGroupsFail = QStringLiteral("BasicChart::getTemperatureStatisticsOfDevGroups fail");
const QString devGroupsEmpty =
    QStringLiteral("BasicChart::getTemperatureStatisticsOfDevGroups records is empty");
const QString groupDistribution = QStringLiteral("getTempStatisticsDistributionOfGroups");
constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

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
    scene.page.comboBoxPie->addItem(QStringLiteral("mode"), data);
    scene.page.comboBoxPie->setCurrentIndex(0);
}

} // namespace

class TestDistributionQueries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    // Groups
    void aGroupsDistributionIsAskedWithItsKeyAlone();
    void aGroupsBarAsksForTheGroupThenEtiologyThenNumber();
    void eachAnswerFillsItsOwnMember();
    void anotherQueryTypeIsAskedAndKeepsNothing();
    void aGroupsDistributionLogsOnlyItsEnd_data();
    void aGroupsDistributionLogsOnlyItsEnd();
    void aRefusedGroupsDistributionTellsTheUserAndKeepsTheLastAnswer_data();
    void aRefusedGroupsDistributionTellsTheUserAndKeepsTheLastAnswer();
    void anEmptyAnswerEmptiesItsMember();
    void withoutAnyDistributionTheUserIsToldAndTheLineStays();
    void oneDistributionIsEnoughForThePie_data();
    void oneDistributionIsEnoughForThePie();
    void thePieOfAGroupStartsByEtiologyWhateverTheModeShows();
    void afterARefusalThePieOfAnEarlierGroupStands();
    void refusalsOfAGroupsBarAreToldOneByOne();

    // Device groups, whole level
    void deviceGroupsAreAskedWithTheWholeCondition();
    void aMonthSpanGoesOutAsFirstDaysForDeviceGroupsAlone();
    void otherSpansGoOutUnchanged();
    void aDayFirstDisplayDoesNotReachTheRequest();
    void refusedHandlingKeepsEverything();
    void emptyHandlingEmptiesTheKeptAnswerAndKeepsTheBars();
    void handlingMakesOneBarOfTheOrganisation();
    void handlingTellsItsStepsInOrder();
    void handlingWithoutAnOrganisationIsAnOutOfRangeError();
    void emptyHandlingWithoutAnOrganisationIsNoError();
    void barsOfAnOrganisation_data();
    void barsOfAnOrganisation();
    void anUnknownOrganisationIsLabelledByItsNumber();
    void oneOrganisationTwiceIsOneBarWithTheSum();
    void organisationsOfOneNameShareABarAndKeepTheirKeys();
    void sumsOfABarWrapAs32BitFigures();

    // Device groups, one bar
    void aDeviceGroupsBarAsksForTemperatureThenMask();
    void theKeyOfADeviceGroupsBarIsNotUsed();
    void theLineComesFromTheKeptAnswerWithoutAQuery();
    void theLineIsRebuiltByEachOfTheTwoCalls();
    void theLineIsOrderedByTime();
    void pointsOfARecord_data();
    void pointsOfARecord();
    void recordsOfOnePeriodShareItsPoint();
    void lineNamesAreAcceptedAndUnaccepted();
    void eachDeviceAnswerFillsItsOwnMember();
    void anotherDeviceQueryTypeKeepsNothing();
    void aRefusedDeviceDistributionIsLoggedAlone_data();
    void aRefusedDeviceDistributionIsLoggedAlone();
    void anEmptyDeviceDistributionIsLogged_data();
    void anEmptyDeviceDistributionIsLogged();
    void aSuccessfulDeviceDistributionLogsNothingOfItsOwn();
    void withoutTemperatureAndMaskTheUserIsToldAndTheLineStays();
    void afterARefusalThePieOfTheLastAnswerStands();
    void withoutAModeBoxThePieShowsTemperature();
    void theModeChoosesThePie_data();
    void theModeChoosesThePie();
    void anEmptyModeBoxFillsNothing();
};

void TestDistributionQueries::cleanup()
{
    HostSettings::setDateOrder(HostSettings::DateOrder::YearFirst);
}

void TestDistributionQueries::aGroupsDistributionIsAskedWithItsKeyAlone()
{
    StatisticsScene scene(5);
    scene.page.getTempStatisticsDistributionOfGroups(QStringLiteral("93"), 2);
    QCOMPARE(scene.manager.calls, QStringList({groupDistribution}));
    const auto request = scene.manager.tempStatisticsDistributionOfGroups.requests.first();
    QCOMPARE(request.userId, 7);
    QCOMPARE(request.timeType, 3);
    QCOMPARE(request.orgType, 2);
    QCOMPARE(request.queryType, 2);
    QCOMPARE(text(request.startTime()), spanStart);
    QCOMPARE(text(request.endTime()), spanEnd);
    QCOMPARE(request.personGorupIDList(), std::vector<int>({93}));
    QCOMPARE(text(request.cmd()), QString());
}

void TestDistributionQueries::aGroupsBarAsksForTheGroupThenEtiologyThenNumber()
{
    StatisticsScene scene(5);
    scene.page.getChartDataByBarId(QStringLiteral("93"));
    QCOMPARE(scene.manager.calls,
        QStringList({"getTemperatureStatisticsOfGroup", groupDistribution, groupDistribution}));
    const auto &requests = scene.manager.tempStatisticsDistributionOfGroups.requests;
    QCOMPARE(requests.at(0).queryType, 2);
    QCOMPARE(requests.at(1).queryType, 1);
    QCOMPARE(requests.at(0).personGorupIDList(), std::vector<int>({93}));
    QCOMPARE(requests.at(1).personGorupIDList(), std::vector<int>({93}));
    QCOMPARE(scene.manager.temperatureStatisticsOfGroup.requests.first().groupId, 93);
}

void TestDistributionQueries::eachAnswerFillsItsOwnMember()
{
    StatisticsScene scene(5);
    scene.page.etiologyDistribution = {{1, 1}};
    scene.page.numberDistribution = {{2, 2}};
    scene.manager.tempStatisticsDistributionOfGroups.answer = [](const auto &, auto &response) {
        response.byEtiologyList = {{5, 50}, {6, 60}};
        response.byNumberList = {{7, 70}};
        return true;
    };
    scene.page.getTempStatisticsDistributionOfGroups(QStringLiteral("1"), 2);
    QCOMPARE(pairs(scene.page.etiologyDistribution), Pairs({{5, 50}, {6, 60}}));
    QCOMPARE(pairs(scene.page.numberDistribution), Pairs({{2, 2}}));
    scene.page.etiologyDistribution = {{1, 1}};
    scene.page.getTempStatisticsDistributionOfGroups(QStringLiteral("1"), 1);
    QCOMPARE(pairs(scene.page.etiologyDistribution), Pairs({{1, 1}}));
    QCOMPARE(pairs(scene.page.numberDistribution), Pairs({{7, 70}}));
    QCOMPARE(scene.tips(), QStringList());
}

void TestDistributionQueries::anotherQueryTypeIsAskedAndKeepsNothing()
{
    StatisticsScene scene(5);
    scene.page.etiologyDistribution = {{1, 1}};
    scene.page.numberDistribution = {{2, 2}};
    scene.manager.tempStatisticsDistributionOfGroups.answer = [](const auto &, auto &response) {
        response.byEtiologyList = {{5, 50}};
        response.byNumberList = {{7, 70}};
        return true;
    };
    for (const int queryType : {0, 3, -1}) {
        scene.page.getTempStatisticsDistributionOfGroups(QStringLiteral("1"), queryType);
        QCOMPARE(scene.manager.tempStatisticsDistributionOfGroups.requests.last().queryType, queryType);
        QCOMPARE(pairs(scene.page.etiologyDistribution), Pairs({{1, 1}}));
        QCOMPARE(pairs(scene.page.numberDistribution), Pairs({{2, 2}}));
    }
    QCOMPARE(scene.tips(), QStringList());
}

void TestDistributionQueries::aGroupsDistributionLogsOnlyItsEnd_data()
{
    QTest::addColumn<int>("queryType");
    QTest::addColumn<bool>("empty");
    QTest::addColumn<QString>("line");
    QTest::newRow("etiology with records") << 2 << false << groupDistribution + " success";
    QTest::newRow("etiology without records") << 2 << true << groupDistribution + " records is empty";
    QTest::newRow("number with records") << 1 << false << groupDistribution + " success";
    QTest::newRow("number without records") << 1 << true << groupDistribution + " records is empty";
}

void TestDistributionQueries::aGroupsDistributionLogsOnlyItsEnd()
{
    QFETCH(int, queryType);
    QFETCH(bool, empty);
    QFETCH(QString, line);
    StatisticsScene scene(5);
    const std::vector<TempDistributionItem> list =
        empty ? std::vector<TempDistributionItem>() : std::vector<TempDistributionItem>({{1, 1}});
    answerGroupDistribution(scene.manager, list, list);
    LogCapture log;
    scene.page.getTempStatisticsDistributionOfGroups(QStringLiteral("1"), queryType);
    QCOMPARE(log.lines(), QStringList({line}));
    QCOMPARE(scene.tips(), QStringList());
}

void TestDistributionQueries::aRefusedGroupsDistributionTellsTheUserAndKeepsTheLastAnswer_data()
{
    QTest::addColumn<int>("queryType");
    QTest::newRow("number") << 1;
    QTest::newRow("etiology") << 2;
}

void TestDistributionQueries::aRefusedGroupsDistributionTellsTheUserAndKeepsTheLastAnswer()
{
    QFETCH(int, queryType);
    StatisticsScene scene(5);
    scene.page.etiologyDistribution = {{1, 1}};
    scene.page.numberDistribution = {{2, 2}};
    scene.manager.failOperation(groupDistribution, reason);
    qsizetype tipsAtTheLog = -1;
    LogCapture log;
    log.whenWritten = [&](const QString &) { tipsAtTheLog = scene.page.tips.size(); };
    scene.page.getTempStatisticsDistributionOfGroups(QStringLiteral("1"), queryType);
    QCOMPARE(log.lines().size(), 1);
    QCOMPARE(countOfReasonLines(log, groupsFail, reason), 1);
    QCOMPARE(tipsAtTheLog, 1);
    QCOMPARE(scene.tips(), QStringList({"2 TK_GetFailed" + reason}));
    QCOMPARE(pairs(scene.page.etiologyDistribution), Pairs({{1, 1}}));
    QCOMPARE(pairs(scene.page.numberDistribution), Pairs({{2, 2}}));
}

void TestDistributionQueries::anEmptyAnswerEmptiesItsMember()
{
    StatisticsScene scene(5);
    scene.page.etiologyDistribution = {{1, 1}};
    scene.page.numberDistribution = {{2, 2}};
    scene.page.getTempStatisticsDistributionOfGroups(QStringLiteral("1"), 2);
    QVERIFY(scene.page.etiologyDistribution.empty());
    QCOMPARE(pairs(scene.page.numberDistribution), Pairs({{2, 2}}));
    scene.page.getTempStatisticsDistributionOfGroups(QStringLiteral("1"), 1);
    QVERIFY(scene.page.numberDistribution.empty());
}

void TestDistributionQueries::withoutAnyDistributionTheUserIsToldAndTheLineStays()
{
    StatisticsScene scene(5);
    answerItems(scene.manager.temperatureStatisticsOfGroup, {{0, "2024-05-03 03", 4}});
    scene.page.pieDataList = {{"old", 1}};
    LogCapture log;
    scene.page.getChartDataByBarId(QStringLiteral("93"));
    QVERIFY(!log.contains(QStringLiteral("BasicChart::clearPieChartData")));
    QCOMPARE(scene.tips(), QStringList({"2 TK_NoRecords"}));
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"2024-05-03 03", 4}}));
    QCOMPARE(scene.page.pieDataList, LabelledValues());
}

void TestDistributionQueries::oneDistributionIsEnoughForThePie_data()
{
    QTest::addColumn<bool>("etiology");
    QTest::addColumn<LabelledValues>("pie");
    QTest::newRow("etiology alone fills the pie") << true << LabelledValues({{"30", 30}});
    QTest::newRow("number alone passes, and there is no slice by etiology") << false << LabelledValues();
}

void TestDistributionQueries::oneDistributionIsEnoughForThePie()
{
    QFETCH(bool, etiology);
    StatisticsScene scene(5);
    answerItems(scene.manager.temperatureStatisticsOfGroup, {{0, "2024-05-03 03", 4}});
    if (etiology)
        answerGroupDistribution(scene.manager, {{6, 30}}, {});
    else
        answerGroupDistribution(scene.manager, {}, {{1, 2}});
    LogCapture log;
    scene.page.getChartDataByBarId(QStringLiteral("93"));
    QCOMPARE(scene.tips(), QStringList());
    QTEST(scene.page.pieDataList, "pie");
    QCOMPARE(log.count(QStringLiteral("BasicChart::clearPieChartData")), 1);
}

void TestDistributionQueries::thePieOfAGroupStartsByEtiologyWhateverTheModeShows()
{
    StatisticsScene scene(5);
    answerItems(scene.manager.temperatureStatisticsOfGroups, {{93, "Ward", 4}});
    answerItems(scene.manager.temperatureStatisticsOfGroup, {{0, "2024-05-03 03", 4}});
    answerGroupDistribution(scene.manager, {{6, 30}}, {{1, 2}});
    scene.page.slotSearch();
    QVERIFY(scene.page.comboBoxPie);
    scene.page.comboBoxPie->setCurrentIndex(1);
    QCOMPARE(scene.page.comboBoxPie->currentData().toInt(), 1);
    scene.page.getChartDataByBarId(QStringLiteral("93"));
    QCOMPARE(scene.page.pieDataList, LabelledValues({{"30", 30}}));
}

void TestDistributionQueries::afterARefusalThePieOfAnEarlierGroupStands()
{
    StatisticsScene scene(5);
    answerItems(scene.manager.temperatureStatisticsOfGroup, {{0, "2024-05-03 03", 4}});
    answerGroupDistribution(scene.manager, {{6, 30}}, {{1, 2}});
    scene.page.getChartDataByBarId(QStringLiteral("93"));
    scene.forget();
    answerItems(scene.manager.temperatureStatisticsOfGroup, {{0, "2024-05-03 04", 9}});
    scene.manager.failOperation(groupDistribution, reason);
    scene.page.getChartDataByBarId(QStringLiteral("94"));
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"2024-05-03 04", 9}}));
    QCOMPARE(scene.page.pieDataList, LabelledValues({{"30", 30}}));
    QCOMPARE(scene.tips(), QStringList({"2 TK_GetFailed" + reason, "2 TK_GetFailed" + reason}));
}

void TestDistributionQueries::refusalsOfAGroupsBarAreToldOneByOne()
{
    StatisticsScene scene(5);
    scene.manager.failWith(reason);
    scene.page.getChartDataByBarId(QStringLiteral("93"));
    const QString failed = "2 TK_GetFailed" + reason;
    QCOMPARE(scene.tips(), QStringList({failed, failed, failed, "2 TK_NoRecords"}));
    QCOMPARE(scene.manager.calls.size(), 3);
}

void TestDistributionQueries::deviceGroupsAreAskedWithTheWholeCondition()
{
    StatisticsScene scene(9);
    scene.page.getTemperatureStatisticsOfDevGroups();
    QCOMPARE(scene.manager.calls, QStringList({"getTempAlarmHandleStatistics"}));
    const auto request = scene.manager.tempAlarmHandleStatistics.requests.first();
    const StatisticsQueryOfOrga condition = request.queryStatisticsOfOrga();
    QCOMPARE(condition.queryType, 1);
    QCOMPARE(condition.userId, 7);
    QCOMPARE(condition.timeType, 3);
    QCOMPARE(condition.reserved1, -99999);
    QCOMPARE(condition.reserved2, -99999);
    QCOMPARE(text(condition.startTime), spanStart);
    QCOMPARE(text(condition.endTime), spanEnd);
    QCOMPARE(condition.listOrg, std::vector<int>({41}));
    QCOMPARE(text(request.cmd()), QString());
}

void TestDistributionQueries::aMonthSpanGoesOutAsFirstDaysForDeviceGroupsAlone()
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
            QCOMPARE(text(condition.startTime), QStringLiteral("2024-03-01"));
            QCOMPARE(text(condition.endTime), QStringLiteral("2024-05-01"));
        }
    }
    {
        StatisticsScene scene(5);
        chooseMonths(scene, march, may);
        scene.page.getTempStatisticsDistributionOfGroups(QStringLiteral("1"), 1);
        const auto request = scene.manager.tempStatisticsDistributionOfGroups.requests.first();
        QCOMPARE(request.timeType, 1);
        QCOMPARE(text(request.startTime()), QStringLiteral("2024-03"));
        QCOMPARE(text(request.endTime()), QStringLiteral("2024-05"));
    }
}

void TestDistributionQueries::otherSpansGoOutUnchanged()
{
    StatisticsScene scene(9);
    scene.press("pushButtonDay");
    scene.forget();
    scene.page.getTemperatureStatisticsOfDevGroups();
    const StatisticsQueryOfOrga condition =
        scene.manager.tempAlarmHandleStatistics.requests.first().queryStatisticsOfOrga();
    QCOMPARE(condition.timeType, 2);
    QCOMPARE(text(condition.startTime), QStringLiteral("2024-04-26"));
    QCOMPARE(text(condition.endTime), QStringLiteral("2024-05-03"));
}

void TestDistributionQueries::aDayFirstDisplayDoesNotReachTheRequest()
{
    HostSettings::setDateOrder(HostSettings::DateOrder::DayFirst);
    StatisticsScene scene(9);
    chooseMonths(scene, QDate(2023, 12, 2), QDate(2024, 2, 9));
    scene.page.getTemperatureStatisticsOfDevGroups();
    const StatisticsQueryOfOrga condition =
        scene.manager.tempAlarmHandleStatistics.requests.first().queryStatisticsOfOrga();
    QCOMPARE(text(condition.startTime), QStringLiteral("2023-12-01"));
    QCOMPARE(text(condition.endTime), QStringLiteral("2024-02-01"));
}

void TestDistributionQueries::refusedHandlingKeepsEverything()
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

void TestDistributionQueries::emptyHandlingEmptiesTheKeptAnswerAndKeepsTheBars()
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

void TestDistributionQueries::handlingMakesOneBarOfTheOrganisation()
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

void TestDistributionQueries::handlingTellsItsStepsInOrder()
{
    StatisticsScene scene(9);
    answerHandling(scene.manager, threeHours);
    answerOrgaDistribution(scene.manager, {{0, 1}}, {{0, 1}});
    LogCapture log;
    QCOMPARE(scene.queryWholeLevel(), 4);
    const QStringList lines = log.lines();
    QVERIFY(lines.size() >= 4);
    QVERIFY(lines.at(0).startsWith(QStringLiteral("BasicChart::getOrgaIDList")));
    QCOMPARE(lines.at(1), QStringLiteral("BasicChart::clearBarChartData "));
    QVERIFY(lines.at(2).startsWith(QStringLiteral("BasicChart::getOrgaIDList")));
    QCOMPARE(lines.at(3), QStringLiteral("BasicChart::getChartDataByBarId"));
    QVERIFY(!log.containsStart(QStringLiteral("BasicChart::getTemperatureStatisticsOfDevGroups")));
}

void TestDistributionQueries::handlingWithoutAnOrganisationIsAnOutOfRangeError()
{
    StatisticsScene scene(9, QString());
    answerHandling(scene.manager, threeHours);
    scene.page.barDataList = {{"old", 1}};
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, scene.page.getTemperatureStatisticsOfDevGroups());
    QCOMPARE(scene.manager.tempAlarmHandleStatistics.requests.size(), 1);
    QVERIFY(scene.manager.tempAlarmHandleStatistics.requests.first().queryStatisticsOfOrga().listOrg.empty());
    QCOMPARE(scene.page.tempAlarmHandleList.size(), threeHours.size());
    QCOMPARE(scene.page.barDataList, LabelledValues());
}

void TestDistributionQueries::emptyHandlingWithoutAnOrganisationIsNoError()
{
    StatisticsScene scene(9, QString());
    QCOMPARE(scene.queryWholeLevel(), 3);
    scene.manager.failWith(reason);
    QCOMPARE(scene.queryWholeLevel(), 2);
}

void TestDistributionQueries::barsOfAnOrganisation_data()
{
    QTest::addColumn<Pairs>("statesAndCounts");
    QTest::addColumn<int>("accepted");
    QTest::addColumn<int>("unaccepted");
    QTest::newRow("state 2 is accepted") << Pairs({{2, 4}}) << 4 << 0;
    QTest::newRow("state 0 is not accepted") << Pairs({{0, 4}}) << 0 << 4;
    QTest::newRow("state 1 adds nothing") << Pairs({{1, 4}}) << 0 << 0;
    QTest::newRow("states out of the table add nothing") << Pairs({{3, 4}, {-1, 5}, {4, 6}}) << 0 << 0;
    QTest::newRow("all records add up") << Pairs({{2, 4}, {0, 1}, {1, 100}, {2, 5}, {0, 2}}) << 9 << 3;
    QTest::newRow("no records make a bar of 0 and 0") << Pairs() << 0 << 0;
}

void TestDistributionQueries::barsOfAnOrganisation()
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

void TestDistributionQueries::anUnknownOrganisationIsLabelledByItsNumber()
{
    StatisticsScene scene(9);
    scene.page.setTempAlarmBarItem(-7, {{2, 4, ""}});
    QCOMPARE(scene.page.barDataList, LabelledValues({{"-7", 4}}));
    QCOMPARE(scene.page.devDataList, LabelledKeys({{"-7", "-7"}}));
}

void TestDistributionQueries::oneOrganisationTwiceIsOneBarWithTheSum()
{
    StatisticsScene scene(9);
    scene.page.setTempAlarmBarItem(42, {{2, 4, ""}, {0, 1, ""}});
    scene.page.setTempAlarmBarItem(43, {{2, 9, ""}});
    scene.page.setTempAlarmBarItem(42, {{2, 10, ""}, {0, 20, ""}});
    QCOMPARE(scene.page.barDataList, LabelledValues({{"Plant North", 14}, {"Plant South", 9}}));
    QCOMPARE(scene.page.barDataList2, LabelledValues({{"Plant North", 21}, {"Plant South", 0}}));
    QCOMPARE(scene.page.devDataList, LabelledKeys({{"Plant North", "42"}, {"Plant South", "43"}}));
}

void TestDistributionQueries::organisationsOfOneNameShareABarAndKeepTheirKeys()
{
    StatisticsScene scene(9);
    scene.client.setTree(QStringLiteral("1 Gate\n2 Gate\n"));
    scene.page.setTempAlarmBarItem(1, {{2, 4, ""}});
    scene.page.setTempAlarmBarItem(2, {{2, 5, ""}, {0, 6, ""}});
    QCOMPARE(scene.page.barDataList, LabelledValues({{"Gate", 9}}));
    QCOMPARE(scene.page.barDataList2, LabelledValues({{"Gate", 6}}));
    QCOMPARE(scene.page.devDataList, LabelledKeys({{"Gate", "1"}, {"Gate", "2"}}));
}

void TestDistributionQueries::sumsOfABarWrapAs32BitFigures()
{
    StatisticsScene scene(9);
    scene.page.setTempAlarmBarItem(42, {{2, largest, ""}, {2, 1, ""}, {0, smallest, ""}, {0, -1, ""}});
    QCOMPARE(scene.page.barDataList, LabelledValues({{"Plant North", smallest}}));
    QCOMPARE(scene.page.barDataList2, LabelledValues({{"Plant North", largest}}));
    scene.page.setTempAlarmBarItem(42, {{2, -1, ""}, {0, 1, ""}});
    QCOMPARE(scene.page.barDataList, LabelledValues({{"Plant North", largest}}));
    QCOMPARE(scene.page.barDataList2, LabelledValues({{"Plant North", smallest}}));
}

void TestDistributionQueries::aDeviceGroupsBarAsksForTemperatureThenMask()
{
    StatisticsScene scene(9);
    scene.page.getChartDataByBarId(QStringLiteral("41"));
    QCOMPARE(scene.manager.calls, QStringList({"getTemperatureOfDevice", "getTemperatureOfDevice"}));
    const auto &requests = scene.manager.temperatureOfDevice.requests;
    QCOMPARE(requests.at(0).queryStatisticsOfOrga().queryType, 1);
    QCOMPARE(requests.at(1).queryStatisticsOfOrga().queryType, 2);
    for (const auto &request : requests) {
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
}

void TestDistributionQueries::theKeyOfADeviceGroupsBarIsNotUsed()
{
    StatisticsScene scene(9);
    for (const char *key : {"42", "999", "", "no number"}) {
        scene.page.getTemperatureStatisticsOfDevGroups(QString::fromLatin1(key), 1);
        QCOMPARE(scene.manager.temperatureOfDevice.requests.last().queryStatisticsOfOrga().listOrg,
            std::vector<int>({41}));
    }
    QCOMPARE(scene.manager.temperatureOfDevice.requests.size(), 4);
}

void TestDistributionQueries::theLineComesFromTheKeptAnswerWithoutAQuery()
{
    StatisticsScene scene(9);
    answerHandling(scene.manager, threeHours);
    QCOMPARE(scene.queryWholeLevel(), 4);
    scene.forget();
    scene.page.lineDataList.clear();
    scene.page.getTemperatureStatisticsOfDevGroups(QStringLiteral("41"), 1);
    QCOMPARE(scene.manager.tempAlarmHandleStatistics.requests.size(), 0);
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"2024-05-03 02", 7}, {"2024-05-03 01", 5}}));
    QCOMPARE(scene.page.lineDataList2, LabelledValues({{"2024-05-03 02", 3}, {"2024-05-03 01", 0}}));
}

void TestDistributionQueries::theLineIsRebuiltByEachOfTheTwoCalls()
{
    StatisticsScene scene(9);
    scene.page.tempAlarmHandleList = threeHours;
    LogCapture log;
    scene.page.getChartDataByBarId(QStringLiteral("41"));
    QCOMPARE(log.count(QStringLiteral("BasicChart::clearPieAndLineChartData")), 3);
    QCOMPARE(scene.page.lineDataList.size(), 2);
}

void TestDistributionQueries::theLineIsOrderedByTime()
{
    StatisticsScene scene(9);
    scene.page.tempAlarmHandleList = threeHours;
    scene.page.getChartDataByBarId(QStringLiteral("41"));
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"2024-05-03 01", 5}, {"2024-05-03 02", 7}}));
    QCOMPARE(scene.page.lineDataList2, LabelledValues({{"2024-05-03 01", 0}, {"2024-05-03 02", 3}}));
}

void TestDistributionQueries::pointsOfARecord_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("accepted");
    QTest::addColumn<int>("unaccepted");
    QTest::newRow("state 2 is accepted") << 2 << 8 << 0;
    QTest::newRow("state 0 is not accepted") << 0 << 0 << 8;
    QTest::newRow("state 1 is a point of 0 in both") << 1 << 0 << 0;
    QTest::newRow("an unknown state is a point of 0 in both") << -3 << 0 << 0;
}

void TestDistributionQueries::pointsOfARecord()
{
    QFETCH(int, state);
    QFETCH(int, accepted);
    QFETCH(int, unaccepted);
    StatisticsScene scene(9);
    scene.page.setTempAlarmLineItem({state, 8, "2024-05-03 01"});
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"2024-05-03 01", accepted}}));
    QCOMPARE(scene.page.lineDataList2, LabelledValues({{"2024-05-03 01", unaccepted}}));
}

void TestDistributionQueries::recordsOfOnePeriodShareItsPoint()
{
    StatisticsScene scene(9);
    scene.page.lineDataList = {{"old", 1}};
    scene.page.lineDataList2 = {{"old", 1}};
    scene.page.pieDataList = {{"old", 1}};
    scene.page.setTempAlarmLineList(
        {{2, 5, "b"}, {0, 1, "a"}, {0, 3, "b"}, {2, 6, "b"}, {2, largest, "c"}, {2, 1, "c"}});
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"b", 11}, {"a", 0}, {"c", smallest}}));
    QCOMPARE(scene.page.lineDataList2, LabelledValues({{"b", 3}, {"a", 1}, {"c", 0}}));
    QCOMPARE(scene.page.pieDataList, LabelledValues());
}

void TestDistributionQueries::lineNamesAreAcceptedAndUnaccepted()
{
    StatisticsScene scene(9);
    scene.page.lineNames = QStringList({"old", "older", "oldest"});
    scene.manager.failWith(reason);
    scene.page.getTemperatureStatisticsOfDevGroups(QStringLiteral("41"), 1);
    QCOMPARE(scene.page.lineNames, QStringList({"TK_AlarmAccepted", "TK_AlarmUnAccepted"}));
}

void TestDistributionQueries::eachDeviceAnswerFillsItsOwnMember()
{
    StatisticsScene scene(9);
    scene.page.temperatureDistribution = {{1, 1}};
    scene.page.maskDistribution = {{2, 2}};
    scene.manager.temperatureOfDevice.answer = [](const auto &, auto &response) {
        response.byTemperatureList = {{0, 50}, {3, 60}};
        response.byMaskList = {{1, 70}};
        return true;
    };
    scene.page.getTemperatureStatisticsOfDevGroups(QStringLiteral("41"), 1);
    QCOMPARE(pairs(scene.page.temperatureDistribution), Pairs({{0, 50}, {3, 60}}));
    QCOMPARE(pairs(scene.page.maskDistribution), Pairs({{2, 2}}));
    scene.page.temperatureDistribution = {{1, 1}};
    scene.page.getTemperatureStatisticsOfDevGroups(QStringLiteral("41"), 2);
    QCOMPARE(pairs(scene.page.temperatureDistribution), Pairs({{1, 1}}));
    QCOMPARE(pairs(scene.page.maskDistribution), Pairs({{1, 70}}));
}

void TestDistributionQueries::anotherDeviceQueryTypeKeepsNothing()
{
    StatisticsScene scene(9);
    scene.page.temperatureDistribution = {{1, 1}};
    scene.page.maskDistribution = {{2, 2}};
    scene.manager.temperatureOfDevice.answer = [](const auto &, auto &response) {
        response.byTemperatureList = {{0, 50}};
        response.byMaskList = {{1, 70}};
        return true;
    };
    for (const int queryType : {0, 3}) {
        scene.page.getTemperatureStatisticsOfDevGroups(QStringLiteral("41"), queryType);
        QCOMPARE(
            scene.manager.temperatureOfDevice.requests.last().queryStatisticsOfOrga().queryType, queryType);
        QCOMPARE(pairs(scene.page.temperatureDistribution), Pairs({{1, 1}}));
        QCOMPARE(pairs(scene.page.maskDistribution), Pairs({{2, 2}}));
    }
}

void TestDistributionQueries::aRefusedDeviceDistributionIsLoggedAlone_data()
{
    QTest::addColumn<int>("queryType");
    QTest::newRow("temperature") << 1;
    QTest::newRow("mask") << 2;
}

void TestDistributionQueries::aRefusedDeviceDistributionIsLoggedAlone()
{
    QFETCH(int, queryType);
    StatisticsScene scene(9);
    scene.page.tempAlarmHandleList = threeHours;
    scene.page.temperatureDistribution = {{1, 1}};
    scene.page.maskDistribution = {{2, 2}};
    scene.manager.failOperation(QStringLiteral("getTemperatureOfDevice"), reason);
    LogCapture log;
    scene.page.getTemperatureStatisticsOfDevGroups(QStringLiteral("41"), queryType);
    QCOMPARE(countOfReasonLines(log, devGroupsFail, reason), 1);
    QCOMPARE(log.count(devGroupsEmpty), 0);
    QCOMPARE(scene.tips(), QStringList());
    QCOMPARE(pairs(scene.page.temperatureDistribution), Pairs({{1, 1}}));
    QCOMPARE(pairs(scene.page.maskDistribution), Pairs({{2, 2}}));
    QCOMPARE(scene.page.lineDataList.size(), 2);
}

void TestDistributionQueries::anEmptyDeviceDistributionIsLogged_data()
{
    aRefusedDeviceDistributionIsLoggedAlone_data();
}

void TestDistributionQueries::anEmptyDeviceDistributionIsLogged()
{
    QFETCH(int, queryType);
    StatisticsScene scene(9);
    scene.page.temperatureDistribution = {{1, 1}};
    scene.page.maskDistribution = {{2, 2}};
    LogCapture log;
    scene.page.getTemperatureStatisticsOfDevGroups(QStringLiteral("41"), queryType);
    QCOMPARE(log.count(devGroupsEmpty), 1);
    QCOMPARE(scene.page.temperatureDistribution.empty(), queryType == 1);
    QCOMPARE(scene.page.maskDistribution.empty(), queryType == 2);
    QCOMPARE(scene.tips(), QStringList());
}

void TestDistributionQueries::aSuccessfulDeviceDistributionLogsNothingOfItsOwn()
{
    StatisticsScene scene(9);
    scene.page.tempAlarmHandleList = threeHours;
    answerOrgaDistribution(scene.manager, {{0, 1}}, {{0, 1}});
    LogCapture log;
    scene.page.getTemperatureStatisticsOfDevGroups(QStringLiteral("41"), 1);
    const QStringList lines = log.lines();
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.at(0), QStringLiteral("BasicChart::clearPieAndLineChartData"));
    QVERIFY(lines.at(1).startsWith(QStringLiteral("BasicChart::getOrgaIDList")));
}

void TestDistributionQueries::withoutTemperatureAndMaskTheUserIsToldAndTheLineStays()
{
    StatisticsScene scene(9);
    scene.page.tempAlarmHandleList = threeHours;
    scene.page.pieDataList = {{"old", 1}};
    scene.page.getChartDataByBarId(QStringLiteral("41"));
    QCOMPARE(scene.tips(), QStringList({"2 TK_NoRecords"}));
    QCOMPARE(scene.page.pieDataList, LabelledValues());
    QCOMPARE(scene.page.lineDataList.size(), 2);
    QCOMPARE(scene.page.lineDataList2.size(), 2);

    scene.forget();
    scene.manager.failWith(reason);
    scene.page.getChartDataByBarId(QStringLiteral("41"));
    QCOMPARE(scene.tips(), QStringList({"2 TK_NoRecords"}));
}

void TestDistributionQueries::afterARefusalThePieOfTheLastAnswerStands()
{
    StatisticsScene scene(9);
    scene.page.tempAlarmHandleList = threeHours;
    answerOrgaDistribution(scene.manager, {{2, 11}}, {{1, 12}});
    scene.page.getChartDataByBarId(QStringLiteral("41"));
    QCOMPARE(scene.page.pieDataList, LabelledValues({{"TK_LowTemp", 11}}));
    scene.forget();
    scene.manager.failOperation(QStringLiteral("getTemperatureOfDevice"), reason);
    LogCapture log;
    scene.page.getChartDataByBarId(QStringLiteral("42"));
    QCOMPARE(scene.page.pieDataList, LabelledValues({{"TK_LowTemp", 11}}));
    QCOMPARE(scene.tips(), QStringList());
    QCOMPARE(countOfReasonLines(log, devGroupsFail, reason), 2);
}

void TestDistributionQueries::withoutAModeBoxThePieShowsTemperature()
{
    StatisticsScene scene(9);
    QVERIFY(!scene.page.comboBoxPie);
    answerOrgaDistribution(scene.manager, {{0, 11}}, {{1, 12}});
    scene.page.getChartDataByBarId(QStringLiteral("41"));
    QCOMPARE(scene.page.pieDataList, LabelledValues({{"TK_NormalTemperature", 11}}));
}

void TestDistributionQueries::theModeChoosesThePie_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<Pairs>("temperature");
    QTest::addColumn<Pairs>("mask");
    QTest::addColumn<LabelledValues>("pie");
    const Pairs some = {{1, 11}};
    QTest::newRow("mode 1 shows temperature")
        << 1 << some << some << LabelledValues({{"TK_OvertemperatureOfHighTemperature", 11}});
    QTest::newRow("mode 2 shows mask") << 2 << some << some << LabelledValues({{"TK_MaskWeared", 11}});
    QTest::newRow("mode 1 shows nothing of masks") << 1 << Pairs() << some << LabelledValues();
    QTest::newRow("mode 2 shows nothing of temperature") << 2 << some << Pairs() << LabelledValues();
    QTest::newRow("mode 3 fills nothing") << 3 << some << some << LabelledValues();
    QTest::newRow("mode 0 fills nothing") << 0 << some << some << LabelledValues();
}

void TestDistributionQueries::theModeChoosesThePie()
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
    scene.page.getChartDataByBarId(QStringLiteral("41"));
    QTEST(scene.page.pieDataList, "pie");
    QCOMPARE(scene.tips(), QStringList());
}

void TestDistributionQueries::anEmptyModeBoxFillsNothing()
{
    StatisticsScene scene(9);
    answerHandling(scene.manager, threeHours);
    answerOrgaDistribution(scene.manager, {{0, 11}}, {{1, 12}});
    scene.page.slotSearch();
    QVERIFY(scene.page.comboBoxPie);
    scene.page.comboBoxPie->clear();
    scene.page.getChartDataByBarId(QStringLiteral("41"));
    QCOMPARE(scene.page.pieDataList, LabelledValues());
}

TALVIX_TEST_MAIN(TestDistributionQueries)
#include "tst_distribution_queries.moc"
