#include "support/LogCapture.h"
#include "support/LogLines.h"
#include "support/PageTest.h"
#include "support/StatisticsRows.h"
#include "support/TestMain.h"
#include "support/TestTable.h"

#include <devhost/client/ClientInstances.h>
#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/AppLanguageTr.h>
#include <TalvixWidgets/ZrChartView.h>
#include <TalvixWidgets/ZrComboBoxWithTree.h>
#include <TalvixWidgets/ZrTreeView.h>

#include <QtWidgets/QLineEdit>

#include <limits>
#include <type_traits>

using namespace Qt::StringLiterals;
using namespace std::string_literals;

using Tips = QList<ProbePage::Tip>;

Q_DECLARE_METATYPE(Tips)

namespace {

constexpr int most = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();

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

/// What a kind of statistics calls its queries, and what it writes to the log.
struct Words
{
    const char *kind;
    QString list;
    QString listOperation;
    QString detailOperation;
    QString detail; ///< begins the line that a detail writes first
    QString detailFailed;
    QString detailEmpty;
};

const Words &wordsOf(int type)
{
    static const Words words[] = {
        {"alarms of organisations", u"BasicChart::getAlarmOfOrgas"_s, u"getAlarmStatisticsOfOrgas"_s,
            u"getAlarmStatisticsOfOrga"_s, u"getAlarmOfOrga by key"_s, u"BasicChart::AlarmOfOrga fail"_s,
            u"getAlarmOfOrga is empty   dispaly req"_s},
        {"alarms of devices", u"BasicChart::getAlarmOfDevices"_s, u"getAlarmStatisticsOfDevices"_s,
            u"getAlarmStatisticsOfDevice"_s, u"getAlarmOfDevice by key"_s,
            u"BasicChart::getAlarmOfDevice fail"_s, u" getAlarmOfDevice is empty"_s},
        {"online figures of organisations", u"BasicChart::getOnlineOfOrgas"_s,
            u"getOnlineStatisticsOfOrgas"_s, u"getOnlineStatisticsOfOrga"_s, u"getOnlineOfOrga by key"_s,
            u"BasicChart::getBarData fail"_s, u"getOnlineOfOrga is empty"_s},
        {"online figures of devices", u"BasicChart::getOnlineOfDevices"_s, u"getOnlineStatisticsOfDevices"_s,
            u"getOnlineStatisticsOfDevice"_s, u" before BasicChart::getOnlineOfDevice"_s,
            u"BasicChart::getAlarmOfDevice fail"_s, u"getAlarmOfDevice is empty"_s},
    };
    return words[type - 1];
}

using Types = std::initializer_list<int>;
constexpr Types ofOrganisations = {1, 3};
constexpr Types ofDevices = {2, 4};
constexpr Types ofAll = {1, 2, 3, 4};

/// Rows that carry their kind alone.
void addNamedTypes(Types types)
{
    QTest::addColumn<int>("type");
    for (const int type : types)
        QTest::newRow(wordsOf(type).kind) << type;
}

/// Each of the rows once for each of the kinds.
template <typename... Values>
void addRowsOfTypes(Types types, const char *const (&columns)[sizeof...(Values)],
    std::initializer_list<std::tuple<const char *, Values...>> rows)
{
    QTest::addColumn<int>("type");
    const char *const *column = columns;
    (QTest::addColumn<Values>(*column++), ...);
    for (const auto &row : rows) {
        for (const int type : types) {
            std::apply(
                [type](const char *name, const Values &...values) {
                    QTestData &data = QTest::addRow("%s, %s", wordsOf(type).kind, name) << type;
                    ((data << values), ...);
                },
                row);
        }
    }
}

/// A row of an answer, of alarms or of online figures.
struct Row
{
    int orgaId;
    std::string uid;
    std::string period;
    int value;
    int alarmType = -1;
};
using Rows = std::vector<Row>;

const Rows oneOrganisation = {{2, "", "", 5}};
const Rows oneDevice = {{0, "d1", "", 5}};
const Rows threePeriods = {
    {0, "", "2024-05-03 02", 7}, {0, "", "2024-05-03 01", 0}, {0, "", "2024-05-03 02", 3}};
const LabelledValues threePeriodsLine = {{"2024-05-03 01", 0}, {"2024-05-03 02", 10}};

template <typename Record>
std::vector<Record> records(const Rows &rows)
{
    std::vector<Record> list;
    for (const Row &row : rows) {
        if constexpr (std::is_same_v<Record, AlarmStatisticsRecord>)
            list.push_back({row.period, row.orgaId, row.uid, 0, row.alarmType, row.value});
        else
            list.push_back({row.period, row.orgaId, row.uid, row.value});
    }
    return list;
}

} // namespace

class TestAlarmOnlineQueries : public PageTest
{
    Q_OBJECT

private:
    bool open(int type) { return PageTest::open(std::make_unique<TipLoggingPage>(type)); }

    /// Runs the query that fills the bars of a kind and gives its result code.
    int askList(int type)
    {
        switch (type) {
        case 1:
            return page->getAlarmOfOrgas();
        case 2:
            return page->getAlarmOfDevices();
        case 3:
            return page->getOnlineOfOrgas();
        default:
            return page->getOnlineOfDevices();
        }
    }

    /// Runs the query behind one bar of a kind.
    void askDetail(int type, const QString &key)
    {
        switch (type) {
        case 1:
            return page->getAlarmOfOrga(key);
        case 2:
            return page->getAlarmOfDevice(key);
        case 3:
            return page->getOnlineOfOrga(key);
        default:
            return page->getOnlineOfDevice(key);
        }
    }

