#include "support/PageScene.h"
#include "support/TestMain.h"
#include "support/TestTable.h"

#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/AppTranslationHelper.h>
#include <TalvixWidgets/ZrComboBoxWithTree.h>

using namespace Qt::StringLiterals;

namespace {

const QString reason = u"line 7: no route"_s;

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

const DrillDown ofGroup = {5, u"getTemperatureOfGroup"_s, u"getTemperatureStatisticsOfGroup"_s};
const DrillDown ofPerson = {6, u"getTemperatureOfPerson"_s, u"getTemperatureStatisticsOfPerson"_s};

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

namespace {

void addFailedDrillDowns()
{
    table<DrillDown, bool>({"drillDown", "refused"},
        {
            {"a refused group", ofGroup, true},
            {"a group without records", ofGroup, false},
            {"a refused person", ofPerson, true},
            {"a person without records", ofPerson, false},
        });
}

void addBothDrillDowns()
{
    table<DrillDown>({"drillDown"}, {{"group", ofGroup}, {"person", ofPerson}});
}

void addBothLists()
{
    table<int, QString>({"type", "word"},
        {
            {"groups", 5, "BasicChart::getTemperatureOfGroups"},
            {"persons", 6, "BasicChart::getTemperatureOfPersons"},
        });
}

} // namespace

class TestTemperatureQueries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { HostSettings::setLanguage({}); }

    void groupsAreAskedForTheOrganisationOfTheTree()
    {
        StatisticsScene scene(5);
        scene.page.getTemperatureOfGroups();
        QCOMPARE(scene.manager.calls, QStringList({"getTemperatureStatisticsOfGroups"}));
        const auto request = scene.manager.temperatureStatisticsOfGroups.requests.first();
        checkFirstSpan(request);
        QCOMPARE(request.userId, 7);
        QCOMPARE(request.sortType, 1);
        QCOMPARE(request.orgType, 2);
        QCOMPARE(request.personGorupIDList(), std::vector<int>({41}));
    }

    void groupsWithoutAnOrganisationAreNotAsked()
    {
        StatisticsScene scene(5, QString());
        answerWholeLevel(scene, twoBars);
        scene.page.barDataList = twoBarValues;
        scene.page.devDataList = twoBarKeys;
        LogCapture log;
        QCOMPARE(scene.page.getTemperatureOfGroups(), 1);
        QCOMPARE(linesStartingWith(log, {"BasicChart::getTemperatureOfGroups"}),
            QStringList({"BasicChart::getTemperatureOfGroups",
                "BasicChart::getTemperatureOfGroups No Suborganization"}));
        QCOMPARE(scene.manager.calls, QStringList());
        QCOMPARE(scene.tips(), QStringList());
        QCOMPARE(scene.page.barDataList, twoBarValues);
        QCOMPARE(scene.page.devDataList, twoBarKeys);
    }

    void aGroupsSearchWithoutAnOrganisationTellsTheUser()
    {
        StatisticsScene scene(5);
        auto *organisations = scene.page.part<ZrComboBoxWithTree>("comboBox");
        ZrTreeView *tree = std::exchange(organisations->m_pTreeView, nullptr);
        scene.page.slotSearch();
        organisations->m_pTreeView = tree;
        QCOMPARE(scene.manager.calls, QStringList());
        QCOMPARE(scene.tips(), QStringList({"2 TK_orgNotExist"}));
    }

    void groupsTellTheirStepsInOrder()
    {
        StatisticsScene scene(5);
        answerWholeLevel(scene, twoBars);
        LogCapture log;
        QCOMPARE(scene.page.getTemperatureOfGroups(), 4);
        const QStringList steps = linesStartingWith(log,
            {"BasicChart::getTemperatureOfGroups", "BasicChart::getOrgaIDList",
                "BasicChart::clearBarChartData", "setGroupsBarList", "BasicChart::getChartDataByBarId"});
        QCOMPARE(steps.size(), 4);
        QCOMPARE(steps.at(0), u"BasicChart::getTemperatureOfGroups"_s);
        QVERIFY(steps.at(1).startsWith(u"BasicChart::getOrgaIDList"_s));
        QCOMPARE(steps.at(2), u"BasicChart::clearBarChartData "_s);
        QCOMPARE(steps.at(3), u"BasicChart::getChartDataByBarId"_s);
    }

