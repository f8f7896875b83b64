#include "support/PageScene.h"
#include "support/TestMain.h"
#include "support/TestTable.h"
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

using namespace Qt::StringLiterals;
using namespace std::string_literals;

namespace {

const QString dataLine = u"BasicChart::getChartData"_s;
const QString ascLine = u"BasicChart::on_pushButtonAsc_clicked"_s;
const QString descLine = u"BasicChart::on_pushButtonDesc_clicked"_s;
const QString chartLine = u"BasicChart::loadChart"_s;
const QString compareLine = u"BasicChart::compareCondition"_s;
const QString clearPieLine = u"BasicChart::clearPieChartData"_s;

QString showLine(int type)
{
    return u"BasicChart::doAfterWidgetShow Type %1"_s.arg(type);
}

QString hideLine(int type)
{
    return u"BasicChart::doAfterWidgetHide Type %1"_s.arg(type);
}

const QStringList alarmQuery = {u"getAlarmStatisticsOfOrgas"_s};

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

using Step = std::function<void(ProbePage &)>;
using Condition = BasicChart::QueryCondition;
using Change = std::function<void(Condition &)>;

/// Answers the calendar with two hours of today.
void chooseFourToSix(ProbePage &page)
{
    const QDate today(2024, 5, 3);
    Q_EMIT page.m_pCalendarWidget->signalDataTimeChanged({today, QTime(4, 0)}, {today, QTime(6, 0)});
}

/// A page of its own size in a frame that is large enough.
struct Framed
{
    explicit Framed(int type)
        : page(type, &frame)
    {
        frame.resize(1700, 1000);
        frame.show();
        QVERIFY(QTest::qWaitForWindowExposed(&frame));
    }

    PageScene scene;
    QWidget frame;
    ProbePage page;
};

} // namespace

Q_DECLARE_METATYPE(ProbePage::Tip)
Q_DECLARE_METATYPE(Step)
Q_DECLARE_METATYPE(Change)

