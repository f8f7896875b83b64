#include "support/LogCapture.h"
#include "support/LogLines.h"
#include "support/PageScene.h"
#include "support/PageTest.h"
#include "support/StatisticsRows.h"
#include "support/TestMain.h"
#include "support/TestTable.h"

#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/AppTranslationHelper.h>
#include <TalvixWidgets/ZrChartView.h>

#include <QtCharts/QChart>
#include <QtWidgets/QLineEdit>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::string_literals;

namespace {

struct PeriodRow
{
    std::string label;
    int value;
    int alarmType;
};
using PeriodRows = QList<PeriodRow>;

using Step = std::function<void(ProbePage &)>;

/// Holds the page's mutex on another thread for as long as it lives, a few seconds at most.
class HeldMutex
{
public:
    explicit HeldMutex(QMutex &mutex, std::chrono::milliseconds longest)
        : m_thread([this, &mutex, longest] {
            mutex.lock();
            std::unique_lock<std::mutex> lock(m_guard);
            m_held = true;
            m_begun = true;
            m_changed.notify_all();
            m_changed.wait_for(lock, longest, [this] { return m_done; });
            m_held = false;
            mutex.unlock();
        })
    {
        std::unique_lock<std::mutex> lock(m_guard);
        // On a busy machine it may be over before it is noticed.
        m_changed.wait(lock, [this] { return m_begun; });
    }

    ~HeldMutex()
    {
        {
            const std::lock_guard<std::mutex> lock(m_guard);
            m_done = true;
        }
        m_changed.notify_all();
        m_thread.join();
    }

    bool isHeld()
    {
        const std::lock_guard<std::mutex> lock(m_guard);
        return m_held;
    }

private:
    std::mutex m_guard;
    std::condition_variable m_changed;
    bool m_held = false;
    bool m_begun = false;
    bool m_done = false;
    std::thread m_thread;
};

} // namespace

Q_DECLARE_METATYPE(LabelledValues)
Q_DECLARE_METATYPE(LabelledKeys)
Q_DECLARE_METATYPE(PeriodRows)
Q_DECLARE_METATYPE(Step)

class TestChartData : public PageTest
{
    Q_OBJECT

private:
    void make(int type) { page = std::make_unique<ProbePage>(type); }

    void makeWithSpan(int type)
    {
        make(type);
        page->part<QLineEdit>("lineEditTime")->setText(u"2024-05-03 00~2024-05-03 17"_s);
    }

    void fillEveryList()
    {
        page->barDataList = {{"bar", 1}};
        page->barDataList2 = {{"bar", 2}};
        page->devDataList = {{"bar", "key"}};
        page->devTypeDataList = {{"bar", 3}};
        page->lineDataList = {{"line", 4}};
        page->lineDataList2 = {{"line", 5}};
        page->pieDataList = {{"pie", 6}};
    }

    QStringList emptyLists() const
    {
        QStringList names;
        const auto look = [&names](const auto &list, const char *name) {
            if (list.isEmpty())
                names << name;
        };
        look(page->barDataList, "bar");
        look(page->barDataList2, "bar2");
        look(page->devDataList, "dev");
        look(page->devTypeDataList, "devType");
        look(page->lineDataList, "line");
        look(page->lineDataList2, "line2");
        look(page->pieDataList, "pie");
        return names;
    }

private Q_SLOTS:
    void aNewPageHasEmptyLists()
    {
        make(1);
        QCOMPARE(emptyLists(), (QStringList{"bar", "bar2", "dev", "devType", "line", "line2", "pie"}));
        QVERIFY(page->idlist.empty());
    }

    void clearingEmptiesItsOwnLists_data()
    {
        table<Step, QStringList, QString>({"clear", "emptied", "line"},
            {
                {"the bar side", &ProbePage::clearBarChartData, {"bar", "bar2", "dev", "devType"},
                    "BasicChart::clearBarChartData "},
                {"the line and pie side", &ProbePage::clearPieAndLineChartData, {"line", "line2", "pie"},
                    "BasicChart::clearPieAndLineChartData"},
                {"the pie alone", &ProbePage::clearPieChartData, {"pie"}, "BasicChart::clearPieChartData"},
            });
    }

    void clearingEmptiesItsOwnLists()
    {
        QFETCH(Step, clear);
        QFETCH(QString, line);
        make(1);
        fillEveryList();
        LogCapture log;
        clear(*page);
        QTEST(emptyLists(), "emptied");
        QCOMPARE(log.lines(), QStringList{line});
        QVERIFY(page->m_mutex.tryLock());
        page->m_mutex.unlock();
    }

    void listsAreChangedUnderTheMutex_data()
    {
        table<Step>({"step"},
            {
                {"clearing the bar side", &ProbePage::clearBarChartData},
                {"clearing the line and pie side", &ProbePage::clearPieAndLineChartData},
                {"clearing the pie", &ProbePage::clearPieChartData},
                {"adding a period", [](ProbePage &p) { p.setLineAndPieItem("a", 1, -1); }},
                {"slices of causes",
                    [](ProbePage &p) {
                        p.setEtiologyPieList({{1, 2}});
                    }},
                {"slices of numbers",
                    [](ProbePage &p) {
                        p.setNumberPieList({{1, 2}});
                    }},
                {"the largest figure", [](ProbePage &p) { p.getMaxValue({1}); }},
            });
    }

