#include "support/PageScene.h"
#include "support/TestMain.h"
#include "support/TestTable.h"

#include <TalvixWidgets/ZrPushButton.h>

using namespace Qt::StringLiterals;
using namespace std::string_literals;

namespace {

const QString reason = u"licence expired"_s;
const QString deviceWord = u"BasicChart::getTrafficsStatisticsOfDevice"_s;
const QString orgasWord = u"BasicChart::getTrafficsStatisticsOfOrgas"_s;

using Pairs = QList<std::pair<int, int>>;

std::vector<SnapTypeCount> counts(int vehicles, int pedestrians)
{
    return {{4, vehicles, 0}, {2, pedestrians, 0}};
}

/// Details whose minor types have no name, so that their pie is one slice "TK_Other".
std::vector<SnapDetailMajorItem> details(int majorType, int count)
{
    return {{majorType, {{-700, count}}}};
}

LabelledValues other(int count)
{
    return {{u"TK_Other"_s, count}};
}

QList<int> majorTypes(const std::vector<SnapDetailMajorItem> &items)
{
    QList<int> types;
    for (const SnapDetailMajorItem &item : items)
        types.append(item.majorType);
    return types;
}

/// A scene of devices with two gates of different names.
void addGates(StatisticsScene &scene)
{
    scene.client.addChannel("n", u"North gate"_s, "channel n", "10.0.0.1", 11);
    scene.client.addChannel("s", u"South gate"_s, "channel s", "10.0.0.2", 12);
}

const std::vector<SnapTimeSample> twoHours = {
    {"2024-05-03 01", {{"s", {{4, 1, 0}, {2, 2, 0}}}, {"n", {{4, 10, 0}}}}},
    {"2024-05-03 00", {{"n", {{2, 20, 0}}}}},
};

void showGates(StatisticsScene &scene)
{
    addGates(scene);
    answerSamples(scene.manager, twoHours);
    QCOMPARE(scene.queryWholeLevel(), 4);
}

void refuseDetailsOf(StatisticsScene &scene, int majorClass)
{
    scene.manager.snapDetailSamples.answer = [majorClass](const auto &request, auto &response) {
        response.snapDetailList = details(request.majorType == 4 ? 40 : 20, 5);
        return request.majorType != majorClass;
    };
}

void addFailures()
{
    table<bool>({"refused"}, {{"refused", true}, {"without records", false}});
}

} // namespace