class TestQueryCycle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setPresentMoment({}); }

    void firstShowRunsSetUpOnce()
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

    void firstShowGoesInOrder()
    {
        PageScene scene;
        ProbePage page(1);
        LogCapture log;
        showPage(page);
        QCOMPARE(onlyLines(log.lines(),
                     {showLine(1), written::load, written::loadFailed, written::search, written::combo,
                         dataLine, u"BasicChart::getAlarmOfOrgas"_s, u"BasicChart::setBarList"_s, ascLine,
                         descLine, u"BasicChart::loadChart  frist loadcharts"_s}),
            QStringList({showLine(1), written::load, written::search, written::combo, dataLine,
                "BasicChart::getAlarmOfOrgas", "BasicChart::setBarList",
                "BasicChart::loadChart  frist loadcharts", descLine, descLine}));
        QCOMPARE(log.lines(QtCriticalMsg), QStringList());
        QCOMPARE(scene.client.calls.mid(0, 3),
            QStringList({"getCurUserInfo", "getOrgaList", "organizeOrgaNodes"}));
        QCOMPARE(page.tips.size(), 0);
        QCOMPARE(chartsShown(page), QList<bool>({true, true, true}));
        QCOMPARE(listKeys(page.barDataList), QStringList({"Plant North", "Plant South", "Company"}));
    }

    void firstShowByDayTouchesTheTimeBeforeTheLoad()
    {
        PageScene scene;
        ProbePage page(5);
        LogCapture log;
        showPage(page);
        QCOMPARE(writtenLines(log),
            QStringList({written::search, written::combo, showLine(5), written::load,
                u"ServiceType is default"_s, written::loadFailed}));
    }

    void firstShowWithoutTreeStopsAfterTheLoad()
    {
        PageScene scene;
        scene.client.clearTree();
        ProbePage page(1);
        LogCapture log;
        showPage(page);
        QCOMPARE(writtenLines(log), QStringList({showLine(1), written::load, written::loadFailed}));
        QCOMPARE(page.tips, QList<Tip>({{"TK_orgNotExist", 2}}));
        QCOMPARE(scene.manager.calls, QStringList());
        QVERIFY(page.m_chartViewList.isEmpty());
    }

    void laterShowKeepsTimeAndUnit()
    {
        auto &&[scene, page] = Shown(1);
        click(page, "pushButtonMonth");
        page.hide();
        setPresentMoment(QDateTime(QDate(2025, 1, 9), QTime(6, 0)));
        page.show();
        QCOMPARE(page.m_nTimeType, 1);
        QCOMPARE(timeText(page), u"2023-11~2024-05"_s);
        QCOMPARE(page.part<QWidget>("pushButtonMonth")->property("highlight"), QVariant(true));
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().startTime(), "2023-11"s);
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().endTime(), "2024-05"s);
    }

    void overlayCoversTreeAndQueryOfAShow()
    {
        PageScene scene;
        WatchedClient client;
        client.setTree(u"1 Company\n  2 Plant North\n  3 Plant South\n"_s);
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

    void overlayEndsWhenTheTreeIsEmpty()
    {
        WatchedClient client;
        ScriptedStatisticsManager manager;
        ProbePage page(1);
        int covered = 0;
        client.whenAsked = [&] { covered += page.findChildren<ZrLoaddingWidget *>().size() == 1 ? 1 : 0; };
        showPage(page);
        QCOMPARE(covered, 1);
        QCOMPARE(page.findChildren<ZrLoaddingWidget *>().size(), 0);
        QCOMPARE(page.tips, QList<Tip>({{"TK_orgNotExist", 2}}));
        QCOMPARE(manager.calls, QStringList());
    }

    void overlayStandsWhenTheShowIsLogged()
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

    void otherSearchesHaveNoOverlay()
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
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        QTest::mouseClick(page.pushButtonNext, Qt::LeftButton);
        QString bar = u"Gate"_s;
        page.slotBarSetChanged(bar);
        QCOMPARE(queries, 3);
        QVERIFY(details >= 4);
        QCOMPARE(overlays, 0);
    }

    void everyShowReloadsTreeAndFallsBackToRoot()
    {
        auto &&[scene, page] = Shown(1);
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({3}));
        page.hide();
        scene.forgetCalls();
        page.show();
        QCOMPARE(scene.treeLoads(), 1);
        QCOMPARE(scene.wholeLevelCalls(), alarmQuery);
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().listOrg(), std::vector<int>({1}));
        QCOMPARE(currentOrganisation(organisationCombo(page)), 1);
        QCOMPARE(organisationCombo(page)->currentText(), u"Company"_s);
    }

    void everyShowEndsDescendingAfterSearchingTheOldWay()
    {
        auto &&[scene, page] = Shown(1);
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().sortType, 1);
        click(page, "pushButtonAsc");
        QVERIFY(!page.sortFlag);
        QCOMPARE(listValues(page.barDataList), QList<int>({5, 7, 9}));
        page.hide();
        LogCapture log;
        page.show();
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().sortType, 2);
        QCOMPARE(onlyLines(log.lines(), {written::search, ascLine, descLine}),
            QStringList({written::search, ascLine, descLine}));
        QVERIFY(page.sortFlag);
        QCOMPARE(listValues(page.barDataList), QList<int>({9, 7, 5}));
        QCOMPARE(page.part<QWidget>("pushButtonAsc")->property("highlight"), QVariant(false));
        QCOMPARE(page.part<QWidget>("pushButtonDesc")->property("highlight"), QVariant(true));
        QCOMPARE(timeText(page), u"2024-05-03 00~2024-05-03 17"_s);
    }

    void showWithoutTreeKeepsOrderAndCharts()
    {
        auto &&[scene, page] = Shown(1);
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
        QCOMPARE(page.tips, QList<Tip>({{"TK_orgNotExist", 2}}));
    }

    void showWithFailedSearchStillPlacesOverlays()
    {
        auto &&[scene, page] = Shown(2);
        page.hide();
        scene.manager.failWith(u"away"_s);
        page.tips.clear();
        page.show();
        QCOMPARE(page.tips, QList<Tip>({{"TK_GetFailedaway", 3}}));
        QCOMPARE(chartsShown(page), QList<bool>({false, false, false}));
        QVERIFY(!page.pushButtonNext->isHidden());
        QVERIFY(page.pushButtonPrevious->isHidden());
        page.slotSearch();
        QVERIFY(page.pushButtonNext->isHidden());
    }

    void showWithFailedSearchStillTurnsTheOrder()
    {
        auto &&[scene, page] = Shown(1);
        click(page, "pushButtonAsc");
        page.hide();
        scene.manager.failOperation(u"getAlarmStatisticsOfOrgas"_s, u"away"_s);
        scene.forgetCalls();
        page.show();
        QCOMPARE(scene.manager.calls, QStringList({"getAlarmStatisticsOfOrgas", "getAlarmStatisticsOfOrga"}));
        QVERIFY(page.sortFlag);
        QCOMPARE(listValues(page.barDataList), QList<int>({9, 7, 5}));
        QCOMPARE(chartsShown(page), QList<bool>({true, true, true}));
        QVERIFY(!titlesAreEmpty(page));
    }

    void kindsWithoutTreeTipAtEachShow_data() { kinds({5, 6, 0, 10, -1, INT_MAX, INT_MIN}); }

    void kindsWithoutTreeTipAtEachShow()
    {
        QFETCH(int, type);
        auto &&[scene, page] = Shown(type);
        QCOMPARE(page.tips, QList<Tip>({{"TK_orgNotExist", 2}}));
        page.hide();
        page.show();
        QCOMPARE(page.tips.size(), 2);
        LogCapture log;
        click(page, "pushButtonMonth");
        QCOMPARE(writtenLines(log), QStringList({written::search, written::combo}));
        QCOMPARE(page.tips.size(), 2);
        QCOMPARE(scene.manager.calls, QStringList());
    }

    void hideLogsAndSetsTheMark_data() { kinds({1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 10, -1}); }

    void hideLogsAndSetsTheMark()
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

    void hideKeepsTimerAndData()
    {
        auto &&[scene, page] = Shown(1);
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
        QCOMPARE(timeText(page), u"2024-05-03 00~2024-05-03 17"_s);
        QVERIFY(!titlesAreEmpty(page));
        page.m_pTimer->stop();
    }

    void searchWithEmptyTreeStopsEarly()
    {
        auto &&[scene, page] = Shown(1);
        organisationCombo(page)->clear();
        page.tips.clear();
        scene.forgetCalls();
        LogCapture log;
        page.slotSearch();
        QCOMPARE(writtenLines(log), QStringList({written::search, written::combo}));
        QCOMPARE(page.tips.size(), 0);
        QCOMPARE(scene.manager.calls, QStringList());
        QVERIFY(!titlesAreEmpty(page));
        QCOMPARE(chartsShown(page), QList<bool>({true, true, true}));
        QCOMPARE(page.barDataList.size(), 3);
        QVERIFY(!page.pieDataList.isEmpty());
    }

    void searchLogsItsSteps()
    {
        auto &&[scene, page] = Shown(1);
        LogCapture log;
        page.slotSearch();
        QCOMPARE(writtenLines(log).mid(0, 4),
            QStringList({written::search, written::combo, dataLine, "BasicChart::getAlarmOfOrgas"}));
    }

    void searchOutcomes_data()
    {
        table<int, QList<Tip>>({"code", "tips"},
            {
                {"no organisation", 1, {{u"TK_orgNotExist"_s, 2}}},
                {"failed, with the client's text directly behind", 2, {{u"TK_GetFailedserver is away"_s, 3}}},
                {"no records", 3, {{u"TK_NoRecords"_s, 1}}},
                {"success", 4, {}},
            });
    }

    void searchOutcomes()
    {
        QFETCH(int, code);
        QFETCH(QList<Tip>, tips);
        auto &&[scene, page] = Shown(1);
        if (code == 1)
            scene.fillTreeWithoutCurrent(page);
        if (code == 2)
            scene.manager.failWith(u"server is away"_s);
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
        QCOMPARE(timeText(page), u"2024-05-03 00~2024-05-03 17"_s);
    }

    void failureTipTakesTheTextOfTheBarQuery()
    {
        auto &&[scene, page] = Shown(2);
        scene.manager.failOperation(u"getAlarmStatisticsOfDevices"_s, u" <b>42</b> "_s);
        page.tips.clear();
        page.slotSearch();
        QCOMPARE(page.tips, QList<Tip>({{"TK_GetFailed <b>42</b> ", 3}}));
        scene.manager.failOperation(u"getAlarmStatisticsOfDevices"_s, u""_s);
        page.tips.clear();
        page.slotSearch();
        QCOMPARE(page.tips, QList<Tip>({{"TK_GetFailed", 3}}));
    }

    void successSortsByTheChosenOrder_data()
    {
        table<bool>({"ascending"}, {{"ascending", true}, {"descending by default", false}});
    }

    void successSortsByTheChosenOrder()
    {
        QFETCH(bool, ascending);
        auto &&[scene, page] = Shown(1);
        if (ascending)
            click(page, "pushButtonAsc");
        const QString orderLine = ascending ? ascLine : descLine;
        LogCapture log;
        page.slotSearch();
        QCOMPARE(onlyLines(log.lines(), {ascLine, descLine}), QStringList({orderLine}));
        const QStringList lines = writtenLines(log);
        QVERIFY(lines.indexOf(orderLine) < lines.lastIndexOf(chartLine));
        QCOMPARE(listValues(page.barDataList), ascending ? QList<int>({5, 7, 9}) : QList<int>({9, 7, 5}));
        QCOMPARE(scene.manager.alarmStatisticsOfOrgas.requests.last().sortType, ascending ? 2 : 1);
    }

    void successBringsBackHiddenCharts()
    {
        auto &&[scene, page] = Shown(1);
        const auto views = page.m_chartViewList;
        scene.manager.failWith(u"away"_s);
        page.slotSearch();
        QCOMPARE(chartsShown(page), QList<bool>({false, false, false}));
        scene.manager.failWith({});
        page.slotSearch();
        QCOMPARE(chartsShown(page), QList<bool>({true, true, true}));
        QCOMPARE(page.m_chartViewList, views);
        QVERIFY(!titlesAreEmpty(page));
    }

    void everyConditionSearchesAtOnce_data()
    {
        table<Step>({"step"},
            {
                {"month", [](ProbePage &page) { click(page, "pushButtonMonth"); }},
                {"day", [](ProbePage &page) { click(page, "pushButtonDay"); }},
                {"calendar", &chooseFourToSix},
                {"tree",
                    [](ProbePage &page) {
                        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant North"_s));
                    }},
                {"sum mode",
                    [](ProbePage &page) { page.part<QComboBox>("comboBoxOrgType")->setCurrentIndex(0); }},
                {"next", [](ProbePage &page) { QTest::mouseClick(page.pushButtonNext, Qt::LeftButton); }},
                {"previous",
                    [](ProbePage &page) { QTest::mouseClick(page.pushButtonPrevious, Qt::LeftButton); }},
            });
    }

    void everyConditionSearchesAtOnce()
    {
        QFETCH(Step, step);
        auto &&[scene, page] = Shown(2);
        page.m_nCurPage = 2;
        page.updateChartOverlays();
        scene.forgetCalls();
        LogCapture log;
        step(page);
        QCOMPARE(log.count(written::search), 1);
        QCOMPARE(scene.wholeLevelCalls(), QStringList({"getAlarmStatisticsOfDevices"}));
        QCOMPARE(scene.treeLoads(), 0);
    }

    void everyChoiceOfAnOrganisationSearches()
    {
        auto &&[scene, page] = Shown(2);
        scene.forgetCalls();
        LogCapture log;
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant North"_s));
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
        QCOMPARE(log.count(written::search), 2);
    }

    void sameTextSearchesNothing()
    {
        auto &&[scene, page] = Shown(1);
        scene.forgetCalls();
        LogCapture log;
        click(page, "pushButtonHour");
        QTest::keyClick(page.part<QComboBox>("comboBoxOrgType"), Qt::Key_Home);
        QCOMPARE(log.count(written::search), 1);
        page.part<QComboBox>("comboBoxOrgType")->setCurrentIndex(0);
        QCOMPARE(log.count(written::search), 1);
    }

    void othersSearchNothing_data()
    {
        table<Step>({"step"},
            {
                {"asc", [](ProbePage &page) { click(page, "pushButtonAsc"); }},
                {"desc", [](ProbePage &page) { click(page, "pushButtonDesc"); }},
                {"resize", [](ProbePage &page) { page.resize(1400, 800); }},
                {"organisation signal",
                    [](ProbePage &) {
                        Q_EMIT KrxClient::instance()->signalOrgaInfoChanged({}, TalvixOperatorType::Modify);
                    }},
                {"timer", [](ProbePage &page) { page.slotTimerReq(); }},
                {"calendar opened", [](ProbePage &page) { page.showZrCalendarWidget(true); }},
            });
    }

    void othersSearchNothing()
    {
        QFETCH(Step, step);
        auto &&[scene, page] = Shown(1);
        scene.forgetCalls();
        LogCapture log;
        step(page);
        QCoreApplication::processEvents();
        QVERIFY(!log.contains(written::search));
        QCOMPARE(scene.wholeLevelCalls(), QStringList());
        page.m_pCalendarWidget->hide();
    }

    void repeatedSearchStillAsksTheServer()
    {
        auto &&[scene, page] = Shown(2);
        scene.forgetCalls();
        page.slotSearch();
        page.slotSearch();
        QCOMPARE(scene.wholeLevelCalls().size(), 2);
    }

    void pageIsClearedBeforeItTellsWhy_data()
    {
        table<int>({"outcome"}, {{"no organisation", 1}, {"refused", 2}, {"no records", 3}});
    }

    void pageIsClearedBeforeItTellsWhy()
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
            scene.manager.failWith(u"away"_s);
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

    void clearingEmptiesTitles()
    {
        auto &&[scene, page] = Shown(1);
        for (const char *name : {"labelBarChartTitle", "labelLineChartTitle", "labelPieChartTitle"})
            QVERIFY2(!title(page, name)->text().isEmpty(), name);
        page.clearChartData();
        QVERIFY(titlesAreEmpty(page));
    }

    void clearingHidesControlsAndCharts_data() { kinds(knownTypes); }

    void clearingHidesControlsAndCharts()
    {
        QFETCH(int, type);
        auto &&[scene, page] = Shown(type);
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

    void clearingWithoutChartsIsHarmless()
    {
        ProbePage page(1);
        LogCapture log;
        page.clearChartData();
        QCOMPARE(writtenLines(log), QStringList({clearPieLine}));
        QVERIFY(page.m_chartViewList.isEmpty());
    }

    void clearingEmptiesKeptAnswersButTheHandling()
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

    void clearingEmptiesThePieAndLogs()
    {
        ProbePage page(1);
        page.pieDataList = {{u"Motion"_s, 3}};
        LogCapture log;
        page.clearChartData();
        QVERIFY(page.pieDataList.isEmpty());
        QCOMPARE(log.count(clearPieLine), 1);
        QVERIFY(page.m_mutex.tryLock());
        page.m_mutex.unlock();
    }

    void clearingKeepsBarsAndLines()
    {
        ProbePage page(1);
        const LabelledValues bars = {{u"a"_s, 1}};
        const LabelledValues bars2 = {{u"b"_s, 2}};
        const LabelledValues line = {{u"c"_s, 3}};
        const LabelledValues line2 = {{u"d"_s, 4}};
        const LabelledKeys keys = {{u"a"_s, u"1"_s}};
        page.barDataList = bars;
        page.barDataList2 = bars2;
        page.lineDataList = line;
        page.lineDataList2 = line2;
        page.devDataList = keys;
        page.m_nCurPage = 3;
        page.m_nTotalPage = 4;
        page.m_strSelectedBar = u"a"_s;
        page.clearChartData();
        QCOMPARE(page.barDataList, bars);
        QCOMPARE(page.barDataList2, bars2);
        QCOMPARE(page.lineDataList, line);
        QCOMPARE(page.lineDataList2, line2);
        QCOMPARE(page.devDataList, keys);
        QCOMPARE(page.m_nCurPage, 3);
        QCOMPARE(page.m_nTotalPage, 4);
        QCOMPARE(page.m_strSelectedBar, u"a"_s);
    }

    void failureAfterSuccessLeavesViewsAndBars()
    {
        auto &&[scene, page] = Shown(1);
        const auto views = page.m_chartViewList;
        const LabelledValues bars = page.barDataList;
        const LabelledKeys keys = page.devDataList;
        const LabelledValues line = page.lineDataList;
        QVERIFY(!bars.isEmpty() && !keys.isEmpty() && !line.isEmpty());
        scene.manager.failWith(u": no route"_s);
        page.tips.clear();
        click(page, "pushButtonDay");
        QCOMPARE(page.tips, QList<Tip>({{"TK_GetFailed: no route", 3}}));
        QCOMPARE(page.m_chartViewList, views);
        QCOMPARE(chartsShown(page), QList<bool>({false, false, false}));
        QVERIFY(titlesAreEmpty(page));
        QCOMPARE(page.barDataList, bars);
        QCOMPARE(page.devDataList, keys);
        QCOMPARE(page.lineDataList, line);
        QVERIFY(page.pieDataList.isEmpty());
        QCOMPARE(timeText(page), u"2024-04-26~2024-05-03"_s);
    }

    void sortingAfterFailureDrillsDownAndRedraws()
    {
        auto &&[scene, page] = Shown(1);
        scene.manager.failWith(u"away"_s);
        page.slotSearch();
        scene.manager.failWith({});
        scene.forgetCalls();
        click(page, "pushButtonAsc");
        QCOMPARE(scene.manager.calls, QStringList({"getAlarmStatisticsOfOrga"}));
        QCOMPARE(scene.manager.alarmStatisticsOfOrga.requests.last().orgaId, 1);
        QCOMPARE(listValues(page.barDataList), QList<int>({5, 7, 9}));
        QCOMPARE(chartsShown(page), QList<bool>({true, true, true}));
        QVERIFY(!titlesAreEmpty(page));

        scene.manager.failWith(u"away"_s);
        page.slotSearch();
        scene.manager.failWith({});
        scene.forgetCalls();
        click(page, "pushButtonAsc");
        QCOMPARE(scene.manager.calls, QStringList());
        QCOMPARE(chartsShown(page), QList<bool>({false, false, false}));
    }

    void hiddenChartsSurviveMouseAndLanguage()
    {
        auto &&[scene, page] = Shown(1);
        scene.manager.failWith(u"away"_s);
        page.slotSearch();
        for (ZrChartView *view : page.m_chartViewList) {
            QTest::mouseMove(view->viewport(), view->viewport()->rect().center());
            QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->viewport()->rect().center());
        }
        page.retranslateUi();
        QCOMPARE(chartsShown(page), QList<bool>({false, false, false}));
    }

    void conditionIsStoredWhenItDiffers_data()
    {
        table<Change>({"change"},
            {
                {"user", [](Condition &stored) { stored.userId = 6; }},
                {"start", [](Condition &stored) { stored.startTime = u"2024-05-03 01"_s; }},
                {"end", [](Condition &stored) { stored.endTime = u"2024-05-03 16"_s; }},
                {"organisation", [](Condition &stored) { stored.orgaId = 2; }},
                {"unit", [](Condition &stored) { stored.timeType = 2; }},
            });
    }

    void conditionIsStoredWhenItDiffers()
    {
        QFETCH(Change, change);
        auto &&[scene, page] = Shown(2);
        page.m_nCurPage = 3;
        page.m_nTotalPage = 5;
        page.compareCondition();
        QCOMPARE(page.m_nCurPage, 3);
        QCOMPARE(page.m_nTotalPage, 5);

        Condition &stored = page.m_queryCondition;
        change(stored);
        page.compareCondition();
        QCOMPARE(page.m_nCurPage, 1);
        QCOMPARE(page.m_nTotalPage, 1);
        QCOMPARE(stored.userId, 7);
        QCOMPARE(stored.startTime, spanStart);
        QCOMPARE(stored.endTime, spanEnd);
        QCOMPARE(stored.orgaId, 1);
        QCOMPARE(stored.timeType, 3);
    }

    void equalConditionKeepsThePage()
    {
        auto &&[scene, page] = Shown(2);
        page.m_nCurPage = 4;
        page.m_nTotalPage = 9;
        LogCapture log;
        page.compareCondition();
        page.compareCondition();
        QCOMPARE(page.m_nCurPage, 4);
        QCOMPARE(page.m_nTotalPage, 9);
        QCOMPARE(log.count(compareLine), 2);
    }

    void conditionTakesBothEndsOfTheTime()
    {
        ProbePage page(2);
        page.part<QLineEdit>("lineEditTime")->setText(u"2024-02~2024-04"_s);
        page.m_nTimeType = 1;
        page.compareCondition();
        QCOMPARE(page.m_queryCondition.startTime, u"2024-02"_s);
        QCOMPARE(page.m_queryCondition.endTime, u"2024-04"_s);
        QCOMPARE(page.m_queryCondition.timeType, 1);
        QCOMPARE(page.m_queryCondition.orgaId, 0);
        QCOMPARE(page.m_queryCondition.userId, 0);
    }

    void conditionNeedsTwoParts_data()
    {
        table<QString>({"text"},
            {
                {"three parts", "2024-05-03 00~2024-05-03 17~2024-05-03 18"},
                {"one part", "2024-05-03 00"},
                {"nothing", QString()},
            });
    }

    void conditionNeedsTwoParts()
    {
        QFETCH(QString, text);
        ProbePage page(2);
        page.m_queryCondition.startTime = u"kept?"_s;
        page.part<QLineEdit>("lineEditTime")->setText(text);
        page.compareCondition();
        QCOMPARE(page.m_queryCondition.startTime, QString());
        QCOMPARE(page.m_queryCondition.endTime, QString());
        QCOMPARE(page.m_queryCondition.timeType, 3);
    }

    void conditionReadsTheTreeBeforeItLogs()
    {
        auto &&[scene, page] = Shown(2);
        LogCapture log;
        page.compareCondition();
        QCOMPARE(writtenLines(log), QStringList({"BasicChart::getOrgaID  1", compareLine}));
    }

    void unpagedKindStaysOnPageOne()
    {
        PageScene scene;
        ProbePage page(1);
        LogCapture log;
        showPage(page);
        click(page, "pushButtonDay");
        page.slotSearch();
        page.slotNext();
        QVERIFY(!log.contains(compareLine));
        QVERIFY(!log.containsStart(u"BasicChart::setPageInfo"_s));
        QCOMPARE(page.m_nCurPage, 1);
        QCOMPARE(page.m_nTotalPage, 1);
        QCOMPARE(page.m_queryCondition.userId, 0);
        QCOMPARE(page.m_queryCondition.orgaId, 0);
    }

    void sortOrderIsNoPartOfTheCondition()
    {
        auto &&[scene, page] = Shown(2);
        QTest::mouseClick(page.pushButtonNext, Qt::LeftButton);
        QCOMPARE(page.m_nCurPage, 2);
        click(page, "pushButtonAsc");
        page.slotSearch();
        QCOMPARE(scene.manager.alarmStatisticsOfDevices.requests.last().pageIndex, 2);
        QCOMPARE(scene.manager.alarmStatisticsOfDevices.requests.last().sortType, 2);
    }

    void samePageIsAskedForAgain()
    {
        auto &&[scene, page] = Shown(2);
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
        QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant North"_s));
        QCOMPARE(scene.manager.alarmStatisticsOfDevices.requests.last().pageIndex, 1);
        QCOMPARE(scene.manager.alarmStatisticsOfDevices.requests.last().orgaId, 2);
    }

    void changedConditionAsksForPageOne_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("change");
        for (const int type : {2, 4, 6}) {
            QTest::addRow("type %d, another unit", type) << type << u"unit"_s;
            QTest::addRow("type %d, another span", type) << type << u"span"_s;
            QTest::addRow("type %d, another organisation", type) << type << u"organisation"_s;
        }
    }

    void changedConditionAsksForPageOne()
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
        if (change == u"unit"_s)
            click(page, "pushButtonMonth");
        else if (change == u"span"_s)
            chooseFourToSix(page);
        else {
            QVERIFY(chooseOrganisation(organisationCombo(page), u"Plant South"_s));
            page.slotSearch();
        }
        QCOMPARE(lastPage(), 1);
        QCOMPARE(page.m_nCurPage, 1);
    }

    void failedPageStaysAdvanced_data()
    {
        table<bool>({"refused"}, {{"refused by the client", true}, {"no records", false}});
    }

    void failedPageStaysAdvanced()
    {
        QFETCH(bool, refused);
        auto &&[scene, page] = Shown(2);
        const auto answer = scene.manager.alarmStatisticsOfDevices.answer;
        if (refused)
            scene.manager.failWith(u"away"_s);
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

    void pageInfo_data()
    {
        table<int, int, bool>({"total", "current", "taken"},
            {
                {"both given", 8, 3, true},
                {"both zero", 0, 0, true},
                {"total zero", 0, 3, true},
                {"current zero", 8, 0, true},
                {"current above total", 2, 9, true},
                {"largest", INT_MAX, INT_MAX, true},
                {"total negative", -1, 3, false},
                {"current negative", 8, -1, false},
                {"both negative", -1, -1, false},
                {"smallest", INT_MIN, INT_MIN, false},
            });
    }

    void pageInfo()
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
            u"BasicChart::setPageInfo total %1 curpage  %2"_s.arg(total).arg(current));
    }

    void timerTellsOfTheBarAndStops_data()
    {
        table<QStringList>({"bars"}, {{"a bar is selected", {"Plant North"}}, {"no bar is selected", {}}});
    }

    void timerTellsOfTheBarAndStops()
    {
        QFETCH(QStringList, bars);
        PageScene scene;
        ProbePage page(1);
        page.initForm();
        QStringList told;
        QList<bool> runningThen;
        connect(&page, &BasicChart::barSetChanged, this, [&](QString &bar) {
            told.append(bar);
            runningThen.append(page.m_pTimer->isActive());
        });
        page.m_strSelectedBar = bars.value(0);
        page.m_pTimer->start(100000);
        page.slotTimerReq();
        QCOMPARE(told, bars);
        QCOMPARE(runningThen, QList<bool>(bars.size(), true));
        QVERIFY(!page.m_pTimer->isActive());
    }

    void pressOnTimeOpensTheCalendar_data()
    {
        table<Qt::MouseButton>(
            {"button"}, {{"left", Qt::LeftButton}, {"right", Qt::RightButton}, {"middle", Qt::MiddleButton}});
    }

    void pressOnTimeOpensTheCalendar()
    {
        QFETCH(Qt::MouseButton, button);
        auto &&[scene, page] = Shown(1);
        auto *lineEdit = page.part<QLineEdit>("lineEditTime");
        QVERIFY(!page.m_pCalendarWidget->isVisible());
        QTest::mousePress(lineEdit, button, {}, QPoint(20, lineEdit->height() / 2));
        QVERIFY(page.m_pCalendarWidget->isVisible());
        page.m_pCalendarWidget->hide();
        QTest::mouseRelease(lineEdit, button, {}, QPoint(20, lineEdit->height() / 2));
        QVERIFY(!page.m_pCalendarWidget->isVisible());
    }

    void pressOnTimePlacesNoCursor()
    {
        auto &&[scene, page] = Shown(1);
        auto *lineEdit = page.part<QLineEdit>("lineEditTime");
        lineEdit->setCursorPosition(3);
        QTest::mousePress(lineEdit, Qt::LeftButton, {}, QPoint(150, lineEdit->height() / 2));
        QCOMPARE(lineEdit->cursorPosition(), 3);
        page.m_pCalendarWidget->hide();
        QTest::mouseRelease(lineEdit, Qt::LeftButton, {}, QPoint(150, lineEdit->height() / 2));
    }

    void filterSwallowsOnlyPressesOnTime()
    {
        auto &&[scene, page] = Shown(1);
        auto *lineEdit = page.part<QLineEdit>("lineEditTime");
        auto *other = page.part<QLabel>("labelSort");
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
            Qt::LeftButton, Qt::NoModifier);
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

    void sizeDecidesAboutThePie_data()
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

    void sizeDecidesAboutThePie()
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

    void onlineKindsKeepThePieAsItStands()
    {
        Framed framed(3);
        ProbePage &page = framed.page;
        page.part<QWidget>("widgetPie")->setVisible(true);
        page.resize(800, 500);
        QVERIFY(page.part<QWidget>("widgetPie")->isVisible());
        page.part<QWidget>("widgetPie")->setVisible(false);
        page.resize(1600, 900);
        QVERIFY(!page.part<QWidget>("widgetPie")->isVisible());
    }

    void onlyALargeEnoughSizeRefreshesTheOverlays_data()
    {
        table<int, bool>({"width", "refreshed"}, {{"large enough", 1200, true}, {"small", 900, false}});
    }

    void onlyALargeEnoughSizeRefreshesTheOverlays()
    {
        QFETCH(int, width);
        QFETCH(bool, refreshed);
        Framed framed(2);
        ProbePage &page = framed.page;
        QVERIFY(page.pushButtonNext->isVisible());
        page.m_nTotalPage = 1;
        page.m_nCurPage = 2;
        page.resize(width, 700);
        QCOMPARE(page.pushButtonNext->isVisible(), !refreshed);
        QCOMPARE(page.pushButtonPrevious->isVisible(), refreshed);
    }

    // The place of the total comes from the pane, which has none while it is hidden.
    void pieStandsAgainBeforeTheOverlaysArePlaced()
    {
        Framed framed(1);
        ProbePage &page = framed.page;
        page.resize(900, 700);
        const QWidget *pane = page.part<QWidget>("widgetPie");
        QVERIFY(pane->isHidden());
        QList<bool> hiddenThen;
        TextRecorder texts;
        texts.whenAsked = [&](const QString &key) {
            if (key == u"TK_PageTotalSize"_s)
                hiddenThen.append(pane->isHidden());
        };
        page.resize(1200, 700);
        QVERIFY(!hiddenThen.isEmpty());
        QVERIFY(!hiddenThen.contains(true));
    }
};

TALVIX_TEST_MAIN(TestQueryCycle)
#include "tst_query_cycle.moc"
