#include "support/StatisticsScene.h"
#include "support/TestMain.h"

#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/AppTranslationHelper.h>
#include <TalvixWidgets/ZrComboBoxWithTree.h>

#include <limits>

namespace {

const QString spanStart = QStringLiteral("2024-05-03 00");
const QString spanEnd = QStringLiteral("2024-05-03 17");
const QString reason = QStringLiteral("line 7: no route");
constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

const std::vector<TemperatureStatisticsItem> twoBars = {{31, "Ward B", 5}, {30, "Ward A", 9}};
const LabelledValues twoBarValues = {{"Ward B", 5}, {"Ward A", 9}};
const LabelledKeys twoBarKeys = {{"Ward B", "31"}, {"Ward A", "30"}};

/// The two drill-downs that follow one recipe: of a group and of a person.
struct DrillDown
{
    int type;
    QString word;
    QString operation;
};

const DrillDown ofGroup = {
    5, QStringLiteral("getTemperatureOfGroup"), QStringLiteral("getTemperatureStatisticsOfGroup")};
const DrillDown ofPerson = {
    6, QStringLiteral("getTemperatureOfPerson"), QStringLiteral("getTemperatureStatisticsOfPerson")};

void answerDrillDown(StatisticsScene &scene, const std::vector<TemperatureStatisticsItem> &items)
{
    answerItems(scene.manager.temperatureStatisticsOfGroup, items);
    answerItems(scene.manager.temperatureStatisticsOfPerson, items);
}

void runDrillDown(StatisticsScene &scene, const QString &key)
{
    if (scene.page.m_serviceType == 5)
        scene.page.getTemperatureOfGroup(key);
    else
        scene.page.getTemperatureOfPerson(key);
}

void fillLine(StatisticsScene &scene, const std::vector<TemperatureStatisticsItem> &items)
{
    if (scene.page.m_serviceType == 5)
        scene.page.setGroupLineList(items);
    else
        scene.page.setPersonLineList(items);
}

void answerWholeLevel(StatisticsScene &scene, const std::vector<TemperatureStatisticsItem> &items)
{
    answerItems(scene.manager.temperatureStatisticsOfGroups, items);
    answerPersons(scene.manager, items);
}

} // namespace

Q_DECLARE_METATYPE(DrillDown)

class TestTemperatureQueries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void groupsAreAskedForTheOrganisationOfTheTree();
    void groupsWithoutAnOrganisationAreNotAsked();
    void aGroupsSearchWithoutAnOrganisationTellsTheUser();
    void groupsTellTheirStepsInOrder();
    void personsAreAskedForPageAndOrganisation();
    void personsWithoutAnOrganisationAreAskedAllTheSame();
    void personsTellTheirStepsInOrder();
    void personsAskForThePageThatStandsWhileTheConditionStays();
    void personsGoBackToTheFirstPageWhenTheConditionChanged();
    void personsTakeThePageFromTheAnswer();
    void personsKeepThePageWithoutRecords();
    void personsKeepThePageWhenTheAnswerIsNegative();
    void personsKeepThePageWhenRefused();

    void aRefusedListLeavesTheBars_data();
    void aRefusedListLeavesTheBars();
    void anEmptyListLeavesTheBars_data();
    void anEmptyListLeavesTheBars();
    void aListFillsBarsAndOpensItsFirstRow_data();
    void aListFillsBarsAndOpensItsFirstRow();
    void aListReplacesTheBarsBefore_data();
    void aListReplacesTheBarsBefore();
    void barsOfOneNameDoNotMerge_data();
    void barsOfOneNameDoNotMerge();
    void namesOfGroupsAreTranslatedAndThoseOfPersonsAreNot();
    void brokenTextNeverStopsTheBars_data();
    void brokenTextNeverStopsTheBars();
    void anEmptyBarListAsksNothing_data();
    void anEmptyBarListAsksNothing();

    void aGroupIsAskedByItsNumber();
    void aPersonIsAskedByItsNumberAlone();
    void aDrillDownTellsItsStepsInOrder_data();
    void aDrillDownTellsItsStepsInOrder();
    void aRefusedDrillDownShowsTheReason_data();
    void aRefusedDrillDownShowsTheReason();
    void anEmptyDrillDownShowsThatThereIsNothing_data();
    void anEmptyDrillDownShowsThatThereIsNothing();
    void theUserIsToldOfADrillDownBeforeTheLog_data();
    void theUserIsToldOfADrillDownBeforeTheLog();
    void unitAndSpanAreThoseOfThePage_data();
    void unitAndSpanAreThoseOfThePage();
    void aNameEndsAtItsFirstNullByteOnlyWhereItIsTranslated();
    void aFailedDrillDownOfABarLeavesLineAndPieEmpty_data();
    void aFailedDrillDownOfABarLeavesLineAndPieEmpty();
    void aPersonsBarAsksThePersonAlone();
    void theLineOfABarIsOrderedByTime();

    void equalPeriodsAddUpInTheirFirstPlace_data();
    void equalPeriodsAddUpInTheirFirstPlace();
    void aLineReplacesLineAndPieBefore_data();
    void aLineReplacesLineAndPieBefore();
    void aGroupsLineLeavesThePieEmpty();
    void slicesOfAPerson_data();
    void slicesOfAPerson();
};