    /// The latest requests of alarms (kinds 1 and 2) or of online figures (3 and 4).
    const TalvixStatisticsOfOrgasRequest &askedOfOrganisations(int type) const
    {
        return latest<TalvixStatisticsOfOrgasRequest>(
            type, service->alarmStatisticsOfOrgas, service->onlineStatisticsOfOrgas);
    }
    const TalvixStatisticsOfDevicesRequest &askedOfDevices(int type) const
    {
        return latest<TalvixStatisticsOfDevicesRequest>(
            type, service->alarmStatisticsOfDevices, service->onlineStatisticsOfDevices);
    }
    const TalvixStatisticsOfOrgaRequest &askedOfOrganisation(int type) const
    {
        return latest<TalvixStatisticsOfOrgaRequest>(
            type, service->alarmStatisticsOfOrga, service->onlineStatisticsOfOrga);
    }
    const TalvixStatisticsOfDeviceRequest &askedOfDevice(int type) const
    {
        return latest<TalvixStatisticsOfDeviceRequest>(
            type, service->alarmStatisticsOfDevice, service->onlineStatisticsOfDevice);
    }

    template <typename Request, typename Alarms, typename Online>
    static const Request &latest(int type, const Alarms &alarms, const Online &online)
    {
        if (type <= 2)
            return alarms.requests.constLast();
        return online.requests.constLast();
    }

    void answerOrganisations(const Rows &rows = oneOrganisation)
    {
        answerRows(service->alarmStatisticsOfOrgas, records<AlarmStatisticsRecord>(rows));
        answerRows(service->onlineStatisticsOfOrgas, records<OnlineStatisticsRecord>(rows));
    }

    void answerDevices(const Rows &rows, int curPage, int totalPage)
    {
        answerPage(
            service->alarmStatisticsOfDevices, records<AlarmStatisticsRecord>(rows), curPage, totalPage);
        answerPage(
            service->onlineStatisticsOfDevices, records<OnlineStatisticsRecord>(rows), curPage, totalPage);
    }

    /// One organisation; nine pages with one device each.
    void answerBars()
    {
        client->addDevice("d1", "Camera");
        answerOrganisations();
        answerEveryPage(service->alarmStatisticsOfDevices, records<AlarmStatisticsRecord>(oneDevice), 9);
        answerEveryPage(service->onlineStatisticsOfDevices, records<OnlineStatisticsRecord>(oneDevice), 9);
    }

    void answerDetails(const Rows &rows = threePeriods)
    {
        answerRows(service->alarmStatisticsOfOrga, records<AlarmStatisticsRecord>(rows));
        answerRows(service->alarmStatisticsOfDevice, records<AlarmStatisticsRecord>(rows));
        answerRows(service->onlineStatisticsOfOrga, records<OnlineStatisticsRecord>(rows));
        answerRows(service->onlineStatisticsOfDevice, records<OnlineStatisticsRecord>(rows));
    }

    void choosePlantNorth()
    {
        ZrTreeView *const tree = page->part<ZrComboBoxWithTree>("comboBox")->m_pTreeView;
        tree->setCurrentIndex(tree->model()->index(0, 0, tree->model()->index(0, 0)));
    }

private Q_SLOTS:
    void requestsCarryTheWholeCondition_data()
    {
        addRowsOfTypes<QByteArray, QByteArray, int, int, int, int, QString, QString>(ofAll,
            {"unitButton", "sortButton", "orgTypeIndex", "timeType", "sortType", "orgType", "start", "end"},
            {
                {"hours, descending, lower levels", "pushButtonHour", "pushButtonDesc", 0, 3, 1, 1,
                    "2024-05-03 00", "2024-05-03 17"},
                {"hours, ascending, all levels", "pushButtonHour", "pushButtonAsc", 1, 3, 2, 2,
                    "2024-05-03 00", "2024-05-03 17"},
                {"days, descending, only current", "pushButtonDay", "pushButtonDesc", 2, 2, 1, 3,
                    "2024-04-26", "2024-05-03"},
                {"days, ascending, lower levels", "pushButtonDay", "pushButtonAsc", 0, 2, 2, 1, "2024-04-26",
                    "2024-05-03"},
                {"months, descending, all levels", "pushButtonMonth", "pushButtonDesc", 1, 1, 1, 2, "2023-11",
                    "2024-05"},
                {"months, ascending, only current", "pushButtonMonth", "pushButtonAsc", 2, 1, 2, 3, "2023-11",
                    "2024-05"},
            });
    }

    void requestsCarryTheWholeCondition()
    {
        QFETCH(int, type);
        QFETCH(QByteArray, unitButton);
        QFETCH(QByteArray, sortButton);
        QFETCH(int, orgTypeIndex);
        client->setUserId(4711);
        QVERIFY(open(type));
        press(unitButton.constData());
        press(sortButton.constData());
        page->part<QComboBox>("comboBoxOrgType")->setCurrentIndex(orgTypeIndex);
        forget();

        const int organisations = type <= 2 ? 1 : 3;
        const int devices = organisations + 1;
        askList(organisations);
        askList(devices);
        askDetail(organisations, u"3"_s);
        askDetail(devices, u"uid-7"_s);
        QCOMPARE(service->calls,
            (QStringList{wordsOf(organisations).listOperation, wordsOf(devices).listOperation,
                wordsOf(organisations).detailOperation, wordsOf(devices).detailOperation}));

        const auto carriesSpan = [](const auto &request) {
            QTEST(request.timeType, "timeType");
            QTEST(QString::fromStdString(request.startTime()), "start");
            QTEST(QString::fromStdString(request.endTime()), "end");
            QVERIFY(request.cmd().empty());
        };
        const auto &ofOrgas = askedOfOrganisations(type);
        carriesSpan(ofOrgas);
        QCOMPARE(ofOrgas.userId, 4711);
        QTEST(ofOrgas.sortType, "sortType");
        QTEST(ofOrgas.orgType, "orgType");
        QCOMPARE(ofOrgas.listOrg(), std::vector<int>{42});

        const auto &ofPage = askedOfDevices(type);
        carriesSpan(ofPage);
        QCOMPARE(ofPage.userId, 4711);
        QTEST(ofPage.sortType, "sortType");
        QCOMPARE(ofPage.orgaId, 42);
        QCOMPARE(ofPage.pageIndex, 1);
        QCOMPARE(ofPage.pageSize, 10);

        const auto &ofOrga = askedOfOrganisation(type);
        carriesSpan(ofOrga);
        QCOMPARE(ofOrga.userId, 4711);
        QCOMPARE(ofOrga.orgaId, 3);
        QTEST(ofOrga.orgType, "orgType");

        const auto &ofDevice = askedOfDevice(type);
        carriesSpan(ofDevice);
        QCOMPARE(ofDevice.uid(), "uid-7"s);
    }