    void listsAreChangedUnderTheMutex()
    {
        QFETCH(Step, step);
        make(1);
        HeldMutex held(page->m_mutex, std::chrono::milliseconds(50));
        step(*page);
        QVERIFY(!held.isHeld());
        QVERIFY(page->m_mutex.tryLock());
        page->m_mutex.unlock();
    }

    void barsAreAddedWithoutTheMutex_data()
    {
        table<Step>({"step"},
            {
                {"an organisation", [](ProbePage &p) { p.setOrgaBarItem(2, 1); }},
                {"a device", [](ProbePage &p) { p.setDevBarItem("d1", 1); }},
                {"sorting the lines", &ProbePage::sortLineList},
                {"slices of temperatures",
                    [](ProbePage &p) {
                        p.setTemperaturePieList({{1, 2}});
                    }},
                {"slices of masks",
                    [](ProbePage &p) {
                        p.setMaskPieList({{1, 2}});
                    }},
                {"slices of minor types",
                    [](ProbePage &p) {
                        p.setSnapMinorPieList({{1, {{1, 2}}}}, 1);
                    }},
                {"switching the class of snapshots", [](ProbePage &p) { p.slot_switchPieChart(nullptr); }},
                {"the largest of no figures", [](ProbePage &p) { p.getMaxValue({}); }},
            });
    }

    void barsAreAddedWithoutTheMutex()
    {
        QFETCH(Step, step);
        client->addDevice("d1", "Camera");
        make(1);
        HeldMutex held(page->m_mutex, std::chrono::seconds(5));
        step(*page);
        QVERIFY(held.isHeld());
    }

    void aDetailIsAskedForWithNewBarsAndEmptyLines_data() { kinds({1, 2, 3, 4, 5, 6, 7}); }

    // What the details of the kinds 8 and 9 draw as lines is there before anybody is asked for their pie.
    void aDetailIsAskedForWithNewBarsAndEmptyLines()
    {
        QFETCH(int, type);
        PageScene scene;
        make(type);
        page->initForm();
        scene.fillTree(*page);
        const LabelledKeys keys = page->devDataList;
        const qsizetype bars = page->barDataList.size();
        QVERIFY(bars > 0);
        int asked = 0;
        int empty = 0;
        int renewed = 0;
        const auto look = [&] {
            ++asked;
            empty +=
                page->lineDataList.isEmpty() && page->lineDataList2.isEmpty() && page->pieDataList.isEmpty();
            renewed += page->devDataList == keys && page->barDataList.size() == bars;
        };
        const auto watch = [&look](auto &operation) {
            operation.answer = [&look, answer = operation.answer](const auto &request, auto &response) {
                look();
                return answer(request, response);
            };
        };
        watch(scene.manager.alarmStatisticsOfOrga);
        watch(scene.manager.alarmStatisticsOfDevice);
        watch(scene.manager.onlineStatisticsOfOrga);
        watch(scene.manager.onlineStatisticsOfDevice);
        watch(scene.manager.temperatureStatisticsOfGroup);
        watch(scene.manager.temperatureStatisticsOfPerson);
        watch(scene.manager.trafficsStatisticsOfOrga);
        fillEveryList();
        page->slotSearch();
        QVERIFY(asked > 0);
        QCOMPARE(empty, asked);
        QCOMPARE(renewed, asked);
    }

    void organisationsBecomeBars_data()
    {
        table<int, QString, QString>({"id", "name", "key"},
            {
                {"a known organisation", 2, "Plant North", "2"},
                {"an unknown organisation goes by its number", 99, "99", "99"},
                {"number zero", 0, "0", "0"},
                {"a negative number", -5, "-5", "-5"},
                {"the greatest number", largest, "2147483647", "2147483647"},
                {"the least number", smallest, "-2147483648", "-2147483648"},
                {"an empty name stays empty", 50, "", "50"},
                {"a long name stays whole", 51, QString(200, u'n'), "51"},
                {"markup is a name like any other", 52, "<b>%1</b>", "52"},
                {"a name in Chinese", 53, QString::fromUtf8("\xe5\x8c\x97\xe5\x8e\x82"), "53"},
            });
    }

    void organisationsBecomeBars()
    {
        QFETCH(int, id);
        QFETCH(QString, name);
        QFETCH(QString, key);
        client->addOrganisation(50, "");
        client->addOrganisation(51, std::string(200, 'n'));
        client->addOrganisation(52, "<b>%1</b>");
        client->addOrganisation(53, "\xe5\x8c\x97\xe5\x8e\x82");
        make(1);
        page->setOrgaBarItem(id, -7);
        QCOMPARE(page->barDataList, (LabelledValues{{name, -7}}));
        QCOMPARE(page->devDataList, (LabelledKeys{{name, key}}));
        QVERIFY(page->devTypeDataList.isEmpty());
        QVERIFY(page->barDataList2.isEmpty());
    }

    void rowsOfOneOrganisationAreNotMerged()
    {
        client->addOrganisation(4, "Plant North");
        make(1);
        page->setOrgaBarItem(2, 1);
        page->setOrgaBarItem(4, 2);
        page->setOrgaBarItem(2, 3);
        QCOMPARE(
            page->barDataList, (LabelledValues{{"Plant North", 1}, {"Plant North", 2}, {"Plant North", 3}}));
        QCOMPARE(page->devDataList,
            (LabelledKeys{{"Plant North", "2"}, {"Plant North", "4"}, {"Plant North", "2"}}));
    }

