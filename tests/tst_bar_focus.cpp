#include "support/FakeKrxClient.h"
#include "support/LogCapture.h"
#include "support/LogLines.h"
#include "support/ProbePage.h"
#include "support/ScriptedStatisticsManager.h"
#include "support/StatisticsRows.h"
#include "support/TestMain.h"
#include "support/TestTable.h"

#include <TalvixWidgets/ZrChartView.h>
#include <TalvixWidgets/ZrPushButton.h>

#include <QtCharts/QAbstractBarSeries>
#include <QtCharts/QBarSet>
#include <QtCharts/QChart>
#include <QtCharts/QStackedBarSeries>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QCursor>
#include <QtWidgets/QGraphicsItem>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

#include <memory>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(LabelledValues)

namespace {
/// Waits for longer than the focus delay of 800 ms before it gives up.
constexpr int patience = 15000;
constexpr int stretchedDelayMs = 3600 * 1000;

} // namespace

class TestBarFocus : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<FakeKrxClient> client;
    std::unique_ptr<ScriptedStatisticsManager> service;
    std::unique_ptr<ProbePage> page;
    QStringList announced;

    bool open(int type)
    {
        page = std::make_unique<ProbePage>(type);
        page->resize(1136, 648);
        page->show();
        const bool exposed = QTest::qWaitForWindowExposed(page.get());
        QCursor::setPos(page->mapToGlobal(QPoint(2, 2)));
        QCoreApplication::processEvents();
        announced.clear();
        connect(
            page.get(), &BasicChart::barSetChanged, this, [this](QString &name) { announced.append(name); });
        forget();
        return exposed;
    }

    void forget()
    {
        service->calls.clear();
        page->tips.clear();
        announced.clear();
    }

    void answerOrganisations(const std::vector<AlarmStatisticsRecord> &rows)
    {
        answerRows(service->alarmStatisticsOfOrgas, rows);
    }

    /// Four bars in the order that a descending sort gives them, so that it has nothing to do.
    void answerFourOrganisations()
    {
        answerOrganisations({alarmsOfOrganisation(2, 40), alarmsOfOrganisation(3, 30),
            alarmsOfOrganisation(4, 20), alarmsOfOrganisation(1, 10)});
        answerRows(service->alarmStatisticsOfOrga, {alarmsOfPeriod("2024-05-03 08", -1, 3)});
    }

    bool openFour()
    {
        answerFourOrganisations();
        return open(1);
    }

    /// A page of any kind with the bars North 40, South 30 and East 20, and a second series where the kind
    /// has one.
    bool openWithBars(int type)
    {
        answerOrganisations(
            {alarmsOfOrganisation(2, 40), alarmsOfOrganisation(3, 30), alarmsOfOrganisation(4, 20)});
        answerRows(service->onlineStatisticsOfOrgas,
            {onlineOfOrganisation(2, 40), onlineOfOrganisation(3, 30), onlineOfOrganisation(4, 20)});
        client->addDevice("n", "North", "", 1);
        client->addDevice("s", "South", "", 2);
        client->addDevice("e", "East", "", 1);
        answerEveryPage(service->alarmStatisticsOfDevices,
            {alarmsOfDevice("n", 40), alarmsOfDevice("s", 30), alarmsOfDevice("e", 20)}, 1);
        answerEveryPage(service->onlineStatisticsOfDevices,
            {onlineOfDevice("n", 40), onlineOfDevice("s", 30), onlineOfDevice("e", 20)}, 1);
        if (!open(type))
            return false;
        if (type > 4) {
            page->barDataList = {{"North", 40}, {"South", 30}, {"East", 20}};
            if (type > 6)
                page->barDataList2 = {{"North", 15}, {"South", 35}, {"East", 25}};
            page->devDataList = {{"North", "2"}, {"South", "3"}, {"East", "4"}};
            page->loadChart();
            forget();
        }
        return true;
    }

    QAbstractBarSeries *series() const
    {
        const QList<QAbstractSeries *> all = page->barChartView->chart()->series();
        return all.isEmpty() ? nullptr : qobject_cast<QAbstractBarSeries *>(all.constFirst());
    }

    QBarSet *set(int index) const { return series()->barSets().at(index); }

    /// The middle of a bar, in the view's viewport.
    QPoint middleOf(int bar, int setIndex = 0) const
    {
        QAbstractBarSeries *const bars = series();
        double x = bar;
        if (!qobject_cast<QStackedBarSeries *>(bars))
            x += bars->barWidth() * ((setIndex + 0.5) / bars->count() - 0.5);
        const QPointF inChart =
            page->barChartView->chart()->mapToPosition(QPointF(x, set(setIndex)->at(bar) / 2.0), bars);
        return page->barChartView->mapFromScene(page->barChartView->chart()->mapToScene(inChart));
    }

    /// Whether a bar has grown as far as the place where the pointer will go.
    bool standsAt(const QPoint &place) const
    {
        const QGraphicsItem *const item = page->barChartView->itemAt(place);
        return item && item->acceptHoverEvents() && dynamic_cast<const QGraphicsRectItem *>(item);
    }

    /// Moves the pointer onto a bar once it has grown.
    bool hover(int bar, int setIndex = 0)
    {
        const bool grown =
            QTest::qWaitFor([this, bar, setIndex] { return standsAt(middleOf(bar, setIndex)); }, patience);
        QTest::mouseMove(page->barChartView->viewport(), middleOf(bar, setIndex));
        return grown;
    }

    void leaveBars() { QTest::mouseMove(page->barChartView->viewport(), QPoint(1, 1)); }

    /// Gives a running delay more time than any test takes; another start of the timer sets it back to its
    /// own.
    void stretchDelay()
    {
        if (page->m_pTimer->isActive())
            page->m_pTimer->setInterval(stretchedDelayMs);
    }

    bool calloutShows() const { return page->labelCallout && page->labelCallout->isVisible(); }

    QString calloutText(const QString &name, const QString &value) const
    {
        QString text = page->m_strToolTipFormat;
        return text.replace(u"%1"_s, page->part<QLineEdit>("lineEditTime")->text())
            .replace(u"%2"_s, name)
            .replace(u"%3"_s, value);
    }

    void press(const char *name) { QTest::mouseClick(page->part<QPushButton>(name), Qt::LeftButton); }

    bool highlighted(const char *name) const
    {
        return page->part<QPushButton>(name)->property("highlight").toBool();
    }

    /// Whether the page sorts that way, and only that way's button says so.
    bool isInOrder(bool descending) const
    {
        return page->sortFlag == descending && highlighted("pushButtonDesc") == descending
            && highlighted("pushButtonAsc") != descending;
    }

    int drillDowns() const { return static_cast<int>(service->calls.count(u"getAlarmStatisticsOfOrga"_s)); }
    int lastDrillDown() const { return service->alarmStatisticsOfOrga.requests.constLast().orgaId; }