    void theNextPageIsAskedForOnce_data() { addNamedTypes(ofDevices); }

    void theNextPageIsAskedForOnce()
    {
        QFETCH(int, type);
        answerBars();
        QVERIFY(open(type));
        page->slotNext();
        QCOMPARE(service->calls, (QStringList{wordsOf(type).listOperation, wordsOf(type).detailOperation}));
        QCOMPARE(askedOfDevices(type).pageIndex, 2);
        QCOMPARE(askedOfDevices(type).pageSize, 10);
    }

    void requestsSayTheYearFirstWhateverTheUserSees_data() { addNamedTypes(ofOrganisations); }

    void requestsSayTheYearFirstWhateverTheUserSees()
    {
        QFETCH(int, type);
        HostSettings::setDateOrder(HostSettings::DateOrder::DayFirst);
        QVERIFY(open(type));
        QVERIFY(page->part<QLineEdit>("lineEditTime")->text() != u"2024-05-03 00~2024-05-03 17"_s);
        page->slotSearch();
        askDetail(type, u"3"_s);
        askList(type + 1);
        askDetail(type + 1, u"d1"_s);
        QCOMPARE(askedOfOrganisations(type).startTime(), "2024-05-03 00"s);
        QCOMPARE(askedOfOrganisation(type).startTime(), "2024-05-03 00"s);
        QCOMPARE(askedOfDevices(type).endTime(), "2024-05-03 17"s);
        QCOMPARE(askedOfDevice(type).endTime(), "2024-05-03 17"s);
    }

    void requestsOfNobodyCarryUserZero_data() { addNamedTypes(ofOrganisations); }

    void requestsOfNobodyCarryUserZero()
    {
        QFETCH(int, type);
        client->signOut();
        QVERIFY(open(type));
        page->slotSearch();
        QCOMPARE(askedOfOrganisations(type).userId, 0);
    }

    void theChosenOrganisationIsAskedFor_data() { addNamedTypes(ofOrganisations); }

    void theChosenOrganisationIsAskedFor()
    {
        QFETCH(int, type);
        QVERIFY(open(type));
        choosePlantNorth();
        QCOMPARE(service->calls, QStringList{wordsOf(type).listOperation});
        QCOMPARE(askedOfOrganisations(type).listOrg(), std::vector<int>{2});
        askList(type + 1);
        QCOMPARE(askedOfDevices(type).orgaId, 2);
    }

    void theSumModeIsTheItemsDataAndNotItsPlace_data() { addNamedTypes(ofOrganisations); }

    void theSumModeIsTheItemsDataAndNotItsPlace()
    {
        QFETCH(int, type);
        QVERIFY(open(type));
        page->part<QComboBox>("comboBoxOrgType")->setItemData(1, 17, Qt::UserRole);
        page->slotSearch();
        askDetail(type, u"3"_s);
        QCOMPARE(askedOfOrganisations(type).orgType, 17);
        QCOMPARE(askedOfOrganisation(type).orgType, 17);
    }

    void keysOfOrganisationsAreReadAsDecimalNumbers_data()
    {
        addRowsOfTypes<QString, int>(ofOrganisations, {"key", "orgaId"},
            {
                {"a number", "12", 12},
                {"a negative number", "-3", -3},
                {"leading zeros are no octal mark", "010", 10},
                {"the greatest number", "2147483647", most},
                {"a number beyond 32 bits", "2147483648", 0},
                {"a word", "Company", 0},
                {"a number with a word behind", "12a", 0},
                {"a hexadecimal number", "0x10", 0},
                {"nothing", "", 0},
            });
    }

    void keysOfOrganisationsAreReadAsDecimalNumbers()
    {
        QFETCH(int, type);
        QFETCH(QString, key);
        QVERIFY(open(type));
        askDetail(type, key);
        QTEST(askedOfOrganisation(type).orgaId, "orgaId");
    }

    void keysOfDevicesPassAsUtf8_data() { addNamedTypes(ofDevices); }

    void keysOfDevicesPassAsUtf8()
    {
        QFETCH(int, type);
        QVERIFY(open(type));
        for (const std::string &key :
            {"\xe7\x9b\xb8\xe6\x9c\xba <b>1</b>"s, std::string(200, 'x'), std::string()}) {
            askDetail(type, QString::fromStdString(key));
            QCOMPARE(askedOfDevice(type).uid(), key);
        }
    }

    void withoutOrganisationNothingIsAskedOfOrganisations_data()
    {
        addRowsOfTypes<bool>(ofOrganisations, {"emptyTree"},
            {{"the tree is there, with nothing current", true}, {"the combo box has no tree", false}});
    }

    void withoutOrganisationNothingIsAskedOfOrganisations()
    {
        QFETCH(int, type);
        QFETCH(bool, emptyTree);
        answerOrganisations();
        QVERIFY(open(type));
        const LabelledValues bars = page->barDataList;
        QVERIFY(!bars.isEmpty());
        auto *const combo = page->part<ZrComboBoxWithTree>("comboBox");
        ZrTreeView noCurrentItem;
        ZrTreeView *const tree = std::exchange(combo->m_pTreeView, emptyTree ? &noCurrentItem : nullptr);
        LogCapture log;
        const int result = askList(type);
        const Tips tipsOfTheQuery = page->tips;
        page->slotSearch();
        combo->m_pTreeView = tree;

        QCOMPARE(result, 1);
        QCOMPARE(service->calls, QStringList());
        QVERIFY(page->idlist.empty());
        QVERIFY(tipsOfTheQuery.isEmpty());
        QCOMPARE(page->tips, (Tips{{"TK_orgNotExist", 2}}));
        const QString word = wordsOf(type).list;
        QVERIFY(inOrder(log.lines(), {word, "BasicChart::getOrgaIDList*", word + " No Suborganization"}));
        QCOMPARE(page->barDataList, bars);
    }