namespace {

void addBothDrillDowns()
{
    QTest::addColumn<DrillDown>("drillDown");
    QTest::newRow("group") << ofGroup;
    QTest::newRow("person") << ofPerson;
}

void addBothLists()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("word");
    QTest::newRow("groups") << 5 << "BasicChart::getTemperatureOfGroups";
    QTest::newRow("persons") << 6 << "BasicChart::getTemperatureOfPersons";
}

} // namespace

void TestTemperatureQueries::cleanup()
{
    HostSettings::setLanguage({});
}

void TestTemperatureQueries::groupsAreAskedForTheOrganisationOfTheTree()
{
    StatisticsScene scene(5);
    scene.page.getTemperatureOfGroups();
    QCOMPARE(scene.manager.calls, QStringList({"getTemperatureStatisticsOfGroups"}));
    const auto request = scene.manager.temperatureStatisticsOfGroups.requests.first();
    QCOMPARE(request.userId, 7);
    QCOMPARE(request.timeType, 3);
    QCOMPARE(request.sortType, 1);
    QCOMPARE(request.orgType, 2);
    QCOMPARE(text(request.startTime()), spanStart);
    QCOMPARE(text(request.endTime()), spanEnd);
    QCOMPARE(request.personGorupIDList(), std::vector<int>({41}));
    QCOMPARE(text(request.cmd()), QString());
}

void TestTemperatureQueries::groupsWithoutAnOrganisationAreNotAsked()
{
    StatisticsScene scene(5, QString());
    answerWholeLevel(scene, twoBars);
    scene.page.barDataList = twoBarValues;
    scene.page.devDataList = twoBarKeys;
    LogCapture log;
    QCOMPARE(scene.page.getTemperatureOfGroups(), 1);
    QCOMPARE(linesStartingWith(log, {"BasicChart::getTemperatureOfGroups"}),
        QStringList(
            {"BasicChart::getTemperatureOfGroups", "BasicChart::getTemperatureOfGroups No Suborganization"}));
    QCOMPARE(scene.manager.calls, QStringList());
    QCOMPARE(scene.tips(), QStringList());
    QCOMPARE(scene.page.barDataList, twoBarValues);
    QCOMPARE(scene.page.devDataList, twoBarKeys);
}

void TestTemperatureQueries::aGroupsSearchWithoutAnOrganisationTellsTheUser()
{
    StatisticsScene scene(5);
    auto *organisations = scene.page.part<ZrComboBoxWithTree>("comboBox");
    ZrTreeView *tree = std::exchange(organisations->m_pTreeView, nullptr);
    scene.page.slotSearch();
    organisations->m_pTreeView = tree;
    QCOMPARE(scene.manager.calls, QStringList());
    QCOMPARE(scene.tips(), QStringList({"2 TK_orgNotExist"}));
}

void TestTemperatureQueries::groupsTellTheirStepsInOrder()
{
    StatisticsScene scene(5);
    answerWholeLevel(scene, twoBars);
    LogCapture log;
    QCOMPARE(scene.page.getTemperatureOfGroups(), 4);
    const QStringList steps = linesStartingWith(log,
        {"BasicChart::getTemperatureOfGroups", "BasicChart::getOrgaIDList", "BasicChart::clearBarChartData",
            "setGroupsBarList", "BasicChart::getChartDataByBarId"});
    QCOMPARE(steps.size(), 4);
    QCOMPARE(steps.at(0), QStringLiteral("BasicChart::getTemperatureOfGroups"));
    QVERIFY(steps.at(1).startsWith(QStringLiteral("BasicChart::getOrgaIDList")));
    QCOMPARE(steps.at(2), QStringLiteral("BasicChart::clearBarChartData "));
    QCOMPARE(steps.at(3), QStringLiteral("BasicChart::getChartDataByBarId"));
}

void TestTemperatureQueries::personsAreAskedForPageAndOrganisation()
{
    StatisticsScene scene(6);
    scene.page.getTemperatureOfPersons();
    QCOMPARE(scene.manager.calls, QStringList({"getTemperatureStatisticsOfPersons"}));
    const auto request = scene.manager.temperatureStatisticsOfPersons.requests.first();
    QCOMPARE(request.pageIndex, 1);
    QCOMPARE(request.pageSize, 10);
    QCOMPARE(request.userId, 7);
    QCOMPARE(request.timeType, 3);
    QCOMPARE(request.sortType, 1);
    QCOMPARE(request.orgaId, 41);
    QCOMPARE(text(request.startTime()), spanStart);
    QCOMPARE(text(request.endTime()), spanEnd);
    QCOMPARE(text(request.cmd()), QString());
}