    void aNameThatIsNoTextStillMakesABar()
    {
        client->addOrganisation(60, "\xff\xfe");
        client->addDevice("d1", "\xff");
        make(1);
        page->setOrgaBarItem(60, 1);
        page->setDevBarItem("d1", 2);
        QCOMPARE(listValues(page->barDataList), QList<int>({1, 2}));
        QVERIFY(!page->barDataList.at(0).first.isEmpty());
        QCOMPARE(page->devDataList.at(0), (std::pair(page->barDataList.at(0).first, u"60"_s)));
        QCOMPARE(page->devDataList.at(1), (std::pair(page->barDataList.at(1).first, u"d1"_s)));
    }

    void namesOfOrganisationsAndAlarmTypesAreTranslatedAndNamesOfDevicesAreNot()
    {
        const char *const known = "TK_Vehicle";
        QVERIFY(HostSettings::setLanguage(u"de"_s));
        const QString translated = AppTranslationHelper::instance()->getStringAfterTranslation(known);
        QVERIFY(translated != QString::fromLatin1(known));
        client->addOrganisation(61, known);
        client->addAlarmType(4, known);
        client->addDevice("d1", known);
        client->addChannel("c1", u"TK_Pedestrian"_s);
        make(1);
        page->setOrgaBarItem(61, 1);
        page->setDevBarItem("d1", 2);
        page->setDevBarItem("c1", 3);
        page->setLineAndPieItem(known, 4, 4);
        QCOMPARE(page->barDataList, (LabelledValues{{translated, 1}, {known, 2}, {"TK_Pedestrian", 3}}));
        QCOMPARE(page->lineDataList, (LabelledValues{{known, 4}}));
        QCOMPARE(page->pieDataList, (LabelledValues{{translated, 4}}));
    }

    void devicesBecomeBars_data()
    {
        table<QStringList, QStringList, QStringList, QList<int>>({"uids", "names", "keys", "types"},
            {
                {"a channel", {"door"}, {"Recorder Door"}, {"door"}, {5}},
                {"a device", {"gate1"}, {"Gate"}, {"gate1"}, {1}},
                {"a uid of both is a channel", {"both"}, {"As channel"}, {"both"}, {6}},
                {"two devices of one name: the second goes by its address", {"gate1", "gate2"},
                    {"Gate", "10.0.0.2"}, {"gate1", "gate2"}, {1, 2}},
                {"a third of that name goes by its address too", {"gate1", "gate2", "gate3"},
                    {"Gate", "10.0.0.2", "10.0.0.3"}, {"gate1", "gate2", "gate3"}, {1, 2, 3}},
                {"a device of that name without address gets no name", {"gate1", "gateNowhere"}, {"Gate", ""},
                    {"gate1", "gateNowhere"}, {1, 4}},
                {"a replaced name is not compared again", {"addressed", "gate1", "gate2"},
                    {"10.0.0.2", "Gate", "10.0.0.2"}, {"addressed", "gate1", "gate2"}, {9, 1, 2}},
                {"the same device twice", {"gate2", "gate2"}, {"Gate", "10.0.0.2"}, {"gate2", "gate2"},
                    {2, 2}},
                {"case counts", {"gate1", "gateSmall"}, {"Gate", "gate"}, {"gate1", "gateSmall"}, {1, 7}},
                {"a channel of a taken name goes by its address", {"door", "doorTwin"},
                    {"Recorder Door", "10.0.1.2"}, {"door", "doorTwin"}, {5, 5}},
                {"a channel of a taken name without address goes by its own name", {"door", "doorNowhere"},
                    {"Recorder Door", "Back door"}, {"door", "doorNowhere"}, {5, 8}},
                {"a channel with neither gets no name", {"door", "doorNothing"}, {"Recorder Door", ""},
                    {"door", "doorNothing"}, {5, 8}},
                {"a device is compared with channels as well", {"door", "deviceLikeDoor"},
                    {"Recorder Door", "10.0.2.1"}, {"door", "deviceLikeDoor"}, {5, 1}},
                {"a channel is compared with devices as well", {"deviceLikeDoor", "doorTwin"},
                    {"Recorder Door", "10.0.1.2"}, {"deviceLikeDoor", "doorTwin"}, {1, 5}},
                {"an unknown uid is dropped and the others stay in step", {"gate1", "nobody", "door"},
                    {"Gate", "Recorder Door"}, {"gate1", "door"}, {1, 5}},
                {"a long name stays whole", {"long"}, {QString(200, u'n')}, {"long"}, {-1}},
                {"markup is a name like any other", {"markup"}, {"<b>%1</b>"}, {"markup"}, {0}},
            });
    }

