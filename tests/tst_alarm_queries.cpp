#include "support/FakeKrxClient.h"
#include "support/LogCapture.h"
#include "support/LogLines.h"
#include "support/ProbePage.h"
#include "support/ScriptedStatisticsManager.h"
#include "support/StatisticsRows.h"
#include "support/TestMain.h"

#include <devhost/client/ClientInstances.h>
#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/AppLanguageTr.h>
#include <TalvixWidgets/ZrComboBoxWithTree.h>
#include <TalvixWidgets/ZrTreeView.h>

#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <memory>
#include <utility>
#include <vector>

Q_DECLARE_METATYPE(std::vector<int>)

namespace {

const QString hourOfToday = QStringLiteral("2024-05-03 00~2024-05-03 17");

/// Writes each tip to the log as well, so that its place among the log lines can be seen.
class TipLoggingPage : public ProbePage
{
public:
    using ProbePage::ProbePage;
    void setTips(const QString &text, const int &kind) override
    {
        qDebug("tip");
        ProbePage::setTips(text, kind);
    }
};

using Tip = ProbePage::Tip;

} // namespace

class TestAlarmQueries : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<FakeKrxClient> client;
    std::unique_ptr<ScriptedStatisticsManager> service;
    std::unique_ptr<TipLoggingPage> page;

    /// Shows a page of the kind and forgets what its show did.
    bool open(int type)
    {
        page = std::make_unique<TipLoggingPage>(type);
        page->resize(1136, 648);
        page->show();
        const bool exposed = QTest::qWaitForWindowExposed(page.get());
        forget();
        return exposed;
    }

    void forget()
    {
        service->calls.clear();
        service->alarmStatisticsOfOrgas.requests.clear();
        service->alarmStatisticsOfOrga.requests.clear();
        service->alarmStatisticsOfDevices.requests.clear();
        service->alarmStatisticsOfDevice.requests.clear();
        page->tips.clear();
    }

    void press(const char *name) { QTest::mouseClick(page->part<QPushButton>(name), Qt::LeftButton); }

    void choosePlantNorth()
    {
        ZrTreeView *const tree = page->part<ZrComboBoxWithTree>("comboBox")->m_pTreeView;
        const QModelIndex company = tree->model()->index(0, 0);
        tree->setCurrentIndex(tree->model()->index(0, 0, company));
    }

    void answerOrganisations() { answerRows(service->alarmStatisticsOfOrgas, {alarmsOfOrganisation(2, 5)}); }

    void answerDevices()
    {
        client->addDevice("d1", "Camera");
        answerEveryPage(service->alarmStatisticsOfDevices, {alarmsOfDevice("d1", 5)}, 9);
    }

