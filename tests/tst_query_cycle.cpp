#include "support/PageScene.h"
#include "support/TestMain.h"
#include "support/TextRecorder.h"

#include <TalvixWidgets/ZrCalendarWidget.h>
#include <TalvixWidgets/ZrChartView.h>
#include <TalvixWidgets/ZrComboBoxWithTree.h>
#include <TalvixWidgets/ZrLoaddingWidget.h>
#include <TalvixWidgets/ZrPushButton.h>
#include <TalvixWidgets/ZrTreeView.h>

#include <QtCharts/QChart>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

#include <climits>

namespace {

const QString searchLine = QStringLiteral("BasicChart::slotSearch ");
const QString comboLine = QStringLiteral("BasicChart::comboDataExists");
const QString dataLine = QStringLiteral("BasicChart::getChartData");
const QString loadLine = QStringLiteral("BasicChart::slotOrgaInfoLoad");
const QString ascLine = QStringLiteral("BasicChart::on_pushButtonAsc_clicked");
const QString descLine = QStringLiteral("BasicChart::on_pushButtonDesc_clicked");
const QString chartLine = QStringLiteral("BasicChart::loadChart");
const QString compareLine = QStringLiteral("BasicChart::compareCondition");
const QString clearPieLine = QStringLiteral("BasicChart::clearPieChartData");
const QString noTreeLine = QStringLiteral("BasicChart::slotOrgaInfoLoad  addTreeView fail");

QString showLine(int type)
{
    return QStringLiteral("BasicChart::doAfterWidgetShow Type %1").arg(type);
}

QString hideLine(int type)
{
    return QStringLiteral("BasicChart::doAfterWidgetHide Type %1").arg(type);
}

const QStringList alarmQuery = {QStringLiteral("getAlarmStatisticsOfOrgas")};

using Tip = ProbePage::Tip;

/// Client that lets a test look at the page while the tree is fetched.
class WatchedClient : public FakeKrxClient
{
public:
    std::function<void()> whenAsked;
    std::list<TalvixGroup> &getOrgaList() override
    {
        if (whenAsked)
            whenAsked();
        return FakeKrxClient::getOrgaList();
    }
};

/// Page that shows the mark of a hidden widget.
class MarkedPage : public ProbePage
{
public:
    using BaseStyleWidget::m_bAfterHide;
    using ProbePage::ProbePage;
};

/// Page whose first-show set-up is counted.
class CountingPage : public ProbePage
{
public:
    using ProbePage::ProbePage;
    int setUps = 0;
    bool firstShowDuringSetUp = false;
    void initForm() override
    {
        ++setUps;
        firstShowDuringSetUp = m_bFirstShow;
        ProbePage::initForm();
    }
};

/// Page that lets a test look at it while it tells something.
class WatchedPage : public ProbePage
{
public:
    using ProbePage::ProbePage;
    std::function<void()> whenTipped;
    void setTips(const QString &text, const int &kind) override
    {
        ProbePage::setTips(text, kind);
        if (whenTipped)
            whenTipped();
    }
};

QLabel *title(const ProbePage &page, const char *name)
{
    return page.part<QLabel>(name);
}

bool titlesAreEmpty(const ProbePage &page)
{
    return title(page, "labelBarChartTitle")->text().isEmpty()
        && title(page, "labelLineChartTitle")->text().isEmpty()
        && title(page, "labelPieChartTitle")->text().isEmpty();
}

QList<bool> chartsShown(const ProbePage &page)
{
    QList<bool> shown;
    for (const ZrChartView *view : page.m_chartViewList)
        shown.append(view->chart()->isVisible());
    return shown;
}

QString timeText(const ProbePage &page)
{
    return page.part<QLineEdit>("lineEditTime")->text();
}

void click(const ProbePage &page, const char *button)
{
    QTest::mouseClick(page.part<ZrPushButton>(button), Qt::LeftButton);
}

} // namespace

Q_DECLARE_METATYPE(ProbePage::Tip)

class TestQueryCycle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void firstShowRunsSetUpOnce();
    void firstShowGoesInOrder();
    void firstShowByDayTouchesTheTimeBeforeTheLoad();
    void firstShowWithoutTreeStopsAfterTheLoad();
    void firstShowSetsUnitForItsKind_data();
    void firstShowSetsUnitForItsKind();
    void laterShowKeepsTimeAndUnit();
    void overlayCoversTreeAndQueryOfAShow();
    void overlayEndsWhenTheTreeIsEmpty();
    void overlayStandsWhenTheShowIsLogged();
    void otherSearchesHaveNoOverlay();
    void everyShowReloadsTreeAndFallsBackToRoot();
    void everyShowEndsDescendingAfterSearchingTheOldWay();
    void showWithoutTreeKeepsOrderAndCharts();
    void showWithFailedSearchStillPlacesOverlays();
    void showWithFailedSearchStillTurnsTheOrder();
    void kindsWithoutTreeTipAtEachShow_data();
    void kindsWithoutTreeTipAtEachShow();

    void hideLogsAndSetsTheMark_data();
    void hideLogsAndSetsTheMark();
    void hideKeepsTimerAndData();

    void searchWithEmptyTreeStopsEarly();
    void searchLogsItsSteps();
    void searchOutcomes_data();
    void searchOutcomes();
    void failureTipTakesTheTextOfTheBarQuery();
    void successSortsByTheChosenOrder();
    void successDescendsByDefault();
    void successBringsBackHiddenCharts();

    void everyConditionSearchesAtOnce_data();
    void everyConditionSearchesAtOnce();
    void everyChoiceOfAnOrganisationSearches();
    void sameTextSearchesNothing();
    void othersSearchNothing_data();
    void othersSearchNothing();
    void repeatedSearchStillAsksTheServer();

    void pageIsClearedBeforeItTellsWhy_data();
    void pageIsClearedBeforeItTellsWhy();
    void clearingEmptiesTitles();
    void clearingHidesControlsAndCharts_data();
    void clearingHidesControlsAndCharts();
    void clearingWithoutChartsIsHarmless();
    void clearingEmptiesKeptAnswersButTheHandling();
    void clearingEmptiesThePieAndLogs();
    void clearingKeepsBarsAndLines();
    void failureAfterSuccessLeavesViewsAndBars();
    void sortingAfterFailureDrillsDownAndRedraws();
    void hiddenChartsSurviveMouseAndLanguage();

    void conditionIsStoredWhenItDiffers_data();
    void conditionIsStoredWhenItDiffers();
    void equalConditionKeepsThePage();
    void conditionTakesBothEndsOfTheTime();
    void conditionNeedsTwoParts_data();
    void conditionNeedsTwoParts();
    void conditionReadsTheTreeBeforeItLogs();
    void conditionIsComparedForPagedKindsOnly_data();
    void conditionIsComparedForPagedKindsOnly();
    void unpagedKindStaysOnPageOne();
    void sortOrderIsNoPartOfTheCondition();

    void samePageIsAskedForAgain();
    void changedConditionAsksForPageOne_data();
    void changedConditionAsksForPageOne();
    void failedPageStaysAdvanced_data();
    void failedPageStaysAdvanced();

    void pageInfo_data();
    void pageInfo();

    void timerTellsOfTheBarAndStops();
    void timerWithoutBarOnlyStops();

    void pressOnTimeOpensTheCalendar_data();
    void pressOnTimeOpensTheCalendar();
    void pressOnTimePlacesNoCursor();
    void filterSwallowsOnlyPressesOnTime();

    void sizeDecidesAboutThePie_data();
    void sizeDecidesAboutThePie();
    void onlineKindsKeepThePieAsItStands();
    void largeEnoughSizeRefreshesTheOverlays();
    void smallSizeLeavesTheOverlays();
    void pieStandsAgainBeforeTheOverlaysArePlaced();
};