    void withoutOrganisationDevicesAreAskedOfOrganisationZero_data() { addNamedTypes(ofDevices); }

    void withoutOrganisationDevicesAreAskedOfOrganisationZero()
    {
        QFETCH(int, type);
        answerBars();
        answerDetails();
        QVERIFY(open(type));
        auto *const combo = page->part<ZrComboBoxWithTree>("comboBox");
        ZrTreeView noCurrentItem;
        ZrTreeView *const tree = std::exchange(combo->m_pTreeView, &noCurrentItem);
        const int result = askList(type);
        const int organisation = askedOfDevices(type).orgaId;
        page->slotSearch();
        combo->m_pTreeView = tree;

        QCOMPARE(result, 4);
        QCOMPARE(organisation, 0);
        QCOMPARE(askedOfDevices(type).orgaId, 0);
        QCOMPARE(service->calls.count(wordsOf(type).listOperation), 2);
        QVERIFY(page->tips.isEmpty());
    }

    void aPageWithoutATreeAsksNothingOfOrganisations_data() { addNamedTypes(ofOrganisations); }

    void aPageWithoutATreeAsksNothingOfOrganisations()
    {
        QFETCH(int, type);
        client->clearTree();
        QVERIFY(open(type));
        LogCapture log;
        QCOMPARE(askList(type), 1);
        QCOMPARE(service->calls, QStringList());
        QVERIFY(log.contains(wordsOf(type).list + " No Suborganization"));
    }

    void theListOfOrganisationsStaysUntilTheNextCall_data() { addNamedTypes(ofOrganisations); }

    void theListOfOrganisationsStaysUntilTheNextCall()
    {
        QFETCH(int, type);
        answerBars();
        QVERIFY(open(type));
        QCOMPARE(page->idlist, std::vector<int>{42});
        service->failWith(u"closed"_s);
        page->slotSearch();
        QCOMPARE(page->idlist, std::vector<int>{42});
    }

    void failuresLeaveThePageAsItIs_data()
    {
        addRowsOfTypes<bool, bool>(ofAll, {"detail", "refused"},
            {
                {"refused", false, true},
                {"no rows", false, false},
                {"one bar, refused", true, true},
                {"one bar, no rows", true, false},
            });
    }

    void failuresLeaveThePageAsItIs()
    {
        QFETCH(int, type);
        QFETCH(bool, detail);
        QFETCH(bool, refused);
        const Words &words = wordsOf(type);
        answerBars();
        answerDetails();
        QVERIFY(open(type));
        if (type % 2 == 0)
            page->slotNext();
        const LabelledValues bars = page->barDataList;
        const LabelledKeys keys = page->devDataList;
        const LabelledValues line = page->lineDataList;
        const LabelledValues pie = page->pieDataList;
        QVERIFY(!bars.isEmpty() && !keys.isEmpty() && !line.isEmpty() && !pie.isEmpty());
        answerOrganisations({});
        answerDevices({}, 4, 4);
        answerDetails({});
        if (refused)
            service->failWith(u"no route"_s);
        forget();
        LogCapture log;
        if (detail) {
            askDetail(type, u"2"_s);
            QCOMPARE(page->tips, (Tips{{refused ? u"TK_GetFailedno route"_s : u"TK_NoRecords"_s, 2}}));
            const QString last = refused ? words.detailFailed + '*' : words.detailEmpty;
            QVERIFY2(
                inOrder(log.lines(), {words.detail + '*', "tip", last}), qPrintable(log.lines().join(u'\n')));
        } else {
            QCOMPARE(askList(type), refused ? 2 : 3);
            QVERIFY(page->tips.isEmpty());
            QStringList expected = {words.list, words.list + (refused ? " fail*" : " records is empty")};
            if (type % 2 == 0)
                expected.insert(1, "BasicChart::compareCondition");
            QVERIFY2(inOrder(log.lines(), expected), qPrintable(log.lines().join(u'\n')));
        }
        if (refused) {
            const QString failed = detail ? words.detailFailed : words.list + " fail";
            QCOMPARE(loggedBehind(log.lines(), failed), u"no route"_s);
        }
        QVERIFY(!log.containsStart(u"BasicChart::setPageInfo"_s));
        QCOMPARE(service->calls, QStringList{detail ? words.detailOperation : words.listOperation});
        QCOMPARE(page->barDataList, bars);
        QCOMPARE(page->devDataList, keys);
        QCOMPARE(page->lineDataList, line);
        QCOMPARE(page->pieDataList, pie);
        QCOMPARE(page->m_nCurPage, type % 2 == 0 ? 2 : 1);
        QCOMPARE(page->m_nTotalPage, type % 2 == 0 ? 9 : 1);
    }

    void reasonsAreShownAsTheyAre_data()
    {
        addRowsOfTypes<QString>(ofAll, {"reason"},
            {
                {"a reason", "no route"},
                {"an empty reason", ""},
                {"a long reason", QString(200, u'r')},
                {"markup", "<b>%1</b>"},
            });
    }

    void reasonsAreShownAsTheyAre()
    {
        QFETCH(int, type);
        QFETCH(QString, reason);
        QVERIFY(open(type));
        service->failWith(reason);
        LogCapture log;
        askDetail(type, u"2"_s);
        QCOMPARE(page->tips, (Tips{{"TK_GetFailed" + reason, 2}}));
        QCOMPARE(loggedBehind(log.lines(), wordsOf(type).detailFailed), reason);
    }