void TestTemperatureQueries::personsWithoutAnOrganisationAreAskedAllTheSame()
{
    StatisticsScene scene(6, QString());
    answerWholeLevel(scene, twoBars);
    QCOMPARE(scene.page.getTemperatureOfPersons(), 4);
    QCOMPARE(scene.manager.temperatureStatisticsOfPersons.requests.size(), 1);
    QCOMPARE(scene.manager.temperatureStatisticsOfPersons.requests.first().orgaId, 0);
    QCOMPARE(scene.page.barDataList, twoBarValues);
}

void TestTemperatureQueries::personsTellTheirStepsInOrder()
{
    StatisticsScene scene(6);
    answerPersons(scene.manager, twoBars, 5, 2);
    LogCapture log;
    QCOMPARE(scene.page.getTemperatureOfPersons(), 4);
    const QStringList steps = linesStartingWith(log,
        {" BasicChart::getTemperatureOfPersons", "BasicChart::getTemperatureOfPersons",
            "BasicChart::compareCondition", "BasicChart::setPageInfo", "BasicChart::clearBarChartData",
            "setPersonsBarList", "BasicChart::getChartDataByBarId"});
    QCOMPARE(steps.size(), 5);
    QCOMPARE(steps.at(0), QStringLiteral(" BasicChart::getTemperatureOfPersons"));
    QCOMPARE(steps.at(1), QStringLiteral("BasicChart::compareCondition"));
    QVERIFY(steps.at(2).startsWith(QStringLiteral("BasicChart::setPageInfo")));
    QCOMPARE(steps.at(3), QStringLiteral("BasicChart::clearBarChartData "));
    QCOMPARE(steps.at(4), QStringLiteral("BasicChart::getChartDataByBarId"));
}

void TestTemperatureQueries::personsAskForThePageThatStandsWhileTheConditionStays()
{
    StatisticsScene scene(6);
    answerPersons(scene.manager, twoBars, 9, 4);
    scene.page.getTemperatureOfPersons();
    scene.forget();
    scene.page.getTemperatureOfPersons();
    QCOMPARE(scene.manager.temperatureStatisticsOfPersons.requests.first().pageIndex, 4);
    scene.forget();
    scene.page.slotNext();
    QCOMPARE(scene.manager.temperatureStatisticsOfPersons.requests.first().pageIndex, 5);
}

void TestTemperatureQueries::personsGoBackToTheFirstPageWhenTheConditionChanged()
{
    StatisticsScene scene(6);
    answerPersons(scene.manager, twoBars, 9, 4);
    scene.page.getTemperatureOfPersons();
    QCOMPARE(scene.page.m_nCurPage, 4);
    scene.manager.failWith(reason);
    scene.forget();
    scene.press("pushButtonDay");
    QCOMPARE(scene.manager.temperatureStatisticsOfPersons.requests.first().pageIndex, 1);
    QCOMPARE(scene.page.m_nCurPage, 1);
    QCOMPARE(scene.page.m_nTotalPage, 1);
}

void TestTemperatureQueries::personsTakeThePageFromTheAnswer()
{
    StatisticsScene scene(6);
    answerPersons(scene.manager, twoBars, 8, 3);
    QCOMPARE(scene.page.getTemperatureOfPersons(), 4);
    QCOMPARE(scene.page.m_nCurPage, 3);
    QCOMPARE(scene.page.m_nTotalPage, 8);
}

void TestTemperatureQueries::personsKeepThePageWithoutRecords()
{
    StatisticsScene scene(6);
    answerPersons(scene.manager, {}, 8, 3);
    LogCapture log;
    QCOMPARE(scene.page.getTemperatureOfPersons(), 3);
    QCOMPARE(scene.page.m_nCurPage, 1);
    QCOMPARE(scene.page.m_nTotalPage, 1);
    QCOMPARE(linesStartingWith(log, {"BasicChart::setPageInfo"}), QStringList());
}

void TestTemperatureQueries::personsKeepThePageWhenTheAnswerIsNegative()
{
    StatisticsScene scene(6);
    answerPersons(scene.manager, twoBars, 6, -1);
    QCOMPARE(scene.page.getTemperatureOfPersons(), 4);
    QCOMPARE(scene.page.m_nCurPage, 1);
    QCOMPARE(scene.page.m_nTotalPage, 1);
    QCOMPARE(scene.page.barDataList, twoBarValues);
}