void TestQueryCycle::init()
{
    setPresentMoment({});
}

void TestQueryCycle::firstShowRunsSetUpOnce()
{
    PageScene scene;
    CountingPage page(1);
    QVERIFY(page.m_bFirstShow);
    QCOMPARE(page.setUps, 0);
    showPage(page);
    QCOMPARE(page.setUps, 1);
    QVERIFY(page.firstShowDuringSetUp);
    QVERIFY(!page.m_bFirstShow);
    page.hide();
    page.show();
    QCOMPARE(page.setUps, 1);
    QVERIFY(!page.m_bFirstShow);
}

void TestQueryCycle::firstShowGoesInOrder()
{
    PageScene scene;
    ProbePage page(1);
    LogCapture log;
    showPage(page);
    QCOMPARE(onlyLines(log.lines(),
                 {showLine(1), loadLine, noTreeLine, searchLine, comboLine, dataLine,
                     QStringLiteral("BasicChart::getAlarmOfOrgas"), QStringLiteral("BasicChart::setBarList"),
                     ascLine, descLine, QStringLiteral("BasicChart::loadChart  frist loadcharts")}),
        QStringList({showLine(1), loadLine, searchLine, comboLine, dataLine,
            QStringLiteral("BasicChart::getAlarmOfOrgas"), QStringLiteral("BasicChart::setBarList"),
            QStringLiteral("BasicChart::loadChart  frist loadcharts"), descLine, descLine}));
    QCOMPARE(log.lines(QtCriticalMsg), QStringList());
    QCOMPARE(scene.client.calls.mid(0, 3),
        QStringList({QStringLiteral("getCurUserInfo"), QStringLiteral("getOrgaList"),
            QStringLiteral("organizeOrgaNodes")}));
    QCOMPARE(page.tips.size(), 0);
    QCOMPARE(chartsShown(page), QList<bool>({true, true, true}));
    QCOMPARE(listKeys(page.barDataList),
        QStringList(
            {QStringLiteral("Plant North"), QStringLiteral("Plant South"), QStringLiteral("Company")}));
}

void TestQueryCycle::firstShowByDayTouchesTheTimeBeforeTheLoad()
{
    PageScene scene;
    ProbePage page(5);
    LogCapture log;
    showPage(page);
    QCOMPARE(writtenLines(log),
        QStringList({searchLine, comboLine, showLine(5), loadLine, QStringLiteral("ServiceType is default"),
            noTreeLine}));
}

void TestQueryCycle::firstShowWithoutTreeStopsAfterTheLoad()
{
    PageScene scene;
    scene.client.clearTree();
    ProbePage page(1);
    LogCapture log;
    showPage(page);
    QCOMPARE(writtenLines(log), QStringList({showLine(1), loadLine, noTreeLine}));
    QCOMPARE(page.tips, QList<Tip>({{QStringLiteral("TK_orgNotExist"), 2}}));
    QCOMPARE(scene.manager.calls, QStringList());
    QVERIFY(page.m_chartViewList.isEmpty());
}

void TestQueryCycle::firstShowSetsUnitForItsKind_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("hourShown");
    const QString day = QStringLiteral("2024-04-26~2024-05-03");
    const QString hour = QStringLiteral("2024-05-03 00~2024-05-03 17");
    for (const int type : {1, 2, 3, 4, 7, 8, 9, 0, 10, -1, INT_MAX, INT_MIN})
        QTest::addRow("type %d opens on the hours of today", type) << type << 3 << hour << true;
    for (const int type : {5, 6})
        QTest::addRow("type %d opens on the last seven days", type) << type << 2 << day << false;
}

void TestQueryCycle::firstShowSetsUnitForItsKind()
{
    QFETCH(int, type);
    QFETCH(int, unit);
    QFETCH(QString, text);
    QFETCH(bool, hourShown);
    PageScene scene;
    ProbePage page(type);
    page.m_nTimeType = 1;
    showPage(page);
    QCOMPARE(page.m_nTimeType, unit);
    QCOMPARE(timeText(page), text);
    QCOMPARE(page.part<QWidget>("pushButtonHour")->isVisible(), hourShown);
    QCOMPARE(page.part<QWidget>("pushButtonHour")->property("highlight"), QVariant(unit == 3));
    QCOMPARE(page.part<QWidget>("pushButtonDay")->property("highlight"), QVariant(unit == 2));
    QCOMPARE(page.part<QWidget>("pushButtonMonth")->property("highlight"), QVariant(false));
}

void TestQueryCycle::laterShowKeepsTimeAndUnit()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    click(page, "pushButtonMonth");
    page.hide();
    setPresentMoment(QDateTime(QDate(2025, 1, 9), QTime(6, 0)));
    page.show();
    QCOMPARE(page.m_nTimeType, 1);
    QCOMPARE(timeText(page), QStringLiteral("2023-11~2024-05"));
    QCOMPARE(page.part<QWidget>("pushButtonMonth")->property("highlight"), QVariant(true));
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().startTime(), std::string("2023-11"));
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().endTime(), std::string("2024-05"));
}

void TestQueryCycle::overlayCoversTreeAndQueryOfAShow()
{
    PageScene scene;
    WatchedClient client;
    client.setTree(QStringLiteral("1 Company\n  2 Plant North\n  3 Plant South\n"));
    ProbePage page(1);
    int duringTree = 0;
    int duringQuery = 0;
    const auto covered = [&page] {
        const auto overlays = page.findChildren<ZrLoaddingWidget *>();
        return overlays.size() == 1 && overlays.first()->parentWidget() == &page
            && overlays.first()->isVisible() && overlays.first()->geometry() == page.rect();
    };
    client.whenAsked = [&] { duringTree += covered() ? 1 : 0; };
    scene.manager.alarmStatisticsOfOrgas.answer = [&](const auto &, auto &response) {
        duringQuery += covered() ? 1 : 0;
        response.records.resize(1);
        response.records[0].orgaId = 2;
        response.records[0].count = 5;
        return true;
    };
    showPage(page);
    QCOMPARE(duringTree, 1);
    QCOMPARE(duringQuery, 1);
    QCOMPARE(page.findChildren<ZrLoaddingWidget *>().size(), 0);

    page.hide();
    page.show();
    QCOMPARE(duringTree, 2);
    QCOMPARE(duringQuery, 2);
    QCOMPARE(page.findChildren<ZrLoaddingWidget *>().size(), 0);
}

void TestQueryCycle::overlayEndsWhenTheTreeIsEmpty()
{
    WatchedClient client;
    ScriptedStatisticsManager manager;
    ProbePage page(1);
    int covered = 0;
    client.whenAsked = [&] { covered += page.findChildren<ZrLoaddingWidget *>().size() == 1 ? 1 : 0; };
    showPage(page);
    QCOMPARE(covered, 1);
    QCOMPARE(page.findChildren<ZrLoaddingWidget *>().size(), 0);
    QCOMPARE(page.tips, QList<Tip>({{QStringLiteral("TK_orgNotExist"), 2}}));
    QCOMPARE(manager.calls, QStringList());
}

