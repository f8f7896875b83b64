#include "support/FakeKrxClient.h"
#include "support/LogCapture.h"
#include "support/LogLines.h"
#include "support/ProbePage.h"
#include "support/ScriptedStatisticsManager.h"
#include "support/StatisticsRows.h"
#include "support/TestMain.h"

#include <devhost/client/ClientInstances.h>
#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/ZrChartView.h>
#include <TalvixWidgets/ZrComboBoxWithTree.h>
#include <TalvixWidgets/ZrTreeView.h>

#include <QtCharts/QChart>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <memory>
#include <utility>
#include <vector>

namespace {

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
using Tips = QList<Tip>;

/// A query by its name; 0 for the ones by key, which answer nothing.
int ask(ProbePage &page, const QString &query, const QString &key = QStringLiteral("2"))
{
    if (query == QLatin1String("getOnlineOfOrgas"))
        return page.getOnlineOfOrgas();
    if (query == QLatin1String("getOnlineOfDevices"))
        return page.getOnlineOfDevices();
    if (query == QLatin1String("getOnlineOfOrga"))
        page.getOnlineOfOrga(key);
    else if (query == QLatin1String("getOnlineOfDevice"))
        page.getOnlineOfDevice(key);
    else
        qFatal("no such query");
    return 0;
}

} // namespace

Q_DECLARE_METATYPE(Tips)