void TestTemperatureQueries::personsKeepThePageWhenRefused()
{
    StatisticsScene scene(6);
    answerPersons(scene.manager, twoBars, 8, 3);
    scene.page.getTemperatureOfPersons();
    scene.manager.failWith(reason);
    QCOMPARE(scene.page.getTemperatureOfPersons(), 2);
    QCOMPARE(scene.page.m_nCurPage, 3);
    QCOMPARE(scene.page.m_nTotalPage, 8);
}

void TestTemperatureQueries::aRefusedListLeavesTheBars_data()
{
    addBothLists();
}

void TestTemperatureQueries::aRefusedListLeavesTheBars()
{
    QFETCH(int, type);
    QFETCH(QString, word);
    StatisticsScene scene(type);
    answerWholeLevel(scene, twoBars);
    answerDrillDown(scene, {{-1, "hour", 2}});
    QCOMPARE(scene.queryWholeLevel(), 4);
    const LabelledValues line = scene.page.lineDataList;
    scene.forget();
    scene.manager.failWith(reason);
    LogCapture log;
    QCOMPARE(scene.queryWholeLevel(), 2);
    QCOMPARE(countOfReasonLines(log, word + QStringLiteral(" fail"), reason), 1);
    QVERIFY(!log.contains(word + QStringLiteral(" records is empty")));
    QCOMPARE(scene.manager.calls.size(), 1);
    QCOMPARE(scene.tips(), QStringList());
    QCOMPARE(scene.page.barDataList, twoBarValues);
    QCOMPARE(scene.page.devDataList, twoBarKeys);
    QCOMPARE(scene.page.lineDataList, line);

    scene.page.slotSearch();
    QCOMPARE(scene.tips(), QStringList({"3 TK_GetFailed" + reason}));
    QCOMPARE(scene.page.barDataList, twoBarValues);
}

void TestTemperatureQueries::anEmptyListLeavesTheBars_data()
{
    addBothLists();
}

void TestTemperatureQueries::anEmptyListLeavesTheBars()
{
    QFETCH(int, type);
    QFETCH(QString, word);
    StatisticsScene scene(type);
    answerWholeLevel(scene, twoBars);
    QCOMPARE(scene.queryWholeLevel(), 4);
    scene.forget();
    answerWholeLevel(scene, {});
    LogCapture log;
    QCOMPARE(scene.queryWholeLevel(), 3);
    QCOMPARE(log.count(word + QStringLiteral(" records is empty")), 1);
    QVERIFY(!log.containsStart(word + QStringLiteral(" fail")));
    QCOMPARE(scene.manager.calls.size(), 1);
    QCOMPARE(scene.tips(), QStringList());
    QCOMPARE(scene.page.barDataList, twoBarValues);
    QCOMPARE(scene.page.devDataList, twoBarKeys);

    scene.page.slotSearch();
    QCOMPARE(scene.tips(), QStringList({"1 TK_NoRecords"}));
}

void TestTemperatureQueries::aListFillsBarsAndOpensItsFirstRow_data()
{
    addBothLists();
}

void TestTemperatureQueries::aListFillsBarsAndOpensItsFirstRow()
{
    QFETCH(int, type);
    QFETCH(QString, word);
    StatisticsScene scene(type);
    answerWholeLevel(scene, twoBars);
    answerDrillDown(scene, {{-1, "hour", 2}});
    answerGroupDistribution(scene.manager, {{1, 1}}, {{1, 1}});
    LogCapture log;
    QCOMPARE(scene.queryWholeLevel(), 4);
    QCOMPARE(scene.page.barDataList, twoBarValues);
    QCOMPARE(scene.page.devDataList, twoBarKeys);
    QCOMPARE(scene.page.barDataList2, LabelledValues());
    QCOMPARE(scene.page.devTypeDataList, LabelledValues());
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"hour", 2}}));
    QCOMPARE(scene.tips(), QStringList());
    QVERIFY(!log.containsStart(word + QStringLiteral(" fail")));
    QVERIFY(!log.contains(word + QStringLiteral(" records is empty")));
    if (type == 5)
        QCOMPARE(scene.manager.temperatureStatisticsOfGroup.requests.first().groupId, 31);
    else
        QCOMPARE(scene.manager.temperatureStatisticsOfPerson.requests.first().personId, 31);
    QCOMPARE(scene.manager.temperatureStatisticsOfGroup.requests.size()
            + scene.manager.temperatureStatisticsOfPerson.requests.size(),
        1);
}

void TestTemperatureQueries::aListReplacesTheBarsBefore_data()
{
    addBothLists();
}

void TestTemperatureQueries::aListReplacesTheBarsBefore()
{
    QFETCH(int, type);
    StatisticsScene scene(type);
    scene.page.barDataList = {{"old", 1}};
    scene.page.barDataList2 = {{"old", 1}};
    scene.page.devDataList = {{"old", "1"}};
    scene.page.devTypeDataList = {{"old", 1}};
    answerWholeLevel(scene, twoBars);
    QCOMPARE(scene.queryWholeLevel(), 4);
    QCOMPARE(scene.page.barDataList, twoBarValues);
    QCOMPARE(scene.page.barDataList2, LabelledValues());
    QCOMPARE(scene.page.devDataList, twoBarKeys);
    QCOMPARE(scene.page.devTypeDataList, LabelledValues());
}