void TestQueryCycle::overlayStandsWhenTheShowIsLogged()
{
    PageScene scene;
    ProbePage page(1);
    int overlays = 0;
    LogCapture log;
    log.whenWritten = [&](const QString &line) {
        if (line != showLine(1))
            return;
        for (const ZrLoaddingWidget *overlay : page.findChildren<ZrLoaddingWidget *>())
            overlays += overlay->isVisible();
    };
    showPage(page);
    QCOMPARE(overlays, 1);
}

void TestQueryCycle::otherSearchesHaveNoOverlay()
{
    PageScene scene;
    ProbePage page(2);
    showPage(page);
    int queries = 0;
    int overlays = 0;
    scene.manager.alarmStatisticsOfDevices.answer = [&](const auto &request, auto &response) {
        ++queries;
        overlays += static_cast<int>(page.findChildren<ZrLoaddingWidget *>().size());
        response.records.resize(1);
        response.records[0].uid = "gate";
        response.records[0].count = 5;
        response.curPage = request.pageIndex;
        response.totalPage = 5;
        return true;
    };
    int details = 0;
    scene.manager.alarmStatisticsOfDevice.answer = [&](const auto &, auto &) {
        ++details;
        overlays += static_cast<int>(page.findChildren<ZrLoaddingWidget *>().size());
        return true;
    };
    click(page, "pushButtonDay");
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
    QTest::mouseClick(page.pushButtonNext, Qt::LeftButton);
    QString bar = QStringLiteral("Gate");
    page.slotBarSetChanged(bar);
    QCOMPARE(queries, 3);
    QVERIFY(details >= 4);
    QCOMPARE(overlays, 0);
}

void TestQueryCycle::everyShowReloadsTreeAndFallsBackToRoot()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({3}));
    page.hide();
    scene.forgetCalls();
    page.show();
    QCOMPARE(scene.treeLoads(), 1);
    QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({1}));
    QCOMPARE(currentOrganisation(organisationCombo(page)), 1);
    QCOMPARE(organisationCombo(page)->currentText(), QStringLiteral("Company"));
}

void TestQueryCycle::everyShowEndsDescendingAfterSearchingTheOldWay()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().sortType, 1);
    click(page, "pushButtonAsc");
    QVERIFY(!page.sortFlag);
    QCOMPARE(listValues(page.barDataList), QList<int>({5, 7, 9}));
    page.hide();
    LogCapture log;
    page.show();
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().sortType, 2);
    QCOMPARE(onlyLines(log.lines(), {searchLine, ascLine, descLine}),
        QStringList({searchLine, ascLine, descLine}));
    QVERIFY(page.sortFlag);
    QCOMPARE(listValues(page.barDataList), QList<int>({9, 7, 5}));
    QCOMPARE(page.part<QWidget>("pushButtonAsc")->property("highlight"), QVariant(false));
    QCOMPARE(page.part<QWidget>("pushButtonDesc")->property("highlight"), QVariant(true));
    QCOMPARE(timeText(page), QStringLiteral("2024-05-03 00~2024-05-03 17"));
}

void TestQueryCycle::showWithoutTreeKeepsOrderAndCharts()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    click(page, "pushButtonAsc");
    page.hide();
    scene.client.clearTree();
    scene.forgetCalls();
    page.tips.clear();
    page.show();
    QVERIFY(!page.sortFlag);
    QCOMPARE(listValues(page.barDataList), QList<int>({5, 7, 9}));
    QCOMPARE(chartsShown(page), QList<bool>({true, true, true}));
    QVERIFY(!titlesAreEmpty(page));
    QCOMPARE(scene.manager.calls, QStringList());
    QCOMPARE(page.tips, QList<Tip>({{QStringLiteral("TK_orgNotExist"), 2}}));
}

void TestQueryCycle::showWithFailedSearchStillPlacesOverlays()
{
    PageScene scene;
    ProbePage page(2);
    showPage(page);
    page.hide();
    scene.manager.failWith(QStringLiteral("away"));
    page.tips.clear();
    page.show();
    QCOMPARE(page.tips, QList<Tip>({{QStringLiteral("TK_GetFailedaway"), 3}}));
    QCOMPARE(chartsShown(page), QList<bool>({false, false, false}));
    QVERIFY(!page.pushButtonNext->isHidden());
    QVERIFY(page.pushButtonPrevious->isHidden());
    page.slotSearch();
    QVERIFY(page.pushButtonNext->isHidden());
}

void TestQueryCycle::showWithFailedSearchStillTurnsTheOrder()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    click(page, "pushButtonAsc");
    page.hide();
    scene.manager.failOperation(QStringLiteral("getAlarmStatisticsOfOrgas"), QStringLiteral("away"));
    scene.forgetCalls();
    page.show();
    QCOMPARE(scene.manager.calls,
        QStringList(
            {QStringLiteral("getAlarmStatisticsOfOrgas"), QStringLiteral("getAlarmStatisticsOfOrga")}));
    QVERIFY(page.sortFlag);
    QCOMPARE(listValues(page.barDataList), QList<int>({9, 7, 5}));
    QCOMPARE(chartsShown(page), QList<bool>({true, true, true}));
    QVERIFY(!titlesAreEmpty(page));
}

void TestQueryCycle::kindsWithoutTreeTipAtEachShow_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {5, 6, 0, 10, -1, INT_MAX, INT_MIN})
        QTest::addRow("type %d", type) << type;
}

void TestQueryCycle::kindsWithoutTreeTipAtEachShow()
{
    QFETCH(int, type);
    PageScene scene;
    ProbePage page(type);
    showPage(page);
    QCOMPARE(page.tips, QList<Tip>({{QStringLiteral("TK_orgNotExist"), 2}}));
    page.hide();
    page.show();
    QCOMPARE(page.tips.size(), 2);
    LogCapture log;
    click(page, "pushButtonMonth");
    QCOMPARE(writtenLines(log), QStringList({searchLine, comboLine}));
    QCOMPARE(page.tips.size(), 2);
    QCOMPARE(scene.manager.calls, QStringList());
}

void TestQueryCycle::hideLogsAndSetsTheMark_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 10, -1})
        QTest::addRow("type %d", type) << type;
}

void TestQueryCycle::hideLogsAndSetsTheMark()
{
    QFETCH(int, type);
    PageScene scene;
    MarkedPage page(type);
    showPage(page);
    QVERIFY(!page.m_bAfterHide);
    LogCapture log;
    page.hide();
    QCOMPARE(writtenLines(log), QStringList({hideLine(type)}));
    QVERIFY(page.m_bAfterHide);
    log.clear();
    page.show();
    QCOMPARE(log.count(showLine(type)), 1);
    QVERIFY(!page.m_bAfterHide);
}

void TestQueryCycle::hideKeepsTimerAndData()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    const LabelledValues bars = page.barDataList;
    const LabelledValues line = page.lineDataList;
    const LabelledValues pie = page.pieDataList;
    const auto views = page.m_chartViewList;
    page.m_pTimer->start(100000);
    page.hide();
    QVERIFY(page.m_pTimer->isActive());
    QCOMPARE(page.barDataList, bars);
    QCOMPARE(page.lineDataList, line);
    QCOMPARE(page.pieDataList, pie);
    QVERIFY(!bars.isEmpty() && !line.isEmpty() && !pie.isEmpty());
    QCOMPARE(page.m_chartViewList, views);
    QVERIFY(organisationCombo(page)->count() > 0);
    QCOMPARE(timeText(page), QStringLiteral("2024-05-03 00~2024-05-03 17"));
    QVERIFY(!titlesAreEmpty(page));
    page.m_pTimer->stop();
}