    void devicesBecomeBars()
    {
        QFETCH(QStringList, uids);
        QFETCH(QStringList, names);
        QFETCH(QStringList, keys);
        QFETCH(QList<int>, types);
        client->addDevice("gate1", "Gate", "10.0.0.1", 1);
        client->addDevice("gate2", "Gate", "10.0.0.2", 2);
        client->addDevice("gate3", "Gate", "10.0.0.3", 3);
        client->addDevice("gateNowhere", "Gate", "", 4);
        client->addDevice("gateSmall", "gate", "10.0.0.7", 7);
        client->addDevice("addressed", "10.0.0.2", "10.0.0.9", 9);
        client->addDevice("both", "As device", "10.0.0.8", 1);
        client->addDevice("deviceLikeDoor", "Recorder Door", "10.0.2.1", 1);
        client->addDevice("long", std::string(200, 'n'), "", -1);
        client->addDevice("markup", "<b>%1</b>", "", 0);
        client->addChannel("both", u"As channel"_s, "Channel", "10.0.1.8", 6);
        client->addChannel("door", u"Recorder Door"_s, "Front door", "10.0.1.1", 5);
        client->addChannel("doorTwin", u"Recorder Door"_s, "Twin door", "10.0.1.2", 5);
        client->addChannel("doorNowhere", u"Recorder Door"_s, "Back door", "", 8);
        client->addChannel("doorNothing", u"Recorder Door"_s, "", "", 8);
        make(2);
        int value = 100;
        for (const QString &uid : uids)
            page->setDevBarItem(uid.toStdString(), value++);
        QCOMPARE(listKeys(page->barDataList), names);
        QCOMPARE(listKeys(page->devDataList), names);
        QCOMPARE(listKeys(page->devTypeDataList), names);
        QStringList foundKeys;
        for (const auto &entry : page->devDataList)
            foundKeys.append(entry.second);
        QCOMPARE(foundKeys, keys);
        QCOMPARE(listValues(page->devTypeDataList), types);
        QList<int> values;
        for (int i = 0; i < uids.size(); ++i) {
            if (keys.contains(uids.at(i)))
                values.append(100 + i);
        }
        QCOMPARE(listValues(page->barDataList), values);
    }

    void anUnknownUidIsLogged_data()
    {
        table<QString>({"uid"}, {{"a uid", "nobody"}, {"no uid", ""}, {"a uid with markup", "<i>%1</i>"}});
    }

    void anUnknownUidIsLogged()
    {
        QFETCH(QString, uid);
        make(2);
        LogCapture log;
        page->setDevBarItem(uid.toStdString(), 1);
        QCOMPARE(log.lines().size(), 1);
        QCOMPARE(loggedBehind(log.lines(), u"uid  is invalid"_s), uid);
        QVERIFY(page->barDataList.isEmpty());
        QVERIFY(page->devDataList.isEmpty());
        QVERIFY(page->devTypeDataList.isEmpty());
        QVERIFY(page->tips.isEmpty());
    }

    void periodsFoldIntoLineAndPie_data()
    {
        table<PeriodRows, LabelledValues, LabelledValues>({"rows", "line", "pie"},
            {
                {"one row", {{"08", 3, 1}}, {{"08", 3}}, {{"Motion", 3}}},
                {"several types of a period: one point, one slice each", {{"08", 3, 1}, {"08", 4, 2}},
                    {{"08", 7}}, {{"Motion", 3}, {"Fire", 4}}},
                {"one type in several periods: one slice, one point each", {{"09", 3, 1}, {"08", 4, 1}},
                    {{"09", 3}, {"08", 4}}, {{"Motion", 7}}},
                {"a sum keeps its place", {{"08", 1, 2}, {"09", 2, 1}, {"08", 4, 2}}, {{"08", 5}, {"09", 2}},
                    {{"Fire", 5}, {"Motion", 2}}},
                {"an unknown type goes by its number", {{"08", 3, 77}}, {{"08", 3}}, {{"77", 3}}},
                {"types are unknown below none as well", {{"08", 3, -2}, {"08", 4, 0}}, {{"08", 7}},
                    {{"-2", 3}, {"0", 4}}},
                {"without a type the slice is the period", {{"08", 3, -1}, {"09", 2, -1}},
                    {{"08", 3}, {"09", 2}}, {{"08", 3}, {"09", 2}}},
                {"two types of one name share a slice", {{"08", 3, 2}, {"08", 4, 3}}, {{"08", 7}},
                    {{"Fire", 7}}},
                {"a zero stands in the line alone", {{"08", 0, 1}, {"08", 0, 2}}, {{"08", 0}}, {}},
                {"a zero among figures makes no slice", {{"08", 0, 1}, {"08", 5, 2}}, {{"08", 5}},
                    {{"Fire", 5}}},
                {"a zero without a type", {{"08", 0, -1}}, {{"08", 0}}, {}},
                {"a negative figure takes away", {{"08", 3, 1}, {"08", -5, 1}}, {{"08", -2}},
                    {{"Motion", -2}}},
                {"sums that come to zero stay", {{"08", 3, 1}, {"08", -3, 1}}, {{"08", 0}}, {{"Motion", 0}}},
                {"sums wrap at 32 bits", {{"08", largest, 1}, {"08", 1, 1}}, {{"08", smallest}},
                    {{"Motion", smallest}}},
                {"an empty label is a period", {{"", 1, -1}, {"", 2, -1}}, {{"", 3}}, {{"", 3}}},
                {"a type without a name has a slice without one", {{"08", 2, 9}}, {{"08", 2}}, {{"", 2}}},
                {"slices stand in the order of their first row", {{"08", 1, 77}, {"08", 9, 2}, {"08", 5, 1}},
                    {{"08", 15}}, {{"77", 1}, {"Fire", 9}, {"Motion", 5}}},
                {"case counts in periods", {{"a", 1, 1}, {"A", 2, 1}}, {{"a", 1}, {"A", 2}}, {{"Motion", 3}}},
            });
    }