class TestOnlineQueries : public QObject
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
        service->onlineStatisticsOfOrgas.requests.clear();
        service->onlineStatisticsOfOrga.requests.clear();
        service->onlineStatisticsOfDevices.requests.clear();
        service->onlineStatisticsOfDevice.requests.clear();
        page->tips.clear();
    }

    void press(const char *name) { QTest::mouseClick(page->part<QPushButton>(name), Qt::LeftButton); }

    void answerBars()
    {
        client->addDevice("d1", "Camera");
        answerRows(service->onlineStatisticsOfOrgas, {onlineOfOrganisation(2, 5)});
        answerEveryPage(service->onlineStatisticsOfDevices, {onlineOfDevice("d1", 5)}, 9);
    }

    void answerPeriods()
    {
        const std::vector<OnlineStatisticsRecord> rows = {onlineOfPeriod("2024-05-03 02", 7),
            onlineOfPeriod("2024-05-03 01", 0), onlineOfPeriod("2024-05-03 02", 3)};
        answerRows(service->onlineStatisticsOfOrga, rows);
        answerRows(service->onlineStatisticsOfDevice, rows);
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
        HostSettings::setDateOrder(HostSettings::DateOrder::YearFirst);
        setPresentMoment({});
    }

    void requestsCarryTheCondition_data()
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
        QTest::newRow("days, ascending, all levels") << "pushButtonDay"
                                                     << "pushButtonAsc" << 1 << 2 << 2 << 2 << "2024-04-26"
                                                     << "2024-05-03";
        QTest::newRow("months, descending, only current") << "pushButtonMonth"
                                                          << "pushButtonDesc" << 2 << 1 << 1 << 3 << "2023-11"
                                                          << "2024-05";
    }

    void requestsCarryTheCondition()
    {
        QFETCH(QString, unitButton);
        QFETCH(QString, sortButton);
        QFETCH(int, orgTypeIndex);
        client->setUserId(4711);
        QVERIFY(open(3));
        press(qPrintable(unitButton));
        press(qPrintable(sortButton));
        page->part<QComboBox>("comboBoxOrgType")->setCurrentIndex(orgTypeIndex);
        forget();

        page->slotSearch();
        page->getOnlineOfDevices();
        page->getOnlineOfOrga(QStringLiteral("3"));
        page->getOnlineOfDevice(QStringLiteral("uid-7"));

        QCOMPARE(service->calls,
            (QStringList{"getOnlineStatisticsOfOrgas", "getOnlineStatisticsOfDevices",
                "getOnlineStatisticsOfOrga", "getOnlineStatisticsOfDevice"}));

        const auto organisations = service->onlineStatisticsOfOrgas.requests.constFirst();
        QCOMPARE(organisations.userId, 4711);
        QTEST(organisations.timeType, "timeType");
        QTEST(organisations.sortType, "sortType");
        QTEST(organisations.orgType, "orgType");
        QTEST(QString::fromStdString(organisations.startTime()), "start");
        QTEST(QString::fromStdString(organisations.endTime()), "end");
        QCOMPARE(organisations.listOrg(), std::vector<int>{42});
        QVERIFY(organisations.cmd().empty());

        const auto devices = service->onlineStatisticsOfDevices.requests.constFirst();
        QCOMPARE(devices.userId, 4711);
        QTEST(devices.timeType, "timeType");
        QTEST(devices.sortType, "sortType");
        QCOMPARE(devices.orgaId, 42);
        QCOMPARE(devices.pageIndex, 1);
        QCOMPARE(devices.pageSize, 10);
        QTEST(QString::fromStdString(devices.startTime()), "start");
        QTEST(QString::fromStdString(devices.endTime()), "end");
        QVERIFY(devices.cmd().empty());

        const auto organisation = service->onlineStatisticsOfOrga.requests.constFirst();
        QCOMPARE(organisation.userId, 4711);
        QCOMPARE(organisation.orgaId, 3);
        QTEST(organisation.timeType, "timeType");
        QTEST(organisation.orgType, "orgType");
        QTEST(QString::fromStdString(organisation.startTime()), "start");
        QTEST(QString::fromStdString(organisation.endTime()), "end");
        QVERIFY(organisation.cmd().empty());

        const auto device = service->onlineStatisticsOfDevice.requests.constFirst();
        QTEST(device.timeType, "timeType");
        QCOMPARE(device.uid(), std::string("uid-7"));
        QTEST(QString::fromStdString(device.startTime()), "start");
        QTEST(QString::fromStdString(device.endTime()), "end");
        QVERIFY(device.cmd().empty());
    }

    void requestsSayTheYearFirstWhateverTheUserSees()
    {
        HostSettings::setDateOrder(HostSettings::DateOrder::DayFirst);
        QVERIFY(open(3));
        page->slotSearch();
        page->getOnlineOfDevice(QStringLiteral("d1"));
        QCOMPARE(
            service->onlineStatisticsOfOrgas.requests.constLast().startTime(), std::string("2024-05-03 00"));
        QCOMPARE(
            service->onlineStatisticsOfDevice.requests.constLast().endTime(), std::string("2024-05-03 17"));
    }

    void keysOfOrganisationsAreReadAsDecimalNumbers_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<int>("orgaId");

        QTest::newRow("a number") << "12" << 12;
        QTest::newRow("a negative number") << "-3" << -3;
        QTest::newRow("leading zeros are no octal mark") << "010" << 10;
        QTest::newRow("a word") << "Company" << 0;
        QTest::newRow("a hexadecimal number") << "0x10" << 0;
        QTest::newRow("nothing") << "" << 0;
    }

    void keysOfOrganisationsAreReadAsDecimalNumbers()
    {
        QFETCH(QString, key);
        QVERIFY(open(3));
        page->getOnlineOfOrga(key);
        QTEST(service->onlineStatisticsOfOrga.requests.constLast().orgaId, "orgaId");
    }

    void failuresAreReported_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("query");
        QTest::addColumn<bool>("refused");
        QTest::addColumn<int>("result");
        QTest::addColumn<Tips>("tips");
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QString>("failLine");

        const Tips none;
        const Tips failed = {{"TK_GetFailedno route", 2}};
        const Tips empty = {{"TK_NoRecords", 2}};

        QTest::newRow("organisations, refused")
            << 3 << "getOnlineOfOrgas" << true << 2 << none
            << QStringList{"BasicChart::getOnlineOfOrgas", "BasicChart::getOnlineOfOrgas fail*"}
            << "BasicChart::getOnlineOfOrgas fail";
        QTest::newRow("organisations, no rows")
            << 3 << "getOnlineOfOrgas" << false << 3 << none
            << QStringList{"BasicChart::getOnlineOfOrgas", "BasicChart::getOnlineOfOrgas records is empty"}
            << "";
        QTest::newRow("devices, refused")
            << 4 << "getOnlineOfDevices" << true << 2 << none
            << QStringList{"BasicChart::getOnlineOfDevices", "BasicChart::compareCondition",
                   "BasicChart::getOnlineOfDevices fail*"}
            << "BasicChart::getOnlineOfDevices fail";
        QTest::newRow("devices, no rows")
            << 4 << "getOnlineOfDevices" << false << 3 << none
            << QStringList{"BasicChart::getOnlineOfDevices", "BasicChart::compareCondition",
                   "BasicChart::getOnlineOfDevices records is empty"}
            << "";
        QTest::newRow("one organisation, refused")
            << 3 << "getOnlineOfOrga" << true << 0 << failed
            << QStringList{"getOnlineOfOrga by key*", "tip", "BasicChart::getBarData fail*"}
            << "BasicChart::getBarData fail";
        QTest::newRow("one organisation, no rows")
            << 3 << "getOnlineOfOrga" << false << 0 << empty
            << QStringList{"getOnlineOfOrga by key*", "tip", "getOnlineOfOrga is empty"} << "";
        QTest::newRow("one device, refused") << 4 << "getOnlineOfDevice" << true << 0 << failed
                                             << QStringList{" before BasicChart::getOnlineOfDevice", "tip",
                                                    "BasicChart::getAlarmOfDevice fail*"}
                                             << "BasicChart::getAlarmOfDevice fail";
        QTest::newRow("one device, no rows")
            << 4 << "getOnlineOfDevice" << false << 0 << empty
            << QStringList{" before BasicChart::getOnlineOfDevice", "BasicChart::getOnlineOfDevice success",
                   "tip", "getAlarmOfDevice is empty"}
            << "";
    }

    void failuresAreReported()
    {
        QFETCH(int, type);
        QFETCH(QString, query);
        QFETCH(bool, refused);
        QFETCH(QStringList, lines);
        QFETCH(QString, failLine);
        answerBars();
        answerPeriods();
        QVERIFY(open(type));
        if (type == 4)
            page->slotNext();
        const LabelledValues bars = page->barDataList;
        const LabelledKeys keys = page->devDataList;
        const LabelledValues line = page->lineDataList;
        const LabelledValues pie = page->pieDataList;
        const int curPage = page->m_nCurPage;
        const int totalPage = page->m_nTotalPage;
        QVERIFY(!bars.isEmpty() && !keys.isEmpty() && !line.isEmpty() && !pie.isEmpty());
        answerRows(service->onlineStatisticsOfOrgas, {});
        answerRows(service->onlineStatisticsOfDevices, {});
        answerRows(service->onlineStatisticsOfOrga, {});
        answerRows(service->onlineStatisticsOfDevice, {});
        if (refused)
            service->failWith(QStringLiteral("no route"));
        forget();
        LogCapture log;
        QTEST(ask(*page, query), "result");
        QTEST(page->tips, "tips");
        QVERIFY2(inOrder(log.lines(), lines), qPrintable(log.lines().join(QLatin1Char('\n'))));
        if (refused)
            QCOMPARE(loggedBehind(log.lines(), failLine), QStringLiteral("no route"));
        QCOMPARE(service->calls.size(), 1);
        QCOMPARE(page->barDataList, bars);
        QCOMPARE(page->devDataList, keys);
        QCOMPARE(page->lineDataList, line);
        QCOMPARE(page->pieDataList, pie);
        QCOMPARE(page->m_nCurPage, curPage);
        QCOMPARE(page->m_nTotalPage, totalPage);
    }

    void aFailureIsOneLineAndNothingElse()
    {
        QVERIFY(open(4));
        service->failWith(QStringLiteral("no route"));
        LogCapture log;
        page->getOnlineOfDevice(QStringLiteral("d1"));
        QVERIFY(!log.contains(QStringLiteral("BasicChart::getOnlineOfDevice success")));
        QVERIFY(!log.contains(QStringLiteral("getAlarmOfDevice is empty")));
        for (const QString &line : log.lines())
            QVERIFY2(!line.contains(QStringLiteral("by key")), qPrintable(line));
    }

    void withoutOrganisationNothingIsAskedOfOrganisations()
    {
        answerBars();
        QVERIFY(open(3));
        auto *const combo = page->part<ZrComboBoxWithTree>("comboBox");
        ZrTreeView noCurrentItem;
        ZrTreeView *const tree = std::exchange(combo->m_pTreeView, &noCurrentItem);
        LogCapture log;
        const int result = page->getOnlineOfOrgas();
        const Tips tipsOfTheQuery = page->tips;
        page->slotSearch();
        combo->m_pTreeView = tree;

        QCOMPARE(result, 1);
        QVERIFY(service->calls.isEmpty());
        QVERIFY(tipsOfTheQuery.isEmpty());
        QCOMPARE(page->tips, (Tips{{"TK_orgNotExist", 2}}));
        QVERIFY(inOrder(log.lines(),
            {"BasicChart::getOnlineOfOrgas", "BasicChart::getOnlineOfOrgas No Suborganization"}));
    }

    void withoutOrganisationDevicesAreAskedOfOrganisationZero()
    {
        answerBars();
        answerPeriods();
        QVERIFY(open(4));
        auto *const combo = page->part<ZrComboBoxWithTree>("comboBox");
        ZrTreeView noCurrentItem;
        ZrTreeView *const tree = std::exchange(combo->m_pTreeView, &noCurrentItem);
        page->slotSearch();
        combo->m_pTreeView = tree;

        QCOMPARE(service->onlineStatisticsOfDevices.requests.constFirst().orgaId, 0);
        QVERIFY(page->tips.isEmpty());
    }

    void theListOfOrganisationsStaysUntilTheNextCall()
    {
        answerBars();
        QVERIFY(open(3));
        QCOMPARE(page->idlist, std::vector<int>{42});
        service->failWith(QStringLiteral("closed"));
        page->slotSearch();
        QCOMPARE(page->idlist, std::vector<int>{42});
    }

    void organisationsFillTheListsAndOpenTheFirstRow()
    {
        QVERIFY(open(3));
        answerRows(
            service->onlineStatisticsOfOrgas, {onlineOfOrganisation(3, 0), onlineOfOrganisation(2, 8)});
        answerPeriods();
        LogCapture log;
        QCOMPARE(page->getOnlineOfOrgas(), 4);
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(service->calls, (QStringList{"getOnlineStatisticsOfOrgas", "getOnlineStatisticsOfOrga"}));
        QCOMPARE(service->onlineStatisticsOfOrga.requests.constFirst().orgaId, 3);
        QCOMPARE(page->barDataList, (LabelledValues{{"Plant South", 0}, {"Plant North", 8}}));
        QCOMPARE(page->lineDataList, (LabelledValues{{"2024-05-03 01", 0}, {"2024-05-03 02", 10}}));
        QVERIFY(inOrder(log.lines(),
            {"BasicChart::getOnlineOfOrgas", "BasicChart::clearBarChartData ", "getOnlineOfOrga by key*"}));
        QCOMPARE(loggedBehind(log.lines(), QStringLiteral("getOnlineOfOrga by key")), QStringLiteral("3"));
        QVERIFY(!log.contains(QStringLiteral("BasicChart::compareCondition")));
        QCOMPARE(page->m_nCurPage, 1);
    }

    void devicesSetThePageBeforeTheBars()
    {
        QVERIFY(open(4));
        client->addDevice("d1", "Camera");
        client->addDevice("d2", "Recorder");
        answerPage(
            service->onlineStatisticsOfDevices, {onlineOfDevice("d2", 1), onlineOfDevice("d1", 2)}, 3, 7);
        answerPeriods();
        LogCapture log;
        QCOMPARE(page->getOnlineOfDevices(), 4);
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(page->m_nCurPage, 3);
        QCOMPARE(page->m_nTotalPage, 7);
        QCOMPARE(page->barDataList, (LabelledValues{{"Recorder", 1}, {"Camera", 2}}));
        QCOMPARE(
            service->calls, (QStringList{"getOnlineStatisticsOfDevices", "getOnlineStatisticsOfDevice"}));
        QCOMPARE(service->onlineStatisticsOfDevice.requests.constFirst().uid(), std::string("d2"));
        QVERIFY(inOrder(log.lines(),
            {"BasicChart::getOnlineOfDevices", "BasicChart::compareCondition", "BasicChart::setPageInfo*",
                "BasicChart::clearBarChartData ", " before BasicChart::getOnlineOfDevice",
                "BasicChart::getOnlineOfDevice success",
                "BasicChart::getOnlineOfDevice   setOnlinePieAndLineList",
                "BasicChart::clearPieAndLineChartData"}));
    }

    void aChangedConditionStartsOnPageOne()
    {
        answerBars();
        QVERIFY(open(4));
        page->slotNext();
        page->slotNext();
        page->slotSearch();
        QCOMPARE(service->onlineStatisticsOfDevices.requests.constLast().pageIndex, 3);
        page->part<QLineEdit>("lineEditTime")->setText(QStringLiteral("2024-05-03 00~2024-05-03 16"));
        QCOMPARE(service->onlineStatisticsOfDevices.requests.constLast().pageIndex, 1);
    }

    void eachPartOfTheConditionLeadsToPageOne_data()
    {
        QTest::addColumn<QString>("change");
        QTest::addColumn<int>("pageIndex");
        QTest::newRow("nothing has changed") << "nothing" << 3;
        QTest::newRow("another user") << "user" << 1;
        QTest::newRow("another start") << "start" << 1;
        QTest::newRow("another end") << "end" << 1;
        QTest::newRow("another organisation") << "organisation" << 1;
        QTest::newRow("another unit of the same strings") << "unit" << 1;
    }

    void eachPartOfTheConditionLeadsToPageOne()
    {
        QFETCH(QString, change);
        answerBars();
        QVERIFY(open(4));
        auto *const edit = page->part<QLineEdit>("lineEditTime");
        page->m_nTimeType = 1;
        edit->setText(QStringLiteral("2024-03~2024-05"));
        page->slotNext();
        page->slotNext();
        const QSignalBlocker quiet(edit);
        if (change == QLatin1String("user"))
            page->m_curUser.set_id(99);
        else if (change == QLatin1String("start"))
            edit->setText(QStringLiteral("2024-04~2024-05"));
        else if (change == QLatin1String("end"))
            edit->setText(QStringLiteral("2024-03~2024-04"));
        else if (change == QLatin1String("unit"))
            page->m_nTimeType = 0;
        auto *const combo = page->part<ZrComboBoxWithTree>("comboBox");
        const QSignalBlocker still(combo);
        if (change == QLatin1String("organisation"))
            combo->m_pTreeView->setCurrentIndex(
                combo->m_pTreeView->model()->index(0, 0, combo->m_pTreeView->model()->index(0, 0)));
        page->slotSearch();
        QTEST(service->onlineStatisticsOfDevices.requests.constLast().pageIndex, "pageIndex");
        QCOMPARE(service->onlineStatisticsOfDevices.requests.constLast().startTime(),
            change == QLatin1String("start") ? std::string("2024-04") : std::string("2024-03"));
    }

    void aQueryThatSucceedsWritesItsOwnLinesAlone_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QStringList>("lines");
        const QStringList detail = {
            "BasicChart::clearPieAndLineChartData", "linedatalist*", " piedatalist *"};
        QTest::newRow("organisations")
            << 3
            << QStringList({"BasicChart::getOnlineOfOrgas", "BasicChart::getOrgaIDList*",
                   "BasicChart::clearBarChartData ", "type OnlineStatisticsOfOrgas bardatalist *",
                   "BasicChart::getChartDataByBarId", "BasicChart::clearPieAndLineChartData",
                   "getOnlineOfOrga by key*"})
                + detail;
        QTest::newRow("devices")
            << 4
            << QStringList({"BasicChart::getOnlineOfDevices", "BasicChart::getOrgaID *",
                   "BasicChart::compareCondition", "BasicChart::getOrgaID *", "BasicChart::setPageInfo*",
                   "BasicChart::clearBarChartData ", "type OnlineStatisticsOfDevices bardatalist *",
                   "BasicChart::getChartDataByBarId", "BasicChart::clearPieAndLineChartData",
                   " before BasicChart::getOnlineOfDevice", "BasicChart::getOnlineOfDevice success",
                   "BasicChart::getOnlineOfDevice   setOnlinePieAndLineList"})
                + detail;
    }

    void aQueryThatSucceedsWritesItsOwnLinesAlone()
    {
        QFETCH(int, type);
        QFETCH(QStringList, lines);
        answerBars();
        answerPeriods();
        QVERIFY(open(type));
        LogCapture log;
        QCOMPARE(type == 3 ? page->getOnlineOfOrgas() : page->getOnlineOfDevices(), 4);
        QVERIFY2(exactly(log.lines(), lines), qPrintable(log.lines().join(QLatin1Char('\n'))));
    }

    void negativePageNumbersAreNotTaken_data()
    {
        QTest::addColumn<int>("curPage");
        QTest::addColumn<int>("totalPage");
        QTest::newRow("the page") << -1 << 5;
        QTest::newRow("the number of pages") << 3 << -1;
    }

    void negativePageNumbersAreNotTaken()
    {
        QFETCH(int, curPage);
        QFETCH(int, totalPage);
        answerBars();
        QVERIFY(open(4));
        page->slotNext();
        answerPage(service->onlineStatisticsOfDevices, {onlineOfDevice("d1", 2)}, curPage, totalPage);
        QCOMPARE(page->getOnlineOfDevices(), 4);
        QCOMPARE(page->m_nCurPage, 2);
        QCOMPARE(page->m_nTotalPage, 9);
    }

    void aPageBehindTheLastRowKeepsItsNumber()
    {
        answerBars();
        QVERIFY(open(4));
        answerPage(service->onlineStatisticsOfDevices, {}, 1, 1);
        page->slotNext();
        QCOMPARE(page->tips, (Tips{{"TK_NoRecords", 1}}));
        QCOMPARE(page->m_nCurPage, 2);
        QCOMPARE(page->m_nTotalPage, 9);
    }

    void refusedRowsAreNotRead_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("of organisations") << 3;
        QTest::newRow("of devices") << 4;
    }

    void refusedRowsAreNotRead()
    {
        QFETCH(int, type);
        client->addDevice("d9", "Unread");
        QVERIFY(open(type));
        TalvixGetOnlineStatisticsOfOrgasResponseMessage organisations;
        organisations.records = {onlineOfOrganisation(3, 99)};
        refuseWith(service->onlineStatisticsOfOrgas, organisations);
        TalvixGetOnlineStatisticsOfDevicesResponseMessage devices;
        devices.records = {onlineOfDevice("d9", 99)};
        devices.curPage = 5;
        devices.totalPage = 6;
        refuseWith(service->onlineStatisticsOfDevices, devices);
        TalvixGetOnlineStatisticsOfOrgaResponseMessage organisation;
        organisation.records = {onlineOfPeriod("2024-05-03 01", 9)};
        refuseWith(service->onlineStatisticsOfOrga, organisation);
        TalvixGetOnlineStatisticsOfDeviceResponseMessage device;
        device.records = {onlineOfPeriod("2024-05-03 01", 9)};
        refuseWith(service->onlineStatisticsOfDevice, device);

        QCOMPARE(type == 3 ? page->getOnlineOfOrgas() : page->getOnlineOfDevices(), 2);
        page->getChartDataByBarId(QStringLiteral("3"));
        QVERIFY(page->barDataList.isEmpty());
        QVERIFY(page->devDataList.isEmpty());
        QVERIFY(page->lineDataList.isEmpty());
        QVERIFY(page->pieDataList.isEmpty());
        QCOMPARE(page->m_nCurPage, 1);
        QCOMPARE(page->m_nTotalPage, 1);
    }

    void aDeviceIsAskedOnlyForASpanOfTwoParts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("no parts at all") << "";
        QTest::newRow("one part") << "2024-05-03 00";
        QTest::newRow("three parts") << "2024-05-03 00~2024-05-03 10~2024-05-03 17";
        QTest::newRow("three parts, two of them empty") << "2024-05-03 00~~";
    }

    void aDeviceIsAskedOnlyForASpanOfTwoParts()
    {
        QFETCH(QString, text);
        answerPeriods();
        QVERIFY(open(4));
        page->getChartDataByBarId(QStringLiteral("d1"));
        QVERIFY(!page->lineDataList.isEmpty() && !page->pieDataList.isEmpty());
        auto *const edit = page->part<QLineEdit>("lineEditTime");
        {
            const QSignalBlocker quiet(edit);
            edit->setText(text);
        }
        forget();
        LogCapture log;
        page->getOnlineOfDevice(QStringLiteral("d1"));
        QVERIFY(service->calls.isEmpty());
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(log.lines(), QStringList());
        page->getChartDataByBarId(QStringLiteral("d1"));
        QVERIFY(service->calls.isEmpty());
        QVERIFY(page->lineDataList.isEmpty());
        QVERIFY(page->pieDataList.isEmpty());
    }

    void aSpanOfTwoEmptyPartsIsStillASpan()
    {
        QVERIFY(open(4));
        auto *const edit = page->part<QLineEdit>("lineEditTime");
        {
            const QSignalBlocker quiet(edit);
            edit->setText(QStringLiteral("~"));
        }
        page->getOnlineOfDevice(QStringLiteral("d1"));
        QCOMPARE(service->calls, QStringList{"getOnlineStatisticsOfDevice"});
    }

    void thePieIsFilledThoughNoChartShowsIt_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("of organisations") << 3;
        QTest::newRow("of devices") << 4;
    }

    void thePieIsFilledThoughNoChartShowsIt()
    {
        QFETCH(int, type);
        answerBars();
        answerPeriods();
        QVERIFY(open(type));
        QCOMPARE(page->lineDataList, (LabelledValues{{"2024-05-03 01", 0}, {"2024-05-03 02", 10}}));
        QCOMPARE(page->pieDataList, (LabelledValues{{"2024-05-03 02", 10}}));
        QVERIFY(!page->pieChartView);
    }

    void aFailedDrillDownLeavesTheBarsStanding_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("of an organisation") << 3;
        QTest::newRow("of a device") << 4;
    }

    void aFailedDrillDownLeavesTheBarsStanding()
    {
        QFETCH(int, type);
        answerBars();
        answerPeriods();
        QVERIFY(open(type));
        const LabelledValues bars = page->barDataList;
        service->failOperation(QStringLiteral("getOnlineStatisticsOfOrga"), QStringLiteral("unknown key"));
        service->failOperation(QStringLiteral("getOnlineStatisticsOfDevice"), QStringLiteral("unknown key"));
        QCOMPARE(type == 3 ? page->getOnlineOfOrgas() : page->getOnlineOfDevices(), 4);
        QCOMPARE(page->barDataList, bars);
        QVERIFY(page->lineDataList.isEmpty());
        QVERIFY(page->pieDataList.isEmpty());
        QCOMPARE(page->tips, (Tips{{"TK_GetFailedunknown key", 2}}));
    }

    void aSearchTurnsTheCodeIntoOneTip_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("refused");
        QTest::addColumn<Tips>("tips");
        QTest::newRow("organisations, refused") << 3 << true << Tips{{"TK_GetFailedno route", 3}};
        QTest::newRow("organisations, no rows") << 3 << false << Tips{{"TK_NoRecords", 1}};
        QTest::newRow("devices, refused") << 4 << true << Tips{{"TK_GetFailedno route", 3}};
        QTest::newRow("devices, no rows") << 4 << false << Tips{{"TK_NoRecords", 1}};
    }

    void aSearchTurnsTheCodeIntoOneTip()
    {
        QFETCH(int, type);
        QFETCH(bool, refused);
        QVERIFY(open(type));
        if (refused)
            service->failWith(QStringLiteral("no route"));
        page->slotSearch();
        QTEST(page->tips, "tips");
        QCOMPARE(service->calls.size(), 1);
    }

    void aZeroStandsAsABarAndAsAPoint_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("of organisations") << 3;
        QTest::newRow("of devices") << 4;
    }

    void aZeroStandsAsABarAndAsAPoint()
    {
        QFETCH(int, type);
        client->addDevice("d1", "Plant North");
        answerRows(service->onlineStatisticsOfOrgas, {onlineOfOrganisation(2, 0)});
        answerPage(service->onlineStatisticsOfDevices, {onlineOfDevice("d1", 0)}, 1, 1);
        answerRows(service->onlineStatisticsOfOrga, {onlineOfPeriod("2024-05-03 01", 0)});
        answerRows(service->onlineStatisticsOfDevice, {onlineOfPeriod("2024-05-03 01", 0)});
        QVERIFY(open(type));
        QCOMPARE(page->barDataList, (LabelledValues{{"Plant North", 0}}));
        QCOMPARE(page->lineDataList, (LabelledValues{{"2024-05-03 01", 0}}));
        QVERIFY(page->pieDataList.isEmpty());
        QVERIFY(page->barChartView->chart()->isVisible());
    }

    void rowsThatNobodyKnowsStillCountAsSuccess()
    {
        QVERIFY(open(4));
        answerPage(service->onlineStatisticsOfDevices,
            {onlineOfDevice("gone", 1), onlineOfDevice("\xff\xfe", 3)}, 1, 1);
        QCOMPARE(page->getOnlineOfDevices(), 4);
        QVERIFY(page->barDataList.isEmpty());
        QVERIFY(page->devDataList.isEmpty());
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(service->calls, QStringList{"getOnlineStatisticsOfDevices"});
    }

    void theManagerIsFetchedAnewForEachQuery()
    {
        QVERIFY(open(3));
        ScriptedStatisticsManager later;
        const QStringList queries = {
            "getOnlineOfOrgas", "getOnlineOfOrga", "getOnlineOfDevices", "getOnlineOfDevice"};
        for (const QString &query : queries)
            ask(*page, query);
        QCOMPARE(later.calls.size(), 4);
        installStatisticsManager(service.get());
        for (const QString &query : queries)
            ask(*page, query);
        QCOMPARE(service->calls,
            (QStringList{"getOnlineStatisticsOfOrgas", "getOnlineStatisticsOfOrga",
                "getOnlineStatisticsOfDevices", "getOnlineStatisticsOfDevice"}));
        QCOMPARE(later.calls.size(), 4);
    }

    void fiveThousandRowsAllBecomeBars()
    {
        QVERIFY(open(3));
        std::vector<OnlineStatisticsRecord> rows;
        LabelledValues expected;
        for (int i = 0; i < 5000; ++i) {
            rows.push_back(onlineOfOrganisation(1000 + i, -i));
            expected.append({QString::number(1000 + i), -i});
        }
        answerRows(service->onlineStatisticsOfOrgas, rows);
        QCOMPARE(page->getOnlineOfOrgas(), 4);
        QCOMPARE(page->barDataList, expected);
    }
};

TALVIX_TEST_MAIN(TestOnlineQueries)
#include "tst_online_queries.moc"