void TestQueryCycle::searchWithEmptyTreeStopsEarly()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    organisationCombo(page)->clear();
    page.tips.clear();
    scene.forgetCalls();
    LogCapture log;
    page.slotSearch();
    QCOMPARE(writtenLines(log), QStringList({searchLine, comboLine}));
    QCOMPARE(page.tips.size(), 0);
    QCOMPARE(scene.manager.calls, QStringList());
    QVERIFY(!titlesAreEmpty(page));
    QCOMPARE(chartsShown(page), QList<bool>({true, true, true}));
    QCOMPARE(page.barDataList.size(), 3);
    QVERIFY(!page.pieDataList.isEmpty());
}

void TestQueryCycle::searchLogsItsSteps()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    LogCapture log;
    page.slotSearch();
    QCOMPARE(writtenLines(log).mid(0, 4),
        QStringList({searchLine, comboLine, dataLine, QStringLiteral("BasicChart::getAlarmOfOrgas")}));
}

void TestQueryCycle::searchOutcomes_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QList<Tip>>("tips");
    QTest::newRow("no organisation") << 1 << QList<Tip>({{QStringLiteral("TK_orgNotExist"), 2}});
    QTest::newRow("failed, with the client's text directly behind")
        << 2 << QList<Tip>({{QStringLiteral("TK_GetFailedserver is away"), 3}});
    QTest::newRow("no records") << 3 << QList<Tip>({{QStringLiteral("TK_NoRecords"), 1}});
    QTest::newRow("success") << 4 << QList<Tip>();
}

void TestQueryCycle::searchOutcomes()
{
    QFETCH(int, code);
    QFETCH(QList<Tip>, tips);
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    if (code == 1)
        scene.fillTreeWithoutCurrent(page);
    if (code == 2)
        scene.manager.failWith(QStringLiteral("server is away"));
    if (code == 3)
        scene.manager.alarmStatisticsOfOrgas.answers({});
    page.m_nCurPage = 3;
    page.m_nTotalPage = 5;
    page.m_queryCondition.userId = 42;
    page.m_queryCondition.orgaId = 17;
    page.tips.clear();
    scene.forgetCalls();
    LogCapture log;
    page.slotSearch();
    QCOMPARE(page.tips, tips);
    QCOMPARE(page.m_nCurPage, 3);
    QCOMPARE(page.m_nTotalPage, 5);
    QCOMPARE(page.m_queryCondition.userId, 42);
    QCOMPARE(page.m_queryCondition.orgaId, 17);
    QCOMPARE(scene.wholeLevelCalls().size(), code == 1 ? 0 : 1);
    QCOMPARE(log.count(clearPieLine), code == 4 ? 0 : 1);
    // Once for the rows put into order, once for the search.
    QCOMPARE(log.count(chartLine), code == 4 ? 2 : 0);
    QCOMPARE(log.count(descLine), code == 4 ? 1 : 0);
    QCOMPARE(log.count(ascLine), 0);
    QCOMPARE(titlesAreEmpty(page), code != 4);
    QCOMPARE(chartsShown(page), QList<bool>(3, code == 4));
    QCOMPARE(timeText(page), QStringLiteral("2024-05-03 00~2024-05-03 17"));
}

void TestQueryCycle::failureTipTakesTheTextOfTheBarQuery()
{
    PageScene scene;
    ProbePage page(2);
    showPage(page);
    scene.manager.failOperation(QStringLiteral("getAlarmStatisticsOfDevices"), QStringLiteral(" <b>42</b> "));
    page.tips.clear();
    page.slotSearch();
    QCOMPARE(page.tips, QList<Tip>({{QStringLiteral("TK_GetFailed <b>42</b> "), 3}}));
    scene.manager.failOperation(QStringLiteral("getAlarmStatisticsOfDevices"), QStringLiteral(""));
    page.tips.clear();
    page.slotSearch();
    QCOMPARE(page.tips, QList<Tip>({{QStringLiteral("TK_GetFailed"), 3}}));
}

void TestQueryCycle::successSortsByTheChosenOrder()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    click(page, "pushButtonAsc");
    LogCapture log;
    page.slotSearch();
    QCOMPARE(log.count(ascLine), 1);
    QCOMPARE(log.count(descLine), 0);
    const QStringList lines = writtenLines(log);
    QVERIFY(lines.indexOf(ascLine) < lines.lastIndexOf(chartLine));
    QCOMPARE(listValues(page.barDataList), QList<int>({5, 7, 9}));
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().sortType, 2);
}

void TestQueryCycle::successDescendsByDefault()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    LogCapture log;
    page.slotSearch();
    QCOMPARE(onlyLines(log.lines(), {ascLine, descLine}), QStringList({descLine}));
    const QStringList lines = writtenLines(log);
    QVERIFY(lines.indexOf(descLine) < lines.lastIndexOf(chartLine));
    QCOMPARE(listValues(page.barDataList), QList<int>({9, 7, 5}));
    QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().sortType, 1);
}

void TestQueryCycle::successBringsBackHiddenCharts()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    const auto views = page.m_chartViewList;
    scene.manager.failWith(QStringLiteral("away"));
    page.slotSearch();
    QCOMPARE(chartsShown(page), QList<bool>({false, false, false}));
    scene.manager.failWith({});
    page.slotSearch();
    QCOMPARE(chartsShown(page), QList<bool>({true, true, true}));
    QCOMPARE(page.m_chartViewList, views);
    QVERIFY(!titlesAreEmpty(page));
}

void TestQueryCycle::everyConditionSearchesAtOnce_data()
{
    QTest::addColumn<QString>("source");
    for (const char *source : {"month", "day", "calendar", "tree", "sum mode", "next", "previous"})
        QTest::newRow(source) << QString::fromLatin1(source);
}

void TestQueryCycle::everyConditionSearchesAtOnce()
{
    QFETCH(QString, source);
    PageScene scene;
    ProbePage page(2);
    showPage(page);
    page.m_nCurPage = 2;
    page.updateChartOverlays();
    scene.forgetCalls();
    LogCapture log;
    if (source == QStringLiteral("month"))
        click(page, "pushButtonMonth");
    else if (source == QStringLiteral("day"))
        click(page, "pushButtonDay");
    else if (source == QStringLiteral("calendar"))
        Q_EMIT page.m_pCalendarWidget->signalDataTimeChanged(
            QDateTime(QDate(2024, 5, 3), QTime(4, 0)), QDateTime(QDate(2024, 5, 3), QTime(6, 0)));
    else if (source == QStringLiteral("tree"))
        QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant North")));
    else if (source == QStringLiteral("sum mode"))
        page.part<QComboBox>("comboBoxOrgType")->setCurrentIndex(0);
    else if (source == QStringLiteral("next"))
        QTest::mouseClick(page.pushButtonNext, Qt::LeftButton);
    else
        QTest::mouseClick(page.pushButtonPrevious, Qt::LeftButton);
    QCOMPARE(log.count(searchLine), 1);
    QCOMPARE(scene.wholeLevelCalls(), QStringList({QStringLiteral("getAlarmStatisticsOfDevices")}));
    QCOMPARE(scene.treeLoads(), 0);
}