    void periodsFoldIntoLineAndPie()
    {
        QFETCH(PeriodRows, rows);
        QFETCH(LabelledValues, line);
        QFETCH(LabelledValues, pie);
        client->addAlarmType(1, "Motion");
        client->addAlarmType(2, "Fire");
        client->addAlarmType(3, "Fire");
        client->addAlarmType(9, "");
        make(1);
        for (const PeriodRow &row : rows)
            page->setLineAndPieItem(row.label, row.value, row.alarmType);
        QCOMPARE(page->lineDataList, line);
        QCOMPARE(page->pieDataList, pie);
        QVERIFY(page->lineDataList2.isEmpty());

        std::vector<AlarmStatisticsRecord> records;
        for (const PeriodRow &row : rows)
            records.push_back(alarmsOfPeriod(row.label, row.alarmType, row.value));
        page->setPieAndLineList(records);
        QCOMPARE(page->lineDataList, line);
        QCOMPARE(page->pieDataList, pie);
    }

    void aListOfPeriodsReplacesTheOneBefore()
    {
        make(1);
        fillEveryList();
        LogCapture log;
        page->setPieAndLineList({alarmsOfPeriod("09", -1, 1), alarmsOfPeriod("08", -1, 2)});
        QCOMPARE(log.lines().constFirst(), u"BasicChart::clearPieAndLineChartData"_s);
        QCOMPARE(page->lineDataList, (LabelledValues{{"09", 1}, {"08", 2}}));
        QCOMPARE(page->pieDataList, (LabelledValues{{"09", 1}, {"08", 2}}));
        QVERIFY(page->lineDataList2.isEmpty());
        QCOMPARE(page->barDataList, (LabelledValues{{"bar", 1}}));
        page->setPieAndLineList({});
        QVERIFY(page->lineDataList.isEmpty());
        QVERIFY(page->pieDataList.isEmpty());
    }

    void onlinePeriodsMakeSlicesOfPeriods()
    {
        client->addAlarmType(0, "Motion");
        client->addAlarmType(-1, "None");
        make(3);
        fillEveryList();
        LogCapture log;
        page->setOnlinePieAndLineList(
            {onlineOfPeriod("09", 1), onlineOfPeriod("08", 0), onlineOfPeriod("09", 4)});
        QCOMPARE(log.lines().constFirst(), u"BasicChart::clearPieAndLineChartData"_s);
        QCOMPARE(page->lineDataList, (LabelledValues{{"09", 5}, {"08", 0}}));
        QCOMPARE(page->pieDataList, (LabelledValues{{"09", 5}}));
        QVERIFY(page->lineDataList2.isEmpty());
    }

    void aDrillDownRowUsesNeitherOrganisationNorUid()
    {
        make(1);
        AlarmStatisticsRecord alarm = alarmsOfPeriod("08", -1, 2);
        alarm.orgaId = 99;
        alarm.uid = "d1";
        alarm.reservedValue = 7;
        page->setPieAndLineList({alarm});
        QCOMPARE(page->lineDataList, (LabelledValues{{"08", 2}}));
        QCOMPARE(page->pieDataList, (LabelledValues{{"08", 2}}));
    }

    void linesSortByLabel()
    {
        make(7);
        page->lineDataList = {{"b", 1}, {"a", 2}, {"B", 3}, {"a", 4}};
        page->lineDataList2 = {{"2024-05-03 10", 1}, {"2024-05-03 09", 2}};
        page->pieDataList = {{"z", 1}, {"y", 2}};
        page->sortLineList();
        QCOMPARE(page->lineDataList, (LabelledValues{{"B", 3}, {"a", 4}, {"a", 2}, {"b", 1}}));
        QCOMPARE(page->lineDataList2, (LabelledValues{{"2024-05-03 09", 2}, {"2024-05-03 10", 1}}));
        QCOMPARE(page->pieDataList, (LabelledValues{{"z", 1}, {"y", 2}}));
    }

    void emptyLinesStayEmpty()
    {
        make(7);
        page->lineDataList2 = {{"b", 1}, {"a", 2}};
        page->sortLineList();
        QVERIFY(page->lineDataList.isEmpty());
        QCOMPARE(page->lineDataList2, (LabelledValues{{"a", 2}, {"b", 1}}));
    }

    void periodsStillFoldAfterASort()
    {
        make(1);
        page->setLineAndPieItem("b", 1, -1);
        page->setLineAndPieItem("a", 2, -1);
        page->sortLineList();
        page->setLineAndPieItem("a", 10, -1);
        page->setLineAndPieItem("c", 3, -1);
        QCOMPARE(page->lineDataList, (LabelledValues{{"a", 12}, {"b", 1}, {"c", 3}}));
        QCOMPARE(page->pieDataList, (LabelledValues{{"b", 1}, {"a", 12}, {"c", 3}}));
    }

    void slicesStartAnewAfterThePieWasCleared()
    {
        make(1);
        page->setLineAndPieItem("b", 1, -1);
        page->setLineAndPieItem("a", 2, -1);
        page->clearPieChartData();
        page->setLineAndPieItem("a", 10, -1);
        page->setLineAndPieItem("b", 20, -1);
        QCOMPARE(page->lineDataList, (LabelledValues{{"b", 21}, {"a", 12}}));
        QCOMPARE(page->pieDataList, (LabelledValues{{"a", 10}, {"b", 20}}));
    }