    void aFailureIsOneLineAndNothingElse()
    {
        QVERIFY(open(4));
        service->failWith(u"no route"_s);
        LogCapture log;
        page->getOnlineOfDevice(u"d1"_s);
        QVERIFY(!log.contains(u"BasicChart::getOnlineOfDevice success"_s));
        QVERIFY(!log.contains(u"getAlarmOfDevice is empty"_s));
        for (const QString &line : log.lines())
            QVERIFY2(!line.contains(u"by key"_s), qPrintable(line));
    }

    void refusedRowsAreNotRead_data() { addNamedTypes(ofAll); }

    void refusedRowsAreNotRead()
    {
        QFETCH(int, type);
        client->addDevice("d9", "Unread");
        QVERIFY(open(type));
        answerOrganisations({{3, "", "", 99}});
        answerDevices({{0, "d9", "", 99}}, 5, 6);
        answerDetails();
        const auto refuse = [](auto &operation) {
            operation.answer = [full = operation.answer](const auto &request, auto &response) {
                full(request, response);
                return false;
            };
        };
        refuse(service->alarmStatisticsOfOrgas);
        refuse(service->alarmStatisticsOfDevices);
        refuse(service->alarmStatisticsOfOrga);
        refuse(service->alarmStatisticsOfDevice);
        refuse(service->onlineStatisticsOfOrgas);
        refuse(service->onlineStatisticsOfDevices);
        refuse(service->onlineStatisticsOfOrga);
        refuse(service->onlineStatisticsOfDevice);

        QCOMPARE(askList(type), 2);
        page->getChartDataByBarId(u"3"_s);
        QVERIFY(page->barDataList.isEmpty());
        QVERIFY(page->devDataList.isEmpty());
        QVERIFY(page->lineDataList.isEmpty());
        QVERIFY(page->pieDataList.isEmpty());
        QCOMPARE(page->m_nCurPage, 1);
        QCOMPARE(page->m_nTotalPage, 1);
        QCOMPARE(page->tips, (Tips{{"TK_GetFailed", 2}}));
    }

    void organisationsFillTheListsAndOpenTheFirstRow_data() { addNamedTypes(ofOrganisations); }

    void organisationsFillTheListsAndOpenTheFirstRow()
    {
        QFETCH(int, type);
        const Words &words = wordsOf(type);
        QVERIFY(open(type));
        answerOrganisations({{3, "", "", 0}, {2, "", "", 8}});
        answerDetails();
        LogCapture log;
        QCOMPARE(askList(type), 4);
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(service->calls, (QStringList{words.listOperation, words.detailOperation}));
        QCOMPARE(askedOfOrganisation(type).orgaId, 3);
        QCOMPARE(page->barDataList, (LabelledValues{{"Plant South", 0}, {"Plant North", 8}}));
        QCOMPARE(page->lineDataList, threePeriodsLine);
        QVERIFY(inOrder(log.lines(), {words.list, "BasicChart::clearBarChartData ", words.detail + '*'}));
        QCOMPARE(loggedBehind(log.lines(), words.detail), u"3"_s);
        QVERIFY(!log.containsStart(words.list + " fail"));
        QVERIFY(!log.contains(words.list + " records is empty"));
        QVERIFY(!log.contains(u"BasicChart::compareCondition"_s));
        QCOMPARE(page->m_nCurPage, 1);
    }

    void devicesSetThePageBeforeTheBars_data() { addNamedTypes(ofDevices); }

    void devicesSetThePageBeforeTheBars()
    {
        QFETCH(int, type);
        const Words &words = wordsOf(type);
        QVERIFY(open(type));
        client->addDevice("d1", "Camera");
        client->addDevice("d2", "Recorder");
        answerDevices({{0, "d2", "", 1}, {0, "d1", "", 2}}, 3, 7);
        answerDetails();
        LogCapture log;
        QCOMPARE(askList(type), 4);
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(page->m_nCurPage, 3);
        QCOMPARE(page->m_nTotalPage, 7);
        QCOMPARE(page->barDataList, (LabelledValues{{"Recorder", 1}, {"Camera", 2}}));
        QCOMPARE(service->calls, (QStringList{words.listOperation, words.detailOperation}));
        QCOMPARE(askedOfDevice(type).uid(), "d2"s);
        QVERIFY(inOrder(log.lines(),
            {words.list, "BasicChart::compareCondition", "BasicChart::setPageInfo*",
                "BasicChart::clearBarChartData ", words.detail + '*'}));
    }

    void pageNumbersBelowZeroAreNotTaken_data()
    {
        addRowsOfTypes<int, int, int, int>(ofDevices,
            {"curPage", "totalPage", "takenCurPage", "takenTotalPage"},
            {
                {"both are sound", 3, 5, 3, 5},
                {"both are zero", 0, 0, 0, 0},
                {"no pages at all", 1, 0, 1, 0},
                {"the page is negative", -1, 5, 2, 9},
                {"the number of pages is negative", 3, -1, 2, 9},
                {"both are negative", -7, -7, 2, 9},
                {"the page lies behind the last", 9, 4, 9, 4},
                {"both are as great as they get", most, most, most, most},
            });
    }

    void pageNumbersBelowZeroAreNotTaken()
    {
        QFETCH(int, type);
        QFETCH(int, curPage);
        QFETCH(int, totalPage);
        answerBars();
        QVERIFY(open(type));
        page->slotNext();
        answerDevices({{0, "d1", "", 2}}, curPage, totalPage);
        QCOMPARE(askList(type), 4);
        QTEST(page->m_nCurPage, "takenCurPage");
        QTEST(page->m_nTotalPage, "takenTotalPage");
        QCOMPARE(page->barDataList, (LabelledValues{{"Camera", 2}}));
    }