void TestQueryCycle::everyChoiceOfAnOrganisationSearches()
{
    PageScene scene;
    ProbePage page(2);
    showPage(page);
    scene.forgetCalls();
    LogCapture log;
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant North")));
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
    QCOMPARE(log.count(searchLine), 2);
}

void TestQueryCycle::sameTextSearchesNothing()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    scene.forgetCalls();
    LogCapture log;
    click(page, "pushButtonHour");
    QTest::keyClick(page.part<QComboBox>("comboBoxOrgType"), Qt::Key_Home);
    QCOMPARE(log.count(searchLine), 1);
    page.part<QComboBox>("comboBoxOrgType")->setCurrentIndex(0);
    QCOMPARE(log.count(searchLine), 1);
}

void TestQueryCycle::othersSearchNothing_data()
{
    QTest::addColumn<QString>("source");
    for (const char *source : {"asc", "desc", "resize", "organisation signal", "timer", "calendar opened"})
        QTest::newRow(source) << QString::fromLatin1(source);
}

void TestQueryCycle::othersSearchNothing()
{
    QFETCH(QString, source);
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    scene.forgetCalls();
    LogCapture log;
    if (source == QStringLiteral("asc"))
        click(page, "pushButtonAsc");
    else if (source == QStringLiteral("desc"))
        click(page, "pushButtonDesc");
    else if (source == QStringLiteral("resize"))
        page.resize(1400, 800);
    else if (source == QStringLiteral("organisation signal"))
        Q_EMIT scene.client.signalOrgaInfoChanged({}, TalvixOperatorType::Modify);
    else if (source == QStringLiteral("timer"))
        page.slotTimerReq();
    else
        page.showZrCalendarWidget(true);
    QCoreApplication::processEvents();
    QVERIFY(!log.contains(searchLine));
    QCOMPARE(scene.wholeLevelCalls(), QStringList());
    page.m_pCalendarWidget->hide();
}

void TestQueryCycle::repeatedSearchStillAsksTheServer()
{
    PageScene scene;
    ProbePage page(2);
    showPage(page);
    scene.forgetCalls();
    page.slotSearch();
    page.slotSearch();
    QCOMPARE(scene.wholeLevelCalls().size(), 2);
}

void TestQueryCycle::pageIsClearedBeforeItTellsWhy_data()
{
    QTest::addColumn<int>("outcome");
    QTest::newRow("no organisation") << 1;
    QTest::newRow("refused") << 2;
    QTest::newRow("no records") << 3;
}

void TestQueryCycle::pageIsClearedBeforeItTellsWhy()
{
    QFETCH(int, outcome);
    PageScene scene;
    WatchedPage page(1);
    showPage(page);
    QCOMPARE(page.tips.size(), 0);
    ZrTreeView noCurrentItem;
    ZrTreeView *const tree = organisationCombo(page)->m_pTreeView;
    if (outcome == 1)
        organisationCombo(page)->m_pTreeView = &noCurrentItem;
    if (outcome == 2)
        scene.manager.failWith(QStringLiteral("away"));
    if (outcome == 3)
        scene.manager.alarmStatisticsOfOrgas.answers({});
    bool cleared = false;
    page.whenTipped = [&] {
        cleared = titlesAreEmpty(page) && chartsShown(page) == QList<bool>({false, false, false})
            && page.pieDataList.isEmpty();
    };
    page.slotSearch();
    organisationCombo(page)->m_pTreeView = tree;
    QCOMPARE(page.tips.size(), 1);
    QVERIFY(cleared);
}

void TestQueryCycle::clearingEmptiesTitles()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    QVERIFY(!title(page, "labelBarChartTitle")->text().isEmpty());
    QVERIFY(!title(page, "labelLineChartTitle")->text().isEmpty());
    QVERIFY(!title(page, "labelPieChartTitle")->text().isEmpty());
    page.clearChartData();
    QCOMPARE(title(page, "labelBarChartTitle")->text(), QString());
    QCOMPARE(title(page, "labelLineChartTitle")->text(), QString());
    QCOMPARE(title(page, "labelPieChartTitle")->text(), QString());
}

void TestQueryCycle::clearingHidesControlsAndCharts_data()
{
    QTest::addColumn<int>("type");
    for (int type = 1; type <= 9; ++type)
        QTest::addRow("type %d", type) << type;
}

void TestQueryCycle::clearingHidesControlsAndCharts()
{
    QFETCH(int, type);
    PageScene scene;
    ProbePage page(type);
    showPage(page);
    scene.fillTree(page);
    page.slotSearch();
    QCoreApplication::processEvents();
    const auto views = page.m_chartViewList;
    QVERIFY(!views.isEmpty());
    QWidget *const controls[] = {
        page.pushButtonPrevious, page.pushButtonNext, page.labelPiecount, page.comboBoxPie};
    for (QWidget *control : controls) {
        if (control && control->parentWidget())
            control->setVisible(true);
    }
    page.clearChartData();
    for (const QWidget *control : controls) {
        if (control)
            QVERIFY2(control->isHidden(), qPrintable(control->objectName()));
    }
    QCOMPARE(page.m_chartViewList, views);
    for (const ZrChartView *view : views) {
        QVERIFY(!view->isHidden());
        QVERIFY(!view->chart()->isVisible());
    }
}

void TestQueryCycle::clearingWithoutChartsIsHarmless()
{
    ProbePage page(1);
    LogCapture log;
    page.clearChartData();
    QCOMPARE(writtenLines(log), QStringList({clearPieLine}));
    QVERIFY(page.m_chartViewList.isEmpty());
}

void TestQueryCycle::clearingEmptiesKeptAnswersButTheHandling()
{
    ProbePage page(1);
    page.snapSamples.resize(2);
    page.snapDetailMap[4].resize(1);
    page.etiologyDistribution.resize(1);
    page.numberDistribution.resize(1);
    page.temperatureDistribution.resize(1);
    page.maskDistribution.resize(1);
    page.tempAlarmHandleList = {{2, 7, "2024-05-03 01"}};
    page.clearChartData();
    QVERIFY(page.snapSamples.empty());
    QVERIFY(page.snapDetailMap.isEmpty());
    QVERIFY(page.etiologyDistribution.empty());
    QVERIFY(page.numberDistribution.empty());
    QVERIFY(page.temperatureDistribution.empty());
    QVERIFY(page.maskDistribution.empty());
    QCOMPARE(page.tempAlarmHandleList.size(), 1U);
    QCOMPARE(page.tempAlarmHandleList.front().count, 7);
}

void TestQueryCycle::clearingEmptiesThePieAndLogs()
{
    ProbePage page(1);
    page.pieDataList = {{QStringLiteral("Motion"), 3}};
    LogCapture log;
    page.clearChartData();
    QVERIFY(page.pieDataList.isEmpty());
    QCOMPARE(log.count(clearPieLine), 1);
    QVERIFY(page.m_mutex.tryLock());
    page.m_mutex.unlock();
}