void TestTemperatureQueries::barsOfOneNameDoNotMerge_data()
{
    addBothLists();
}

void TestTemperatureQueries::barsOfOneNameDoNotMerge()
{
    QFETCH(int, type);
    StatisticsScene scene(type);
    answerWholeLevel(scene, {{1, "Ward", 5}, {2, "Ward", 6}, {3, "Ward", 5}});
    QCOMPARE(scene.queryWholeLevel(), 4);
    QCOMPARE(scene.page.barDataList, LabelledValues({{"Ward", 5}, {"Ward", 6}, {"Ward", 5}}));
    QCOMPARE(scene.page.devDataList, LabelledKeys({{"Ward", "1"}, {"Ward", "2"}, {"Ward", "3"}}));
}

void TestTemperatureQueries::namesOfGroupsAreTranslatedAndThoseOfPersonsAreNot()
{
    QVERIFY(HostSettings::setLanguage(QStringLiteral("x-long")));
    const char *const key = "TK_Vehicle";
    const QString translated = AppTranslationHelper::instance()->getStringAfterTranslation(key);
    QVERIFY(translated != QString::fromLatin1(key));
    {
        StatisticsScene scene(5);
        answerWholeLevel(scene, {{1, key, 5}});
        QCOMPARE(scene.queryWholeLevel(), 4);
        QCOMPARE(scene.page.barDataList, LabelledValues({{translated, 5}}));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{translated, "1"}}));
    }
    {
        StatisticsScene scene(6);
        answerWholeLevel(scene, {{1, key, 5}});
        QCOMPARE(scene.queryWholeLevel(), 4);
        QCOMPARE(scene.page.barDataList, LabelledValues({{QString::fromLatin1(key), 5}}));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{QString::fromLatin1(key), "1"}}));
    }
}

void TestTemperatureQueries::brokenTextNeverStopsTheBars_data()
{
    addBothLists();
}

void TestTemperatureQueries::brokenTextNeverStopsTheBars()
{
    QFETCH(int, type);
    StatisticsScene scene(type);
    answerWholeLevel(
        scene, {{smallest, "\xff\xfe", largest}, {0, "", smallest}, {largest, std::string("a\0b", 3), -1}});
    answerDrillDown(scene, {{-1, "\xc3", 1}, {-1, "", 1}});
    QCOMPARE(scene.queryWholeLevel(), 4);
    QCOMPARE(listValues(scene.page.barDataList), QList<int>({largest, smallest, -1}));
    QCOMPARE(scene.page.devDataList.at(0).second, QStringLiteral("-2147483648"));
    QCOMPARE(scene.page.devDataList.at(1), LabelledKeys::value_type("", "0"));
    QCOMPARE(scene.page.devDataList.at(2).second, QStringLiteral("2147483647"));
    QCOMPARE(scene.page.lineDataList.size(), 2);
}

void TestTemperatureQueries::anEmptyBarListAsksNothing_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("line");
    QTest::newRow("groups") << 5 << "setGroupsBarList is empty";
    QTest::newRow("persons") << 6 << "setPersonsBarList is empty";
}

void TestTemperatureQueries::anEmptyBarListAsksNothing()
{
    QFETCH(int, type);
    QFETCH(QString, line);
    StatisticsScene scene(type);
    scene.page.barDataList = twoBarValues;
    scene.page.devDataList = twoBarKeys;
    LogCapture log;
    if (type == 5)
        scene.page.setGroupsBarList(std::vector<TemperatureStatisticsItem>());
    else
        scene.page.setPersonsBarList({});
    QCOMPARE(log.lines(), QStringList({"BasicChart::clearBarChartData ", line}));
    QCOMPARE(scene.page.barDataList, LabelledValues());
    QCOMPARE(scene.page.devDataList, LabelledKeys());
    QCOMPARE(scene.manager.calls, QStringList());
    QCOMPARE(scene.tips(), QStringList());
}

void TestTemperatureQueries::aGroupIsAskedByItsNumber()
{
    StatisticsScene scene(5);
    scene.page.getTemperatureOfGroup(QStringLiteral("93"));
    QCOMPARE(scene.manager.calls, QStringList({"getTemperatureStatisticsOfGroup"}));
    const auto request = scene.manager.temperatureStatisticsOfGroup.requests.first();
    QCOMPARE(request.userId, 7);
    QCOMPARE(request.timeType, 3);
    QCOMPARE(request.orgType, 2);
    QCOMPARE(request.groupId, 93);
    QCOMPARE(text(request.startTime()), spanStart);
    QCOMPARE(text(request.endTime()), spanEnd);
    QCOMPARE(text(request.cmd()), QString());
}