    void personsAreAskedForPageAndOrganisation()
    {
        StatisticsScene scene(6);
        scene.page.getTemperatureOfPersons();
        QCOMPARE(scene.manager.calls, QStringList({"getTemperatureStatisticsOfPersons"}));
        const auto request = scene.manager.temperatureStatisticsOfPersons.requests.first();
        checkFirstSpan(request);
        QCOMPARE(request.pageIndex, 1);
        QCOMPARE(request.pageSize, 10);
        QCOMPARE(request.userId, 7);
        QCOMPARE(request.sortType, 1);
        QCOMPARE(request.orgaId, 41);
    }

    void personsWithoutAnOrganisationAreAskedAllTheSame()
    {
        StatisticsScene scene(6, QString());
        answerWholeLevel(scene, twoBars);
        QCOMPARE(scene.page.getTemperatureOfPersons(), 4);
        QCOMPARE(scene.manager.temperatureStatisticsOfPersons.requests.size(), 1);
        QCOMPARE(scene.manager.temperatureStatisticsOfPersons.requests.first().orgaId, 0);
        QCOMPARE(scene.page.barDataList, twoBarValues);
    }

    void personsTellTheirStepsInOrder()
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
        QCOMPARE(steps.at(0), u" BasicChart::getTemperatureOfPersons"_s);
        QCOMPARE(steps.at(1), u"BasicChart::compareCondition"_s);
        QVERIFY(steps.at(2).startsWith(u"BasicChart::setPageInfo"_s));
        QCOMPARE(steps.at(3), u"BasicChart::clearBarChartData "_s);
        QCOMPARE(steps.at(4), u"BasicChart::getChartDataByBarId"_s);
    }

    void personsAskForThePageThatStandsWhileTheConditionStays()
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

    void personsGoBackToTheFirstPageWhenTheConditionChanged()
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

    void personsTakeThePageFromTheAnswer()
    {
        StatisticsScene scene(6);
        answerPersons(scene.manager, twoBars, 8, 3);
        QCOMPARE(scene.page.getTemperatureOfPersons(), 4);
        QCOMPARE(scene.page.m_nCurPage, 3);
        QCOMPARE(scene.page.m_nTotalPage, 8);
    }

    void personsKeepThePageWithoutRecords()
    {
        StatisticsScene scene(6);
        answerPersons(scene.manager, {}, 8, 3);
        LogCapture log;
        QCOMPARE(scene.page.getTemperatureOfPersons(), 3);
        QCOMPARE(scene.page.m_nCurPage, 1);
        QCOMPARE(scene.page.m_nTotalPage, 1);
        QCOMPARE(linesStartingWith(log, {"BasicChart::setPageInfo"}), QStringList());
    }

    void personsKeepThePageWhenTheAnswerIsNegative()
    {
        StatisticsScene scene(6);
        answerPersons(scene.manager, twoBars, 6, -1);
        QCOMPARE(scene.page.getTemperatureOfPersons(), 4);
        QCOMPARE(scene.page.m_nCurPage, 1);
        QCOMPARE(scene.page.m_nTotalPage, 1);
        QCOMPARE(scene.page.barDataList, twoBarValues);
    }

    void personsKeepThePageWhenRefused()
    {
        StatisticsScene scene(6);
        answerPersons(scene.manager, twoBars, 8, 3);
        scene.page.getTemperatureOfPersons();
        scene.manager.failWith(reason);
        QCOMPARE(scene.page.getTemperatureOfPersons(), 2);
        QCOMPARE(scene.page.m_nCurPage, 3);
        QCOMPARE(scene.page.m_nTotalPage, 8);
    }

    void aRefusedListLeavesTheBars_data() { addBothLists(); }

    void aRefusedListLeavesTheBars()
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
        QCOMPARE(countOfReasonLines(log, word + u" fail"_s, reason), 1);
        QVERIFY(!log.contains(word + u" records is empty"_s));
        QCOMPARE(scene.manager.calls.size(), 1);
        QCOMPARE(scene.tips(), QStringList());
        QCOMPARE(scene.page.barDataList, twoBarValues);
        QCOMPARE(scene.page.devDataList, twoBarKeys);
        QCOMPARE(scene.page.lineDataList, line);

        scene.page.slotSearch();
        QCOMPARE(scene.tips(), QStringList({"3 TK_GetFailed" + reason}));
        QCOMPARE(scene.page.barDataList, twoBarValues);
    }

    void anEmptyListLeavesTheBars_data() { addBothLists(); }

    void anEmptyListLeavesTheBars()
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
        QCOMPARE(log.count(word + u" records is empty"_s), 1);
        QVERIFY(!log.containsStart(word + u" fail"_s));
        QCOMPARE(scene.manager.calls.size(), 1);
        QCOMPARE(scene.tips(), QStringList());
        QCOMPARE(scene.page.barDataList, twoBarValues);
        QCOMPARE(scene.page.devDataList, twoBarKeys);

        scene.page.slotSearch();
        QCOMPARE(scene.tips(), QStringList({"1 TK_NoRecords"}));
    }

    void aListFillsBarsAndOpensItsFirstRow_data() { addBothLists(); }

    void aListFillsBarsAndOpensItsFirstRow()
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
        QVERIFY(!log.containsStart(word + u" fail"_s));
        QVERIFY(!log.contains(word + u" records is empty"_s));
        if (type == 5)
            QCOMPARE(scene.manager.temperatureStatisticsOfGroup.requests.first().groupId, 31);
        else
            QCOMPARE(scene.manager.temperatureStatisticsOfPerson.requests.first().personId, 31);
        QCOMPARE(scene.manager.temperatureStatisticsOfGroup.requests.size()
                + scene.manager.temperatureStatisticsOfPerson.requests.size(),
            1);
    }

    void aListReplacesTheBarsBefore_data() { addBothLists(); }

    void aListReplacesTheBarsBefore()
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

    void barsOfOneNameDoNotMerge_data() { addBothLists(); }

    void barsOfOneNameDoNotMerge()
    {
        QFETCH(int, type);
        StatisticsScene scene(type);
        answerWholeLevel(scene, {{1, "Ward", 5}, {2, "Ward", 6}, {3, "Ward", 5}});
        QCOMPARE(scene.queryWholeLevel(), 4);
        QCOMPARE(scene.page.barDataList, LabelledValues({{"Ward", 5}, {"Ward", 6}, {"Ward", 5}}));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{"Ward", "1"}, {"Ward", "2"}, {"Ward", "3"}}));
    }

    void namesOfGroupsAreTranslatedAndThoseOfPersonsAreNot()
    {
        QVERIFY(HostSettings::setLanguage(u"x-long"_s));
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

    void brokenTextNeverStopsTheBars_data() { addBothLists(); }

    void brokenTextNeverStopsTheBars()
    {
        QFETCH(int, type);
        StatisticsScene scene(type);
        answerWholeLevel(scene,
            {{smallest, "\xff\xfe", largest}, {0, "", smallest}, {largest, std::string("a\0b", 3), -1}});
        answerDrillDown(scene, {{-1, "\xc3", 1}, {-1, "", 1}});
        QCOMPARE(scene.queryWholeLevel(), 4);
        QCOMPARE(listValues(scene.page.barDataList), QList<int>({largest, smallest, -1}));
        QCOMPARE(scene.page.devDataList.at(0).second, u"-2147483648"_s);
        QCOMPARE(scene.page.devDataList.at(1), LabelledKeys::value_type("", "0"));
        QCOMPARE(scene.page.devDataList.at(2).second, u"2147483647"_s);
        QCOMPARE(scene.page.lineDataList.size(), 2);
    }

    void anEmptyBarListAsksNothing_data()
    {
        table<int, QString>({"type", "line"},
            {{"groups", 5, "setGroupsBarList is empty"}, {"persons", 6, "setPersonsBarList is empty"}});
    }

    void anEmptyBarListAsksNothing()
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

    void aGroupIsAskedByItsNumber()
    {
        StatisticsScene scene(5);
        scene.page.getTemperatureOfGroup(u"93"_s);
        QCOMPARE(scene.manager.calls, QStringList({"getTemperatureStatisticsOfGroup"}));
        const auto request = scene.manager.temperatureStatisticsOfGroup.requests.first();
        checkFirstSpan(request);
        QCOMPARE(request.userId, 7);
        QCOMPARE(request.orgType, 2);
        QCOMPARE(request.groupId, 93);
    }

    void aPersonIsAskedByItsNumberAlone()
    {
        StatisticsScene scene(6);
        scene.page.getTemperatureOfPerson(u"94"_s);
        QCOMPARE(scene.manager.calls, QStringList({"getTemperatureStatisticsOfPerson"}));
        const auto request = scene.manager.temperatureStatisticsOfPerson.requests.first();
        checkFirstSpan(request);
        QCOMPARE(request.personId, 94);
    }

    void aDrillDownTellsItsStepsInOrder_data() { addBothDrillDowns(); }

    void aDrillDownTellsItsStepsInOrder()
    {
        QFETCH(DrillDown, drillDown);
        StatisticsScene scene(drillDown.type);
        answerDrillDown(scene, {{-1, "hour", 2}});
        LogCapture log;
        runDrillDown(scene, u"30"_s);
        QCOMPARE(log.lines(),
            QStringList(
                {drillDown.word, drillDown.word + " success", "BasicChart::clearPieAndLineChartData"}));
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"hour", 2}}));
        QCOMPARE(scene.tips(), QStringList());
    }

    void aFailedDrillDownTellsWhyAndKeepsTheLists_data() { addFailedDrillDowns(); }

    void aFailedDrillDownTellsWhyAndKeepsTheLists()
    {
        QFETCH(DrillDown, drillDown);
        QFETCH(bool, refused);
        StatisticsScene scene(drillDown.type);
        scene.page.lineDataList = {{"kept", 1}};
        scene.page.pieDataList = {{"kept", 2}};
        if (refused)
            scene.manager.failOperation(drillDown.operation, reason);
        QList<qsizetype> tipsThen;
        LogCapture log;
        log.whenWritten = [&](const QString &) { tipsThen.append(scene.page.tips.size()); };
        runDrillDown(scene, u"30"_s);
        // The user is told before the log is.
        QCOMPARE(tipsThen, QList<qsizetype>({0, 1}));
        QCOMPARE(scene.tips(), QStringList(refused ? "2 TK_GetFailed" + reason : u"2 TK_NoRecords"_s));
        QCOMPARE(log.lines().size(), 2);
        QCOMPARE(log.lines().first(), drillDown.word);
        if (refused)
            QCOMPARE(countOfReasonLines(log, u"BasicChart::%1 fail"_s.arg(drillDown.word), reason), 1);
        else
            QCOMPARE(log.lines().last(), drillDown.word + " records is empty");
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"kept", 1}}));
        QCOMPARE(scene.page.pieDataList, LabelledValues({{"kept", 2}}));
    }

    void unitAndSpanAreThoseOfThePage_data()
    {
        table<QByteArray, int, QString, QString>({"button", "unit", "start", "end"},
            {
                {"months", "pushButtonMonth", 1, "2023-11", "2024-05"},
                {"days", "pushButtonDay", 2, "2024-04-26", "2024-05-03"},
            });
    }

    void unitAndSpanAreThoseOfThePage()
    {
        QFETCH(QByteArray, button);
        QFETCH(int, unit);
        QFETCH(QString, start);
        QFETCH(QString, end);
        StatisticsScene scene(5);
        scene.press(button.constData());
        scene.forget();
        scene.page.getTemperatureOfGroups();
        scene.page.getTemperatureOfGroup(u"30"_s);
        scene.page.getTempStatisticsDistributionOfGroups(u"30"_s, 1);
        scene.page.getTemperatureOfPersons();
        scene.page.getTemperatureOfPerson(u"30"_s);
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

    void aNameEndsAtItsFirstNullByteOnlyWhereItIsTranslated()
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

    void aFailedDrillDownOfABarLeavesLineAndPieEmpty_data() { addFailedDrillDowns(); }

    void aFailedDrillDownOfABarLeavesLineAndPieEmpty()
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
        scene.page.getChartDataByBarId(u"30"_s);
        QCOMPARE(scene.page.tips.first().text, refused ? "TK_GetFailed" + reason : u"TK_NoRecords"_s);
        QCOMPARE(scene.page.tips.first().kind, 2);
        QCOMPARE(scene.page.lineDataList, LabelledValues());
        QCOMPARE(scene.page.pieDataList, LabelledValues());
        QCOMPARE(scene.page.barDataList, twoBarValues);
    }

    void aPersonsBarAsksThePersonAlone()
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

    void theLineOfABarIsOrderedByTime()
    {
        StatisticsScene scene(6);
        answerDrillDown(scene, {{4, "2024-05-03 02", 1}, {5, "2024-05-03 00", 2}, {6, "2024-05-03 01", 3}});
        scene.page.getChartDataByBarId(u"30"_s);
        QCOMPARE(scene.page.lineDataList,
            LabelledValues({{"2024-05-03 00", 2}, {"2024-05-03 01", 3}, {"2024-05-03 02", 1}}));
        QCOMPARE(scene.page.pieDataList, LabelledValues({{"4", 1}, {"5", 2}, {"6", 3}}));
    }

    void equalPeriodsAddUpInTheirFirstPlace_data() { addBothDrillDowns(); }

    void equalPeriodsAddUpInTheirFirstPlace()
    {
        QFETCH(DrillDown, drillDown);
        StatisticsScene scene(drillDown.type);
        fillLine(scene, {{1, "b", 2}, {1, "a", 5}, {1, "b", 40}, {1, "B", 1}, {1, "a", -6}, {1, "b ", 3}});
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"b", 42}, {"a", -1}, {"B", 1}, {"b ", 3}}));
        fillLine(scene, {{1, "over", largest}, {1, "under", smallest}, {1, "over", 1}, {1, "under", -1}});
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"over", smallest}, {"under", largest}}));
    }

    void aLineReplacesLineAndPieBefore_data() { addBothDrillDowns(); }

    void aLineReplacesLineAndPieBefore()
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

    void aGroupsLineLeavesThePieEmpty()
    {
        StatisticsScene scene(5);
        scene.page.setGroupLineList({{3, "a", 2}, {-1, "b", 5}});
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"a", 2}, {"b", 5}}));
        QCOMPARE(scene.page.pieDataList, LabelledValues());
    }

    void slicesOfAPerson_data()
    {
        using Items = QList<std::pair<int, std::pair<QString, int>>>;
        table<Items, LabelledValues, LabelledValues>({"items", "line", "pie"},
            {
                {"the number of the class names the slice", {{12, {"t0", 3}}}, {{"t0", 3}}, {{"12", 3}}},
                {"without a class the period names the slice", {{-1, {"t0", 3}}}, {{"t0", 3}}, {{"t0", 3}}},
                {"class 0 is a class", {{0, {"t0", 3}}}, {{"t0", 3}}, {{"0", 3}}},
                {"class -2 is a class", {{-2, {"t0", 3}}}, {{"t0", 3}}, {{"-2", 3}}},
                {"a figure of 0 is a point and no slice", {{4, {"t0", 0}}, {-1, {"t1", 0}}},
                    {{"t0", 0}, {"t1", 0}}, {}},
                {"a negative figure is a slice", {{4, {"t0", -2}}}, {{"t0", -2}}, {{"4", -2}}},
                {"one class in several periods is one slice in its first place",
                    {{4, {"t0", 1}}, {5, {"t0", 2}}, {4, {"t1", 10}}}, {{"t0", 3}, {"t1", 10}},
                    {{"4", 11}, {"5", 2}}},
                {"a period named like a class shares its slice", {{5, {"t0", 1}}, {-1, {"5", 2}}},
                    {{"t0", 1}, {"5", 2}}, {{"5", 3}}},
                {"slices wrap as 32-bit figures do", {{5, {"t0", largest}}, {5, {"t1", 2}}},
                    {{"t0", largest}, {"t1", 2}}, {{"5", smallest + 1}}},
                {"nothing gives nothing", {}, {}, {}},
            });
    }

    void slicesOfAPerson()
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
};

TALVIX_TEST_MAIN(TestTemperatureQueries)
#include "tst_temperature_queries.moc"