void TestQueryCycle::clearingKeepsBarsAndLines()
{
    ProbePage page(1);
    const LabelledValues bars = {{QStringLiteral("a"), 1}};
    const LabelledValues bars2 = {{QStringLiteral("b"), 2}};
    const LabelledValues line = {{QStringLiteral("c"), 3}};
    const LabelledValues line2 = {{QStringLiteral("d"), 4}};
    const LabelledKeys keys = {{QStringLiteral("a"), QStringLiteral("1")}};
    page.barDataList = bars;
    page.barDataList2 = bars2;
    page.lineDataList = line;
    page.lineDataList2 = line2;
    page.devDataList = keys;
    page.m_nCurPage = 3;
    page.m_nTotalPage = 4;
    page.m_strSelectedBar = QStringLiteral("a");
    page.clearChartData();
    QCOMPARE(page.barDataList, bars);
    QCOMPARE(page.barDataList2, bars2);
    QCOMPARE(page.lineDataList, line);
    QCOMPARE(page.lineDataList2, line2);
    QCOMPARE(page.devDataList, keys);
    QCOMPARE(page.m_nCurPage, 3);
    QCOMPARE(page.m_nTotalPage, 4);
    QCOMPARE(page.m_strSelectedBar, QStringLiteral("a"));
}

void TestQueryCycle::failureAfterSuccessLeavesViewsAndBars()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    const auto views = page.m_chartViewList;
    const LabelledValues bars = page.barDataList;
    const LabelledKeys keys = page.devDataList;
    const LabelledValues line = page.lineDataList;
    QVERIFY(!bars.isEmpty() && !keys.isEmpty() && !line.isEmpty());
    scene.manager.failWith(QStringLiteral(": no route"));
    page.tips.clear();
    click(page, "pushButtonDay");
    QCOMPARE(page.tips, QList<Tip>({{QStringLiteral("TK_GetFailed: no route"), 3}}));
    QCOMPARE(page.m_chartViewList, views);
    QCOMPARE(chartsShown(page), QList<bool>({false, false, false}));
    QVERIFY(titlesAreEmpty(page));
    QCOMPARE(page.barDataList, bars);
    QCOMPARE(page.devDataList, keys);
    QCOMPARE(page.lineDataList, line);
    QVERIFY(page.pieDataList.isEmpty());
    QCOMPARE(timeText(page), QStringLiteral("2024-04-26~2024-05-03"));
}

void TestQueryCycle::sortingAfterFailureDrillsDownAndRedraws()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    scene.manager.failWith(QStringLiteral("away"));
    page.slotSearch();
    scene.manager.failWith({});
    scene.forgetCalls();
    click(page, "pushButtonAsc");
    QCOMPARE(scene.manager.calls, QStringList({QStringLiteral("getAlarmStatisticsOfOrga")}));
    QCOMPARE(scene.manager.alarmStatisticsOfOrga.requests.last().orgaId, 1);
    QCOMPARE(listValues(page.barDataList), QList<int>({5, 7, 9}));
    QCOMPARE(chartsShown(page), QList<bool>({true, true, true}));
    QVERIFY(!titlesAreEmpty(page));

    scene.manager.failWith(QStringLiteral("away"));
    page.slotSearch();
    scene.manager.failWith({});
    scene.forgetCalls();
    click(page, "pushButtonAsc");
    QCOMPARE(scene.manager.calls, QStringList());
    QCOMPARE(chartsShown(page), QList<bool>({false, false, false}));
}

void TestQueryCycle::hiddenChartsSurviveMouseAndLanguage()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    scene.manager.failWith(QStringLiteral("away"));
    page.slotSearch();
    for (ZrChartView *view : page.m_chartViewList) {
        QTest::mouseMove(view->viewport(), view->viewport()->rect().center());
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->viewport()->rect().center());
    }
    page.retranslateUi();
    QCOMPARE(chartsShown(page), QList<bool>({false, false, false}));
}

void TestQueryCycle::conditionIsStoredWhenItDiffers_data()
{
    QTest::addColumn<QString>("field");
    for (const char *field : {"user", "start", "end", "organisation", "unit"})
        QTest::newRow(field) << QString::fromLatin1(field);
}

void TestQueryCycle::conditionIsStoredWhenItDiffers()
{
    QFETCH(QString, field);
    PageScene scene;
    ProbePage page(2);
    showPage(page);
    page.m_nCurPage = 3;
    page.m_nTotalPage = 5;
    page.compareCondition();
    QCOMPARE(page.m_nCurPage, 3);
    QCOMPARE(page.m_nTotalPage, 5);

    BasicChart::QueryCondition &stored = page.m_queryCondition;
    if (field == QStringLiteral("user"))
        stored.userId = 6;
    else if (field == QStringLiteral("start"))
        stored.startTime = QStringLiteral("2024-05-03 01");
    else if (field == QStringLiteral("end"))
        stored.endTime = QStringLiteral("2024-05-03 16");
    else if (field == QStringLiteral("organisation"))
        stored.orgaId = 2;
    else
        stored.timeType = 2;
    page.compareCondition();
    QCOMPARE(page.m_nCurPage, 1);
    QCOMPARE(page.m_nTotalPage, 1);
    QCOMPARE(stored.userId, 7);
    QCOMPARE(stored.startTime, QStringLiteral("2024-05-03 00"));
    QCOMPARE(stored.endTime, QStringLiteral("2024-05-03 17"));
    QCOMPARE(stored.orgaId, 1);
    QCOMPARE(stored.timeType, 3);
}

void TestQueryCycle::equalConditionKeepsThePage()
{
    PageScene scene;
    ProbePage page(2);
    showPage(page);
    page.m_nCurPage = 4;
    page.m_nTotalPage = 9;
    LogCapture log;
    page.compareCondition();
    page.compareCondition();
    QCOMPARE(page.m_nCurPage, 4);
    QCOMPARE(page.m_nTotalPage, 9);
    QCOMPARE(log.count(compareLine), 2);
}

void TestQueryCycle::conditionTakesBothEndsOfTheTime()
{
    ProbePage page(2);
    page.part<QLineEdit>("lineEditTime")->setText(QStringLiteral("2024-02~2024-04"));
    page.m_nTimeType = 1;
    page.compareCondition();
    QCOMPARE(page.m_queryCondition.startTime, QStringLiteral("2024-02"));
    QCOMPARE(page.m_queryCondition.endTime, QStringLiteral("2024-04"));
    QCOMPARE(page.m_queryCondition.timeType, 1);
    QCOMPARE(page.m_queryCondition.orgaId, 0);
    QCOMPARE(page.m_queryCondition.userId, 0);
}

void TestQueryCycle::conditionNeedsTwoParts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("three parts") << QStringLiteral("2024-05-03 00~2024-05-03 17~2024-05-03 18");
    QTest::newRow("one part") << QStringLiteral("2024-05-03 00");
    QTest::newRow("nothing") << QString();
}

void TestQueryCycle::conditionNeedsTwoParts()
{
    QFETCH(QString, text);
    ProbePage page(2);
    page.m_queryCondition.startTime = QStringLiteral("kept?");
    page.part<QLineEdit>("lineEditTime")->setText(text);
    page.compareCondition();
    QCOMPARE(page.m_queryCondition.startTime, QString());
    QCOMPARE(page.m_queryCondition.endTime, QString());
    QCOMPARE(page.m_queryCondition.timeType, 3);
}

void TestQueryCycle::conditionReadsTheTreeBeforeItLogs()
{
    PageScene scene;
    ProbePage page(2);
    showPage(page);
    LogCapture log;
    page.compareCondition();
    QCOMPARE(writtenLines(log), QStringList({QStringLiteral("BasicChart::getOrgaID  1"), compareLine}));
}

void TestQueryCycle::conditionIsComparedForPagedKindsOnly_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 10})
        QTest::addRow("type %d", type) << type;
}