void TestTemperatureQueries::aPersonIsAskedByItsNumberAlone()
{
    StatisticsScene scene(6);
    scene.page.getTemperatureOfPerson(QStringLiteral("94"));
    QCOMPARE(scene.manager.calls, QStringList({"getTemperatureStatisticsOfPerson"}));
    const auto request = scene.manager.temperatureStatisticsOfPerson.requests.first();
    QCOMPARE(request.timeType, 3);
    QCOMPARE(request.personId, 94);
    QCOMPARE(text(request.startTime()), spanStart);
    QCOMPARE(text(request.endTime()), spanEnd);
    QCOMPARE(text(request.cmd()), QString());
}

void TestTemperatureQueries::aDrillDownTellsItsStepsInOrder_data()
{
    addBothDrillDowns();
}

void TestTemperatureQueries::aDrillDownTellsItsStepsInOrder()
{
    QFETCH(DrillDown, drillDown);
    StatisticsScene scene(drillDown.type);
    answerDrillDown(scene, {{-1, "hour", 2}});
    LogCapture log;
    runDrillDown(scene, QStringLiteral("30"));
    QCOMPARE(log.lines(),
        QStringList({drillDown.word, drillDown.word + " success", "BasicChart::clearPieAndLineChartData"}));
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"hour", 2}}));
    QCOMPARE(scene.tips(), QStringList());
}

void TestTemperatureQueries::aRefusedDrillDownShowsTheReason_data()
{
    addBothDrillDowns();
}

void TestTemperatureQueries::aRefusedDrillDownShowsTheReason()
{
    QFETCH(DrillDown, drillDown);
    StatisticsScene scene(drillDown.type);
    scene.page.lineDataList = {{"kept", 1}};
    scene.page.pieDataList = {{"kept", 2}};
    scene.manager.failOperation(drillDown.operation, reason);
    LogCapture log;
    runDrillDown(scene, QStringLiteral("30"));
    QCOMPARE(scene.tips(), QStringList({"2 TK_GetFailed" + reason}));
    QCOMPARE(log.lines().size(), 2);
    QCOMPARE(log.lines().first(), drillDown.word);
    QCOMPARE(countOfReasonLines(log, QStringLiteral("BasicChart::%1 fail").arg(drillDown.word), reason), 1);
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"kept", 1}}));
    QCOMPARE(scene.page.pieDataList, LabelledValues({{"kept", 2}}));
}

void TestTemperatureQueries::anEmptyDrillDownShowsThatThereIsNothing_data()
{
    addBothDrillDowns();
}

void TestTemperatureQueries::anEmptyDrillDownShowsThatThereIsNothing()
{
    QFETCH(DrillDown, drillDown);
    StatisticsScene scene(drillDown.type);
    scene.page.lineDataList = {{"kept", 1}};
    scene.page.pieDataList = {{"kept", 2}};
    LogCapture log;
    runDrillDown(scene, QStringLiteral("30"));
    QCOMPARE(scene.tips(), QStringList({"2 TK_NoRecords"}));
    QCOMPARE(log.lines(), QStringList({drillDown.word, drillDown.word + " records is empty"}));
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"kept", 1}}));
    QCOMPARE(scene.page.pieDataList, LabelledValues({{"kept", 2}}));
}

void TestTemperatureQueries::theUserIsToldOfADrillDownBeforeTheLog_data()
{
    QTest::addColumn<DrillDown>("drillDown");
    QTest::addColumn<bool>("refused");
    QTest::newRow("group, refused") << ofGroup << true;
    QTest::newRow("group, no records") << ofGroup << false;
    QTest::newRow("person, refused") << ofPerson << true;
    QTest::newRow("person, no records") << ofPerson << false;
}

void TestTemperatureQueries::theUserIsToldOfADrillDownBeforeTheLog()
{
    QFETCH(DrillDown, drillDown);
    QFETCH(bool, refused);
    StatisticsScene scene(drillDown.type);
    if (refused)
        scene.manager.failOperation(drillDown.operation, reason);
    QList<qsizetype> tipsThen;
    LogCapture log;
    log.whenWritten = [&](const QString &) { tipsThen.append(scene.page.tips.size()); };
    runDrillDown(scene, QStringLiteral("30"));
    QCOMPARE(tipsThen, QList<qsizetype>({0, 1}));
}

void TestTemperatureQueries::unitAndSpanAreThoseOfThePage_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::newRow("months") << QByteArray("pushButtonMonth") << 1 << "2023-11"
                            << "2024-05";
    QTest::newRow("days") << QByteArray("pushButtonDay") << 2 << "2024-04-26"
                          << "2024-05-03";
}