private Q_SLOTS:
    void init()
    {
        client = std::make_unique<FakeKrxClient>();
        client->setTree(QStringLiteral("42 Company\n  2 Plant North\n  3 Plant South"));
        service = std::make_unique<ScriptedStatisticsManager>();
    }

    void cleanup()
    {
        page.reset();
        service.reset();
        client.reset();
        HostSettings::setLanguage({});
        HostSettings::setDateOrder(HostSettings::DateOrder::YearFirst);
        setPresentMoment({});
    }

    void conditions_data()
    {
        QTest::addColumn<QString>("unitButton");
        QTest::addColumn<QString>("sortButton");
        QTest::addColumn<int>("orgTypeIndex");
        QTest::addColumn<int>("timeType");
        QTest::addColumn<int>("sortType");
        QTest::addColumn<int>("orgType");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");

        QTest::newRow("hours, descending, lower levels")
            << "pushButtonHour"
            << "pushButtonDesc" << 0 << 3 << 1 << 1 << "2024-05-03 00"
            << "2024-05-03 17";
        QTest::newRow("hours, ascending, all levels")
            << "pushButtonHour"
            << "pushButtonAsc" << 1 << 3 << 2 << 2 << "2024-05-03 00"
            << "2024-05-03 17";
        QTest::newRow("days, descending, only current")
            << "pushButtonDay"
            << "pushButtonDesc" << 2 << 2 << 1 << 3 << "2024-04-26"
            << "2024-05-03";
        QTest::newRow("days, ascending, lower levels") << "pushButtonDay"
                                                       << "pushButtonAsc" << 0 << 2 << 2 << 1 << "2024-04-26"
                                                       << "2024-05-03";
        QTest::newRow("months, descending, all levels") << "pushButtonMonth"
                                                        << "pushButtonDesc" << 1 << 1 << 1 << 2 << "2023-11"
                                                        << "2024-05";
        QTest::newRow("months, ascending, only current") << "pushButtonMonth"
                                                         << "pushButtonAsc" << 2 << 1 << 2 << 3 << "2023-11"
                                                         << "2024-05";
    }

    void theRequestOfOrganisationsCarriesTheWholeCondition_data() { conditions_data(); }

    void theRequestOfOrganisationsCarriesTheWholeCondition()
    {
        QFETCH(QString, unitButton);
        QFETCH(QString, sortButton);
        QFETCH(int, orgTypeIndex);
        client->setUserId(4711);
        QVERIFY(open(1));
        press(qPrintable(unitButton));
        press(qPrintable(sortButton));
        page->part<QComboBox>("comboBoxOrgType")->setCurrentIndex(orgTypeIndex);
        forget();

        page->slotSearch();

        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfOrgas"});
        const auto request = service->alarmStatisticsOfOrgas.requests.constFirst();
        QCOMPARE(request.userId, 4711);
        QTEST(request.timeType, "timeType");
        QTEST(request.sortType, "sortType");
        QTEST(request.orgType, "orgType");
        QTEST(QString::fromStdString(request.startTime()), "start");
        QTEST(QString::fromStdString(request.endTime()), "end");
        QCOMPARE(request.listOrg(), std::vector<int>{42});
        QVERIFY(request.cmd().empty());
    }

    void theRequestOfDevicesCarriesTheConditionAndThePage_data() { conditions_data(); }

    void theRequestOfDevicesCarriesTheConditionAndThePage()
    {
        QFETCH(QString, unitButton);
        QFETCH(QString, sortButton);
        QFETCH(int, orgTypeIndex);
        client->setUserId(4711);
        answerDevices();
        QVERIFY(open(2));
        press(qPrintable(unitButton));
        press(qPrintable(sortButton));
        page->part<QComboBox>("comboBoxOrgType")->setCurrentIndex(orgTypeIndex);
        forget();

        page->slotNext();

        QCOMPARE(service->alarmStatisticsOfDevices.requests.size(), 1);
        const auto request = service->alarmStatisticsOfDevices.requests.constFirst();
        QCOMPARE(request.userId, 4711);
        QTEST(request.timeType, "timeType");
        QTEST(request.sortType, "sortType");
        QCOMPARE(request.orgaId, 42);
        QCOMPARE(request.pageIndex, 2);
        QCOMPARE(request.pageSize, 10);
        QTEST(QString::fromStdString(request.startTime()), "start");
        QTEST(QString::fromStdString(request.endTime()), "end");
        QVERIFY(request.cmd().empty());
    }

    void theRequestOfOneOrganisationCarriesTheWholeCondition_data() { conditions_data(); }

    void theRequestOfOneOrganisationCarriesTheWholeCondition()
    {
        QFETCH(QString, unitButton);
        QFETCH(int, orgTypeIndex);
        client->setUserId(4711);
        QVERIFY(open(1));
        press(qPrintable(unitButton));
        page->part<QComboBox>("comboBoxOrgType")->setCurrentIndex(orgTypeIndex);
        forget();

        page->getAlarmOfOrga(QStringLiteral("3"));

        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfOrga"});
        const auto request = service->alarmStatisticsOfOrga.requests.constFirst();
        QCOMPARE(request.userId, 4711);
        QCOMPARE(request.orgaId, 3);
        QTEST(request.timeType, "timeType");
        QTEST(request.orgType, "orgType");
        QTEST(QString::fromStdString(request.startTime()), "start");
        QTEST(QString::fromStdString(request.endTime()), "end");
        QVERIFY(request.cmd().empty());
    }

    void theRequestOfOneDeviceCarriesTheSpanAndTheUid_data() { conditions_data(); }

    void theRequestOfOneDeviceCarriesTheSpanAndTheUid()
    {
        QFETCH(QString, unitButton);
        QVERIFY(open(2));
        press(qPrintable(unitButton));
        forget();

        page->getAlarmOfDevice(QStringLiteral("uid-7"));

        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfDevice"});
        const auto request = service->alarmStatisticsOfDevice.requests.constFirst();
        QCOMPARE(request.uid(), std::string("uid-7"));
        QTEST(request.timeType, "timeType");
        QTEST(QString::fromStdString(request.startTime()), "start");
        QTEST(QString::fromStdString(request.endTime()), "end");
        QVERIFY(request.cmd().empty());
    }

    void requestsSayTheYearFirstWhateverTheUserSees()
    {
        HostSettings::setDateOrder(HostSettings::DateOrder::DayFirst);
        QVERIFY(open(1));
        QVERIFY(page->part<QLineEdit>("lineEditTime")->text() != hourOfToday);
        page->slotSearch();
        page->getAlarmOfOrga(QStringLiteral("3"));
        page->getAlarmOfDevices();
        page->getAlarmOfDevice(QStringLiteral("d1"));
        QCOMPARE(
            service->alarmStatisticsOfOrgas.requests.constLast().startTime(), std::string("2024-05-03 00"));
        QCOMPARE(
            service->alarmStatisticsOfOrga.requests.constLast().startTime(), std::string("2024-05-03 00"));
        QCOMPARE(
            service->alarmStatisticsOfDevices.requests.constLast().endTime(), std::string("2024-05-03 17"));
        QCOMPARE(
            service->alarmStatisticsOfDevice.requests.constLast().endTime(), std::string("2024-05-03 17"));
    }

    void requestsOfNobodyCarryUserZero()
    {
        client->signOut();
        QVERIFY(open(1));
        page->slotSearch();
        QCOMPARE(service->alarmStatisticsOfOrgas.requests.constLast().userId, 0);
    }

    void theChosenOrganisationIsAskedFor()
    {
        QVERIFY(open(1));
        choosePlantNorth();
        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfOrgas"});
        QCOMPARE(service->alarmStatisticsOfOrgas.requests.constLast().listOrg(), std::vector<int>{2});
        page->getAlarmOfDevices();
        QCOMPARE(service->alarmStatisticsOfDevices.requests.constLast().orgaId, 2);
    }

    void theSumModeIsTheItemsDataAndNotItsPlace()
    {
        QVERIFY(open(1));
        page->part<QComboBox>("comboBoxOrgType")->setItemData(1, 17, Qt::UserRole);
        page->slotSearch();
        page->getAlarmOfOrga(QStringLiteral("3"));
        QCOMPARE(service->alarmStatisticsOfOrgas.requests.constLast().orgType, 17);
        QCOMPARE(service->alarmStatisticsOfOrga.requests.constLast().orgType, 17);
    }

    void keysOfOrganisationsAreReadAsDecimalNumbers_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<int>("orgaId");

        QTest::newRow("a number") << "12" << 12;
        QTest::newRow("a negative number") << "-3" << -3;
        QTest::newRow("leading zeros are no octal mark") << "010" << 10;
        QTest::newRow("the greatest number") << "2147483647" << 2147483647;
        QTest::newRow("a number beyond 32 bits") << "2147483648" << 0;
        QTest::newRow("a word") << "Company" << 0;
        QTest::newRow("a number with a word behind") << "12a" << 0;
        QTest::newRow("a hexadecimal number") << "0x10" << 0;
        QTest::newRow("nothing") << "" << 0;
    }

    void keysOfOrganisationsAreReadAsDecimalNumbers()
    {
        QFETCH(QString, key);
        QVERIFY(open(1));
        page->getAlarmOfOrga(key);
        QTEST(service->alarmStatisticsOfOrga.requests.constLast().orgaId, "orgaId");
    }

    void keysOfDevicesPassAsUtf8()
    {
        QVERIFY(open(2));
        const QString key = QString::fromUtf8("\xe7\x9b\xb8\xe6\x9c\xba <b>1</b>");
        page->getAlarmOfDevice(key);
        QCOMPARE(service->alarmStatisticsOfDevice.requests.constLast().uid(),
            std::string("\xe7\x9b\xb8\xe6\x9c\xba <b>1</b>"));
        const QString longKey(200, QLatin1Char('x'));
        page->getAlarmOfDevice(longKey);
        QCOMPARE(service->alarmStatisticsOfDevice.requests.constLast().uid(), std::string(200, 'x'));
        page->getAlarmOfDevice({});
        QCOMPARE(service->alarmStatisticsOfDevice.requests.constLast().uid(), std::string());
    }

    void withoutOrganisationNothingIsAskedOfOrganisations_data()
    {
        QTest::addColumn<bool>("emptyTree");
        QTest::newRow("the tree is there, with nothing current") << true;
        QTest::newRow("the combo box has no tree") << false;
    }

    void withoutOrganisationNothingIsAskedOfOrganisations()
    {
        QFETCH(bool, emptyTree);
        answerOrganisations();
        QVERIFY(open(1));
        const LabelledValues bars = page->barDataList;
        QVERIFY(!bars.isEmpty());
        auto *const combo = page->part<ZrComboBoxWithTree>("comboBox");
        ZrTreeView noCurrentItem;
        ZrTreeView *const tree = std::exchange(combo->m_pTreeView, emptyTree ? &noCurrentItem : nullptr);
        LogCapture log;
        const int result = page->getAlarmOfOrgas();
        const QList<Tip> tipsOfTheQuery = page->tips;
        page->slotSearch();
        combo->m_pTreeView = tree;

        QCOMPARE(result, 1);
        QCOMPARE(service->calls, QStringList());
        QVERIFY(page->idlist.empty());
        QVERIFY(tipsOfTheQuery.isEmpty());
        QCOMPARE(page->tips, (QList<Tip>{{"TK_orgNotExist", 2}}));
        QVERIFY(inOrder(log.lines(),
            {"BasicChart::getAlarmOfOrgas", "BasicChart::getOrgaIDList*",
                "BasicChart::getAlarmOfOrgas No Suborganization"}));
        QCOMPARE(page->barDataList, bars);
    }

    void withoutOrganisationDevicesAreAskedOfOrganisationZero()
    {
        answerDevices();
        QVERIFY(open(2));
        auto *const combo = page->part<ZrComboBoxWithTree>("comboBox");
        ZrTreeView noCurrentItem;
        ZrTreeView *const tree = std::exchange(combo->m_pTreeView, &noCurrentItem);
        const int result = page->getAlarmOfDevices();
        combo->m_pTreeView = tree;

        QCOMPARE(result, 4);
        QCOMPARE(service->alarmStatisticsOfDevices.requests.size(), 1);
        QCOMPARE(service->alarmStatisticsOfDevices.requests.constFirst().orgaId, 0);
    }

    void aPageWithoutATreeAsksNothingOfOrganisations()
    {
        client->clearTree();
        QVERIFY(open(1));
        LogCapture log;
        QCOMPARE(page->getAlarmOfOrgas(), 1);
        QCOMPARE(service->calls, QStringList());
        QVERIFY(log.contains(QStringLiteral("BasicChart::getAlarmOfOrgas No Suborganization")));
    }

    void refusedOrganisationsAreReportedByTheirCode()
    {
        answerOrganisations();
        QVERIFY(open(1));
        const LabelledValues bars = page->barDataList;
        const LabelledKeys keys = page->devDataList;
        TalvixGetAlarmStatisticsOfOrgasResponseMessage unread;
        unread.records = {alarmsOfOrganisation(3, 99)};
        refuseWith(service->alarmStatisticsOfOrgas, unread);
        service->failOperation(QStringLiteral("getAlarmStatisticsOfOrgas"), QStringLiteral("no route"));
        LogCapture log;
        QCOMPARE(page->getAlarmOfOrgas(), 2);
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(page->barDataList, bars);
        QCOMPARE(page->devDataList, keys);
        QVERIFY(inOrder(log.lines(), {"BasicChart::getAlarmOfOrgas", "BasicChart::getAlarmOfOrgas fail*"}));
        QCOMPARE(loggedBehind(log.lines(), QStringLiteral("BasicChart::getAlarmOfOrgas fail")),
            QStringLiteral("no route"));
    }

    void refusedRowsAreNotRead_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("of organisations") << 1;
        QTest::newRow("of devices") << 2;
    }

    void refusedRowsAreNotRead()
    {
        QFETCH(int, type);
        client->addDevice("d9", "Unread");
        QVERIFY(open(type));
        TalvixGetAlarmStatisticsOfOrgasResponseMessage organisations;
        organisations.records = {alarmsOfOrganisation(3, 99)};
        refuseWith(service->alarmStatisticsOfOrgas, organisations);
        TalvixGetAlarmStatisticsOfDevicesResponseMessage devices;
        devices.records = {alarmsOfDevice("d9", 99)};
        devices.curPage = 5;
        devices.totalPage = 6;
        refuseWith(service->alarmStatisticsOfDevices, devices);
        TalvixGetAlarmStatisticsOfOrgaResponseMessage organisation;
        organisation.records = {alarmsOfPeriod("2024-05-03 01", -1, 9)};
        refuseWith(service->alarmStatisticsOfOrga, organisation);
        TalvixGetAlarmStatisticsOfDeviceResponseMessage device;
        device.records = {alarmsOfPeriod("2024-05-03 01", -1, 9)};
        refuseWith(service->alarmStatisticsOfDevice, device);

        QCOMPARE(type == 1 ? page->getAlarmOfOrgas() : page->getAlarmOfDevices(), 2);
        page->getChartDataByBarId(QStringLiteral("3"));
        QVERIFY(page->barDataList.isEmpty());
        QVERIFY(page->devDataList.isEmpty());
        QVERIFY(page->lineDataList.isEmpty());
        QVERIFY(page->pieDataList.isEmpty());
        QCOMPARE(page->m_nCurPage, 1);
        QCOMPARE(page->m_nTotalPage, 1);
        QCOMPARE(page->tips, (QList<Tip>{{"TK_GetFailed", 2}}));
    }

    void anEmptyAnswerOfOrganisationsKeepsTheLists()
    {
        answerOrganisations();
        answerRows(service->alarmStatisticsOfOrga, {alarmsOfPeriod("2024-05-03 01", -1, 9)});
        QVERIFY(open(1));
        const LabelledValues bars = page->barDataList;
        const LabelledKeys keys = page->devDataList;
        const LabelledValues line = page->lineDataList;
        const LabelledValues pie = page->pieDataList;
        answerRows(service->alarmStatisticsOfOrgas, {});
        LogCapture log;
        QCOMPARE(page->getAlarmOfOrgas(), 3);
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfOrgas"});
        QCOMPARE(page->barDataList, bars);
        QCOMPARE(page->devDataList, keys);
        QCOMPARE(page->lineDataList, line);
        QCOMPARE(page->pieDataList, pie);
        QVERIFY(!line.isEmpty() && !pie.isEmpty());
        QVERIFY(inOrder(
            log.lines(), {"BasicChart::getAlarmOfOrgas", "BasicChart::getAlarmOfOrgas records is empty"}));
    }

    void organisationsFillTheListsAndOpenTheFirstRow()
    {
        QVERIFY(open(1));
        answerRows(service->alarmStatisticsOfOrgas, {alarmsOfOrganisation(3, 1), alarmsOfOrganisation(2, 8)});
        answerRows(service->alarmStatisticsOfOrga, {alarmsOfPeriod("2024-05-03 01", -1, 9)});
        LogCapture log;
        QCOMPARE(page->getAlarmOfOrgas(), 4);
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(service->calls, (QStringList{"getAlarmStatisticsOfOrgas", "getAlarmStatisticsOfOrga"}));
        QCOMPARE(service->alarmStatisticsOfOrga.requests.constFirst().orgaId, 3);
        QCOMPARE(page->barDataList, (LabelledValues{{"Plant South", 1}, {"Plant North", 8}}));
        QCOMPARE(page->lineDataList, (LabelledValues{{"2024-05-03 01", 9}}));
        QVERIFY(inOrder(log.lines(),
            {"BasicChart::getAlarmOfOrgas", "BasicChart::setBarList", "getAlarmOfOrga by key*"}));
        QVERIFY(!log.containsStart(QStringLiteral("BasicChart::getAlarmOfOrgas fail")));
        QVERIFY(!log.contains(QStringLiteral("BasicChart::getAlarmOfOrgas records is empty")));
        QCOMPARE(page->m_nCurPage, 1);
        QVERIFY(!log.contains(QStringLiteral("BasicChart::compareCondition")));
    }

    void refusedDevicesAreReportedByTheirCode()
    {
        answerDevices();
        QVERIFY(open(2));
        page->slotNext();
        forget();
        const LabelledValues bars = page->barDataList;
        service->failOperation(QStringLiteral("getAlarmStatisticsOfDevices"), QStringLiteral("no route"));
        LogCapture log;
        QCOMPARE(page->getAlarmOfDevices(), 2);
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(page->barDataList, bars);
        QCOMPARE(page->m_nCurPage, 2);
        QCOMPARE(page->m_nTotalPage, 9);
        QVERIFY(inOrder(log.lines(),
            {"BasicChart::getAlarmOfDevices", "BasicChart::compareCondition",
                "BasicChart::getAlarmOfDevices fail*"}));
        QCOMPARE(loggedBehind(log.lines(), QStringLiteral("BasicChart::getAlarmOfDevices fail")),
            QStringLiteral("no route"));
    }

    void anEmptyAnswerOfDevicesKeepsListsAndPageNumbers()
    {
        answerDevices();
        QVERIFY(open(2));
        page->slotNext();
        forget();
        const LabelledValues bars = page->barDataList;
        answerPage(service->alarmStatisticsOfDevices, {}, 4, 4);
        LogCapture log;
        QCOMPARE(page->getAlarmOfDevices(), 3);
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(page->barDataList, bars);
        QCOMPARE(page->m_nCurPage, 2);
        QCOMPARE(page->m_nTotalPage, 9);
        QVERIFY(inOrder(log.lines(),
            {"BasicChart::getAlarmOfDevices", "BasicChart::getAlarmOfDevices records is empty"}));
        QVERIFY(!log.containsStart(QStringLiteral("BasicChart::setPageInfo")));
    }

    void devicesSetThePageBeforeTheBars()
    {
        QVERIFY(open(2));
        client->addDevice("d1", "Camera");
        client->addDevice("d2", "Recorder");
        answerPage(
            service->alarmStatisticsOfDevices, {alarmsOfDevice("d2", 1), alarmsOfDevice("d1", 2)}, 3, 7);
        answerRows(service->alarmStatisticsOfDevice, {alarmsOfPeriod("2024-05-03 01", -1, 9)});
        LogCapture log;
        QCOMPARE(page->getAlarmOfDevices(), 4);
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(page->m_nCurPage, 3);
        QCOMPARE(page->m_nTotalPage, 7);
        QCOMPARE(page->barDataList, (LabelledValues{{"Recorder", 1}, {"Camera", 2}}));
        QCOMPARE(service->calls, (QStringList{"getAlarmStatisticsOfDevices", "getAlarmStatisticsOfDevice"}));
        QCOMPARE(service->alarmStatisticsOfDevice.requests.constFirst().uid(), std::string("d2"));
        QVERIFY(inOrder(log.lines(),
            {"BasicChart::getAlarmOfDevices", "BasicChart::compareCondition", "BasicChart::setPageInfo*",
                "BasicChart::setBarList", "getAlarmOfDevice by key*"}));
    }

    void pageNumbersBelowZeroAreNotTaken_data()
    {
        QTest::addColumn<int>("curPage");
        QTest::addColumn<int>("totalPage");
        QTest::addColumn<int>("takenCurPage");
        QTest::addColumn<int>("takenTotalPage");

        QTest::newRow("both are sound") << 3 << 5 << 3 << 5;
        QTest::newRow("both are zero") << 0 << 0 << 0 << 0;
        QTest::newRow("no pages at all") << 1 << 0 << 1 << 0;
        QTest::newRow("the page is negative") << -1 << 5 << 2 << 9;
        QTest::newRow("the number of pages is negative") << 3 << -1 << 2 << 9;
        QTest::newRow("both are negative") << -7 << -7 << 2 << 9;
        QTest::newRow("the page lies behind the last") << 9 << 4 << 9 << 4;
        QTest::newRow("both are as great as they get")
            << 2147483647 << 2147483647 << 2147483647 << 2147483647;
    }

    void pageNumbersBelowZeroAreNotTaken()
    {
        QFETCH(int, curPage);
        QFETCH(int, totalPage);
        answerDevices();
        QVERIFY(open(2));
        page->slotNext();
        answerPage(service->alarmStatisticsOfDevices, {alarmsOfDevice("d1", 2)}, curPage, totalPage);
        QCOMPARE(page->getAlarmOfDevices(), 4);
        QTEST(page->m_nCurPage, "takenCurPage");
        QTEST(page->m_nTotalPage, "takenTotalPage");
        QCOMPARE(page->barDataList, (LabelledValues{{"Camera", 2}}));
    }

    void aChangedConditionStartsOnPageOne_data()
    {
        QTest::addColumn<QString>("change");
        QTest::addColumn<int>("pageIndex");

        QTest::newRow("nothing has changed") << "nothing" << 3;
        QTest::newRow("the sort is no condition") << "sort" << 3;
        QTest::newRow("the sum mode is no condition") << "sum mode" << 3;
        QTest::newRow("another user") << "user" << 1;
        QTest::newRow("another start") << "start" << 1;
        QTest::newRow("another end") << "end" << 1;
        QTest::newRow("another organisation") << "organisation" << 1;
        QTest::newRow("no organisation") << "no organisation" << 1;
        QTest::newRow("another unit") << "unit" << 1;
    }

    void aChangedConditionStartsOnPageOne()
    {
        QFETCH(QString, change);
        answerDevices();
        QVERIFY(open(2));
        page->slotNext();
        page->slotNext();
        QCOMPARE(page->m_nCurPage, 3);
        ZrComboBoxWithTree *const combo = page->part<ZrComboBoxWithTree>("comboBox");
        ZrTreeView *const tree = combo->m_pTreeView;
        ZrTreeView noCurrentItem;
        // The service refuses from now on, so that the page number stays what the condition made of it.
        service->failOperation(QStringLiteral("getAlarmStatisticsOfDevices"), QStringLiteral("closed"));
        if (change == QLatin1String("sort"))
            press("pushButtonAsc");
        else if (change == QLatin1String("sum mode"))
            page->part<QComboBox>("comboBoxOrgType")->setCurrentIndex(2);
        else if (change == QLatin1String("user"))
            page->m_curUser.set_id(99);
        else if (change == QLatin1String("start"))
            page->part<QLineEdit>("lineEditTime")->setText(QStringLiteral("2024-05-03 01~2024-05-03 17"));
        else if (change == QLatin1String("end"))
            page->part<QLineEdit>("lineEditTime")->setText(QStringLiteral("2024-05-03 00~2024-05-03 16"));
        else if (change == QLatin1String("organisation"))
            choosePlantNorth();
        else if (change == QLatin1String("no organisation"))
            combo->m_pTreeView = &noCurrentItem;
        else if (change == QLatin1String("unit"))
            page->m_nTimeType = 2;
        page->slotSearch();
        combo->m_pTreeView = tree;
        QTEST(service->alarmStatisticsOfDevices.requests.constLast().pageIndex, "pageIndex");
        QTEST(page->m_nCurPage, "pageIndex");
        QCOMPARE(page->m_nTotalPage, page->m_nCurPage == 1 ? 1 : 9);
    }

    void aQueryThatSucceedsWritesItsOwnLinesAlone_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QStringList>("lines");
        const QStringList detail = {
            "BasicChart::clearPieAndLineChartData", "linedatalist*", " piedatalist *"};
        QTest::newRow("organisations")
            << 1
            << QStringList({"BasicChart::getAlarmOfOrgas", "BasicChart::getOrgaIDList*",
                   "BasicChart::setBarList", "BasicChart::clearBarChartData ",
                   "type AlarmStatisticsOfOrgas bardatalist *", "BasicChart::getChartDataByBarId",
                   "BasicChart::clearPieAndLineChartData", "getAlarmOfOrga by key*"})
                + detail;
        QTest::newRow("devices") << 2
                                 << QStringList({"BasicChart::getAlarmOfDevices", "BasicChart::getOrgaID *",
                                        "BasicChart::compareCondition", "BasicChart::getOrgaID *",
                                        "BasicChart::setPageInfo*", "BasicChart::setBarList",
                                        "BasicChart::clearBarChartData ",
                                        "type AlarmStatisticsOfDevices  bardatalist *",
                                        "BasicChart::getChartDataByBarId",
                                        "BasicChart::clearPieAndLineChartData", "getAlarmOfDevice by key*"})
                + detail;
    }

    void aQueryThatSucceedsWritesItsOwnLinesAlone()
    {
        QFETCH(int, type);
        QFETCH(QStringList, lines);
        answerOrganisations();
        answerDevices();
        answerRows(service->alarmStatisticsOfOrga, {alarmsOfPeriod("2024-05-03 01", -1, 9)});
        answerRows(service->alarmStatisticsOfDevice, {alarmsOfPeriod("2024-05-03 01", -1, 9)});
        QVERIFY(open(type));
        LogCapture log;
        QCOMPARE(type == 1 ? page->getAlarmOfOrgas() : page->getAlarmOfDevices(), 4);
        QVERIFY2(exactly(log.lines(), lines), qPrintable(log.lines().join(QLatin1Char('\n'))));
    }

    void aPageBehindTheLastRowKeepsItsNumber()
    {
        answerDevices();
        QVERIFY(open(2));
        answerPage(service->alarmStatisticsOfDevices, {}, 1, 1);
        page->slotNext();
        QCOMPARE(page->tips, (QList<Tip>{{"TK_NoRecords", 1}}));
        QCOMPARE(page->m_nCurPage, 2);
        QCOMPARE(page->m_nTotalPage, 9);
        page->slotSearch();
        QCOMPARE(service->alarmStatisticsOfDevices.requests.constLast().pageIndex, 2);
    }

    void drillDownsFillLineAndPie_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("firstLine");
        QTest::newRow("of an organisation") << 1 << "getAlarmOfOrga by key";
        QTest::newRow("of a device") << 2 << "getAlarmOfDevice by key";
    }

    void drillDownsFillLineAndPie()
    {
        QFETCH(int, type);
        QFETCH(QString, firstLine);
        client->addAlarmType(4, "Motion");
        QVERIFY(open(type));
        const AlarmStatisticsRecord row = alarmsOfPeriod("2024-05-03 01", 4, 9);
        answerRows(service->alarmStatisticsOfOrga, {row});
        answerRows(service->alarmStatisticsOfDevice, {row});
        page->lineDataList = {{"old", 1}};
        page->pieDataList = {{"old", 1}};
        LogCapture log;
        if (type == 1)
            page->getAlarmOfOrga(QStringLiteral("2"));
        else
            page->getAlarmOfDevice(QStringLiteral("2"));
        QCOMPARE(page->lineDataList, (LabelledValues{{"2024-05-03 01", 9}}));
        QCOMPARE(page->pieDataList, (LabelledValues{{"Motion", 9}}));
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(loggedBehind(log.lines(), firstLine), QStringLiteral("2"));
        QVERIFY(inOrder(log.lines(), {firstLine + "*", "BasicChart::clearPieAndLineChartData"}));
        for (const QString &line : log.lines())
            QVERIFY2(!line.contains(QStringLiteral("fail")) && !line.contains(QStringLiteral("empty")),
                qPrintable(line));
    }

    void failedDrillDownsShowTheReason_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("reason");
        QTest::addColumn<QString>("firstLine");
        QTest::addColumn<QString>("line");

        const QString orga = QStringLiteral("getAlarmOfOrga by key");
        const QString orgaFail = QStringLiteral("BasicChart::AlarmOfOrga fail");
        const QString device = QStringLiteral("getAlarmOfDevice by key");
        const QString deviceFail = QStringLiteral("BasicChart::getAlarmOfDevice fail");
        QTest::newRow("organisation, with a reason") << 1 << "no route" << orga << orgaFail;
        QTest::newRow("organisation, with an empty reason") << 1 << "" << orga << orgaFail;
        QTest::newRow("organisation, with a long reason")
            << 1 << QString(200, QLatin1Char('r')) << orga << orgaFail;
        QTest::newRow("organisation, with markup") << 1 << "<b>%1</b>" << orga << orgaFail;
        QTest::newRow("device, with a reason") << 2 << "no route" << device << deviceFail;
        QTest::newRow("device, with an empty reason") << 2 << "" << device << deviceFail;
        QTest::newRow("device, with a long reason")
            << 2 << QString(200, QLatin1Char('r')) << device << deviceFail;
        QTest::newRow("device, with markup") << 2 << "<b>%1</b>" << device << deviceFail;
    }

    void failedDrillDownsShowTheReason()
    {
        QFETCH(int, type);
        QFETCH(QString, reason);
        QFETCH(QString, firstLine);
        QFETCH(QString, line);
        QVERIFY(open(type));
        service->failWith(reason);
        page->lineDataList = {{"kept", 1}};
        page->pieDataList = {{"kept", 2}};
        LogCapture log;
        if (type == 1)
            page->getAlarmOfOrga(QStringLiteral("2"));
        else
            page->getAlarmOfDevice(QStringLiteral("2"));
        QCOMPARE(page->tips, (QList<Tip>{{"TK_GetFailed" + reason, 2}}));
        QVERIFY(inOrder(log.lines(), {firstLine + "*", "tip", line + "*"}));
        QCOMPARE(loggedBehind(log.lines(), line), reason);
        QCOMPARE(page->lineDataList, (LabelledValues{{"kept", 1}}));
        QCOMPARE(page->pieDataList, (LabelledValues{{"kept", 2}}));
    }

    void emptyDrillDownsSaySo_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("line");
        QTest::newRow("of an organisation") << 1 << "getAlarmOfOrga is empty   dispaly req";
        QTest::newRow("of a device") << 2 << " getAlarmOfDevice is empty";
    }

    void emptyDrillDownsSaySo()
    {
        QFETCH(int, type);
        QFETCH(QString, line);
        QVERIFY(open(type));
        page->lineDataList = {{"kept", 1}};
        page->pieDataList = {{"kept", 2}};
        LogCapture log;
        if (type == 1)
            page->getAlarmOfOrga(QStringLiteral("2"));
        else
            page->getAlarmOfDevice(QStringLiteral("2"));
        QCOMPARE(page->tips, (QList<Tip>{{"TK_NoRecords", 2}}));
        QVERIFY(inOrder(log.lines(), {"tip", line}));
        QCOMPARE(page->lineDataList, (LabelledValues{{"kept", 1}}));
        QCOMPARE(page->pieDataList, (LabelledValues{{"kept", 2}}));
    }

    void tipsAreInTheUsersLanguage()
    {
        QVERIFY(open(1));
        QVERIFY(HostSettings::setLanguage(QStringLiteral("en")));
        forget();
        page->getAlarmOfOrga(QStringLiteral("2"));
        service->failWith(QStringLiteral("no route"));
        page->getAlarmOfOrga(QStringLiteral("2"));
        page->getAlarmOfDevice(QStringLiteral("2"));
        const auto text = [](const char *key) {
            return AppLanguageTr::instance()->translate(
                QString::fromLatin1(key), AppLanguageTr::Sentence, -1);
        };
        const QString failed = text("TK_GetFailed");
        QVERIFY(failed != QStringLiteral("TK_GetFailed"));
        QCOMPARE(page->tips,
            (QList<Tip>{{text("TK_NoRecords"), 2}, {failed + "no route", 2}, {failed + "no route", 2}}));
    }

    void aFailedDrillDownLeavesTheBarsStanding_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("refused");
        QTest::addColumn<QString>("tip");
        QTest::newRow("organisation, refused") << 1 << true << "TK_GetFailedunknown key";
        QTest::newRow("organisation, no rows") << 1 << false << "TK_NoRecords";
        QTest::newRow("device, refused") << 2 << true << "TK_GetFailedunknown key";
        QTest::newRow("device, no rows") << 2 << false << "TK_NoRecords";
    }

    void aFailedDrillDownLeavesTheBarsStanding()
    {
        QFETCH(int, type);
        QFETCH(bool, refused);
        QFETCH(QString, tip);
        answerOrganisations();
        answerDevices();
        answerRows(service->alarmStatisticsOfOrga, {alarmsOfPeriod("2024-05-03 01", -1, 9)});
        answerRows(service->alarmStatisticsOfDevice, {alarmsOfPeriod("2024-05-03 01", -1, 9)});
        QVERIFY(open(type));
        QVERIFY(!page->lineDataList.isEmpty());
        const LabelledValues bars = page->barDataList;
        QCOMPARE(bars.size(), 1);
        answerRows(service->alarmStatisticsOfOrga, {});
        answerRows(service->alarmStatisticsOfDevice, {});
        if (refused) {
            service->failOperation(QStringLiteral("getAlarmStatisticsOfOrga"), QStringLiteral("unknown key"));
            service->failOperation(
                QStringLiteral("getAlarmStatisticsOfDevice"), QStringLiteral("unknown key"));
        }
        QCOMPARE(type == 1 ? page->getAlarmOfOrgas() : page->getAlarmOfDevices(), 4);
        QCOMPARE(page->barDataList, bars);
        QVERIFY(page->lineDataList.isEmpty());
        QVERIFY(page->pieDataList.isEmpty());
        QCOMPARE(page->tips, (QList<Tip>{{tip, 2}}));
    }

    void aSearchTurnsTheCodeIntoOneTip_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("refused");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("kind");
        QTest::newRow("organisations, refused") << 1 << true << "TK_GetFailedno route" << 3;
        QTest::newRow("organisations, no rows") << 1 << false << "TK_NoRecords" << 1;
        QTest::newRow("devices, refused") << 2 << true << "TK_GetFailedno route" << 3;
        QTest::newRow("devices, no rows") << 2 << false << "TK_NoRecords" << 1;
    }

    void aSearchTurnsTheCodeIntoOneTip()
    {
        QFETCH(int, type);
        QFETCH(bool, refused);
        QFETCH(QString, text);
        QFETCH(int, kind);
        QVERIFY(open(type));
        if (refused)
            service->failWith(QStringLiteral("no route"));
        page->slotSearch();
        QCOMPARE(page->tips, (QList<Tip>{{text, kind}}));
        QCOMPARE(service->calls.size(), 1);
    }

    void rowsThatNobodyKnowsStillCountAsSuccess()
    {
        QVERIFY(open(2));
        answerPage(service->alarmStatisticsOfDevices,
            {alarmsOfDevice("gone", 1), alarmsOfDevice("", 2), alarmsOfDevice("\xff\xfe", 3)}, 2, 4);
        QCOMPARE(page->getAlarmOfDevices(), 4);
        QVERIFY(page->barDataList.isEmpty());
        QVERIFY(page->devDataList.isEmpty());
        QCOMPARE(page->m_nCurPage, 2);
        QCOMPARE(page->m_nTotalPage, 4);
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfDevices"});
        page->slotSearch();
        LogCapture log;
        page->slotSearch();
        QVERIFY(page->tips.isEmpty());
        QVERIFY(inOrder(log.lines(),
            {" BasicChart::setBarList  barDataList is empty", "BasicChart::on_pushButtonDesc_clicked",
                "BasicChart::loadChart", "BasicChart::loadChart  barDataList is empty"}));
    }

    void theManagerIsFetchedAnewForEachQuery()
    {
        QVERIFY(open(1));
        ScriptedStatisticsManager later;
        page->getAlarmOfOrgas();
        page->getAlarmOfOrga(QStringLiteral("2"));
        page->getAlarmOfDevices();
        page->getAlarmOfDevice(QStringLiteral("2"));
        QCOMPARE(later.calls,
            (QStringList{"getAlarmStatisticsOfOrgas", "getAlarmStatisticsOfOrga",
                "getAlarmStatisticsOfDevices", "getAlarmStatisticsOfDevice"}));
        installStatisticsManager(service.get());
        page->getAlarmOfOrgas();
        QCOMPARE(service->calls, QStringList{"getAlarmStatisticsOfOrgas"});
    }

    void fiveThousandRowsAllBecomeBars()
    {
        QVERIFY(open(1));
        std::vector<AlarmStatisticsRecord> rows;
        LabelledValues expected;
        for (int i = 0; i < 5000; ++i) {
            rows.push_back(alarmsOfOrganisation(1000 + i, i % 7));
            expected.append({QString::number(1000 + i), i % 7});
        }
        answerRows(service->alarmStatisticsOfOrgas, rows);
        QCOMPARE(page->getAlarmOfOrgas(), 4);
        QCOMPARE(page->barDataList, expected);
    }

    void oddFiguresAndNamesPass()
    {
        QVERIFY(open(1));
        client->addOrganisation(50, "");
        client->addOrganisation(51, std::string(200, 'n'));
        client->addOrganisation(52, "<b>bold</b>");
        client->addOrganisation(53, "\xff\xfe");
        answerRows(service->alarmStatisticsOfOrgas,
            {alarmsOfOrganisation(50, -5), alarmsOfOrganisation(51, 2147483647),
                alarmsOfOrganisation(52, -2147483647 - 1), alarmsOfOrganisation(53, 0)});
        answerRows(service->alarmStatisticsOfOrga,
            {alarmsOfPeriod("", -1, 2147483647), alarmsOfPeriod("", -1, 1), alarmsOfPeriod("\xff", -1, -3)});
        page->slotSearch();
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(page->barDataList.size(), 4);
        QCOMPARE(page->barDataList.at(0), (std::pair(QString(200, QLatin1Char('n')), 2147483647)));
        QCOMPARE(page->barDataList.at(1).second, 0);
        QCOMPARE(page->barDataList.at(2), (std::pair(QString(), -5)));
        QCOMPARE(page->barDataList.at(3), (std::pair(QStringLiteral("<b>bold</b>"), -2147483647 - 1)));
        QCOMPARE(page->lineDataList.size(), 2);
        QCOMPARE(page->lineDataList.at(0), (std::pair(QString(), -2147483647 - 1)));
        QCOMPARE(page->lineDataList.at(1).second, -3);
    }
};

TALVIX_TEST_MAIN(TestAlarmQueries)
#include "tst_alarm_queries.moc"