void TestQueryCycle::conditionIsComparedForPagedKindsOnly()
{
    QFETCH(int, type);
    PageScene scene;
    ProbePage page(type);
    showPage(page);
    scene.fillTree(page);
    page.m_queryCondition = {};
    LogCapture log;
    page.slotSearch();
    const bool paged = type == 2 || type == 4 || type == 6;
    QCOMPARE(log.count(compareLine), paged ? 1 : 0);
    QCOMPARE(page.m_queryCondition.userId, paged ? 7 : 0);
}

void TestQueryCycle::unpagedKindStaysOnPageOne()
{
    PageScene scene;
    ProbePage page(1);
    LogCapture log;
    showPage(page);
    click(page, "pushButtonDay");
    page.slotSearch();
    page.slotNext();
    QVERIFY(!log.contains(compareLine));
    QVERIFY(!log.containsStart(QStringLiteral("BasicChart::setPageInfo")));
    QCOMPARE(page.m_nCurPage, 1);
    QCOMPARE(page.m_nTotalPage, 1);
    QCOMPARE(page.m_queryCondition.userId, 0);
    QCOMPARE(page.m_queryCondition.orgaId, 0);
}

void TestQueryCycle::sortOrderIsNoPartOfTheCondition()
{
    PageScene scene;
    ProbePage page(2);
    showPage(page);
    QTest::mouseClick(page.pushButtonNext, Qt::LeftButton);
    QCOMPARE(page.m_nCurPage, 2);
    click(page, "pushButtonAsc");
    page.slotSearch();
    QCOMPARE(scene.manager.alarmStatisticsOfDevices.requests.last().pageIndex, 2);
    QCOMPARE(scene.manager.alarmStatisticsOfDevices.requests.last().sortType, 2);
}

void TestQueryCycle::samePageIsAskedForAgain()
{
    PageScene scene;
    ProbePage page(2);
    showPage(page);
    QCOMPARE(scene.manager.alarmStatisticsOfDevices.requests.last().pageIndex, 1);
    QTest::mouseClick(page.pushButtonNext, Qt::LeftButton);
    QTest::mouseClick(page.pushButtonNext, Qt::LeftButton);
    QCOMPARE(scene.manager.alarmStatisticsOfDevices.requests.last().pageIndex, 3);
    page.slotSearch();
    QCOMPARE(scene.manager.alarmStatisticsOfDevices.requests.last().pageIndex, 3);
    QCOMPARE(scene.manager.alarmStatisticsOfDevices.requests.last().pageSize, 10);
    page.hide();
    page.show();
    QCOMPARE(scene.manager.alarmStatisticsOfDevices.requests.last().pageIndex, 3);
    QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant North")));
    QCOMPARE(scene.manager.alarmStatisticsOfDevices.requests.last().pageIndex, 1);
    QCOMPARE(scene.manager.alarmStatisticsOfDevices.requests.last().orgaId, 2);
}

void TestQueryCycle::changedConditionAsksForPageOne_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("change");
    for (const int type : {2, 4, 6}) {
        QTest::addRow("type %d, another unit", type) << type << QStringLiteral("unit");
        QTest::addRow("type %d, another span", type) << type << QStringLiteral("span");
        QTest::addRow("type %d, another organisation", type) << type << QStringLiteral("organisation");
    }
}

void TestQueryCycle::changedConditionAsksForPageOne()
{
    QFETCH(int, type);
    QFETCH(QString, change);
    PageScene scene;
    ProbePage page(type);
    showPage(page);
    scene.fillTree(page);
    page.slotSearch();
    page.slotNext();
    page.slotNext();
    const auto lastPage = [&] {
        switch (type) {
        case 2:
            return scene.manager.alarmStatisticsOfDevices.requests.last().pageIndex;
        case 4:
            return scene.manager.onlineStatisticsOfDevices.requests.last().pageIndex;
        default:
            return scene.manager.temperatureStatisticsOfPersons.requests.last().pageIndex;
        }
    };
    QCOMPARE(lastPage(), 3);
    if (change == QStringLiteral("unit"))
        click(page, "pushButtonMonth");
    else if (change == QStringLiteral("span"))
        Q_EMIT page.m_pCalendarWidget->signalDataTimeChanged(
            QDateTime(QDate(2024, 5, 3), QTime(4, 0)), QDateTime(QDate(2024, 5, 3), QTime(6, 0)));
    else {
        QVERIFY(chooseOrganisation(organisationCombo(page), QStringLiteral("Plant South")));
        page.slotSearch();
    }
    QCOMPARE(lastPage(), 1);
    QCOMPARE(page.m_nCurPage, 1);
}

void TestQueryCycle::failedPageStaysAdvanced_data()
{
    QTest::addColumn<bool>("refused");
    QTest::newRow("refused by the client") << true;
    QTest::newRow("no records") << false;
}

void TestQueryCycle::failedPageStaysAdvanced()
{
    QFETCH(bool, refused);
    PageScene scene;
    ProbePage page(2);
    showPage(page);
    const auto answer = scene.manager.alarmStatisticsOfDevices.answer;
    if (refused)
        scene.manager.failWith(QStringLiteral("away"));
    else
        scene.manager.alarmStatisticsOfDevices.answers({});
    QTest::mouseClick(page.pushButtonNext, Qt::LeftButton);
    QCOMPARE(page.m_nCurPage, 2);
    QCOMPARE(page.m_nTotalPage, 5);
    QVERIFY(page.pushButtonNext->isHidden());
    QVERIFY(page.pushButtonPrevious->isHidden());
    scene.manager.failWith({});
    scene.manager.alarmStatisticsOfDevices.answer = answer;
    page.slotSearch();
    QCOMPARE(scene.manager.alarmStatisticsOfDevices.requests.last().pageIndex, 2);
    QCOMPARE(page.m_nCurPage, 2);
    QVERIFY(!page.pushButtonNext->isHidden());
    QVERIFY(!page.pushButtonPrevious->isHidden());
}

void TestQueryCycle::pageInfo_data()
{
    QTest::addColumn<int>("total");
    QTest::addColumn<int>("current");
    QTest::addColumn<bool>("taken");
    QTest::newRow("both given") << 8 << 3 << true;
    QTest::newRow("both zero") << 0 << 0 << true;
    QTest::newRow("total zero") << 0 << 3 << true;
    QTest::newRow("current zero") << 8 << 0 << true;
    QTest::newRow("current above total") << 2 << 9 << true;
    QTest::newRow("largest") << INT_MAX << INT_MAX << true;
    QTest::newRow("total negative") << -1 << 3 << false;
    QTest::newRow("current negative") << 8 << -1 << false;
    QTest::newRow("both negative") << -1 << -1 << false;
    QTest::newRow("smallest") << INT_MIN << INT_MIN << false;
}

void TestQueryCycle::pageInfo()
{
    QFETCH(int, total);
    QFETCH(int, current);
    QFETCH(bool, taken);
    ProbePage page(2);
    page.m_nCurPage = 4;
    page.m_nTotalPage = 6;
    LogCapture log;
    page.setPageInfo(total, current);
    QCOMPARE(page.m_nTotalPage, taken ? total : 6);
    QCOMPARE(page.m_nCurPage, taken ? current : 4);
    QCOMPARE(writtenLines(log).size(), 1);
    QCOMPARE(writtenLines(log).first(),
        QStringLiteral("BasicChart::setPageInfo total %1 curpage  %2").arg(total).arg(current));
}