    void aChangedConditionStartsOnPageOne_data()
    {
        addRowsOfTypes<QString, int, QString>(ofDevices, {"change", "pageIndex", "start"},
            {
                {"nothing has changed", "nothing", 3, "2024-05-03 00"},
                {"the sort is no condition", "sort", 3, "2024-05-03 00"},
                {"the sum mode is no condition", "sum mode", 3, "2024-05-03 00"},
                {"another user", "user", 1, "2024-05-03 00"},
                {"another start", "start", 1, "2024-05-03 01"},
                {"another end", "end", 1, "2024-05-03 00"},
                {"another organisation", "organisation", 1, "2024-05-03 00"},
                {"no organisation", "no organisation", 1, "2024-05-03 00"},
                {"another unit, whose form the span has not", "unit", 1, ""},
            });
    }

    void aChangedConditionStartsOnPageOne()
    {
        QFETCH(int, type);
        QFETCH(QString, change);
        answerBars();
        QVERIFY(open(type));
        page->slotNext();
        page->slotNext();
        QCOMPARE(page->m_nCurPage, 3);
        ZrComboBoxWithTree *const combo = page->part<ZrComboBoxWithTree>("comboBox");
        ZrTreeView *const tree = combo->m_pTreeView;
        ZrTreeView noCurrentItem;
        // The service refuses from now on, so that the page number stays what the condition made of it.
        service->failWith(u"closed"_s);
        if (change == "sort"_L1)
            press("pushButtonAsc");
        else if (change == "sum mode"_L1)
            page->part<QComboBox>("comboBoxOrgType")->setCurrentIndex(2);
        else if (change == "user"_L1)
            page->m_curUser.set_id(99);
        else if (change == "start"_L1)
            page->part<QLineEdit>("lineEditTime")->setText(u"2024-05-03 01~2024-05-03 17"_s);
        else if (change == "end"_L1)
            page->part<QLineEdit>("lineEditTime")->setText(u"2024-05-03 00~2024-05-03 16"_s);
        else if (change == "organisation"_L1)
            choosePlantNorth();
        else if (change == "no organisation"_L1)
            combo->m_pTreeView = &noCurrentItem;
        else if (change == "unit"_L1)
            page->m_nTimeType = 2;
        page->slotSearch();
        combo->m_pTreeView = tree;
        QTEST(askedOfDevices(type).pageIndex, "pageIndex");
        QTEST(QString::fromStdString(askedOfDevices(type).startTime()), "start");
        QTEST(page->m_nCurPage, "pageIndex");
        QCOMPARE(page->m_nTotalPage, page->m_nCurPage == 1 ? 1 : 9);
    }

    void anotherSpanStartsOnPageOneAtOnce_data() { addNamedTypes(ofDevices); }

    void anotherSpanStartsOnPageOneAtOnce()
    {
        QFETCH(int, type);
        answerBars();
        QVERIFY(open(type));
        page->slotNext();
        page->slotNext();
        page->slotSearch();
        QCOMPARE(askedOfDevices(type).pageIndex, 3);
        page->part<QLineEdit>("lineEditTime")->setText(u"2024-05-03 00~2024-05-03 16"_s);
        QCOMPARE(askedOfDevices(type).pageIndex, 1);
    }

    void anotherUnitOfTheSameStringsStartsOnPageOne_data() { addNamedTypes(ofDevices); }

    void anotherUnitOfTheSameStringsStartsOnPageOne()
    {
        QFETCH(int, type);
        answerBars();
        QVERIFY(open(type));
        page->m_nTimeType = 1;
        page->part<QLineEdit>("lineEditTime")->setText(u"2024-03~2024-05"_s);
        page->slotNext();
        page->slotNext();
        QCOMPARE(askedOfDevices(type).pageIndex, 3);
        page->m_nTimeType = 0;
        page->slotSearch();
        QCOMPARE(askedOfDevices(type).pageIndex, 1);
        QCOMPARE(askedOfDevices(type).startTime(), "2024-03"s);
    }

    void aQueryThatSucceedsWritesItsOwnLinesAlone_data()
    {
        const QStringList opens = {"BasicChart::getChartDataByBarId", "BasicChart::clearPieAndLineChartData"};
        const QStringList detail = {
            "BasicChart::clearPieAndLineChartData", "linedatalist*", " piedatalist *"};
        const QStringList devices = {"BasicChart::getOrgaID *", "BasicChart::compareCondition",
            "BasicChart::getOrgaID *", "BasicChart::setPageInfo*"};
        table<int, QStringList>({"type", "lines"},
            {
                {"alarms of organisations", 1,
                    QStringList{"BasicChart::getAlarmOfOrgas", "BasicChart::getOrgaIDList*",
                        "BasicChart::setBarList", "BasicChart::clearBarChartData ",
                        "type AlarmStatisticsOfOrgas bardatalist *"}
                        + opens + QStringList{"getAlarmOfOrga by key*"} + detail},
                {"alarms of devices", 2,
                    QStringList{"BasicChart::getAlarmOfDevices"} + devices
                        + QStringList{"BasicChart::setBarList", "BasicChart::clearBarChartData ",
                            "type AlarmStatisticsOfDevices  bardatalist *"}
                        + opens + QStringList{"getAlarmOfDevice by key*"} + detail},
                {"online figures of organisations", 3,
                    QStringList{"BasicChart::getOnlineOfOrgas", "BasicChart::getOrgaIDList*",
                        "BasicChart::clearBarChartData ", "type OnlineStatisticsOfOrgas bardatalist *"}
                        + opens + QStringList{"getOnlineOfOrga by key*"} + detail},
                {"online figures of devices", 4,
                    QStringList{"BasicChart::getOnlineOfDevices"} + devices
                        + QStringList{"BasicChart::clearBarChartData ",
                            "type OnlineStatisticsOfDevices bardatalist *"}
                        + opens
                        + QStringList{" before BasicChart::getOnlineOfDevice",
                            "BasicChart::getOnlineOfDevice success",
                            "BasicChart::getOnlineOfDevice   setOnlinePieAndLineList"}
                        + detail},
            });
    }