private Q_SLOTS:
    void init()
    {
        client = std::make_unique<FakeKrxClient>();
        client->setTree(u"1 Company\n  2 North\n  3 South\n  4 East"_s);
        service = std::make_unique<ScriptedStatisticsManager>();
    }

    void cleanup()
    {
        page.reset();
        service.reset();
        client.reset();
    }

    // The pointer on bars

    void aBarTellsItsFigure_data()
    {
        table<int, QString>({"type", "value"},
            {{"alarms of organisations", 1, "30"}, {"alarms of devices, a recorder's bar", 2, "30"},
                {"online organisations", 3, "30"}, {"online devices, in percent", 4, "30%"},
                {"temperature of groups", 5, "30"}, {"temperature of persons", 6, "30"}});
    }

    void aBarTellsItsFigure()
    {
        QFETCH(int, type);
        QFETCH(QString, value);
        QVERIFY(openWithBars(type));
        QCOMPARE(page->m_strSelectedBar, u"North"_s);
        const int setOfSouth = type == 2 || type == 4 ? 1 : 0;
        LogCapture log;
        QVERIFY(hover(1, setOfSouth));
        QVERIFY(calloutShows());
        QCOMPARE(page->labelCallout->text(), calloutText(u"South"_s, value));
        QCOMPARE(page->labelCallout->pos(), page->mapFromGlobal(QCursor::pos()) + QPoint(15, -15));
        QVERIFY(log.contains(u"BasicChart::slotBarSelected index  1 size 3"_s));
        QCOMPARE(page->m_strSelectedBar, u"South"_s);
        QVERIFY(page->m_pTimer->isActive());
        QCOMPARE(page->m_pTimer->interval(), 800);
        QVERIFY(service->calls.isEmpty());
    }

    void aBarOfTwoTellsItsSet_data()
    {
        table<int, int, QString, QString>({"type", "setIndex", "label", "value"},
            {{"vehicles of organisations", 7, 0, "TK_Vehicle", "30"},
                {"pedestrians of organisations", 7, 1, "TK_Pedestrian", "35"},
                {"vehicles of devices", 8, 0, "TK_Vehicle", "30"},
                {"pedestrians of devices", 8, 1, "TK_Pedestrian", "35"},
                {"accepted alarms", 9, 0, "TK_AlarmAccepted", "30"},
                {"alarms not accepted", 9, 1, "TK_AlarmUnAccepted", "35"}});
    }

    void aBarOfTwoTellsItsSet()
    {
        QFETCH(int, type);
        QFETCH(int, setIndex);
        QFETCH(QString, label);
        QFETCH(QString, value);
        QVERIFY(openWithBars(type));
        LogCapture log;
        QVERIFY(hover(1, setIndex));
        QVERIFY(calloutShows());
        QCOMPARE(page->labelCallout->text(), calloutText(label, value));
        QVERIFY(log.contains(u"BasicChart::slotBarSelected index  1 size 3"_s));
        QCOMPARE(page->m_strSelectedBar, u"South"_s);
        QVERIFY(page->m_pTimer->isActive());
        QCOMPARE(page->m_pTimer->interval(), 800);
        leaveBars();
        QVERIFY(!calloutShows());
    }

    void aBarOfTwoLeadsToTheBarsOwnDetail()
    {
        QVERIFY(openWithBars(9));
        QVERIFY(hover(2, 1));
        QTRY_VERIFY_WITH_TIMEOUT(!page->m_pTimer->isActive(), patience);
        QCOMPARE(announced, QStringList{"East"});
        QVERIFY(!service->calls.isEmpty());
    }

    void aBarOfTwoThatIsNamedLikeItsSetStartsNothing()
    {
        QVERIFY(open(9));
        page->barDataList = {{"TK_AlarmAccepted", 40}, {"South", 30}};
        page->barDataList2 = {{"TK_AlarmAccepted", 15}, {"South", 35}};
        page->devDataList = {{"TK_AlarmAccepted", "2"}, {"South", "3"}};
        page->loadChart();
        QCOMPARE(page->m_strSelectedBar, u"TK_AlarmAccepted"_s);
        QVERIFY(hover(1, 0));
        QVERIFY(calloutShows());
        QVERIFY(!page->m_pTimer->isActive());
        QCOMPARE(page->m_strSelectedBar, u"TK_AlarmAccepted"_s);
        QVERIFY(hover(1, 1));
        QVERIFY(page->m_pTimer->isActive());
        QCOMPARE(page->m_strSelectedBar, u"South"_s);
    }

    void aBarThatOneSeriesLacksIsHarmless()
    {
        QVERIFY(open(9));
        page->barDataList = {{"North", 40}, {"South", 30}};
        page->barDataList2 = {{"North", 15}};
        page->devDataList = {{"North", "2"}, {"South", "3"}};
        page->loadChart();
        page->slotBarSelected(true, 1, set(1));
        QCOMPARE(page->labelCallout->text(), calloutText(u"TK_AlarmUnAccepted"_s, u"0"_s));
        QVERIFY(!page->m_pTimer->isActive());
        QCOMPARE(page->m_strSelectedBar, u"North"_s);
    }

    void figuresOfTwoSetsReadShort()
    {
        QVERIFY(open(9));
        page->barDataList = {{"North", 1234567}};
        page->barDataList2 = {{"North", -8}};
        page->devDataList = {{"North", "2"}};
        page->loadChart();
        page->slotBarSelected(true, 0, set(0));
        QCOMPARE(page->labelCallout->text(), calloutText(u"TK_AlarmAccepted"_s, u"1.23457e+06"_s));
        page->slotBarSelected(true, 0, set(1));
        QCOMPARE(page->labelCallout->text(), calloutText(u"TK_AlarmUnAccepted"_s, u"-8"_s));
    }

    void restingOnABarLoadsItsDetail()
    {
        QVERIFY(openFour());
        const QPointer<QChart> bars = page->barChartView->chart();
        const QPointer<QChart> line = page->lineChartView->chart();
        const QPointer<QChart> pie = page->pieChartView->chart();
        answerRows(service->alarmStatisticsOfOrga, {alarmsOfPeriod("2024-05-03 09", -1, 6)});
        QVERIFY(hover(2));
        QVERIFY(service->calls.isEmpty());
        LogCapture log;
        QTRY_VERIFY_WITH_TIMEOUT(!page->m_pTimer->isActive(), patience);
        QCOMPARE(announced, QStringList{"East"});
        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfOrga"});
        QCOMPARE(lastDrillDown(), 4);
        QCOMPARE(page->lineDataList, (LabelledValues{{"2024-05-03 09", 6}}));
        QCOMPARE(page->m_strSelectedBar, u"East"_s);
        QVERIFY(bars && page->barChartView->chart() == bars);
        QVERIFY(!line || page->lineChartView->chart() != line);
        QVERIFY(!pie || page->pieChartView->chart() != pie);
        const QString focus = loggedBehind(log.lines(), u"BasicChart::slotBarSetChanged bar  id "_s);
        QCOMPARE(focus, u"\"East\" index 2 size 4"_s);
        QVERIFY(inOrder(
            log.lines(), {"BasicChart::slotBarSetChanged bar  id *", "BasicChart::getChartDataByBarId"}));
        QVERIFY(!log.contains(u"BasicChart::loadChart"_s));
    }

    void aHoverThatEndsEarlyStillLoads()
    {
        QVERIFY(openFour());
        QVERIFY(hover(1));
        stretchDelay();
        leaveBars();
        QVERIFY(!calloutShows());
        // The delay counts from the start of the hover: leaving neither stops nor restarts it.
        QVERIFY(page->m_pTimer->isActive());
        QCOMPARE(page->m_pTimer->interval(), stretchedDelayMs);
        page->m_pTimer->setInterval(1);
        QTRY_VERIFY_WITH_TIMEOUT(!page->m_pTimer->isActive(), patience);
        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfOrga"});
        QCOMPARE(lastDrillDown(), 3);
    }

    void ofSeveralBarsTheLastOneWins()
    {
        QVERIFY(openFour());
        for (int bar : {1, 2, 3})
            QTRY_VERIFY_WITH_TIMEOUT(standsAt(middleOf(bar)), patience);
        for (int bar : {1, 2, 3}) {
            stretchDelay();
            QVERIFY(hover(bar));
            QCOMPARE(page->m_strSelectedBar, page->barDataList.at(bar).first);
            QVERIFY(page->m_pTimer->isActive());
            QCOMPARE(page->m_pTimer->interval(), 800);
        }
        QTRY_VERIFY_WITH_TIMEOUT(!page->m_pTimer->isActive(), patience);
        QCOMPARE(announced, QStringList{"Company"});
        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfOrga"});
        QCOMPARE(lastDrillDown(), 1);
    }

    void theBarInFocusShowsItsFigureAndAsksNothing()
    {
        QVERIFY(openFour());
        QVERIFY(hover(0));
        QVERIFY(calloutShows());
        QCOMPARE(page->labelCallout->text(), calloutText(u"North"_s, u"40"_s));
        QVERIFY(!page->m_pTimer->isActive());
        QCOMPARE(page->m_strSelectedBar, u"North"_s);
        QVERIFY(service->calls.isEmpty());
    }

    void aPressOnABarAsksNothing()
    {
        QVERIFY(openFour());
        QVERIFY(hover(0));
        QTest::mouseClick(page->barChartView->viewport(), Qt::LeftButton, {}, middleOf(0));
        QTest::mouseDClick(page->barChartView->viewport(), Qt::LeftButton, {}, middleOf(0));
        QTest::mouseRelease(page->barChartView->viewport(), Qt::LeftButton, {}, middleOf(0));
        QVERIFY(service->calls.isEmpty());
        QVERIFY(!page->m_pTimer->isActive());
        QCOMPARE(page->m_strSelectedBar, u"North"_s);
    }

    void anEmptyDetailTellsSoAndEmptiesLineAndPie()
    {
        QVERIFY(openFour());
        QVERIFY(!page->lineDataList.isEmpty());
        answerRows(service->alarmStatisticsOfOrga, {});
        QVERIFY(hover(1));
        QTRY_VERIFY_WITH_TIMEOUT(!page->m_pTimer->isActive(), patience);
        QCOMPARE(page->tips, (QList<ProbePage::Tip>{{"TK_NoRecords", 2}}));
        QCOMPARE(lastDrillDown(), 3);
        QVERIFY(page->lineDataList.isEmpty());
        QVERIFY(page->pieDataList.isEmpty());
        QVERIFY(page->lineChartView->chart()->isVisible());
        QCOMPARE(page->barDataList.size(), 4);
        QCOMPARE(page->m_strSelectedBar, u"South"_s);
    }

    void aFailedDetailIsNotAskedAgainByTheSameBar()
    {
        QVERIFY(openFour());
        service->failOperation(u"getAlarmStatisticsOfOrga"_s, u"no route"_s);
        const QPointer<QChart> line = page->lineChartView->chart();
        QVERIFY(hover(1));
        QTRY_VERIFY_WITH_TIMEOUT(!page->m_pTimer->isActive(), patience);
        QCOMPARE(page->tips, (QList<ProbePage::Tip>{{"TK_GetFailedno route", 2}}));
        QVERIFY(page->lineDataList.isEmpty());
        QVERIFY(page->pieDataList.isEmpty());
        QVERIFY(!line || page->lineChartView->chart() != line);
        QCOMPARE(page->m_strSelectedBar, u"South"_s);
        leaveBars();
        QVERIFY(hover(1));
        QVERIFY(calloutShows());
        QVERIFY(!page->m_pTimer->isActive());
        QVERIFY(hover(2));
        QVERIFY(page->m_pTimer->isActive());
        QVERIFY(hover(1));
        QTRY_VERIFY_WITH_TIMEOUT(!page->m_pTimer->isActive(), patience);
        QCOMPARE(drillDowns(), 2);
        QCOMPARE(lastDrillDown(), 3);
    }

    void afterASortABarLeadsToItsOwnKey()
    {
        for (const char *uid : {"d1", "d2", "d3"})
            client->addDevice(uid, std::string("Name of ") + uid);
        answerEveryPage(service->alarmStatisticsOfDevices,
            {alarmsOfDevice("d1", 10), alarmsOfDevice("d2", 40), alarmsOfDevice("d3", 20)}, 1);
        QVERIFY(open(2));
        QCOMPARE(listKeys(page->barDataList), (QStringList{"Name of d2", "Name of d3", "Name of d1"}));
        QVERIFY(hover(2));
        QTRY_VERIFY_WITH_TIMEOUT(!page->m_pTimer->isActive(), patience);
        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfDevice"});
        QCOMPARE(service->alarmStatisticsOfDevice.requests.constLast().uid(), std::string("d1"));
    }

    void ofTwoBarsOfOneNameTheFirstKeyIsFound()
    {
        client->addOrganisation(5, "North");
        answerOrganisations(
            {alarmsOfOrganisation(3, 30), alarmsOfOrganisation(2, 20), alarmsOfOrganisation(5, 10)});
        QVERIFY(open(1));
        QVERIFY(hover(2));
        QVERIFY(calloutShows());
        QCOMPARE(page->labelCallout->text(), calloutText(u"North"_s, u"10"_s));
        QTRY_VERIFY_WITH_TIMEOUT(!page->m_pTimer->isActive(), patience);
        QCOMPARE(lastDrillDown(), 2);
        // The other bar of that name is in focus as well now.
        forget();
        QVERIFY(hover(1));
        QVERIFY(!page->m_pTimer->isActive());
    }

    void aNewSearchLeadsToItsOwnKeys()
    {
        answerOrganisations({alarmsOfOrganisation(2, 5), alarmsOfOrganisation(3, 5)});
        QVERIFY(open(1));
        QString name = u"South"_s;
        page->slotBarSetChanged(name);
        QCOMPARE(lastDrillDown(), 3);
        answerOrganisations(
            {alarmsOfOrganisation(3, 5), alarmsOfOrganisation(2, 5), alarmsOfOrganisation(4, 5)});
        page->slotSearch();
        page->slotBarSetChanged(name);
        QCOMPARE(lastDrillDown(), 3);
        name = u"East"_s;
        page->slotBarSetChanged(name);
        QCOMPARE(lastDrillDown(), 4);
    }

    void anEndOfHoverHidesTheCallOutAlone_data()
    {
        table<bool, int>({"state", "index"},
            {{"the hover ends", false, 1}, {"the hover ends behind the last bar", false, 4},
                {"a hover just behind the last bar", true, 4},
                {"a hover far behind the last bar", true, 2147483647}});
    }

    void anEndOfHoverHidesTheCallOutAlone()
    {
        QFETCH(bool, state);
        QFETCH(int, index);
        QVERIFY(openFour());
        page->slotBarSelected(state, index, set(0));
        QVERIFY(!page->labelCallout);
        page->slotBarSelected(true, 1, set(0));
        QVERIFY(calloutShows());
        LogCapture log;
        page->slotBarSelected(state, index, set(0));
        QVERIFY(!calloutShows());
        QVERIFY(page->m_pTimer->isActive());
        QCOMPARE(page->m_strSelectedBar, u"South"_s);
        QCOMPARE(log.lines(), QStringList());
    }

    void aHoverWithoutASetIsIgnored()
    {
        QVERIFY(openFour());
        page->slotBarSelected(true, 1, set(0));
        page->m_pTimer->stop();
        LogCapture log;
        page->slotBarSelected(true, 2, nullptr);
        page->slotBarSelected(false, 2, nullptr);
        QVERIFY(calloutShows());
        QVERIFY(!page->m_pTimer->isActive());
        QCOMPARE(page->m_strSelectedBar, u"South"_s);
        QCOMPARE(log.lines(), QStringList());
    }

    void theDelayEndsWithOneSignal()
    {
        QVERIFY(openFour());
        page->slotTimerReq();
        QCOMPARE(announced, QStringList{"North"});
        page->m_strSelectedBar.clear();
        page->m_pTimer->start(800);
        page->slotTimerReq();
        QCOMPARE(announced, QStringList{"North"});
        QVERIFY(!page->m_pTimer->isActive());
    }

    void theSignalIsConnectedOnceHoweverOftenChartsAreLoaded()
    {
        QVERIFY(openFour());
        page->slotSearch();
        page->loadChart();
        page->reloadLineAndPieChart();
        forget();
        QString name = u"East"_s;
        Q_EMIT page->barSetChanged(name);
        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfOrga"});
    }

    void aNameThatNoBarHasLoadsNothing_data()
    {
        table<QString, bool>({"name", "withoutKeys"},
            {{"an unknown name", "West", false}, {"an empty name", "", false},
                {"a name in other case", "east", false}, {"a key is no name", "4", false},
                {"no keys at all", "East", true}});
    }

    void aNameThatNoBarHasLoadsNothing()
    {
        QFETCH(QString, name);
        QFETCH(bool, withoutKeys);
        QVERIFY(openFour());
        if (withoutKeys)
            page->devDataList.clear();
        const LabelledValues line = page->lineDataList;
        QChart *const chart = page->lineChartView->chart();
        LogCapture log;
        page->slotBarSetChanged(name);
        QVERIFY(service->calls.isEmpty());
        QCOMPARE(log.lines(), QStringList());
        QCOMPARE(page->lineDataList, line);
        QCOMPARE(page->lineChartView->chart(), chart);
    }

    void theFocusOutlivesASearchWithoutResult()
    {
        QVERIFY(openFour());
        QVERIFY(hover(1));
        page->m_pTimer->stop();
        service->failWith(u"closed"_s);
        page->slotSearch();
        QCOMPARE(page->m_strSelectedBar, u"South"_s);
        service->failWith({});
        page->slotSearch();
        QCOMPARE(page->m_strSelectedBar, u"North"_s);
    }

    // Sorting

    void aSearchShowsTheClientsOrder_data()
    {
        table<bool, LabelledValues, QList<int>>({"descending", "bars", "opened"},
            {{"descending keeps ties in the answer's order", true, {{"East", 9}, {"North", 5}, {"South", 5}},
                 {2, 4}},
                {"ascending turns ties round", false, {{"South", 5}, {"North", 5}, {"East", 9}}, {2, 3}}});
    }

    void aSearchShowsTheClientsOrder()
    {
        QFETCH(bool, descending);
        QVERIFY(open(1));
        answerOrganisations(
            {alarmsOfOrganisation(2, 5), alarmsOfOrganisation(3, 5), alarmsOfOrganisation(4, 9)});
        press(descending ? "pushButtonDesc" : "pushButtonAsc");
        service->alarmStatisticsOfOrga.requests.clear();
        page->slotSearch();
        QTEST(page->barDataList, "bars");
        QCOMPARE(service->alarmStatisticsOfOrgas.requests.constLast().sortType, descending ? 1 : 2);
        QList<int> asked;
        for (const auto &request : service->alarmStatisticsOfOrga.requests)
            asked.append(request.orgaId);
        QTEST(asked, "opened");
        QCOMPARE(page->m_strSelectedBar, page->barDataList.constFirst().first);
        QCOMPARE(page->devDataList, (LabelledKeys{{"North", "2"}, {"South", "3"}, {"East", "4"}}));
        QCOMPARE(series()->barSets().constFirst()->at(0), double(page->barDataList.constFirst().second));
    }

    void aSearchInOrderOpensTheFirstBarOnce()
    {
        QVERIFY(openFour());
        page->slotSearch();
        QCOMPARE(service->calls, (QStringList{"getAlarmStatisticsOfOrgas", "getAlarmStatisticsOfOrga"}));
        QCOMPARE(lastDrillDown(), 2);
    }

    void ascendingReordersAndOpensTheNewFirstBar()
    {
        QVERIFY(openFour());
        QVERIFY(isInOrder(true));
        const QPointer<QChart> bars = page->barChartView->chart();
        const QPointer<QChart> line = page->lineChartView->chart();
        LogCapture log;
        press("pushButtonAsc");
        QCOMPARE(listKeys(page->barDataList), (QStringList{"Company", "East", "South", "North"}));
        QCOMPARE(listKeys(page->devDataList), (QStringList{"North", "South", "East", "Company"}));
        QVERIFY(isInOrder(false));
        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfOrga"});
        QCOMPARE(lastDrillDown(), 1);
        QCOMPARE(page->m_strSelectedBar, u"Company"_s);
        QVERIFY(!bars || page->barChartView->chart() != bars);
        QVERIFY(!line || page->lineChartView->chart() != line);
        QVERIFY(inOrder(log.lines(),
            {"BasicChart::getChartDataByBarId", "BasicChart::loadChart",
                "BasicChart::on_pushButtonAsc_clicked"}));
        QCOMPARE(log.count(u"BasicChart::on_pushButtonAsc_clicked"_s), 1);
        QVERIFY(!log.contains(u"BasicChart::slotSearch "_s));
    }

    void descendingReordersAndOpensTheNewFirstBar()
    {
        QVERIFY(openFour());
        press("pushButtonAsc");
        forget();
        const QPointer<QChart> bars = page->barChartView->chart();
        LogCapture log;
        press("pushButtonDesc");
        QCOMPARE(listKeys(page->barDataList), (QStringList{"North", "South", "East", "Company"}));
        QVERIFY(isInOrder(true));
        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfOrga"});
        QCOMPARE(lastDrillDown(), 2);
        QVERIFY(!bars || page->barChartView->chart() != bars);
        QVERIFY(inOrder(log.lines(),
            {"BasicChart::getChartDataByBarId", "BasicChart::loadChart",
                "BasicChart::on_pushButtonDesc_clicked"}));
    }

    void ascendingTurnsTiesRoundAtEachPress()
    {
        answerOrganisations(
            {alarmsOfOrganisation(4, 9), alarmsOfOrganisation(2, 5), alarmsOfOrganisation(3, 5)});
        QVERIFY(open(1));
        press("pushButtonAsc");
        QCOMPARE(listKeys(page->barDataList), (QStringList{"South", "North", "East"}));
        QCOMPARE(lastDrillDown(), 3);
        const QList<QStringList> orders = {{"North", "South", "East"}, {"South", "North", "East"}};
        for (const QStringList &order : orders) {
            forget();
            const QPointer<QChart> bars = page->barChartView->chart();
            const QPointer<QChart> line = page->lineChartView->chart();
            press("pushButtonAsc");
            QCOMPARE(listKeys(page->barDataList), order);
            QCOMPARE(drillDowns(), 1);
            QCOMPARE(lastDrillDown(), order.constFirst() == "North"_L1 ? 2 : 3);
            QVERIFY(!bars || page->barChartView->chart() != bars);
            QVERIFY(!line || page->lineChartView->chart() != line);
        }
    }

    void descendingKeepsTies()
    {
        answerOrganisations(
            {alarmsOfOrganisation(2, 5), alarmsOfOrganisation(4, 9), alarmsOfOrganisation(3, 5)});
        QVERIFY(open(1));
        QCOMPARE(listKeys(page->barDataList), (QStringList{"East", "North", "South"}));
        const QPointer<QChart> bars = page->barChartView->chart();
        LogCapture log;
        press("pushButtonDesc");
        press("pushButtonDesc");
        QCOMPARE(listKeys(page->barDataList), (QStringList{"East", "North", "South"}));
        QVERIFY(service->calls.isEmpty());
        QVERIFY(bars && page->barChartView->chart() == bars);
        QVERIFY(!log.contains(u"BasicChart::loadChart"_s));
        QCOMPARE(log.count(u"BasicChart::on_pushButtonDesc_clicked"_s), 2);
    }

    void aDetailAfterASortIsAskedForInTheOldOrder()
    {
        QVERIFY(openFour());
        QList<bool> seen;
        service->alarmStatisticsOfOrga.answer = [this, &seen](const auto &, auto &) {
            seen.append({page->sortFlag, highlighted("pushButtonDesc"), highlighted("pushButtonAsc")});
            return true;
        };
        press("pushButtonAsc");
        QCOMPARE(seen, QList<bool>({true, true, false}));
        QVERIFY(!page->sortFlag);
        seen.clear();
        press("pushButtonDesc");
        QCOMPARE(seen, QList<bool>({false, false, true}));
        QVERIFY(page->sortFlag);
    }

    void severalBarsInOrderTriggerNothing()
    {
        QVERIFY(openFour());
        const QPointer<QChart> bars = page->barChartView->chart();
        press("pushButtonDesc");
        QVERIFY(service->calls.isEmpty());
        QVERIFY(bars && page->barChartView->chart() == bars);
        press("pushButtonAsc");
        QCOMPARE(service->calls.size(), 1);
        forget();
        const QPointer<QChart> ascending = page->barChartView->chart();
        press("pushButtonAsc");
        QVERIFY(service->calls.isEmpty());
        QVERIFY(ascending && page->barChartView->chart() == ascending);
    }

    void aSearchWithinTheDelayTurnsItToTheFirstBar()
    {
        QVERIFY(openFour());
        QVERIFY(hover(1));
        stretchDelay();
        page->slotSearch();
        QVERIFY(page->m_pTimer->isActive());
        QCOMPARE(page->m_strSelectedBar, u"North"_s);
        forget();
        page->m_pTimer->setInterval(1);
        QTRY_VERIFY_WITH_TIMEOUT(!page->m_pTimer->isActive(), patience);
        QCOMPARE(announced, QStringList{"North"});
        QCOMPARE(drillDowns(), 1);
        QCOMPARE(lastDrillDown(), 2);
    }

    void aReloadWithinTheDelayOfTrafficForgetsTheBar_data()
    {
        table<int>({"type"}, {{"organisations", 7}, {"devices", 8}});
    }

    void aReloadWithinTheDelayOfTrafficForgetsTheBar()
    {
        QFETCH(int, type);
        QVERIFY(openWithBars(type));
        QVERIFY(hover(1));
        QCOMPARE(page->m_strSelectedBar, u"South"_s);
        stretchDelay();
        page->loadChart();
        QVERIFY(page->m_pTimer->isActive());
        QVERIFY(page->m_strSelectedBar.isEmpty());
        forget();
        page->m_pTimer->setInterval(1);
        QTRY_VERIFY_WITH_TIMEOUT(!page->m_pTimer->isActive(), patience);
        QCOMPARE(announced, QStringList());
        QVERIFY(service->calls.isEmpty());
    }

    void aKindThatNobodyKnowsHasOneSeries_data()
    {
        table<int>({"type"}, {{"zero", 0}, {"behind the last kind", 10}, {"below zero", -1}});
    }

    void aKindThatNobodyKnowsHasOneSeries()
    {
        QFETCH(int, type);
        QVERIFY(openWithBars(1));
        page->setServiceType(type);
        page->slotBarSelected(true, 1, set(0));
        QVERIFY(calloutShows());
        QCOMPARE(page->labelCallout->text(), calloutText(u"South"_s, u"30"_s));
        QCOMPARE(page->m_strSelectedBar, u"South"_s);
        QVERIFY(page->m_pTimer->isActive());
    }

    void aListInOrderTriggersNothing()
    {
        answerOrganisations({alarmsOfOrganisation(2, 5)});
        QVERIFY(open(1));
        const QPointer<QChart> bars = page->barChartView->chart();
        press("pushButtonAsc");
        QVERIFY(service->calls.isEmpty());
        QVERIFY(bars && page->barChartView->chart() == bars);
        QVERIFY(isInOrder(false));
        press("pushButtonDesc");
        QVERIFY(service->calls.isEmpty());
        QVERIFY(bars && page->barChartView->chart() == bars);
        QVERIFY(isInOrder(true));
    }

    void withoutBarsASortButtonOnlySetsTheOrder()
    {
        QVERIFY(open(1));
        LogCapture log;
        press("pushButtonAsc");
        QVERIFY(isInOrder(false));
        QCOMPARE(log.lines(), QStringList{"BasicChart::on_pushButtonAsc_clicked"});
        log.clear();
        press("pushButtonDesc");
        QVERIFY(isInOrder(true));
        QCOMPARE(log.lines(), QStringList{"BasicChart::on_pushButtonDesc_clicked"});
        QVERIFY(service->calls.isEmpty());
        QVERIFY(page->m_chartViewList.isEmpty());
    }

    void theNextSearchCarriesTheOrder()
    {
        QVERIFY(openFour());
        page->slotSearch();
        QCOMPARE(service->alarmStatisticsOfOrgas.requests.constLast().sortType, 1);
        press("pushButtonAsc");
        page->slotSearch();
        QCOMPARE(service->alarmStatisticsOfOrgas.requests.constLast().sortType, 2);
        QVERIFY(!page->sortFlag);
        QCOMPARE(listKeys(page->barDataList), (QStringList{"Company", "East", "South", "North"}));
    }

    void eachShowEndsDescending()
    {
        QVERIFY(openFour());
        press("pushButtonAsc");
        page->hide();
        forget();
        page->show();
        QVERIFY(QTest::qWaitForWindowExposed(page.get()));
        QCOMPARE(service->alarmStatisticsOfOrgas.requests.constLast().sortType, 2);
        QVERIFY(isInOrder(true));
        QCOMPARE(listKeys(page->barDataList), (QStringList{"North", "South", "East", "Company"}));
        QCOMPARE(lastDrillDown(), 2);
        QCOMPARE(page->m_strSelectedBar, u"North"_s);
    }

    void aSortOfAPageAsksForDetailAlone()
    {
        for (const char *uid : {"d1", "d2"})
            client->addDevice(uid, uid);
        answerEveryPage(
            service->alarmStatisticsOfDevices, {alarmsOfDevice("d1", 9), alarmsOfDevice("d2", 4)}, 5);
        QVERIFY(open(2));
        page->slotNext();
        forget();
        press("pushButtonAsc");
        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfDevice"});
        QCOMPARE(service->alarmStatisticsOfDevice.requests.constLast().uid(), std::string("d2"));
        QCOMPARE(page->m_nCurPage, 2);
        page->slotNext();
        QCOMPARE(service->alarmStatisticsOfDevices.requests.constLast().pageIndex, 3);
        QCOMPARE(service->alarmStatisticsOfDevices.requests.constLast().sortType, 2);
    }

    void theTwoSeriesSortApart()
    {
        QVERIFY(open(9));
        page->barDataList = {{"North", 3}, {"South", 2}};
        page->barDataList2 = {{"North", 1}, {"South", 5}};
        page->devDataList = {{"North", "2"}, {"South", "3"}};
        page->loadChart();
        forget();
        QPointer<QChart> bars = page->barChartView->chart();
        press("pushButtonDesc");
        QCOMPARE(page->barDataList, (LabelledValues{{"North", 3}, {"South", 2}}));
        QCOMPARE(page->barDataList2, (LabelledValues{{"South", 5}, {"North", 1}}));
        QVERIFY(service->calls.isEmpty());
        QVERIFY(bars && page->barChartView->chart() == bars);
        press("pushButtonAsc");
        QCOMPARE(page->barDataList, (LabelledValues{{"South", 2}, {"North", 3}}));
        QCOMPARE(page->barDataList2, (LabelledValues{{"North", 1}, {"South", 5}}));
        QVERIFY(!service->calls.isEmpty());
        QVERIFY(!bars || page->barChartView->chart() != bars);
    }

    void theSecondSeriesSortsWithoutTheFirst()
    {
        QVERIFY(open(9));
        page->barDataList2 = {{"North", 5}, {"South", 1}};
        press("pushButtonAsc");
        QCOMPARE(page->barDataList2, (LabelledValues{{"South", 1}, {"North", 5}}));
        QVERIFY(service->calls.isEmpty());
    }

    void aReorderOpensTheFirstBarByItsName_data()
    {
        table<LabelledValues, QStringList, QList<int>>({"bars", "names", "opened"},
            {{"found", {{"South", 1}}, {"North", "South"}, {101}},
                {"of two of one name the first", {{"South", 1}}, {"South", "North", "South"}, {100}},
                {"not found", {{"West", 1}}, {"North", "South"}, {}}, {"no keys", {{"South", 1}}, {}, {}},
                {"no bars", {}, {"North"}, {}}});
    }

    void aReorderOpensTheFirstBarByItsName()
    {
        QFETCH(LabelledValues, bars);
        QFETCH(QStringList, names);
        QFETCH(QList<int>, opened);
        QVERIFY(openFour());
        page->barDataList = bars;
        page->devDataList.clear();
        for (int i = 0; i < names.size(); ++i)
            page->devDataList.append({names.at(i), QString::number(100 + i)});
        service->alarmStatisticsOfOrga.requests.clear();
        QChart *const chart = page->barChartView->chart();
        page->refreshAfterBarSort();
        QList<int> asked;
        for (const auto &request : service->alarmStatisticsOfOrga.requests)
            asked.append(request.orgaId);
        QCOMPARE(asked, opened);
        QCOMPARE(page->barChartView->chart() != chart, !opened.isEmpty());
    }

    void oldBarsStillSortAfterAFailedSearch()
    {
        QVERIFY(openFour());
        service->failOperation(u"getAlarmStatisticsOfOrgas"_s, u"closed"_s);
        page->slotSearch();
        QVERIFY(!page->barChartView->chart()->isVisible());
        forget();
        press("pushButtonAsc");
        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfOrga"});
        QCOMPARE(lastDrillDown(), 1);
        QVERIFY(page->barChartView->chart()->isVisible());
        QCOMPARE(listKeys(page->barDataList), (QStringList{"Company", "East", "South", "North"}));
    }

    void greatAndSmallFiguresSortBySign()
    {
        answerOrganisations({alarmsOfOrganisation(2, 0), alarmsOfOrganisation(3, 2147483647),
            alarmsOfOrganisation(4, -2147483647 - 1)});
        QVERIFY(open(1));
        QCOMPARE(listKeys(page->barDataList), (QStringList{"South", "North", "East"}));
        press("pushButtonAsc");
        QCOMPARE(listKeys(page->barDataList), (QStringList{"East", "North", "South"}));
    }

    // Paging

    void pagesTurnByTheButtons_data()
    {
        table<int>({"type"}, {{"alarms of devices", 2}, {"online devices", 4}});
    }

    void pagesTurnByTheButtons()
    {
        QFETCH(int, type);
        for (const char *uid : {"d1", "d2", "d3"})
            client->addDevice(uid, uid);
        const auto oneOfThree = [](const auto &row) {
            return [row](const auto &request, auto &response) {
                response.records = {row("d" + std::to_string(request.pageIndex), request.pageIndex)};
                response.curPage = request.pageIndex;
                response.totalPage = 3;
                return true;
            };
        };
        service->alarmStatisticsOfDevices.answer = oneOfThree(alarmsOfDevice);
        service->onlineStatisticsOfDevices.answer = oneOfThree(onlineOfDevice);
        QVERIFY(open(type));
        const auto check = [this](int current, bool previous, bool next) {
            return page->m_nCurPage == current && page->m_nTotalPage == 3
                && page->pushButtonPrevious->isVisible() == previous
                && page->pushButtonNext->isVisible() == next
                && page->barDataList == LabelledValues{{u"d%1"_s.arg(current), current}}
            && page->devDataList.size() == 1;
        };
        QVERIFY(check(1, false, true));
        press("pushButtonNext");
        QVERIFY(check(2, true, true));
        press("pushButtonNext");
        QVERIFY(check(3, true, false));
        forget();
        page->slotNext();
        QVERIFY(service->calls.isEmpty());
        QVERIFY(check(3, true, false));
        press("pushButtonPrevious");
        QVERIFY(check(2, true, true));
        press("pushButtonPrevious");
        QVERIFY(check(1, false, true));
        forget();
        page->slotPrevious();
        QVERIFY(service->calls.isEmpty());
        QVERIFY(check(1, false, true));
    }

    void aPageStopsAtTheEnds_data()
    {
        table<int, int, int, int>({"current", "total", "afterNext", "afterPrevious"},
            {{"a single page", 1, 1, 1, 1}, {"the first of two", 1, 2, 2, 1}, {"the last of two", 2, 2, 2, 1},
                {"no pages", 1, 0, 1, 1}, {"before the first", 0, 3, 1, 0},
                {"far before the first", -5, -5, -5, -5}, {"behind the last", 7, 3, 7, 6},
                {"the last page of all", 2147483647, 2147483647, 2147483647, 2147483646}});
    }

    void aPageStopsAtTheEnds()
    {
        QFETCH(int, current);
        QFETCH(int, total);
        QFETCH(int, afterNext);
        QFETCH(int, afterPrevious);
        client->addDevice("d1", "Camera");
        answerEveryPage(service->alarmStatisticsOfDevices, {alarmsOfDevice("d1", 4)}, total);
        QVERIFY(open(2));
        // An answer without rows leaves the numbers alone.
        answerRows(service->alarmStatisticsOfDevices, {});
        const auto turn = [this, current, total](void (BasicChart::*slot)()) {
            page->m_nCurPage = current;
            page->m_nTotalPage = total;
            forget();
            (page.get()->*slot)();
            return page->m_nCurPage;
        };
        QCOMPARE(turn(&BasicChart::slotNext), afterNext);
        QCOMPARE(service->calls.size(), afterNext == current ? 0 : 1);
        QCOMPARE(turn(&BasicChart::slotPrevious), afterPrevious);
        QCOMPARE(service->calls.size(), afterPrevious == current ? 0 : 1);
    }

    void personsPageWithoutATreeAskNothing()
    {
        QVERIFY(open(6));
        page->m_nTotalPage = 2;
        page->slotNext();
        QCOMPARE(page->m_nCurPage, 2);
        QVERIFY(service->calls.isEmpty());
        page->slotPrevious();
        QCOMPARE(page->m_nCurPage, 1);
    }

    void anAnswerOfNoPagesEndsThePaging()
    {
        client->addDevice("d1", "Camera");
        answerPage(service->alarmStatisticsOfDevices, {alarmsOfDevice("d1", 4)}, 1, 0);
        QVERIFY(open(2));
        QCOMPARE(page->m_nTotalPage, 0);
        QVERIFY(!page->pushButtonNext->isVisible());
        QVERIFY(!page->pushButtonPrevious->isVisible());
        page->slotNext();
        QVERIFY(service->calls.isEmpty());
        QCOMPARE(page->m_nCurPage, 1);
    }

    void theAnswerDecidesThePage()
    {
        client->addDevice("d1", "Camera");
        answerEveryPage(service->alarmStatisticsOfDevices, {alarmsOfDevice("d1", 4)}, 9);
        QVERIFY(open(2));
        answerPage(service->alarmStatisticsOfDevices, {alarmsOfDevice("d1", 4)}, 5, 5);
        press("pushButtonNext");
        QCOMPARE(service->alarmStatisticsOfDevices.requests.constLast().pageIndex, 2);
        QCOMPARE(page->m_nCurPage, 5);
        QCOMPARE(page->m_nTotalPage, 5);
        QVERIFY(!page->pushButtonNext->isVisible());
        QVERIFY(page->pushButtonPrevious->isVisible());
    }

    void aPageThatFailsKeepsItsNumber_data()
    {
        table<bool>({"refused"}, {{"refused", true}, {"no rows", false}});
    }

    void aPageThatFailsKeepsItsNumber()
    {
        QFETCH(bool, refused);
        client->addDevice("d1", "Camera");
        answerEveryPage(service->alarmStatisticsOfDevices, {alarmsOfDevice("d1", 4)}, 9);
        QVERIFY(open(2));
        press("pushButtonNext");
        QVERIFY(page->pushButtonPrevious->isVisible());
        answerRows(service->alarmStatisticsOfDevices, {});
        if (refused)
            service->failWith(u"closed"_s);
        press("pushButtonNext");
        QCOMPARE(page->m_nCurPage, 3);
        QCOMPARE(page->m_nTotalPage, 9);
        QVERIFY(!page->pushButtonPrevious->isVisible());
        QVERIFY(!page->pushButtonNext->isVisible());
        page->slotSearch();
        QCOMPARE(service->alarmStatisticsOfDevices.requests.constLast().pageIndex, 3);
        service->failWith({});
        answerEveryPage(service->alarmStatisticsOfDevices, {alarmsOfDevice("d1", 4)}, 9);
        page->slotSearch();
        QCOMPARE(page->m_nCurPage, 3);
        QVERIFY(page->pushButtonPrevious->isVisible());
        QVERIFY(page->pushButtonNext->isVisible());
    }
};

TALVIX_TEST_MAIN(TestBarFocus)
#include "tst_bar_focus.moc"