void TestQueryCycle::timerTellsOfTheBarAndStops()
{
    PageScene scene;
    ProbePage page(1);
    page.initForm();
    QStringList bars;
    QList<bool> runningThen;
    connect(&page, &BasicChart::barSetChanged, this, [&](QString &bar) {
        bars.append(bar);
        runningThen.append(page.m_pTimer->isActive());
    });
    page.m_strSelectedBar = QStringLiteral("Plant North");
    page.m_pTimer->start(100000);
    page.slotTimerReq();
    QCOMPARE(bars, QStringList({QStringLiteral("Plant North")}));
    QCOMPARE(runningThen, QList<bool>({true}));
    QVERIFY(!page.m_pTimer->isActive());
}

void TestQueryCycle::timerWithoutBarOnlyStops()
{
    PageScene scene;
    ProbePage page(1);
    page.initForm();
    int told = 0;
    connect(&page, &BasicChart::barSetChanged, this, [&told](QString &) { ++told; });
    page.m_pTimer->start(100000);
    page.slotTimerReq();
    QCOMPARE(told, 0);
    QVERIFY(!page.m_pTimer->isActive());
}

void TestQueryCycle::pressOnTimeOpensTheCalendar_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
}

void TestQueryCycle::pressOnTimeOpensTheCalendar()
{
    QFETCH(Qt::MouseButton, button);
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    auto *lineEdit = page.part<QLineEdit>("lineEditTime");
    QVERIFY(!page.m_pCalendarWidget->isVisible());
    QTest::mousePress(lineEdit, button, {}, QPoint(20, lineEdit->height() / 2));
    QVERIFY(page.m_pCalendarWidget->isVisible());
    page.m_pCalendarWidget->hide();
    QTest::mouseRelease(lineEdit, button, {}, QPoint(20, lineEdit->height() / 2));
    QVERIFY(!page.m_pCalendarWidget->isVisible());
}

void TestQueryCycle::pressOnTimePlacesNoCursor()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    auto *lineEdit = page.part<QLineEdit>("lineEditTime");
    lineEdit->setCursorPosition(3);
    QTest::mousePress(lineEdit, Qt::LeftButton, {}, QPoint(150, lineEdit->height() / 2));
    QCOMPARE(lineEdit->cursorPosition(), 3);
    page.m_pCalendarWidget->hide();
    QTest::mouseRelease(lineEdit, Qt::LeftButton, {}, QPoint(150, lineEdit->height() / 2));
}

void TestQueryCycle::filterSwallowsOnlyPressesOnTime()
{
    PageScene scene;
    ProbePage page(1);
    showPage(page);
    auto *lineEdit = page.part<QLineEdit>("lineEditTime");
    auto *other = page.part<QLabel>("labelSort");
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton, Qt::LeftButton,
        Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
        Qt::NoButton, Qt::NoModifier);
    QMouseEvent doubleClick(QEvent::MouseButtonDblClick, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
        Qt::LeftButton, Qt::NoModifier);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);

    QVERIFY(!page.eventFilter(other, &press));
    QVERIFY(!page.eventFilter(lineEdit, &release));
    QVERIFY(!page.eventFilter(lineEdit, &doubleClick));
    QVERIFY(!page.eventFilter(lineEdit, &key));
    QVERIFY(!page.m_pCalendarWidget->isVisible());
    QVERIFY(page.eventFilter(lineEdit, &press));
    QVERIFY(page.m_pCalendarWidget->isVisible());
    page.m_pCalendarWidget->hide();
}

void TestQueryCycle::sizeDecidesAboutThePie_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("shown");
    for (const int type : {1, 2, 5, 6, 7, 8, 9, 0, 10, -1}) {
        QTest::addRow("type %d, one pixel too narrow", type) << type << QSize(999, 648) << false;
        QTest::addRow("type %d, one pixel too low", type) << type << QSize(1000, 599) << false;
        QTest::addRow("type %d, just large enough", type) << type << QSize(1000, 600) << true;
        QTest::addRow("type %d, large", type) << type << QSize(1600, 900) << true;
        QTest::addRow("type %d, tiny", type) << type << QSize(10, 10) << false;
    }
    for (const int type : {3, 4}) {
        for (const QSize &size : {QSize(999, 648), QSize(1000, 599), QSize(1000, 600), QSize(1600, 900)})
            QTest::addRow("type %d never at %d by %d", type, size.width(), size.height())
                << type << size << false;
    }
}

void TestQueryCycle::sizeDecidesAboutThePie()
{
    QFETCH(int, type);
    QFETCH(QSize, size);
    QFETCH(bool, shown);
    PageScene scene;
    QWidget frame;
    frame.resize(1700, 1000);
    ProbePage page(type, &frame);
    page.resize(1136, 648);
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    QCOMPARE(page.part<QWidget>("widgetPie")->isVisible(), type != 3 && type != 4);
    page.resize(size);
    QCOMPARE(page.size(), size);
    QCOMPARE(page.part<QWidget>("widgetPie")->isVisible(), shown);
    page.resize(1137, 649);
    QCOMPARE(page.part<QWidget>("widgetPie")->isVisible(), type != 3 && type != 4);
}

void TestQueryCycle::onlineKindsKeepThePieAsItStands()
{
    PageScene scene;
    QWidget frame;
    frame.resize(1700, 1000);
    ProbePage page(3, &frame);
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    page.part<QWidget>("widgetPie")->setVisible(true);
    page.resize(800, 500);
    QVERIFY(page.part<QWidget>("widgetPie")->isVisible());
    page.part<QWidget>("widgetPie")->setVisible(false);
    page.resize(1600, 900);
    QVERIFY(!page.part<QWidget>("widgetPie")->isVisible());
}

void TestQueryCycle::largeEnoughSizeRefreshesTheOverlays()
{
    PageScene scene;
    QWidget frame;
    frame.resize(1700, 1000);
    ProbePage page(2, &frame);
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    QVERIFY(page.pushButtonNext->isVisible());
    page.m_nTotalPage = 1;
    page.m_nCurPage = 2;
    page.resize(1200, 700);
    QVERIFY(!page.pushButtonNext->isVisible());
    QVERIFY(page.pushButtonPrevious->isVisible());
}

void TestQueryCycle::smallSizeLeavesTheOverlays()
{
    PageScene scene;
    QWidget frame;
    frame.resize(1700, 1000);
    ProbePage page(2, &frame);
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    page.m_nTotalPage = 1;
    page.m_nCurPage = 2;
    page.resize(900, 700);
    QVERIFY(page.pushButtonNext->isVisible());
    QVERIFY(!page.pushButtonPrevious->isVisible());
}

// The place of the total comes from the pane, which has none while it is hidden.
void TestQueryCycle::pieStandsAgainBeforeTheOverlaysArePlaced()
{
    PageScene scene;
    QWidget frame;
    frame.resize(1700, 1000);
    ProbePage page(1, &frame);
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    page.resize(900, 700);
    const QWidget *pane = page.part<QWidget>("widgetPie");
    QVERIFY(pane->isHidden());
    QList<bool> hiddenThen;
    TextRecorder texts;
    texts.whenAsked = [&](const QString &key) {
        if (key == QStringLiteral("TK_PageTotalSize"))
            hiddenThen.append(pane->isHidden());
    };
    page.resize(1200, 700);
    QVERIFY(!hiddenThen.isEmpty());
    QVERIFY(!hiddenThen.contains(true));
}

TALVIX_TEST_MAIN(TestQueryCycle)
#include "tst_query_cycle.moc"