void TestTemperatureQueries::unitAndSpanAreThoseOfThePage()
{
    QFETCH(QByteArray, button);
    QFETCH(int, unit);
    QFETCH(QString, start);
    QFETCH(QString, end);
    StatisticsScene scene(5);
    scene.press(button.constData());
    scene.forget();
    scene.page.getTemperatureOfGroups();
    scene.page.getTemperatureOfGroup(QStringLiteral("30"));
    scene.page.getTempStatisticsDistributionOfGroups(QStringLiteral("30"), 1);
    scene.page.getTemperatureOfPersons();
    scene.page.getTemperatureOfPerson(QStringLiteral("30"));
    const auto check = [&](const auto &operation) {
        const auto request = operation.requests.first();
        QCOMPARE(request.timeType, unit);
        QCOMPARE(text(request.startTime()), start);
        QCOMPARE(text(request.endTime()), end);
    };
    check(scene.manager.temperatureStatisticsOfGroups);
    check(scene.manager.temperatureStatisticsOfGroup);
    check(scene.manager.tempStatisticsDistributionOfGroups);
    check(scene.manager.temperatureStatisticsOfPersons);
    check(scene.manager.temperatureStatisticsOfPerson);
}

void TestTemperatureQueries::aNameEndsAtItsFirstNullByteOnlyWhereItIsTranslated()
{
    const std::string name("a\0b", 3);
    StatisticsScene groups(5);
    groups.page.setGroupsBarList(std::vector<TemperatureStatisticsItem>({{1, name, 5}}));
    QCOMPARE(groups.page.barDataList, LabelledValues({{"a", 5}}));
    QCOMPARE(groups.page.devDataList, LabelledKeys({{"a", "1"}}));
    StatisticsScene persons(6);
    persons.page.setPersonsBarList({{1, name, 5}});
    QCOMPARE(persons.page.barDataList, LabelledValues({{QString::fromStdString(name), 5}}));
    QCOMPARE(persons.page.barDataList.first().first.size(), 3);
}

void TestTemperatureQueries::aFailedDrillDownOfABarLeavesLineAndPieEmpty_data()
{
    QTest::addColumn<DrillDown>("drillDown");
    QTest::addColumn<bool>("refused");
    QTest::newRow("a refused group") << ofGroup << true;
    QTest::newRow("a group without records") << ofGroup << false;
    QTest::newRow("a refused person") << ofPerson << true;
    QTest::newRow("a person without records") << ofPerson << false;
}

void TestTemperatureQueries::aFailedDrillDownOfABarLeavesLineAndPieEmpty()
{
    QFETCH(DrillDown, drillDown);
    QFETCH(bool, refused);
    StatisticsScene scene(drillDown.type);
    scene.page.barDataList = twoBarValues;
    scene.page.devDataList = twoBarKeys;
    scene.page.lineDataList = {{"old", 1}};
    scene.page.pieDataList = {{"old", 2}};
    if (refused)
        scene.manager.failOperation(drillDown.operation, reason);
    scene.page.getChartDataByBarId(QStringLiteral("30"));
    QCOMPARE(
        scene.page.tips.first().text, refused ? "TK_GetFailed" + reason : QStringLiteral("TK_NoRecords"));
    QCOMPARE(scene.page.tips.first().kind, 2);
    QCOMPARE(scene.page.lineDataList, LabelledValues());
    QCOMPARE(scene.page.pieDataList, LabelledValues());
    QCOMPARE(scene.page.barDataList, twoBarValues);
}

void TestTemperatureQueries::aPersonsBarAsksThePersonAlone()
{
    StatisticsScene scene(6);
    answerDrillDown(scene, {{-1, "hour", 2}});
    scene.page.barDataList = twoBarValues;
    scene.page.devDataList = twoBarKeys;
    scene.page.getChartDataByBarId(scene.page.devDataList.at(1).second);
    QCOMPARE(scene.manager.calls, QStringList({"getTemperatureStatisticsOfPerson"}));
    QCOMPARE(scene.manager.temperatureStatisticsOfPerson.requests.first().personId, 30);
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"hour", 2}}));
    QCOMPARE(scene.page.pieDataList, LabelledValues({{"hour", 2}}));
}

void TestTemperatureQueries::theLineOfABarIsOrderedByTime()
{
    StatisticsScene scene(6);
    answerDrillDown(scene, {{4, "2024-05-03 02", 1}, {5, "2024-05-03 00", 2}, {6, "2024-05-03 01", 3}});
    scene.page.getChartDataByBarId(QStringLiteral("30"));
    QCOMPARE(scene.page.lineDataList,
        LabelledValues({{"2024-05-03 00", 2}, {"2024-05-03 01", 3}, {"2024-05-03 02", 1}}));
    QCOMPARE(scene.page.pieDataList, LabelledValues({{"4", 1}, {"5", 2}, {"6", 3}}));
}