    void aQueryThatSucceedsWritesItsOwnLinesAlone()
    {
        QFETCH(int, type);
        QFETCH(QStringList, lines);
        answerBars();
        answerDetails();
        QVERIFY(open(type));
        LogCapture log;
        QCOMPARE(askList(type), 4);
        QVERIFY2(exactly(log.lines(), lines), qPrintable(log.lines().join(u'\n')));
    }

    void aPageBehindTheLastRowKeepsItsNumber_data() { addNamedTypes(ofDevices); }

    void aPageBehindTheLastRowKeepsItsNumber()
    {
        QFETCH(int, type);
        answerBars();
        QVERIFY(open(type));
        answerDevices({}, 1, 1);
        page->slotNext();
        QCOMPARE(page->tips, (Tips{{"TK_NoRecords", 1}}));
        QCOMPARE(page->m_nCurPage, 2);
        QCOMPARE(page->m_nTotalPage, 9);
        page->slotSearch();
        QCOMPARE(askedOfDevices(type).pageIndex, 2);
    }

    void detailsFillLineAndPie_data() { addNamedTypes(ofAll); }

    void detailsFillLineAndPie()
    {
        QFETCH(int, type);
        client->addAlarmType(4, "Motion");
        QVERIFY(open(type));
        answerDetails({{0, "", "2024-05-03 01", 9, 4}});
        page->lineDataList = {{"old", 1}};
        page->pieDataList = {{"old", 1}};
        LogCapture log;
        askDetail(type, u"2"_s);
        QCOMPARE(page->lineDataList, (LabelledValues{{"2024-05-03 01", 9}}));
        QCOMPARE(page->pieDataList, (LabelledValues{{type <= 2 ? "Motion" : "2024-05-03 01", 9}}));
        QVERIFY(page->tips.isEmpty());
        const QString first = wordsOf(type).detail;
        QCOMPARE(loggedBehind(log.lines(), first), type == 4 ? u""_s : u"2"_s);
        QVERIFY(inOrder(log.lines(), {first + '*', "BasicChart::clearPieAndLineChartData"}));
        for (const QString &line : log.lines())
            QVERIFY2(!line.contains(u"fail"_s) && !line.contains(u"empty"_s), qPrintable(line));
    }

    void thePieIsFilledThoughNoChartShowsIt_data() { addNamedTypes({3, 4}); }

    void thePieIsFilledThoughNoChartShowsIt()
    {
        QFETCH(int, type);
        answerBars();
        answerDetails();
        QVERIFY(open(type));
        QCOMPARE(page->lineDataList, threePeriodsLine);
        QCOMPARE(page->pieDataList, (LabelledValues{{"2024-05-03 02", 10}}));
        QVERIFY(!page->pieChartView);
    }

    void tipsAreInTheUsersLanguage_data() { addNamedTypes(ofOrganisations); }

    void tipsAreInTheUsersLanguage()
    {
        QFETCH(int, type);
        QVERIFY(open(type));
        QVERIFY(HostSettings::setLanguage(u"en"_s));
        forget();
        askDetail(type, u"2"_s);
        service->failWith(u"no route"_s);
        askDetail(type, u"2"_s);
        askDetail(type + 1, u"2"_s);
        const auto text = [](const QString &key) {
            return AppLanguageTr::instance()->translate(key, AppLanguageTr::Sentence, -1);
        };
        const QString failed = text(u"TK_GetFailed"_s);
        QVERIFY(failed != u"TK_GetFailed"_s);
        QCOMPARE(page->tips,
            (Tips{{text(u"TK_NoRecords"_s), 2}, {failed + "no route", 2}, {failed + "no route", 2}}));
    }

    void aFailedDetailLeavesTheBarsStanding_data()
    {
        addRowsOfTypes<bool, QString>(ofAll, {"refused", "tip"},
            {{"refused", true, "TK_GetFailedunknown key"}, {"no rows", false, "TK_NoRecords"}});
    }

    void aFailedDetailLeavesTheBarsStanding()
    {
        QFETCH(int, type);
        QFETCH(bool, refused);
        QFETCH(QString, tip);
        answerBars();
        answerDetails();
        QVERIFY(open(type));
        QVERIFY(!page->lineDataList.isEmpty());
        const LabelledValues bars = page->barDataList;
        QCOMPARE(bars.size(), 1);
        answerDetails({});
        if (refused)
            service->failOperation(wordsOf(type).detailOperation, u"unknown key"_s);
        QCOMPARE(askList(type), 4);
        QCOMPARE(page->barDataList, bars);
        QVERIFY(page->lineDataList.isEmpty());
        QVERIFY(page->pieDataList.isEmpty());
        QCOMPARE(page->tips, (Tips{{tip, 2}}));
    }

    void aSearchTurnsTheCodeIntoOneTip_data()
    {
        addRowsOfTypes<bool, Tips>(ofAll, {"refused", "tips"},
            {{"refused", true, {{"TK_GetFailedno route", 3}}}, {"no rows", false, {{"TK_NoRecords", 1}}}});
    }

    void aSearchTurnsTheCodeIntoOneTip()
    {
        QFETCH(int, type);
        QFETCH(bool, refused);
        QVERIFY(open(type));
        if (refused)
            service->failWith(u"no route"_s);
        page->slotSearch();
        QTEST(page->tips, "tips");
        QCOMPARE(service->calls, QStringList{wordsOf(type).listOperation});
    }

    void aDeviceIsAskedOnlyForASpanOfTwoParts_data()
    {
        table<QString>({"text"},
            {
                {"no parts at all", ""},
                {"one part", "2024-05-03 00"},
                {"three parts", "2024-05-03 00~2024-05-03 10~2024-05-03 17"},
                {"three parts, two of them empty", "2024-05-03 00~~"},
            });
    }