    void barRowsFillByKind_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("online");
        QTest::addColumn<LabelledValues>("bars");
        QTest::addColumn<LabelledKeys>("keys");
        QTest::addColumn<LabelledValues>("types");
        QTest::addColumn<QStringList>("calls");
        QTest::addColumn<QString>("line");

        const LabelledValues organisations = {{"Plant South", 5}, {"99", 6}};
        const LabelledKeys organisationKeys = {{"Plant South", "3"}, {"99", "99"}};
        const LabelledValues devices = {{"Camera", 5}};
        const LabelledKeys deviceKeys = {{"Camera", "d1"}};
        const LabelledValues deviceTypes = {{"Camera", 4}};

        QTest::newRow("alarms, kind 1")
            << 1 << false << organisations << organisationKeys << LabelledValues()
            << QStringList{"getAlarmStatisticsOfOrga"} << "type AlarmStatisticsOfOrgas bardatalist  QList(";
        QTest::newRow("alarms, kind 2")
            << 2 << false << devices << deviceKeys << deviceTypes << QStringList{"getAlarmStatisticsOfDevice"}
            << "type AlarmStatisticsOfDevices  bardatalist  QList(";
        QTest::newRow("online, kind 3")
            << 3 << true << organisations << organisationKeys << LabelledValues()
            << QStringList{"getOnlineStatisticsOfOrga"} << "type OnlineStatisticsOfOrgas bardatalist  QList(";
        QTest::newRow("online, kind 4")
            << 4 << true << devices << deviceKeys << deviceTypes << QStringList{"getOnlineStatisticsOfDevice"}
            << "type OnlineStatisticsOfDevices bardatalist  QList(";
        for (int type : {0, 3, 4, 5, 6, 7, 8, 9, 10, -1})
            QTest::addRow("alarms, kind %d: nothing", type)
                << type << false << LabelledValues() << LabelledKeys() << LabelledValues() << QStringList()
                << "";
        for (int type : {0, 1, 2, 5, 6, 7, 8, 9, 10, -1})
            QTest::addRow("online, kind %d: nothing", type)
                << type << true << LabelledValues() << LabelledKeys() << LabelledValues() << QStringList()
                << "";
    }

    void barRowsFillByKind()
    {
        QFETCH(int, type);
        QFETCH(bool, online);
        QFETCH(QString, line);
        QFETCH(QStringList, calls);
        client->addDevice("d1", "Camera", "10.0.0.1", 4);
        makeWithSpan(1);
        page->setServiceType(type);
        fillEveryList();
        LogCapture log;
        // Each row carries an organisation and a device: what tells the two apart is the kind alone.
        if (online)
            page->setOnlineBarList({{"08", 3, "d1", 5}, {"09", 99, "nobody", 6}});
        else
            page->setBarList(
                std::vector<AlarmStatisticsRecord>{{"08", 3, "d1", 0, 1, 5}, {"09", 99, "nobody", 0, 1, 6}});
        QTEST(page->barDataList, "bars");
        QTEST(page->devDataList, "keys");
        QTEST(page->devTypeDataList, "types");
        QVERIFY(page->barDataList2.isEmpty());
        QCOMPARE(service->calls, calls);

        const QStringList lines = log.lines();
        const QString emptyLine = online ? u" setOnlineBarList  barDataList is empty"_s
                                         : u" BasicChart::setBarList  barDataList is empty"_s;
        QCOMPARE(log.contains(emptyLine), calls.isEmpty());
        QCOMPARE(
            lines.constFirst(), online ? u"BasicChart::clearBarChartData "_s : u"BasicChart::setBarList"_s);
        QVERIFY(log.contains(u"BasicChart::clearBarChartData "_s));
        if (!calls.isEmpty()) {
            QVERIFY(inOrder(lines, {line + "*", "BasicChart::getChartDataByBarId"}));
            const QString shown = loggedBehind(lines, line);
            const auto behind = shown.indexOf(u"\n devDataList QList("_s);
            QVERIFY(behind > 0);
            QVERIFY(shown.left(behind).contains(QDebug::toString(page->barDataList.at(0))));
            QVERIFY(shown.mid(behind).contains(QDebug::toString(page->devDataList.at(0))));
        } else {
            for (const QString &text : lines)
                QVERIFY2(!text.startsWith(u"type "_s), qPrintable(text));
            QCOMPARE(emptyLists(), (QStringList{"bar", "bar2", "dev", "devType"}));
        }
    }

    void theFirstRowOfTheAnswerIsOpenedNotTheGreatest_data() { kinds({1, 2, 3, 4}); }

    void theFirstRowOfTheAnswerIsOpenedNotTheGreatest()
    {
        QFETCH(int, type);
        client->addDevice("3", "South");
        client->addDevice("2", "North");
        makeWithSpan(1);
        page->setServiceType(type);
        if (type <= 2)
            page->setBarList(
                std::vector<AlarmStatisticsRecord>{{"", 3, "3", 0, 0, 1}, {"", 2, "2", 0, 0, 9}});
        else
            page->setOnlineBarList({{"", 3, "3", 1}, {"", 2, "2", 9}});
        QCOMPARE(service->calls.size(), 1);
        switch (type) {
        case 1:
            QCOMPARE(service->alarmStatisticsOfOrga.requests.constFirst().orgaId, 3);
            break;
        case 2:
            QCOMPARE(service->alarmStatisticsOfDevice.requests.constFirst().uid(), "3"s);
            break;
        case 3:
            QCOMPARE(service->onlineStatisticsOfOrga.requests.constFirst().orgaId, 3);
            break;
        default:
            QCOMPARE(service->onlineStatisticsOfDevice.requests.constFirst().uid(), "3"s);
        }
    }

    void rowsThatNobodyKnowsLeaveTheBarSideEmpty_data()
    {
        table<int, QString>({"type", "line"},
            {
                {"alarms", 2, " BasicChart::setBarList  barDataList is empty"},
                {"online", 4, " setOnlineBarList  barDataList is empty"},
            });
    }

    void rowsThatNobodyKnowsLeaveTheBarSideEmpty()
    {
        QFETCH(int, type);
        QFETCH(QString, line);
        make(type);
        fillEveryList();
        LogCapture log;
        if (type == 2)
            page->setBarList({alarmsOfDevice("nobody", 1), alarmsOfDevice("else", 2)});
        else
            page->setOnlineBarList({onlineOfDevice("nobody", 1), onlineOfDevice("else", 2)});
        QCOMPARE(emptyLists(), (QStringList{"bar", "bar2", "dev", "devType"}));
        QVERIFY(service->calls.isEmpty());
        QVERIFY(inOrder(log.lines(), {"uid  is invalid*", "uid  is invalid*", line}));
        QVERIFY(page->tips.isEmpty());
    }

    void eachKindHasItsDrillDown_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QStringList>("calls");

        QTest::newRow("kind 1") << 1 << QStringList{"getAlarmStatisticsOfOrga"};
        QTest::newRow("kind 2") << 2 << QStringList{"getAlarmStatisticsOfDevice"};
        QTest::newRow("kind 3") << 3 << QStringList{"getOnlineStatisticsOfOrga"};
        QTest::newRow("kind 4") << 4 << QStringList{"getOnlineStatisticsOfDevice"};
        QTest::newRow("kind 6") << 6 << QStringList{"getTemperatureStatisticsOfPerson"};
        for (int type : {0, 10, -1, largest})
            QTest::addRow("kind %d falls to kind 1", type) << type << QStringList{"getAlarmStatisticsOfOrga"};
    }

    void eachKindHasItsDrillDown()
    {
        QFETCH(int, type);
        makeWithSpan(1);
        page->setServiceType(type);
        fillEveryList();
        LogCapture log;
        page->getChartDataByBarId(u"3"_s);
        QTEST(service->calls, "calls");
        QCOMPARE(emptyLists(), (QStringList{"line", "line2", "pie"}));
        QVERIFY(inOrder(
            log.lines(), {"BasicChart::getChartDataByBarId", "BasicChart::clearPieAndLineChartData"}));
        QCOMPARE(log.lines().constFirst(), u"BasicChart::getChartDataByBarId"_s);
        const QString all = log.lines().join(u'\n');
        QVERIFY(all.indexOf(u"linedatalist QList("_s) > 0);
        QVERIFY(all.indexOf(u" piedatalist  QList("_s) > all.indexOf(u"linedatalist"_s));
    }

    void otherKindsAskNeitherAlarmsNorOnlineFigures_data() { kinds({5, 6, 7, 8, 9}); }

    void otherKindsAskNeitherAlarmsNorOnlineFigures()
    {
        QFETCH(int, type);
        makeWithSpan(1);
        page->setServiceType(type);
        fillEveryList();
        page->getChartDataByBarId(u"3"_s);
        for (const QString &call : service->calls)
            QVERIFY2(!call.contains(u"AlarmStatistics"_s) && !call.contains(u"Online"_s), qPrintable(call));
        QVERIFY(page->lineDataList.isEmpty());
        QCOMPARE(page->barDataList, (LabelledValues{{"bar", 1}}));
    }

    void groupsAskForTheGroupAndBothDistributions()
    {
        makeWithSpan(1);
        page->setServiceType(5);
        page->getChartDataByBarId(u"3"_s);
        QCOMPARE(service->calls.count(u"getTemperatureStatisticsOfGroup"_s), 1);
        QCOMPARE(service->calls.count(u"getTempStatisticsDistributionOfGroups"_s), 2);
        QCOMPARE(service->calls.size(), 3);
    }

    void aDrillDownSortsTheLineAndTellsBothLists()
    {
        makeWithSpan(1);
        client->addAlarmType(1, "Motion");
        client->addAlarmType(2, "Fire");
        answerRows(service->alarmStatisticsOfOrga,
            {alarmsOfPeriod("2024-05-03 10", 1, 5), alarmsOfPeriod("2024-05-03 09", 2, 3),
                alarmsOfPeriod("2024-05-03 10", 2, 4)});
        fillEveryList();
        LogCapture log;
        page->getChartDataByBarId(u"3"_s);
        QCOMPARE(page->lineDataList, (LabelledValues{{"2024-05-03 09", 3}, {"2024-05-03 10", 9}}));
        QCOMPARE(page->pieDataList, (LabelledValues{{"Motion", 5}, {"Fire", 7}}));
        QVERIFY(page->lineDataList2.isEmpty());
        const QString all = log.lines().join(u'\n');
        const auto lineAt = all.indexOf(u"linedatalist"_s);
        const auto pieAt = all.indexOf(u" piedatalist "_s);
        QVERIFY(lineAt > 0 && pieAt > lineAt);
        const QString lineText = all.mid(lineAt, pieAt - lineAt);
        const auto nine = lineText.indexOf(QDebug::toString(page->lineDataList.at(0)));
        const auto ten = lineText.indexOf(QDebug::toString(page->lineDataList.at(1)));
        QVERIFY(nine > 0 && ten > nine);
        QVERIFY(all.mid(pieAt).contains(QDebug::toString(page->pieDataList.at(1))));
    }

    void everyDrillDownReplacesTheOneBefore()
    {
        makeWithSpan(1);
        answerRows(service->alarmStatisticsOfOrga, {alarmsOfPeriod("2024-05-03 10", -1, 5)});
        page->getChartDataByBarId(u"3"_s);
        answerRows(service->alarmStatisticsOfOrga, {alarmsOfPeriod("2024-05-03 11", -1, 6)});
        page->getChartDataByBarId(u"2"_s);
        QCOMPARE(page->lineDataList, (LabelledValues{{"2024-05-03 11", 6}}));
        QCOMPARE(page->pieDataList, (LabelledValues{{"2024-05-03 11", 6}}));
        answerRows(service->alarmStatisticsOfOrga, {});
        page->getChartDataByBarId(u"2"_s);
        QVERIFY(page->lineDataList.isEmpty());
        QVERIFY(page->pieDataList.isEmpty());
    }

    void everySearchReplacesTheBars()
    {
        answerRows(service->alarmStatisticsOfOrgas, {alarmsOfOrganisation(2, 4), alarmsOfOrganisation(3, 5)});
        QVERIFY(open(1));
        QCOMPARE(page->devDataList, (LabelledKeys{{"Plant North", "2"}, {"Plant South", "3"}}));
        QCOMPARE(page->barDataList, (LabelledValues{{"Plant South", 5}, {"Plant North", 4}}));
        answerRows(service->alarmStatisticsOfOrgas, {alarmsOfOrganisation(42, 7)});
        page->slotSearch();
        QCOMPARE(page->devDataList, (LabelledKeys{{"Company", "42"}}));
        QCOMPARE(page->barDataList, (LabelledValues{{"Company", 7}}));
    }

    void sortingReordersTheBarsAlone()
    {
        client->addDevice("d1", "Camera", "", 4);
        client->addDevice("d2", "Recorder", "", 2);
        answerPage(
            service->alarmStatisticsOfDevices, {alarmsOfDevice("d1", 4), alarmsOfDevice("d2", 5)}, 1, 1);
        QVERIFY(open(2));
        QCOMPARE(page->barDataList, (LabelledValues{{"Recorder", 5}, {"Camera", 4}}));
        QCOMPARE(page->devDataList, (LabelledKeys{{"Camera", "d1"}, {"Recorder", "d2"}}));
        QCOMPARE(page->devTypeDataList, (LabelledValues{{"Camera", 4}, {"Recorder", 2}}));
    }

    void aSearchWithoutResultKeepsTheBarsAndEmptiesThePie()
    {
        answerRows(service->alarmStatisticsOfOrgas, {alarmsOfOrganisation(2, 4)});
        answerRows(service->alarmStatisticsOfOrga, {alarmsOfPeriod("2024-05-03 10", -1, 5)});
        QVERIFY(open(1));
        QVERIFY(!page->pieDataList.isEmpty());
        service->failWith(u"closed"_s);
        page->slotSearch();
        QCOMPARE(page->barDataList, (LabelledValues{{"Plant North", 4}}));
        QCOMPARE(page->devDataList, (LabelledKeys{{"Plant North", "2"}}));
        QCOMPARE(page->lineDataList, (LabelledValues{{"2024-05-03 10", 5}}));
        QVERIFY(page->pieDataList.isEmpty());
        QVERIFY(!page->barChartView->chart()->isVisible());
    }

    void aDrillDownOfAHundredThousandPeriodsKeepsThemAll()
    {
        make(3);
        std::vector<OnlineStatisticsRecord> rows;
        for (int i = 0; i < 100000; ++i)
            rows.push_back(onlineOfPeriod(std::to_string(i), i));
        page->setOnlinePieAndLineList(rows);
        QCOMPARE(page->lineDataList.size(), 100000);
        QCOMPARE(page->lineDataList.constLast(), (std::pair(u"99999"_s, 99999)));
        QCOMPARE(page->pieDataList.size(), 99999);
        QCOMPARE(page->pieDataList.constFirst(), (std::pair(u"1"_s, 1)));
    }

    void fiveThousandDevicesOfOneNameKeepTheirKeys()
    {
        makeWithSpan(2);
        std::vector<AlarmStatisticsRecord> rows;
        for (int i = 0; i < 5000; ++i) {
            client->addDevice(std::to_string(i), "Gate", "address " + std::to_string(i), 1);
            rows.push_back(alarmsOfDevice(std::to_string(i), i));
        }
        page->setBarList(rows);
        QCOMPARE(page->barDataList.size(), 5000);
        QCOMPARE(page->devDataList.constFirst(), (std::pair(u"Gate"_s, u"0"_s)));
        QCOMPARE(page->devDataList.constLast(), (std::pair(u"address 4999"_s, u"4999"_s)));
    }
};

TALVIX_TEST_MAIN(TestChartData)
#include "tst_chart_data.moc"