void TestTemperatureQueries::equalPeriodsAddUpInTheirFirstPlace_data()
{
    addBothDrillDowns();
}

void TestTemperatureQueries::equalPeriodsAddUpInTheirFirstPlace()
{
    QFETCH(DrillDown, drillDown);
    StatisticsScene scene(drillDown.type);
    fillLine(scene, {{1, "b", 2}, {1, "a", 5}, {1, "b", 40}, {1, "B", 1}, {1, "a", -6}, {1, "b ", 3}});
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"b", 42}, {"a", -1}, {"B", 1}, {"b ", 3}}));
    fillLine(scene, {{1, "over", largest}, {1, "under", smallest}, {1, "over", 1}, {1, "under", -1}});
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"over", smallest}, {"under", largest}}));
}

void TestTemperatureQueries::aLineReplacesLineAndPieBefore_data()
{
    addBothDrillDowns();
}

void TestTemperatureQueries::aLineReplacesLineAndPieBefore()
{
    QFETCH(DrillDown, drillDown);
    StatisticsScene scene(drillDown.type);
    scene.page.lineDataList = {{"old", 1}};
    scene.page.lineDataList2 = {{"old", 1}};
    scene.page.pieDataList = {{"old", 1}};
    fillLine(scene, {{1, "new", 0}});
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"new", 0}}));
    QCOMPARE(scene.page.lineDataList2, LabelledValues());
    QCOMPARE(scene.page.pieDataList, LabelledValues());
}

void TestTemperatureQueries::aGroupsLineLeavesThePieEmpty()
{
    StatisticsScene scene(5);
    scene.page.setGroupLineList({{3, "a", 2}, {-1, "b", 5}});
    QCOMPARE(scene.page.lineDataList, LabelledValues({{"a", 2}, {"b", 5}}));
    QCOMPARE(scene.page.pieDataList, LabelledValues());
}

void TestTemperatureQueries::slicesOfAPerson_data()
{
    using Items = QList<std::pair<int, std::pair<QString, int>>>;
    QTest::addColumn<Items>("items");
    QTest::addColumn<LabelledValues>("line");
    QTest::addColumn<LabelledValues>("pie");
    QTest::newRow("the number of the class names the slice")
        << Items({{12, {"t0", 3}}}) << LabelledValues({{"t0", 3}}) << LabelledValues({{"12", 3}});
    QTest::newRow("without a class the period names the slice")
        << Items({{-1, {"t0", 3}}}) << LabelledValues({{"t0", 3}}) << LabelledValues({{"t0", 3}});
    QTest::newRow("class 0 is a class")
        << Items({{0, {"t0", 3}}}) << LabelledValues({{"t0", 3}}) << LabelledValues({{"0", 3}});
    QTest::newRow("class -2 is a class")
        << Items({{-2, {"t0", 3}}}) << LabelledValues({{"t0", 3}}) << LabelledValues({{"-2", 3}});
    QTest::newRow("a figure of 0 is a point and no slice")
        << Items({{4, {"t0", 0}}, {-1, {"t1", 0}}}) << LabelledValues({{"t0", 0}, {"t1", 0}})
        << LabelledValues();
    QTest::newRow("a negative figure is a slice")
        << Items({{4, {"t0", -2}}}) << LabelledValues({{"t0", -2}}) << LabelledValues({{"4", -2}});
    QTest::newRow("one class in several periods is one slice in its first place")
        << Items({{4, {"t0", 1}}, {5, {"t0", 2}}, {4, {"t1", 10}}}) << LabelledValues({{"t0", 3}, {"t1", 10}})
        << LabelledValues({{"4", 11}, {"5", 2}});
    QTest::newRow("a period named like a class shares its slice")
        << Items({{5, {"t0", 1}}, {-1, {"5", 2}}}) << LabelledValues({{"t0", 1}, {"5", 2}})
        << LabelledValues({{"5", 3}});
    QTest::newRow("slices wrap as 32-bit figures do")
        << Items({{5, {"t0", largest}}, {5, {"t1", 2}}}) << LabelledValues({{"t0", largest}, {"t1", 2}})
        << LabelledValues({{"5", smallest + 1}});
    QTest::newRow("nothing gives nothing") << Items() << LabelledValues() << LabelledValues();
}

void TestTemperatureQueries::slicesOfAPerson()
{
    using Items = QList<std::pair<int, std::pair<QString, int>>>;
    QFETCH(Items, items);
    StatisticsScene scene(6);
    std::vector<TemperatureStatisticsItem> records;
    for (const auto &item : items)
        records.push_back({item.first, item.second.first.toStdString(), item.second.second});
    scene.page.setPersonLineList(records);
    QTEST(scene.page.lineDataList, "line");
    QTEST(scene.page.pieDataList, "pie");
}

TALVIX_TEST_MAIN(TestTemperatureQueries)
#include "tst_temperature_queries.moc"