class TestTrafficQueries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Devices, all channels
    void devicesAreAskedForNoOrganisationAndNoChannel()
    {
        StatisticsScene scene(8);
        scene.page.getTrafficsStatisticsOfDevice();
        QCOMPARE(scene.manager.calls, QStringList({"getSnapSamplesResource"}));
        const auto request = scene.manager.snapSamplesResource.requests.first();
        QCOMPARE(text(request.cmd()), u"get_snap_samples"_s);
        QCOMPARE(request.timeType, 3);
        QCOMPARE(text(request.startTime()), spanStart);
        QCOMPARE(text(request.endTime()), spanEnd);
    }

    void devicesTellTheirStepsInOrder()
    {
        StatisticsScene scene(8);
        addGates(scene);
        answerSamples(scene.manager, twoHours);
        LogCapture log;
        QCOMPARE(scene.page.getTrafficsStatisticsOfDevice(), 4);
        const QStringList lines = log.lines();
        QCOMPARE(lines.mid(0, 7),
            QStringList({deviceWord, "BasicChart::clearBarChartData ", "BasicChart::getChartDataByBarId",
                "BasicChart::clearPieAndLineChartData", "BasicChart::clearPieAndLineChartData", deviceWord,
                deviceWord}));
        QCOMPARE(scene.tips(), QStringList());
    }

    void refusedDevicesKeepSamplesAndBars()
    {
        StatisticsScene scene(8);
        showGates(scene);
        const LabelledValues bars = scene.page.barDataList;
        const LabelledKeys keys = scene.page.devDataList;
        scene.forget();
        scene.manager.failWith(reason);
        LogCapture log;
        QCOMPARE(scene.queryWholeLevel(), 2);
        QCOMPARE(log.lines().size(), 2);
        QCOMPARE(log.lines().first(), deviceWord);
        QCOMPARE(countOfReasonLines(log, deviceWord + " fail", reason), 1);
        QCOMPARE(scene.manager.calls.size(), 1);
        QCOMPARE(scene.tips(), QStringList());
        QCOMPARE(scene.page.snapSamples.size(), twoHours.size());
        QCOMPARE(scene.page.barDataList, bars);
        QCOMPARE(scene.page.devDataList, keys);
    }

    void noSamplesEmptyTheKeptAnswerAndKeepTheBars()
    {
        StatisticsScene scene(8);
        showGates(scene);
        const LabelledValues bars = scene.page.barDataList;
        scene.forget();
        answerSamples(scene.manager, {});
        LogCapture log;
        QCOMPARE(scene.queryWholeLevel(), 3);
        QCOMPARE(log.lines(), QStringList({deviceWord, deviceWord + " records is empty"}));
        QVERIFY(scene.page.snapSamples.empty());
        QCOMPARE(scene.page.barDataList, bars);
        QCOMPARE(scene.manager.calls.size(), 1);
        QCOMPARE(scene.tips(), QStringList());
    }

    void samplesWithoutAnyFigureAreNoRecordsAndWriteNoLine_data()
    {
        table<bool>(
            {"withChannels"}, {{"buckets without channels", false}, {"channels without figures", true}});
    }

    void samplesWithoutAnyFigureAreNoRecordsAndWriteNoLine()
    {
        QFETCH(bool, withChannels);
        StatisticsScene scene(8);
        showGates(scene);
        const LabelledValues bars = scene.page.barDataList;
        scene.forget();
        const std::vector<SnapChannelSample> channels = withChannels
            ? std::vector<SnapChannelSample>({{"n", {}}, {"s", {}}})
            : std::vector<SnapChannelSample>();
        answerSamples(scene.manager, {{"a", channels}, {"b", channels}, {"c", channels}});
        LogCapture log;
        QCOMPARE(scene.queryWholeLevel(), 3);
        QCOMPARE(log.lines(), QStringList({deviceWord}));
        QCOMPARE(scene.page.snapSamples.size(), std::size_t(3));
        QCOMPARE(scene.page.barDataList, bars);
        QCOMPARE(scene.manager.calls.size(), 1);
    }

    void aFigureInTheLastBucketIsEnough()
    {
        StatisticsScene scene(8);
        addGates(scene);
        answerSamples(scene.manager, {{"a", {}}, {"b", {{"s", {}}}}, {"c", {{"s", {}}, {"n", {{3, 0, 0}}}}}});
        QCOMPARE(scene.queryWholeLevel(), 4);
        QCOMPARE(scene.bars(), DualValues({{"South gate", 0, 0}, {"North gate", 0, 0}}));
    }

    void unknownChannelsAreLeftOutInSilence()
    {
        StatisticsScene scene(8);
        LogCapture log;
        scene.page.setTrafficDeviceBarItem("nobody", counts(1, 2));
        QCOMPARE(log.lines(), QStringList());
        QCOMPARE(scene.bars(), DualValues());
        QCOMPARE(scene.page.devDataList, LabelledKeys());
        QCOMPARE(scene.page.devTypeDataList, LabelledValues());
    }

    void unknownChannelsAmongKnownOnesAreLeftOut()
    {
        StatisticsScene scene(8);
        addGates(scene);
        answerSamples(scene.manager,
            {{"h0",
                 {{"nobody", counts(7, 70)}, {"s", counts(1, 10)}, {"", counts(8, 80)},
                     {"n", counts(2, 20)}}},
                {"h1", {{"s", counts(3, 30)}, {"nobody", counts(9, 90)}}}});
        QCOMPARE(scene.queryWholeLevel(), 4);
        QCOMPARE(scene.bars(), DualValues({{"South gate", 4, 40}, {"North gate", 2, 20}}));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{"South gate", "s"}, {"North gate", "n"}}));
        QCOMPARE(scene.page.devTypeDataList, LabelledValues({{"South gate", 12}, {"North gate", 11}}));
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"h0", 1}, {"h1", 3}}));
    }

    void onlyUnknownChannelsGiveSuccessWithoutBars()
    {
        StatisticsScene scene(8);
        scene.page.barDataList = {{"old", 1}};
        scene.page.devDataList = {{"old", "1"}};
        answerSamples(scene.manager, {{"2024-05-03 01", {{"nobody", counts(1, 2)}}}});
        LogCapture log;
        QCOMPARE(scene.queryWholeLevel(), 4);
        QCOMPARE(log.lines(), QStringList({deviceWord, "BasicChart::clearBarChartData "}));
        QCOMPARE(scene.page.barDataList, LabelledValues());
        QCOMPARE(scene.page.devDataList, LabelledKeys());
        QCOMPARE(scene.manager.calls.size(), 1);
    }

    void aChannelInThreeBucketsIsOneBarWithTheSums()
    {
        StatisticsScene scene(8);
        addGates(scene);
        answerSamples(scene.manager,
            {{"a", {{"s", counts(1, 10)}, {"n", counts(5, 50)}}}, {"b", {{"s", counts(2, 20)}}},
                {"c", {{"s", counts(3, 30)}}}});
        QCOMPARE(scene.queryWholeLevel(), 4);
        QCOMPARE(scene.page.barDataList, LabelledValues({{"South gate", 6}, {"North gate", 5}}));
        QCOMPARE(scene.page.barDataList2, LabelledValues({{"South gate", 60}, {"North gate", 50}}));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{"South gate", "s"}, {"North gate", "n"}}));
        QCOMPARE(scene.page.devTypeDataList, LabelledValues({{"South gate", 12}, {"North gate", 11}}));
        QCOMPARE(text(scene.manager.snapDetailSamples.requests.first().channelUid()), u"s"_s);
    }

    void barsOfAChannel_data()
    {
        table<Pairs, int, int>({"typesAndCounts", "vehicles", "pedestrians"},
            {
                {"type 4 is a vehicle", {{4, 6}}, 6, 0},
                {"type 2 is a pedestrian", {{2, 6}}, 0, 6},
                {"type 3 counts in no series and still makes a bar", {{3, 6}}, 0, 0},
                {"other types count in no series", {{0, 1}, {1, 2}, {5, 3}, {-4, 4}}, 0, 0},
                {"all figures add up", {{4, 1}, {2, 2}, {4, 10}, {3, 100}, {2, 20}}, 11, 22},
                {"no figures make a bar of 0 and 0", {}, 0, 0},
            });
    }

    void barsOfAChannel()
    {
        QFETCH(Pairs, typesAndCounts);
        QFETCH(int, vehicles);
        QFETCH(int, pedestrians);
        std::vector<SnapTypeCount> typeCounts;
        for (const auto &[type, count] : typesAndCounts)
            typeCounts.push_back({type, count, 77});

        StatisticsScene devices(8);
        addGates(devices);
        devices.page.setTrafficDeviceBarItem("n", typeCounts);
        QCOMPARE(devices.page.barDataList, LabelledValues({{"North gate", vehicles}}));
        QCOMPARE(devices.page.barDataList2, LabelledValues({{"North gate", pedestrians}}));

        StatisticsScene organisations(7);
        organisations.page.setTrafficOrgaBarItem(42, typeCounts);
        QCOMPARE(organisations.page.barDataList, LabelledValues({{"Plant North", vehicles}}));
        QCOMPARE(organisations.page.barDataList2, LabelledValues({{"Plant North", pedestrians}}));
        organisations.page.setTrafficLineItem("hour", typeCounts);
        QCOMPARE(organisations.page.lineDataList, LabelledValues({{"hour", vehicles}}));
        QCOMPARE(organisations.page.lineDataList2, LabelledValues({{"hour", pedestrians}}));
    }

    void aSecondChannelOfOneNameIsRenamed_data()
    {
        table<QString, std::string, std::string, QString>({"name", "channelName", "address", "label"},
            {
                {"it takes its address", "Gate", "right", "10.0.0.2", "10.0.0.2"},
                {"without an address it takes its own name", "Gate", "right", "", "right"},
                {"without address and name its label is empty", "Gate", "", "", ""},
                {"names are compared by case", "gate", "right", "10.0.0.2", "gate"},
            });
    }

    void aSecondChannelOfOneNameIsRenamed()
    {
        QFETCH(QString, name);
        QFETCH(std::string, channelName);
        QFETCH(std::string, address);
        QFETCH(QString, label);
        StatisticsScene scene(8);
        scene.client.addChannel("a", u"Gate"_s, "left", "10.0.0.1", 1);
        scene.client.addChannel("A", name, channelName, address, 3);
        answerSamples(scene.manager, {{"hour", {{"a", counts(1, 2)}, {"A", counts(3, 4)}}}});
        QCOMPARE(scene.queryWholeLevel(), 4);
        QCOMPARE(scene.bars(), DualValues({{"Gate", 1, 2}, {label, 3, 4}}));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{"Gate", "a"}, {label, "A"}}));
        QCOMPARE(scene.page.devTypeDataList, LabelledValues({{"Gate", 1}, {label, 3}}));
    }

    void theNewNameIsNotComparedAgain()
    {
        StatisticsScene scene(8);
        scene.client.addChannel("a", u"Gate"_s, "left", "10.0.0.1");
        scene.client.addChannel("b", u"Gate"_s, "right", "10.0.0.2", 3);
        scene.client.addChannel("c", u"Gate"_s, "middle", "10.0.0.2", 4);
        scene.page.setTrafficDeviceBarItem("a", counts(1, 2));
        scene.page.setTrafficDeviceBarItem("b", counts(3, 4));
        scene.page.setTrafficDeviceBarItem("c", counts(10, 20));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{"Gate", "a"}, {"10.0.0.2", "b"}, {"10.0.0.2", "c"}}));
        QCOMPARE(scene.page.devTypeDataList, LabelledValues({{"Gate", 1}, {"10.0.0.2", 3}, {"10.0.0.2", 4}}));
        QCOMPARE(scene.page.barDataList, LabelledValues({{"Gate", 1}, {"10.0.0.2", 13}}));
        QCOMPARE(scene.page.barDataList2, LabelledValues({{"Gate", 2}, {"10.0.0.2", 24}}));
    }

    void theNextBucketOfARenamedChannelLandsOnTheBarOfItsName()
    {
        StatisticsScene scene(8);
        scene.client.addChannel("a", u"Gate"_s, "left", "10.0.0.1");
        scene.client.addChannel("b", u"Gate"_s, "right", "10.0.0.2");
        answerSamples(scene.manager,
            {{"h0", {{"a", counts(1, 2)}, {"b", counts(10, 20)}}},
                {"h1", {{"a", counts(3, 4)}, {"b", counts(30, 40)}}}});
        QCOMPARE(scene.queryWholeLevel(), 4);
        QCOMPARE(scene.page.barDataList, LabelledValues({{"Gate", 34}, {"10.0.0.2", 10}}));
        QCOMPARE(scene.page.barDataList2, LabelledValues({{"Gate", 46}, {"10.0.0.2", 20}}));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{"Gate", "a"}, {"10.0.0.2", "b"}}));

        scene.page.getChartDataByBarId(u"b"_s);
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"h0", 10}, {"h1", 30}}));
    }

    void sumsOfAChannelWrapAs32BitFigures()
    {
        StatisticsScene scene(8);
        addGates(scene);
        scene.page.setTrafficDeviceBarItem("n", {{4, largest, 0}, {4, 1, 0}, {2, largest, 0}});
        scene.page.setTrafficDeviceBarItem("n", {{2, 2, 0}});
        QCOMPARE(scene.page.barDataList, LabelledValues({{"North gate", smallest}}));
        QCOMPARE(scene.page.barDataList2, LabelledValues({{"North gate", smallest + 1}}));
        scene.page.setTrafficLineItem("hour", {{4, smallest, 0}, {4, -1, 0}});
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"hour", largest}}));
    }

    // Devices, one channel
    void theLineOfADeviceComesFromTheKeptSamples()
    {
        StatisticsScene scene(8);
        scene.page.snapSamples = twoHours;
        scene.page.lineNames = QStringList({"old"});
        scene.page.getTrafficLineOfDevice(u"n"_s);
        QCOMPARE(scene.manager.calls, QStringList());
        QCOMPARE(scene.page.lineNames, QStringList({"TK_Vehicle", "TK_Pedestrian"}));
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"2024-05-03 01", 10}, {"2024-05-03 00", 0}}));
        QCOMPARE(scene.page.lineDataList2, LabelledValues({{"2024-05-03 01", 0}, {"2024-05-03 00", 20}}));

        scene.page.getChartDataByBarId(u"n"_s);
        QCOMPARE(scene.lines(), DualValues({{"2024-05-03 00", 0, 20}, {"2024-05-03 01", 10, 0}}));
    }

    void aBucketWithoutTheChannelIsAPointOfZero()
    {
        StatisticsScene scene(8);
        scene.page.snapSamples = twoHours;
        scene.page.getTrafficLineOfDevice(u"s"_s);
        QCOMPARE(scene.lines(), DualValues({{"2024-05-03 01", 1, 2}, {"2024-05-03 00", 0, 0}}));
        scene.page.lineDataList.clear();
        scene.page.lineDataList2.clear();
        scene.page.getTrafficLineOfDevice(u"nobody"_s);
        QCOMPARE(scene.lines(), DualValues({{"2024-05-03 01", 0, 0}, {"2024-05-03 00", 0, 0}}));
    }

    void onlyTheFirstRecordOfAChannelInABucketCounts()
    {
        StatisticsScene scene(8);
        addGates(scene);
        answerSamples(scene.manager, {{"h0", {{"n", counts(1, 2)}, {"s", {}}, {"n", counts(10, 20)}}}});
        QCOMPARE(scene.queryWholeLevel(), 4);
        QCOMPARE(scene.lines(), DualValues({{"h0", 1, 2}}));
        QCOMPARE(scene.page.barDataList, LabelledValues({{"North gate", 11}, {"South gate", 0}}));
    }

    void bucketsOfOnePeriodShareAPoint()
    {
        StatisticsScene scene(8);
        scene.page.snapSamples = {
            {"b", {{"n", counts(1, 2)}}}, {"a", {{"n", counts(3, 4)}}}, {"b", {{"n", counts(10, 20)}}}};
        scene.page.getTrafficLineOfDevice(u"n"_s);
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"b", 11}, {"a", 3}}));
        QCOMPARE(scene.page.lineDataList2, LabelledValues({{"b", 22}, {"a", 4}}));
    }

    void withoutSamplesTheLineOfADeviceStays()
    {
        StatisticsScene scene(8);
        scene.page.lineDataList = {{"kept", 1}};
        scene.page.lineNames = QStringList({"old"});
        scene.page.getTrafficLineOfDevice(u"n"_s);
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"kept", 1}}));
        QCOMPARE(scene.page.lineDataList2, LabelledValues());
        QCOMPARE(scene.page.lineNames, QStringList({"TK_Vehicle", "TK_Pedestrian"}));
    }

    void aDevicesBarClearsLineAndDetailsFirst()
    {
        StatisticsScene scene(8);
        scene.page.lineDataList = {{"old", 1}};
        scene.page.lineDataList2 = {{"old", 1}};
        scene.page.pieDataList = {{"old", 1}};
        scene.page.snapDetailMap = {{4, details(40, 1)}, {2, details(20, 1)}, {7, details(70, 1)}};
        scene.manager.failWith(reason);
        LogCapture log;
        scene.page.getChartDataByBarId(u"n"_s);
        QCOMPARE(log.count(u"BasicChart::clearPieAndLineChartData"_s), 2);
        QCOMPARE(scene.page.lineDataList, LabelledValues());
        QCOMPARE(scene.page.lineDataList2, LabelledValues());
        QCOMPARE(scene.page.pieDataList, LabelledValues());
        QVERIFY(scene.page.snapDetailMap.isEmpty());
        QCOMPARE(scene.tips(), QStringList());
    }

    void detailsOfADeviceAreAskedByChannel()
    {
        StatisticsScene scene(8);
        scene.page.getChartDataByBarId(u"41"_s);
        const auto &requests = scene.manager.snapDetailSamples.requests;
        QCOMPARE(requests.size(), 2);
        QCOMPARE(requests.at(0).majorType, 4);
        QCOMPARE(requests.at(1).majorType, 2);
        for (const auto &request : requests) {
            QCOMPARE(text(request.cmd()), u"get_snap_detail_samples"_s);
            QCOMPARE(text(request.channelUid()), u"41"_s);
            QCOMPARE(request.orgaId, -99999);
            QCOMPARE(text(request.beginTime()), spanStart);
            QCOMPARE(text(request.endTime()), spanEnd);
            QCOMPARE(request.timeType, 3);
            QCOMPARE(request.orgType, 2);
        }
    }

    void monthsAndDaysOfDevicesGoOutAsTheyAre_data()
    {
        table<QByteArray, int, QString, QString>({"button", "unit", "start", "end"},
            {
                {"months", "pushButtonMonth", 1, "2023-11", "2024-05"},
                {"days", "pushButtonDay", 2, "2024-04-26", "2024-05-03"},
            });
    }

    void monthsAndDaysOfDevicesGoOutAsTheyAre()
    {
        QFETCH(QByteArray, button);
        QFETCH(int, unit);
        QFETCH(QString, start);
        QFETCH(QString, end);
        StatisticsScene scene(8);
        addGates(scene);
        answerSamples(scene.manager, twoHours);
        scene.press(button.constData());
        scene.forget();
        QCOMPARE(scene.queryWholeLevel(), 4);
        const auto samples = scene.manager.snapSamplesResource.requests.first();
        QCOMPARE(samples.timeType, unit);
        QCOMPARE(text(samples.startTime()), start);
        QCOMPARE(text(samples.endTime()), end);
        QCOMPARE(scene.manager.snapDetailSamples.requests.size(), 2);
        for (const auto &request : std::as_const(scene.manager.snapDetailSamples.requests)) {
            QCOMPARE(request.timeType, unit);
            QCOMPARE(text(request.beginTime()), start);
            QCOMPARE(text(request.endTime()), end);
        }
    }

    // Organisations, whole level
    void organisationsAreAskedWithoutAUser()
    {
        StatisticsScene scene(7);
        LogCapture log;
        QCOMPARE(scene.page.getTrafficsStatisticsOfOrgas(), 3);
        QCOMPARE(linesStartingWith(log, {orgasWord}), QStringList({orgasWord + " records is empty"}));
        QCOMPARE(scene.manager.calls, QStringList({"getTrafficsStatisticsOfOrgas"}));
        const auto request = scene.manager.trafficsStatisticsOfOrgas.requests.first();
        checkFirstSpan(request);
        QCOMPARE(request.sortType, 1);
        QCOMPARE(request.orgType, 2);
        QCOMPARE(request.listOrg(), std::vector<int>({41}));
    }

    void organisationsWithoutATreeAreAskedWithAnEmptyList_data()
    {
        table<bool, int>({"withRecords", "result"},
            {
                {"an empty answer is no records", false, 3},
                {"an answer with records is a success", true, 4},
            });
    }

    void organisationsWithoutATreeAreAskedWithAnEmptyList()
    {
        QFETCH(bool, withRecords);
        StatisticsScene scene(7, QString());
        if (withRecords)
            answerOrgas(scene.manager.trafficsStatisticsOfOrgas, {{5, "ignored", counts(1, 2)}});
        QTEST(scene.page.getTrafficsStatisticsOfOrgas(), "result");
        QCOMPARE(scene.manager.trafficsStatisticsOfOrgas.requests.size(), 1);
        QVERIFY(scene.manager.trafficsStatisticsOfOrgas.requests.first().listOrg().empty());
        QCOMPARE(scene.page.barDataList, withRecords ? LabelledValues({{"5", 1}}) : LabelledValues());
    }

    void refusedOrganisationsKeepTheBars()
    {
        StatisticsScene scene(7);
        answerOrgas(scene.manager.trafficsStatisticsOfOrgas, {{42, "", counts(1, 2)}});
        QCOMPARE(scene.queryWholeLevel(), 4);
        scene.forget();
        scene.manager.failWith(reason);
        LogCapture log;
        QCOMPARE(scene.queryWholeLevel(), 2);
        QCOMPARE(countOfReasonLines(log, orgasWord + " fail", reason), 1);
        QCOMPARE(linesStartingWith(log, {orgasWord}).size(), 1);
        QCOMPARE(scene.manager.calls.size(), 1);
        QCOMPARE(scene.tips(), QStringList());
        QCOMPARE(scene.page.barDataList, LabelledValues({{"Plant North", 1}}));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{"Plant North", "42"}}));
    }

    void noOrganisationsKeepTheBars()
    {
        StatisticsScene scene(7);
        answerOrgas(scene.manager.trafficsStatisticsOfOrgas, {{42, "", counts(1, 2)}});
        QCOMPARE(scene.queryWholeLevel(), 4);
        scene.forget();
        answerOrgas(scene.manager.trafficsStatisticsOfOrgas, {});
        QCOMPARE(scene.queryWholeLevel(), 3);
        QCOMPARE(scene.page.barDataList, LabelledValues({{"Plant North", 1}}));
        QCOMPARE(scene.page.barDataList2, LabelledValues({{"Plant North", 2}}));
        QCOMPARE(scene.tips(), QStringList());
    }

    void organisationsFillBarsByTheirNumber()
    {
        StatisticsScene scene(7);
        scene.page.barDataList = {{"old", 1}};
        scene.page.barDataList2 = {{"old", 1}};
        scene.page.devDataList = {{"old", "1"}};
        answerOrgas(scene.manager.trafficsStatisticsOfOrgas,
            {{43, "not read", counts(1, 2)}, {77, "not read", counts(3, 4)},
                {43, "not read", counts(10, 20)}});
        LogCapture log;
        QCOMPARE(scene.queryWholeLevel(), 4);
        QCOMPARE(scene.bars(), DualValues({{"Plant South", 11, 22}, {"77", 3, 4}}));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{"Plant South", "43"}, {"77", "77"}}));
        QCOMPARE(scene.page.devTypeDataList, LabelledValues());
        QCOMPARE(scene.manager.calls,
            QStringList({"getTrafficsStatisticsOfOrgas", "getTrafficsStatisticsOfOrga"}));
        QCOMPARE(scene.manager.trafficsStatisticsOfOrga.requests.first().orgaId, 43);
        const QStringList lines = log.lines();
        QVERIFY(lines.at(0).startsWith(u"BasicChart::getOrgaIDList"_s));
        QCOMPARE(lines.at(1), u"BasicChart::clearBarChartData "_s);
        QCOMPARE(lines.at(2), u"BasicChart::getChartDataByBarId"_s);
    }

    void anEmptyListOfOrganisationsAsksNothing()
    {
        StatisticsScene scene(7);
        scene.page.barDataList = {{"old", 1}};
        LogCapture log;
        scene.page.setGroupsBarList(std::vector<SnapOrgaItem>());
        QCOMPARE(log.lines(), QStringList({"BasicChart::clearBarChartData ", "setGroupsBarList is empty"}));
        QCOMPARE(scene.page.barDataList, LabelledValues());
        QCOMPARE(scene.manager.calls, QStringList());
    }

    void organisationsOfOneNameShareABarAndKeepTheirKeys()
    {
        StatisticsScene scene(7);
        scene.client.setTree(u"1 Gate\n2 Gate\n"_s);
        scene.page.setTrafficOrgaBarItem(1, counts(1, 2));
        scene.page.setTrafficOrgaBarItem(2, counts(10, 20));
        QCOMPARE(scene.bars(), DualValues({{"Gate", 11, 22}}));
        QCOMPARE(scene.page.devDataList, LabelledKeys({{"Gate", "1"}, {"Gate", "2"}}));
    }

    // Organisations, one bar
    void anOrganisationIsAskedWithItsNumber()
    {
        StatisticsScene scene(7);
        scene.page.getTrafficsStatisticsOfOrgas(u"93"_s);
        QCOMPARE(scene.manager.calls, QStringList({"getTrafficsStatisticsOfOrga"}));
        const auto request = scene.manager.trafficsStatisticsOfOrga.requests.first();
        checkFirstSpan(request);
        QCOMPARE(request.userId, 7);
        QCOMPARE(request.orgaId, 93);
        QCOMPARE(request.orgType, 2);
    }

    void theBarOfAnOrganisationTellsItsStepsInOrder()
    {
        StatisticsScene scene(7);
        answerOrgas(scene.manager.trafficsStatisticsOfOrga, {{0, "h0", counts(1, 2)}});
        answerDetails(scene.manager, details(40, 5), details(20, 6));
        LogCapture log;
        scene.page.getTrafficsStatisticsOfOrgas(u"42"_s);
        QCOMPARE(log.lines(), QStringList({"BasicChart::clearPieAndLineChartData", deviceWord, deviceWord}));
        QCOMPARE(scene.manager.calls,
            QStringList({"getTrafficsStatisticsOfOrga", "getSnapDetailSamples", "getSnapDetailSamples"}));
        QCOMPARE(scene.page.pieDataList, other(5));
        QCOMPARE(scene.tips(), QStringList());
    }

    void aFailedOrganisationIsLoggedAlone_data() { addFailures(); }

    void aFailedOrganisationIsLoggedAlone()
    {
        QFETCH(bool, refused);
        StatisticsScene scene(7);
        scene.page.lineNames = QStringList({"old"});
        scene.page.lineDataList = {{"kept", 1}};
        scene.page.snapDetailMap = {{4, details(40, 1)}};
        if (refused)
            scene.manager.failOperation(u"getTrafficsStatisticsOfOrga"_s, reason);
        LogCapture log;
        scene.page.getTrafficsStatisticsOfOrgas(u"42"_s);
        QCOMPARE(log.lines().size(), 1);
        QCOMPARE(countOfReasonLines(log, orgasWord + " fail", reason), refused ? 1 : 0);
        QCOMPARE(log.count(orgasWord + " records is empty"), refused ? 0 : 1);
        QCOMPARE(scene.tips(), QStringList());
        QCOMPARE(scene.manager.calls.size(), 1);
        QCOMPARE(scene.page.lineNames, QStringList({"TK_Vehicle", "TK_Pedestrian"}));
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"kept", 1}}));
        QCOMPARE(scene.page.snapDetailMap.keys(), QList<int>({4}));
    }

    void aFailedBarOfAnOrganisationKeepsDetailsAndEmptiesLines_data() { addFailures(); }

    void aFailedBarOfAnOrganisationKeepsDetailsAndEmptiesLines()
    {
        QFETCH(bool, refused);
        StatisticsScene scene(7);
        scene.page.lineDataList = {{"old", 1}};
        scene.page.lineDataList2 = {{"old", 1}};
        scene.page.pieDataList = {{"old", 1}};
        scene.page.snapDetailMap = {{4, details(40, 1)}, {2, details(20, 1)}};
        if (refused)
            scene.manager.failWith(reason);
        scene.page.getChartDataByBarId(u"42"_s);
        QCOMPARE(scene.page.lineDataList, LabelledValues());
        QCOMPARE(scene.page.lineDataList2, LabelledValues());
        QCOMPARE(scene.page.pieDataList, LabelledValues());
        QCOMPARE(scene.page.snapDetailMap.keys(), QList<int>({2, 4}));
        QCOMPARE(scene.tips(), QStringList());
    }

    void afterAFailedBarTheNextLoadShowsEarlierDetails_data() { addFailures(); }

    void afterAFailedBarTheNextLoadShowsEarlierDetails()
    {
        QFETCH(bool, refused);
        StatisticsScene scene(7);
        answerOrgas(
            scene.manager.trafficsStatisticsOfOrgas, {{42, "", counts(9, 1)}, {43, "", counts(5, 1)}});
        answerOrgas(scene.manager.trafficsStatisticsOfOrga, {{0, "h0", counts(1, 2)}});
        answerDetails(scene.manager, details(40, 6), details(20, 5));
        scene.page.slotSearch();
        QCOMPARE(scene.page.pieDataList, other(6));
        QCOMPARE(scene.page.comboBoxPie->count(), 1);

        if (refused)
            scene.manager.failOperation(u"getTrafficsStatisticsOfOrga"_s, reason);
        else
            scene.manager.trafficsStatisticsOfOrga.answers({});
        QString bar = u"Plant South"_s;
        scene.page.slotBarSetChanged(bar);
        QCOMPARE(scene.page.pieDataList, LabelledValues());
        QCOMPARE(scene.page.lineDataList, LabelledValues());
        scene.page.comboBoxPie->clear();
        scene.page.loadChart();
        QCOMPARE(scene.page.pieDataList, other(6));
        QCOMPARE(scene.page.lineDataList, LabelledValues());
        QCOMPARE(scene.page.comboBoxPie->count(), 1);
        QCOMPARE(scene.page.comboBoxPie->currentData().toInt(), 40);
    }

    void theLineOfAnOrganisationFoldsItsPeriods()
    {
        StatisticsScene scene(7);
        answerOrgas(scene.manager.trafficsStatisticsOfOrga,
            {{1, "b", counts(1, 2)}, {2, "a", counts(3, 4)}, {3, "b", counts(10, 20)}, {4, "c", {}}});
        scene.page.getTrafficsStatisticsOfOrgas(u"42"_s);
        QCOMPARE(scene.page.lineDataList, LabelledValues({{"b", 11}, {"a", 3}, {"c", 0}}));
        QCOMPARE(scene.page.lineDataList2, LabelledValues({{"b", 22}, {"a", 4}, {"c", 0}}));
        scene.page.getChartDataByBarId(u"42"_s);
        QCOMPARE(scene.lines(), DualValues({{"a", 3, 4}, {"b", 11, 22}, {"c", 0, 0}}));
    }

    void detailsOfAnOrganisationAreAskedByItsNumber()
    {
        StatisticsScene scene(7);
        answerOrgas(scene.manager.trafficsStatisticsOfOrga, {{0, "h0", counts(1, 2)}});
        scene.page.getChartDataByBarId(u"42"_s);
        const auto &requests = scene.manager.snapDetailSamples.requests;
        QCOMPARE(requests.size(), 2);
        QCOMPARE(requests.at(0).majorType, 4);
        QCOMPARE(requests.at(1).majorType, 2);
        for (const auto &request : requests) {
            QCOMPARE(text(request.cmd()), u"get_snap_detail_samples"_s);
            QCOMPARE(text(request.channelUid()), QString());
            QCOMPARE(request.orgaId, 42);
            QCOMPARE(text(request.beginTime()), spanStart);
            QCOMPARE(text(request.endTime()), spanEnd);
            QCOMPARE(request.timeType, 3);
            QCOMPARE(request.orgType, 2);
        }
    }

    // Details
    void aDetailQueryLogsTheDevicesWordInBothModes_data()
    {
        table<int>({"mode"}, {{"by device", 1}, {"by organisation", 2}});
    }

    void aDetailQueryLogsTheDevicesWordInBothModes()
    {
        QFETCH(int, mode);
        StatisticsScene scene(8);
        std::vector<SnapDetailMajorItem> out;
        LogCapture log;
        QVERIFY(scene.page.getSnapDetailSamples(u"42"_s, 2, out, mode));
        QCOMPARE(log.lines(), QStringList({deviceWord}));
    }

    void everyModeButOneGoesByOrganisation()
    {
        StatisticsScene scene(8);
        std::vector<SnapDetailMajorItem> out;
        for (const int mode : {0, 2, 3, -1}) {
            scene.page.getSnapDetailSamples(u"42"_s, 2, out, mode);
            const auto request = scene.manager.snapDetailSamples.requests.last();
            QCOMPARE(request.orgaId, 42);
            QCOMPARE(text(request.channelUid()), QString());
            QCOMPARE(request.majorType, 2);
        }
    }

    void aRefusedDetailQueryLeavesItsTarget()
    {
        StatisticsScene scene(8);
        std::vector<SnapDetailMajorItem> out = details(40, 5);
        scene.manager.failWith(reason);
        LogCapture log;
        QVERIFY(!scene.page.getSnapDetailSamples(u"n"_s, 4, out, 1));
        QCOMPARE(majorTypes(out), QList<int>({40}));
        QCOMPARE(log.lines(), QStringList({deviceWord}));
        QCOMPARE(scene.tips(), QStringList());
    }

    void anEmptyDetailAnswerReplacesItsTarget()
    {
        StatisticsScene scene(8);
        std::vector<SnapDetailMajorItem> out = details(40, 5);
        QVERIFY(scene.page.getSnapDetailSamples(u"n"_s, 4, out, 1));
        QVERIFY(out.empty());
    }

    void theLineOfAChannelStandsBeforeItsDetailsAreAsked()
    {
        StatisticsScene scene(8);
        scene.page.snapSamples = twoHours;
        scene.page.devDataList = {{"North gate", "n"}};
        QList<qsizetype> points;
        scene.manager.snapDetailSamples.answer = [&](const auto &, auto &) {
            points.append(scene.page.lineDataList.size());
            return true;
        };
        QString bar = u"North gate"_s;
        scene.page.slotBarSetChanged(bar);
        QCOMPARE(points, QList<qsizetype>({2, 2}));
    }

    void bothClassesAreAskedWhateverTheFirstAnswers_data()
    {
        table<int, QList<int>>({"refusedClass", "classes"},
            {{"both answered", 0, {2, 4}}, {"vehicles refused", 4, {2}}, {"pedestrians refused", 2, {4}}});
    }

    void bothClassesAreAskedWhateverTheFirstAnswers()
    {
        QFETCH(int, refusedClass);
        StatisticsScene scene(8);
        refuseDetailsOf(scene, refusedClass);
        scene.page.getSnapDetailPieData(u"n"_s, 1);
        QCOMPARE(scene.manager.snapDetailSamples.requests.size(), 2);
        QTEST(scene.page.snapDetailMap.keys(), "classes");
        if (scene.page.snapDetailMap.contains(4))
            QCOMPARE(majorTypes(scene.page.snapDetailMap.value(4)), QList<int>({40}));
        if (scene.page.snapDetailMap.contains(2))
            QCOMPARE(majorTypes(scene.page.snapDetailMap.value(2)), QList<int>({20}));
        QCOMPARE(scene.tips(), QStringList());
    }

    void thePieFollowsTheChosenClass_data()
    {
        table<int, QByteArray, int>({"type", "button", "count"},
            {
                {"vehicles of a device", 8, "carRadio", 5},
                {"pedestrians of a device", 8, "personRadio", 6},
                {"vehicles of an organisation", 7, "carRadio", 5},
                {"pedestrians of an organisation", 7, "personRadio", 6},
            });
    }

    void thePieFollowsTheChosenClass()
    {
        QFETCH(int, type);
        QFETCH(QByteArray, button);
        QFETCH(int, count);
        StatisticsScene scene(type);
        scene.press(button.constData());
        answerOrgas(scene.manager.trafficsStatisticsOfOrga, {{0, "h0", counts(1, 2)}});
        answerDetails(scene.manager, details(40, 5), details(20, 6));
        scene.page.getChartDataByBarId(u"42"_s);
        QCOMPARE(scene.page.pieDataList, other(count));
    }

    void thePieShowsTheFirstMajorType()
    {
        StatisticsScene scene(8);
        answerDetails(scene.manager, {{41, {{-700, 5}}}, {40, {{-700, 50}}}}, details(20, 6));
        scene.page.getSnapDetailPieData(u"n"_s, 1);
        QCOMPARE(scene.page.pieDataList, other(5));
    }

    void detailsWithoutAMajorTypeLeaveThePie()
    {
        StatisticsScene scene(8);
        answerDetails(scene.manager, {}, details(20, 6));
        scene.page.pieDataList = {{"kept", 1}};
        scene.page.getSnapDetailPieData(u"n"_s, 1);
        QCOMPARE(scene.page.snapDetailMap.keys(), QList<int>({2, 4}));
        QCOMPARE(scene.page.pieDataList, LabelledValues({{"kept", 1}}));
    }

    void withoutTheChosenClassThePieStaysEmpty()
    {
        StatisticsScene scene(8);
        refuseDetailsOf(scene, 4);
        scene.page.pieDataList = {{"old", 1}};
        scene.page.getChartDataByBarId(u"n"_s);
        QCOMPARE(scene.page.pieDataList, LabelledValues());
        QCOMPARE(scene.page.snapDetailMap.keys(), QList<int>({2}));
        QCOMPARE(scene.tips(), QStringList());
    }

    void aRefusedClassKeepsItsEarlierDetailsOutOfABar()
    {
        StatisticsScene scene(7);
        answerOrgas(scene.manager.trafficsStatisticsOfOrga, {{0, "h0", counts(1, 2)}});
        answerDetails(scene.manager, details(40, 5), details(20, 6));
        scene.page.getChartDataByBarId(u"42"_s);
        QCOMPARE(scene.page.snapDetailMap.keys(), QList<int>({2, 4}));
        refuseDetailsOf(scene, 4);
        scene.page.getChartDataByBarId(u"43"_s);
        QCOMPARE(scene.page.snapDetailMap.keys(), QList<int>({2}));
        QCOMPARE(scene.page.pieDataList, LabelledValues());
    }
};

TALVIX_TEST_MAIN(TestTrafficQueries)
#include "tst_traffic_queries.moc"