    void aDeviceIsAskedOnlyForASpanOfTwoParts()
    {
        QFETCH(QString, text);
        answerDetails();
        QVERIFY(open(4));
        page->getChartDataByBarId(u"d1"_s);
        QVERIFY(!page->lineDataList.isEmpty() && !page->pieDataList.isEmpty());
        setSpanInSilence(text);
        forget();
        LogCapture log;
        page->getOnlineOfDevice(u"d1"_s);
        QVERIFY(service->calls.isEmpty());
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(log.lines(), QStringList());
        page->getChartDataByBarId(u"d1"_s);
        QVERIFY(service->calls.isEmpty());
        QVERIFY(page->lineDataList.isEmpty());
        QVERIFY(page->pieDataList.isEmpty());
    }

    void aSpanOfTwoEmptyPartsIsStillASpan()
    {
        QVERIFY(open(4));
        setSpanInSilence(u"~"_s);
        page->getOnlineOfDevice(u"d1"_s);
        QCOMPARE(service->calls, QStringList{"getOnlineStatisticsOfDevice"});
    }

    void aZeroStandsAsABarAndAsAPoint_data() { addNamedTypes(ofAll); }

    void aZeroStandsAsABarAndAsAPoint()
    {
        QFETCH(int, type);
        client->addDevice("d1", "Plant North");
        answerOrganisations({{2, "", "", 0}});
        answerDevices({{0, "d1", "", 0}}, 1, 1);
        answerDetails({{0, "", "2024-05-03 01", 0}});
        QVERIFY(open(type));
        QCOMPARE(page->barDataList, (LabelledValues{{"Plant North", 0}}));
        QCOMPARE(page->lineDataList, (LabelledValues{{"2024-05-03 01", 0}}));
        QVERIFY(page->pieDataList.isEmpty());
        QVERIFY(page->barChartView->chart()->isVisible());
    }

    void rowsThatNobodyKnowsStillCountAsSuccess_data()
    {
        table<int, QString>({"type", "line"},
            {
                {"alarms of devices", 2, " BasicChart::setBarList  barDataList is empty"},
                {"online figures of devices", 4, " setOnlineBarList  barDataList is empty"},
            });
    }

    void rowsThatNobodyKnowsStillCountAsSuccess()
    {
        QFETCH(int, type);
        QFETCH(QString, line);
        QVERIFY(open(type));
        answerDevices({{0, "gone", "", 1}, {0, "", "", 2}, {0, "\xff\xfe", "", 3}}, 2, 4);
        QCOMPARE(askList(type), 4);
        QVERIFY(page->barDataList.isEmpty());
        QVERIFY(page->devDataList.isEmpty());
        QCOMPARE(page->m_nCurPage, 2);
        QCOMPARE(page->m_nTotalPage, 4);
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(service->calls, QStringList{wordsOf(type).listOperation});
        page->slotSearch();
        LogCapture log;
        page->slotSearch();
        QVERIFY(page->tips.isEmpty());
        QVERIFY(inOrder(log.lines(),
            {line, "BasicChart::on_pushButtonDesc_clicked", "BasicChart::loadChart",
                "BasicChart::loadChart  barDataList is empty"}));
    }

    void theManagerIsFetchedAnewForEachQuery_data() { addNamedTypes(ofOrganisations); }

    void theManagerIsFetchedAnewForEachQuery()
    {
        QFETCH(int, type);
        QVERIFY(open(type));
        const auto askAll = [this, type] {
            for (const int each : {type, type + 1}) {
                askList(each);
                askDetail(each, u"2"_s);
            }
        };
        const QStringList operations = {wordsOf(type).listOperation, wordsOf(type).detailOperation,
            wordsOf(type + 1).listOperation, wordsOf(type + 1).detailOperation};
        ScriptedStatisticsManager later;
        askAll();
        QCOMPARE(later.calls, operations);
        installStatisticsManager(service.get());
        askAll();
        QCOMPARE(service->calls, operations);
        QCOMPARE(later.calls.size(), 4);
    }

    void fiveThousandRowsAllBecomeBars_data() { addNamedTypes(ofOrganisations); }

    void fiveThousandRowsAllBecomeBars()
    {
        QFETCH(int, type);
        QVERIFY(open(type));
        Rows rows;
        LabelledValues expected;
        for (int i = 0; i < 5000; ++i) {
            rows.push_back({1000 + i, "", "", i % 7 - 3});
            expected.append({QString::number(1000 + i), i % 7 - 3});
        }
        answerOrganisations(rows);
        QCOMPARE(askList(type), 4);
        QCOMPARE(page->barDataList, expected);
    }

    void oddFiguresAndNamesPass_data() { addNamedTypes(ofOrganisations); }

    void oddFiguresAndNamesPass()
    {
        QFETCH(int, type);
        QVERIFY(open(type));
        client->addOrganisation(50, "");
        client->addOrganisation(51, std::string(200, 'n'));
        client->addOrganisation(52, "<b>bold</b>");
        client->addOrganisation(53, "\xff\xfe");
        answerOrganisations({{50, "", "", -5}, {51, "", "", most}, {52, "", "", least}, {53, "", "", 0}});
        answerDetails({{0, "", "", most}, {0, "", "", 1}, {0, "", "\xff", -3}});
        page->slotSearch();
        QVERIFY(page->tips.isEmpty());
        QCOMPARE(page->barDataList.size(), 4);
        QCOMPARE(page->barDataList.at(0), (std::pair(QString(200, u'n'), most)));
        QCOMPARE(page->barDataList.at(1).second, 0);
        QCOMPARE(page->barDataList.at(2), (std::pair(QString(), -5)));
        QCOMPARE(page->barDataList.at(3), (std::pair(u"<b>bold</b>"_s, least)));
        QCOMPARE(page->lineDataList.size(), 2);
        QCOMPARE(page->lineDataList.at(0), (std::pair(QString(), least)));
        QCOMPARE(page->lineDataList.at(1).second, -3);
    }
};

TALVIX_TEST_MAIN(TestAlarmOnlineQueries)
#include "tst_alarm_online_queries.moc"
