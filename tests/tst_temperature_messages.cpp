#include "support/PageScene.h"
#include "support/TestMain.h"
#include "support/TestTable.h"

#include <QtWidgets/QComboBox>

#include <functional>
#include <initializer_list>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

template <typename Message>
constexpr bool isMessage = std::is_base_of_v<TalvixMessage, Message>
    &&std::is_default_constructible_v<Message> &&std::has_virtual_destructor_v<Message>;

template <typename... Messages>
constexpr bool areMessages = (isMessage<Messages> && ...);

/// Whether a field is of this very type.
template <typename Type, typename Field, typename Owner>
constexpr bool holds(Field Owner::*)
{
    return std::is_same_v<Field, Type>;
}

/// Whether the integer fields stand in the order of the list.
template <typename Object>
bool standInOrder(std::initializer_list<int Object::*> fields)
{
    const Object object{};
    const int *previous = nullptr;
    for (int Object::*field : fields) {
        const int *address = &(object.*field);
        if (previous && !std::less<const int *>()(previous, address))
            return false;
        previous = address;
    }
    return true;
}

/// Whether a setter takes its value by reference and promises to leave it as it is.
template <typename Value, typename Message>
constexpr bool isSetterOf(void (Message::*)(const Value &))
{
    return true;
}
template <typename Value, typename Setter>
constexpr bool isSetterOf(Setter)
{
    return false;
}

/// Whether the base of all managers refuses this very pair of messages with a reason.
template <typename Request, typename Response>
bool refusesWithReason(bool (KRXClientStatisticsManager::*operation)(Request &, Response &))
{
    KRXClientStatisticsManager manager;
    Request request;
    Response response;
    return !(manager.*operation)(request, response) && !manager.getLastErrorString().isEmpty();
}

const std::vector<TemperatureStatisticsItem> someItems = {{3, "Ward", 8}};
const std::vector<SnapOrgaItem> someOrgas = {{41, "2024-05-03 00", {{4, 6, 0}, {2, 9, 0}}}};
const std::vector<SnapTimeSample> someSamples = {{"2024-05-03 01", {{"cam", {{4, 5, 0}, {2, 7, 0}}}}}};
const std::vector<SnapDetailMajorItem> unknownMinors = {{1, {{-700, 4}}}};
const std::vector<TempAlarmHandleItem> someHandling = {{2, 5, "2024-05-03 02"}, {0, 3, "2024-05-03 02"}};

void answerEverything(ScriptedStatisticsManager &manager)
{
    answerItems(manager.temperatureStatisticsOfGroups, someItems);
    answerItems(manager.temperatureStatisticsOfGroup, {{0, "2024-05-03 04", 8}});
    answerPersons(manager, someItems);
    answerItems(manager.temperatureStatisticsOfPerson, {{12, "2024-05-03 05", 8}});
    answerGroupDistribution(manager, {{6, 30}}, {{1, 2}});
    answerOrgas(manager.trafficsStatisticsOfOrgas, someOrgas);
    answerOrgas(manager.trafficsStatisticsOfOrga, someOrgas);
    answerSamples(manager, someSamples);
    answerDetails(manager, unknownMinors, unknownMinors);
    answerHandling(manager, someHandling);
    answerOrgaDistribution(manager, {{0, 11}}, {{1, 12}});
}

} // namespace

class TestTemperatureMessages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyMessageIsBuiltEmptyAndDestroyedThroughItsBase()
    {
        QVERIFY(std::has_virtual_destructor_v<TalvixMessage>);
        QVERIFY((areMessages<TalvixGetTemperatureStatisticsOfGroupsRequestMessage,
            TalvixGetTemperatureStatisticsOfGroupRequestMessage,
            TalvixGetTemperatureStatisticsOfPersonsRequestMessage,
            TalvixGetTemperatureStatisticsOfPersonRequestMessage,
            TalvixGetTempStatisticsDistributionOfGroupsRequestMessage,
            TalvixGetTempStatisticsDistributionOfOrgasRequestMessage,
            TalvixGetTempAlarmHandleStatisticsOfOrgaRequestMessage, TalvixGetSnapSamplesRequestMessage,
            TalvixGetSnapDetailSamplesRequestMessage, TalvixGetSnapDetailSamplesOfOrgasRequestMessage,
            TalvixGetSnapDetailSamplesOfOrgaRequestMessage>));
        QVERIFY((areMessages<TalvixGetTemperatureStatisticsOfGroupsResponseMessage,
            TalvixGetTemperatureStatisticsOfGroupResponseMessage,
            TalvixGetTemperatureStatisticsOfPersonsResponseMessage,
            TalvixGetTemperatureStatisticsOfPersonResponseMessage,
            TalvixGetTempStatisticsDistributionOfGroupsResponseMessage,
            TalvixGetTempStatisticsDistributionOfOrgasResponseMessage,
            TalvixGetTempAlarmHandleStatisticsOfOrgaResponseMessage, TalvixGetSnapSamplesResponseMessage,
            TalvixGetSnapDetailSamplesResponseMessage, TalvixGetSnapDetailSamplesOfOrgasResponseMessage,
            TalvixGetSnapDetailSamplesOfOrgaResponseMessage>));
    }

    void everyMessageIsAClassOfItsOwn()
    {
        QVERIFY(typeid(TalvixGetTemperatureStatisticsOfGroupsResponseMessage)
            != typeid(TalvixGetTemperatureStatisticsOfGroupResponseMessage));
        QVERIFY(typeid(TalvixGetTemperatureStatisticsOfGroupResponseMessage)
            != typeid(TalvixGetTemperatureStatisticsOfPersonResponseMessage));
        QVERIFY(typeid(TalvixGetTempStatisticsDistributionOfOrgasRequestMessage)
            != typeid(TalvixGetTempAlarmHandleStatisticsOfOrgaRequestMessage));
        QVERIFY(typeid(TalvixGetSnapDetailSamplesOfOrgasResponseMessage)
            != typeid(TalvixGetSnapDetailSamplesOfOrgaResponseMessage));
        QVERIFY(typeid(TalvixGetSnapDetailSamplesOfOrgaRequestMessage)
            != typeid(TalvixGetSnapDetailSamplesOfOrgasRequestMessage));
    }

    void theCommandWordIsKept()
    {
        TalvixGetSnapSamplesRequestMessage request;
        QCOMPARE(text(request.cmd()), QString());
        request.setCmd("get_snap_samples");
        QCOMPARE(text(request.cmd()), u"get_snap_samples"_s);
    }

    void directFieldsAreIntegersInTheirOrder()
    {
        QCOMPARE(sizeof(int), std::size_t(4));
        QCOMPARE(unsetValue, -99999);

        using Groups = TalvixGetTemperatureStatisticsOfGroupsRequestMessage;
        QVERIFY(
            standInOrder<Groups>({&Groups::userId, &Groups::timeType, &Groups::sortType, &Groups::orgType}));
        using Group = TalvixGetTemperatureStatisticsOfGroupRequestMessage;
        QVERIFY(standInOrder<Group>({&Group::userId, &Group::timeType, &Group::orgType, &Group::groupId}));
        using Persons = TalvixGetTemperatureStatisticsOfPersonsRequestMessage;
        QVERIFY(standInOrder<Persons>({&Persons::pageIndex, &Persons::pageSize, &Persons::userId,
            &Persons::timeType, &Persons::sortType, &Persons::orgaId}));
        using Person = TalvixGetTemperatureStatisticsOfPersonRequestMessage;
        QVERIFY(standInOrder<Person>({&Person::timeType, &Person::personId}));
        using Distribution = TalvixGetTempStatisticsDistributionOfGroupsRequestMessage;
        QVERIFY(standInOrder<Distribution>({&Distribution::userId, &Distribution::timeType,
            &Distribution::orgType, &Distribution::queryType}));
        using Condition = StatisticsQueryOfOrga;
        QVERIFY(standInOrder<Condition>({&Condition::queryType, &Condition::userId, &Condition::timeType,
            &Condition::reserved1, &Condition::reserved2}));
        using Details = TalvixGetSnapDetailSamplesRequestMessage;
        QVERIFY(standInOrder<Details>(
            {&Details::timeType, &Details::majorType, &Details::orgaId, &Details::orgType}));
        using Orgas = TalvixGetSnapDetailSamplesOfOrgasRequestMessage;
        QVERIFY(standInOrder<Orgas>({&Orgas::timeType, &Orgas::sortType, &Orgas::orgType}));
        using Orga = TalvixGetSnapDetailSamplesOfOrgaRequestMessage;
        QVERIFY(standInOrder<Orga>({&Orga::userId, &Orga::orgaId, &Orga::timeType, &Orga::orgType}));
    }

    void listsAndTextsStandInTheirOrder()
    {
        const std::less<const void *> before;
        const StatisticsQueryOfOrga condition;
        QVERIFY(before(&condition.reserved2, &condition.startTime));
        QVERIFY(before(&condition.startTime, &condition.endTime));
        QVERIFY(before(&condition.endTime, &condition.listOrg));
        const TalvixGetTempStatisticsDistributionOfGroupsResponseMessage ofGroups;
        QVERIFY(before(&ofGroups.byNumberList, &ofGroups.byEtiologyList));
        const TalvixGetTempStatisticsDistributionOfOrgasResponseMessage ofOrgas;
        QVERIFY(before(&ofOrgas.byTemperatureList, &ofOrgas.byMaskList));
        const TalvixGetTemperatureStatisticsOfPersonsResponseMessage persons;
        QVERIFY(before(&persons.curPage, &persons.totalPage));
        QVERIFY(before(&persons.totalPage, &persons.statisticsList));
        const TempAlarmHandleItem handling;
        QVERIFY(before(&handling.count, &handling.time));
        const TemperatureStatisticsItem item;
        QVERIFY(before(&item.id, &item.name));
        QVERIFY(before(&item.name, &item.count));
    }

    void settersTakeReferences()
    {
        using Text = std::string;
        using Numbers = std::vector<int>;
        QVERIFY(isSetterOf<Text>(&TalvixMessage::setCmd));
        QVERIFY(isSetterOf<Text>(&TalvixGetSnapSamplesRequestMessage::setStartTime));
        QVERIFY(isSetterOf<Text>(&TalvixGetSnapSamplesRequestMessage::setEndTime));
        QVERIFY(isSetterOf<Text>(&TalvixGetSnapDetailSamplesRequestMessage::setChannelUid));
        QVERIFY(isSetterOf<Text>(&TalvixGetSnapDetailSamplesRequestMessage::setBeginTime));
        QVERIFY(isSetterOf<Text>(&TalvixGetSnapDetailSamplesRequestMessage::setEndTIme));
        QVERIFY(isSetterOf<Numbers>(&TalvixGetSnapDetailSamplesOfOrgasRequestMessage::setListOrg));
        QVERIFY(
            isSetterOf<Numbers>(&TalvixGetTemperatureStatisticsOfGroupsRequestMessage::setPersonGorupIDList));
        QVERIFY(isSetterOf<StatisticsQueryOfOrga>(
            &TalvixGetTempAlarmHandleStatisticsOfOrgaRequestMessage::setQueryStatisticsOfOrga));
        QVERIFY((std::is_same_v<decltype(TalvixGetSnapSamplesRequestMessage::timeType), int>));
    }

    void settersKeepWhatTheyAreGiven()
    {
        TalvixGetTemperatureStatisticsOfGroupsRequestMessage groups;
        groups.setStartTime("a");
        groups.setEndTime("b");
        groups.setPersonGorupIDList(std::vector<int>({4, 5}));
        QCOMPARE(text(groups.startTime()), u"a"_s);
        QCOMPARE(text(groups.endTime()), u"b"_s);
        QCOMPARE(groups.personGorupIDList(), std::vector<int>({4, 5}));

        TalvixGetTempStatisticsDistributionOfGroupsRequestMessage distribution;
        distribution.setStartTime("c");
        distribution.setEndTime("d");
        distribution.setPersonGorupIDList(std::vector<int>({6}));
        QCOMPARE(text(distribution.startTime()), u"c"_s);
        QCOMPARE(text(distribution.endTime()), u"d"_s);
        QCOMPARE(distribution.personGorupIDList(), std::vector<int>({6}));

        TalvixGetSnapDetailSamplesRequestMessage details;
        details.setChannelUid("cam");
        details.setBeginTime("e");
        details.setEndTIme("f");
        QCOMPARE(text(details.channelUid()), u"cam"_s);
        QCOMPARE(text(details.beginTime()), u"e"_s);
        QCOMPARE(text(details.endTime()), u"f"_s);

        TalvixGetSnapDetailSamplesOfOrgasRequestMessage orgas;
        orgas.setStartTime("g");
        orgas.setEndTime("h");
        orgas.setListOrg(std::vector<int>({7, 8}));
        QCOMPARE(text(orgas.startTime()), u"g"_s);
        QCOMPARE(text(orgas.endTime()), u"h"_s);
        QCOMPARE(orgas.listOrg(), std::vector<int>({7, 8}));

        StatisticsQueryOfOrga condition;
        condition.queryType = 2;
        condition.startTime = "i";
        condition.listOrg = {9};
        TalvixGetTempStatisticsDistributionOfOrgasRequestMessage ofDevice;
        ofDevice.setQueryStatisticsOfOrga(condition);
        TalvixGetTempAlarmHandleStatisticsOfOrgaRequestMessage handling;
        handling.setQueryStatisticsOfOrga(condition);
        condition.queryType = 5;
        condition.listOrg.clear();
        QCOMPARE(ofDevice.queryStatisticsOfOrga().queryType, 2);
        QCOMPARE(ofDevice.queryStatisticsOfOrga().listOrg, std::vector<int>({9}));
        QCOMPARE(text(handling.queryStatisticsOfOrga().startTime), u"i"_s);
        QCOMPARE(handling.queryStatisticsOfOrga().listOrg, std::vector<int>({9}));
    }

    void theConditionOfDeviceGroupsStartsWithOneAndUnsetIntegers()
    {
        const StatisticsQueryOfOrga condition;
        QCOMPARE(condition.queryType, 1);
        QCOMPARE(condition.userId, -99999);
        QCOMPARE(condition.timeType, -99999);
        QCOMPARE(condition.reserved1, -99999);
        QCOMPARE(condition.reserved2, -99999);
        QVERIFY(condition.startTime.empty());
        QVERIFY(condition.endTime.empty());
        QVERIFY(condition.listOrg.empty());
    }

    void recordsAreValuesWithTheirFieldsInOrder()
    {
        TemperatureStatisticsItem item{1, "name", 2};
        const TemperatureStatisticsItem copy = item;
        item.name = "other";
        QCOMPARE(copy.id, 1);
        QCOMPARE(text(copy.name), u"name"_s);
        QCOMPARE(copy.count, 2);

        const TempDistributionItem distribution{3, 4};
        QCOMPARE(distribution.code, 3);
        QCOMPARE(distribution.count, 4);

        const TempAlarmHandleItem handling{5, 6, "time"};
        QCOMPARE(handling.handleState, 5);
        QCOMPARE(handling.count, 6);
        QCOMPARE(text(handling.time), u"time"_s);

        const SnapTypeCount count{7, 8, 9};
        QCOMPARE(count.snapType, 7);
        QCOMPARE(count.count, 8);
        QCOMPARE(count.reserved, 9);

        SnapTimeSample sample{"hour", {{"cam", {count}}}};
        const SnapTimeSample sampleCopy = sample;
        sample.channels.clear();
        QCOMPARE(text(sampleCopy.time), u"hour"_s);
        QCOMPARE(sampleCopy.channels.size(), std::size_t(1));
        QCOMPARE(text(sampleCopy.channels[0].channelUid), u"cam"_s);
        QCOMPARE(sampleCopy.channels[0].typeCounts[0].count, 8);

        const SnapDetailMajorItem major{10, {{11, 12}}};
        QCOMPARE(major.majorType, 10);
        QCOMPARE(major.minors[0].minorType, 11);
        QCOMPARE(major.minors[0].count, 12);

        const SnapOrgaItem orga{13, "orga", {count}};
        QCOMPARE(orga.id, 13);
        QCOMPARE(text(orga.name), u"orga"_s);
        QCOMPARE(orga.typeCounts[0].snapType, 7);
    }

    void answersHoldListsOfRecords()
    {
        using Items = std::vector<TemperatureStatisticsItem>;
        using Distribution = std::vector<TempDistributionItem>;
        QVERIFY(holds<Items>(&TalvixGetTemperatureStatisticsOfGroupsResponseMessage::statisticsList));
        QVERIFY(holds<Items>(&TalvixGetTemperatureStatisticsOfGroupResponseMessage::statisticsList));
        QVERIFY(holds<Items>(&TalvixGetTemperatureStatisticsOfPersonResponseMessage::statisticsList));
        using Persons = TalvixGetTemperatureStatisticsOfPersonsResponseMessage;
        QVERIFY(holds<Items>(&Persons::statisticsList));
        QVERIFY(standInOrder<Persons>({&Persons::curPage, &Persons::totalPage}));
        using OfGroups = TalvixGetTempStatisticsDistributionOfGroupsResponseMessage;
        QVERIFY(holds<Distribution>(&OfGroups::byNumberList));
        QVERIFY(holds<Distribution>(&OfGroups::byEtiologyList));
        using OfOrgas = TalvixGetTempStatisticsDistributionOfOrgasResponseMessage;
        QVERIFY(holds<Distribution>(&OfOrgas::byTemperatureList));
        QVERIFY(holds<Distribution>(&OfOrgas::byMaskList));
        QVERIFY(holds<std::vector<TempAlarmHandleItem>>(
            &TalvixGetTempAlarmHandleStatisticsOfOrgaResponseMessage::handleList));
        QVERIFY(holds<std::vector<SnapTimeSample>>(&TalvixGetSnapSamplesResponseMessage::snapSampleList));
        QVERIFY(holds<std::vector<SnapDetailMajorItem>>(
            &TalvixGetSnapDetailSamplesResponseMessage::snapDetailList));
        QVERIFY(
            holds<std::vector<SnapOrgaItem>>(&TalvixGetSnapDetailSamplesOfOrgaResponseMessage::snapOrgaList));
        QVERIFY(holds<std::vector<SnapOrgaItem>>(
            &TalvixGetSnapDetailSamplesOfOrgasResponseMessage::snapOrgaList));
    }

    void everyOperationTakesItsOwnPairOfMessages()
    {
        using Manager = KRXClientStatisticsManager;
        QVERIFY((refusesWithReason<TalvixGetTemperatureStatisticsOfGroupsRequestMessage,
            TalvixGetTemperatureStatisticsOfGroupsResponseMessage>(
            &Manager::getTemperatureStatisticsOfGroups)));
        QVERIFY((refusesWithReason<TalvixGetTemperatureStatisticsOfGroupRequestMessage,
            TalvixGetTemperatureStatisticsOfGroupResponseMessage>(
            &Manager::getTemperatureStatisticsOfGroup)));
        QVERIFY((refusesWithReason<TalvixGetTemperatureStatisticsOfPersonsRequestMessage,
            TalvixGetTemperatureStatisticsOfPersonsResponseMessage>(
            &Manager::getTemperatureStatisticsOfPersons)));
        QVERIFY((refusesWithReason<TalvixGetTemperatureStatisticsOfPersonRequestMessage,
            TalvixGetTemperatureStatisticsOfPersonResponseMessage>(
            &Manager::getTemperatureStatisticsOfPerson)));
        QVERIFY((refusesWithReason<TalvixGetTempStatisticsDistributionOfGroupsRequestMessage,
            TalvixGetTempStatisticsDistributionOfGroupsResponseMessage>(
            &Manager::getTempStatisticsDistributionOfGroups)));
        QVERIFY((refusesWithReason<TalvixGetTempStatisticsDistributionOfOrgasRequestMessage,
            TalvixGetTempStatisticsDistributionOfOrgasResponseMessage>(&Manager::getTemperatureOfDevice)));
        QVERIFY((refusesWithReason<TalvixGetTempAlarmHandleStatisticsOfOrgaRequestMessage,
            TalvixGetTempAlarmHandleStatisticsOfOrgaResponseMessage>(
            &Manager::getTempAlarmHandleStatistics)));
        QVERIFY((refusesWithReason<TalvixGetSnapSamplesRequestMessage, TalvixGetSnapSamplesResponseMessage>(
            &Manager::getSnapSamplesResource)));
        QVERIFY((refusesWithReason<TalvixGetSnapDetailSamplesRequestMessage,
            TalvixGetSnapDetailSamplesResponseMessage>(&Manager::getSnapDetailSamples)));
        QVERIFY((refusesWithReason<TalvixGetSnapDetailSamplesOfOrgasRequestMessage,
            TalvixGetSnapDetailSamplesOfOrgasResponseMessage>(&Manager::getTrafficsStatisticsOfOrgas)));
        QVERIFY((refusesWithReason<TalvixGetSnapDetailSamplesOfOrgaRequestMessage,
            TalvixGetSnapDetailSamplesOfOrgaResponseMessage>(&Manager::getTrafficsStatisticsOfOrga)));
    }

    void aSearchCallsTheOperationsOfItsServiceInOrder_data()
    {
        table<int, QStringList>({"type", "calls"},
            {
                {"groups ask for the group and twice for its distribution", 5,
                    {"getTemperatureStatisticsOfGroups", "getTemperatureStatisticsOfGroup",
                        "getTempStatisticsDistributionOfGroups", "getTempStatisticsDistributionOfGroups"}},
                {"persons ask for the person alone", 6,
                    {"getTemperatureStatisticsOfPersons", "getTemperatureStatisticsOfPerson"}},
                {"organisations ask for the organisation and twice for its details", 7,
                    {"getTrafficsStatisticsOfOrgas", "getTrafficsStatisticsOfOrga", "getSnapDetailSamples",
                        "getSnapDetailSamples"}},
                {"devices draw the line from the kept answer and ask twice for details", 8,
                    {"getSnapSamplesResource", "getSnapDetailSamples", "getSnapDetailSamples"}},
                {"device groups draw the line from the kept answer and ask twice for the distribution", 9,
                    {"getTempAlarmHandleStatistics", "getTemperatureOfDevice", "getTemperatureOfDevice"}},
            });
    }

    void aSearchCallsTheOperationsOfItsServiceInOrder()
    {
        QFETCH(int, type);
        QFETCH(QStringList, calls);
        StatisticsScene scene(type);
        scene.client.addChannel("cam", u"Gate"_s);
        answerEverything(scene.manager);
        scene.page.slotSearch();
        QCOMPARE(scene.manager.calls, calls);
        QCOMPARE(scene.tips(), QStringList());
    }

    void figuresGoToTheListsOfTheirService_data()
    {
        const LabelledValues none;
        table<int, LabelledValues, LabelledValues, LabelledValues, LabelledValues, LabelledValues>(
            {"type", "bars", "bars2", "line", "line2", "pie"},
            {
                {"groups", 5, {{"Ward", 8}}, none, {{"2024-05-03 04", 8}}, none, {{"30", 30}}},
                {"persons", 6, {{"Ward", 8}}, none, {{"2024-05-03 05", 8}}, none, {{"12", 8}}},
                {"traffics of organisations", 7, {{"Company", 6}}, {{"Company", 9}}, {{"2024-05-03 00", 6}},
                    {{"2024-05-03 00", 9}}, {{"TK_Other", 4}}},
                {"traffics of devices", 8, {{"Gate", 5}}, {{"Gate", 7}}, {{"2024-05-03 01", 5}},
                    {{"2024-05-03 01", 7}}, {{"TK_Other", 4}}},
                {"device groups", 9, {{"Company", 5}}, {{"Company", 3}}, {{"2024-05-03 02", 5}},
                    {{"2024-05-03 02", 3}}, {{"TK_NormalTemperature", 11}}},
            });
    }

    void figuresGoToTheListsOfTheirService()
    {
        QFETCH(int, type);
        StatisticsScene scene(type);
        scene.client.addChannel("cam", u"Gate"_s);
        answerEverything(scene.manager);
        QCOMPARE(scene.queryWholeLevel(), 4);
        QTEST(scene.page.barDataList, "bars");
        QTEST(scene.page.barDataList2, "bars2");
        QTEST(scene.page.lineDataList, "line");
        QTEST(scene.page.lineDataList2, "line2");
        QTEST(scene.page.pieDataList, "pie");
    }

    void theServersOrderIsKept_data()
    {
        table<int, QStringList>({"type", "labels"},
            {
                {"groups", 5, {"m", "z", "a"}},
                {"persons", 6, {"m", "z", "a"}},
                {"organisations", 7, {"Plant North", "Company", "Plant South"}},
                {"devices", 8, {"m", "z", "a"}},
            });
    }

    void theServersOrderIsKept()
    {
        QFETCH(int, type);
        QFETCH(QStringList, labels);
        StatisticsScene scene(type);
        const std::vector<TemperatureStatisticsItem> items = {{30, "m", 5}, {10, "z", 50}, {20, "a", 1}};
        answerItems(scene.manager.temperatureStatisticsOfGroups, items);
        answerPersons(scene.manager, items);
        answerOrgas(scene.manager.trafficsStatisticsOfOrgas,
            {{42, "", {{4, 5, 0}}}, {41, "", {{4, 50, 0}}}, {43, "", {{4, 1, 0}}}});
        for (const char *uid : {"m", "z", "a"})
            scene.client.addChannel(uid, QString::fromLatin1(uid));
        answerSamples(scene.manager,
            {{"2024-05-03 00", {{"m", {{4, 5, 0}}}, {"z", {{4, 50, 0}}}, {"a", {{4, 1, 0}}}}}});
        QCOMPARE(scene.queryWholeLevel(), 4);
        QCOMPARE(listKeys(scene.page.barDataList), labels);
        QCOMPARE(listKeys(scene.page.devDataList), labels);
        QCOMPARE(listValues(scene.page.barDataList), QList<int>({5, 50, 1}));
    }

    void afterFalseTheAnswerIsNotRead_data() { kinds({5, 6, 7, 8, 9}); }

    void afterFalseTheAnswerIsNotRead()
    {
        QFETCH(int, type);
        StatisticsScene scene(type);
        scene.client.addChannel("cam", u"Gate"_s);
        auto &manager = scene.manager;
        manager.temperatureStatisticsOfGroups.answer = [](const auto &, auto &response) {
            response.statisticsList = someItems;
            return false;
        };
        manager.temperatureStatisticsOfPersons.answer = [](const auto &, auto &response) {
            response.statisticsList = someItems;
            response.totalPage = 9;
            response.curPage = 8;
            return false;
        };
        manager.trafficsStatisticsOfOrgas.answer = [](const auto &, auto &response) {
            response.snapOrgaList = someOrgas;
            return false;
        };
        manager.snapSamplesResource.answer = [](const auto &, auto &response) {
            response.snapSampleList = someSamples;
            return false;
        };
        manager.tempAlarmHandleStatistics.answer = [](const auto &, auto &response) {
            response.handleList = someHandling;
            return false;
        };
        QCOMPARE(scene.queryWholeLevel(), 2);
        QCOMPARE(manager.calls.size(), 1);
        QCOMPARE(scene.bars(), DualValues());
        QCOMPARE(scene.page.devDataList, LabelledKeys());
        QVERIFY(scene.page.snapSamples.empty());
        QVERIFY(scene.page.tempAlarmHandleList.empty());
        QCOMPARE(scene.page.m_nCurPage, 1);
        QCOMPARE(scene.page.m_nTotalPage, 1);
    }

    void afterFalseTheAnswerOfADrillDownIsNotRead_data() { afterFalseTheAnswerIsNotRead_data(); }

    void afterFalseTheAnswerOfADrillDownIsNotRead()
    {
        QFETCH(int, type);
        StatisticsScene scene(type);
        auto &manager = scene.manager;
        manager.temperatureStatisticsOfGroup.answer = [](const auto &, auto &response) {
            response.statisticsList = someItems;
            return false;
        };
        manager.temperatureStatisticsOfPerson.answer = [](const auto &, auto &response) {
            response.statisticsList = someItems;
            return false;
        };
        manager.tempStatisticsDistributionOfGroups.answer = [](const auto &, auto &response) {
            response.byEtiologyList = {{6, 30}};
            response.byNumberList = {{1, 2}};
            return false;
        };
        manager.trafficsStatisticsOfOrga.answer = [](const auto &, auto &response) {
            response.snapOrgaList = someOrgas;
            return false;
        };
        manager.snapDetailSamples.answer = [](const auto &, auto &response) {
            response.snapDetailList = unknownMinors;
            return false;
        };
        manager.temperatureOfDevice.answer = [](const auto &, auto &response) {
            response.byTemperatureList = {{0, 11}};
            response.byMaskList = {{1, 12}};
            return false;
        };
        scene.page.getChartDataByBarId(u"41"_s);
        QVERIFY(!manager.calls.isEmpty());
        QCOMPARE(scene.lines(), DualValues());
        QCOMPARE(scene.page.pieDataList, LabelledValues());
        QVERIFY(scene.page.snapDetailMap.isEmpty());
        QVERIFY(scene.page.etiologyDistribution.empty());
        QVERIFY(scene.page.numberDistribution.empty());
        QVERIFY(scene.page.temperatureDistribution.empty());
        QVERIFY(scene.page.maskDistribution.empty());
    }

    void theUnitOfTimeIsSent_data()
    {
        table<QByteArray, int, QString, QString>({"button", "timeType", "start", "end"},
            {
                {"months", "pushButtonMonth", 1, "2023-11", "2024-05"},
                {"days", "pushButtonDay", 2, "2024-04-26", "2024-05-03"},
                {"hours", "pushButtonHour", 3, "2024-05-03 00", "2024-05-03 17"},
            });
    }

    void theUnitOfTimeIsSent()
    {
        QFETCH(QByteArray, button);
        QFETCH(int, timeType);
        QFETCH(QString, start);
        QFETCH(QString, end);
        StatisticsScene scene(7);
        answerEverything(scene.manager);
        scene.press(button.constData());
        scene.forget();
        scene.page.slotSearch();
        const auto orgas = scene.manager.trafficsStatisticsOfOrgas.requests.first();
        QCOMPARE(orgas.timeType, timeType);
        QCOMPARE(text(orgas.startTime()), start);
        QCOMPARE(text(orgas.endTime()), end);
        const auto orga = scene.manager.trafficsStatisticsOfOrga.requests.first();
        QCOMPARE(orga.timeType, timeType);
        QCOMPARE(text(orga.startTime()), start);
        QCOMPARE(text(orga.endTime()), end);
        const auto details = scene.manager.snapDetailSamples.requests.first();
        QCOMPARE(details.timeType, timeType);
        QCOMPARE(text(details.beginTime()), start);
        QCOMPARE(text(details.endTime()), end);
    }

    void theSortDirectionIsSent_data()
    {
        table<QByteArray, int>({"button", "sortType"},
            {{"descending is 1", "pushButtonDesc", 1}, {"ascending is 2", "pushButtonAsc", 2}});
    }

    void theSortDirectionIsSent()
    {
        QFETCH(QByteArray, button);
        for (const int type : {5, 6, 7}) {
            StatisticsScene scene(type);
            scene.press(button.constData());
            scene.page.slotSearch();
            QList<int> sent;
            for (const auto &request : std::as_const(scene.manager.temperatureStatisticsOfGroups.requests))
                sent.append(request.sortType);
            for (const auto &request : std::as_const(scene.manager.temperatureStatisticsOfPersons.requests))
                sent.append(request.sortType);
            for (const auto &request : std::as_const(scene.manager.trafficsStatisticsOfOrgas.requests))
                sent.append(request.sortType);
            QCOMPARE(sent.size(), 1);
            QTEST(sent.first(), "sortType");
        }
    }

    void theSumModeIsSent_data()
    {
        table<QString, int>({"mode", "orgType"},
            {
                {"lower levels", "TK_LowSum", 1},
                {"all levels", "TK_AllSum", 2},
                {"the organisation alone", "TK_OnlyCurrent", 3},
            });
    }

    void theSumModeIsSent()
    {
        QFETCH(QString, mode);
        QFETCH(int, orgType);
        {
            StatisticsScene scene(5);
            answerEverything(scene.manager);
            scene.page.part<QComboBox>("comboBoxOrgType")->setCurrentText(mode);
            scene.forget();
            scene.page.slotSearch();
            QCOMPARE(scene.manager.temperatureStatisticsOfGroups.requests.first().orgType, orgType);
            QCOMPARE(scene.manager.temperatureStatisticsOfGroup.requests.first().orgType, orgType);
            QCOMPARE(scene.manager.tempStatisticsDistributionOfGroups.requests.first().orgType, orgType);
        }
        {
            StatisticsScene scene(7);
            answerEverything(scene.manager);
            scene.page.part<QComboBox>("comboBoxOrgType")->setCurrentText(mode);
            scene.forget();
            scene.page.slotSearch();
            QCOMPARE(scene.manager.trafficsStatisticsOfOrgas.requests.first().orgType, orgType);
            QCOMPARE(scene.manager.trafficsStatisticsOfOrga.requests.first().orgType, orgType);
            QCOMPARE(scene.manager.snapDetailSamples.requests.first().orgType, orgType);
        }
        {
            StatisticsScene scene(8);
            scene.client.addChannel("cam", u"Gate"_s);
            answerEverything(scene.manager);
            scene.page.part<QComboBox>("comboBoxOrgType")->setCurrentText(mode);
            scene.forget();
            scene.page.slotSearch();
            QCOMPARE(scene.manager.snapDetailSamples.requests.first().orgType, orgType);
        }
    }

    void aKeyThatIsNoNumberIsSentAsZero_data()
    {
        table<QString, int>({"key", "sent"},
            {
                {"a word", "ward", 0},
                {"nothing", "", 0},
                {"a hexadecimal number", "0x10", 0},
                {"a number beyond 32 bits", "2147483648", 0},
                {"a number with a leading zero is decimal", "010", 10},
                {"a negative number", "-5", -5},
            });
    }

    void aKeyThatIsNoNumberIsSentAsZero()
    {
        QFETCH(QString, key);
        QFETCH(int, sent);
        StatisticsScene scene(5);
        scene.page.getTemperatureOfGroup(key);
        QCOMPARE(scene.manager.temperatureStatisticsOfGroup.requests.first().groupId, sent);
        scene.page.getTemperatureOfPerson(key);
        QCOMPARE(scene.manager.temperatureStatisticsOfPerson.requests.first().personId, sent);
        scene.page.getTempStatisticsDistributionOfGroups(key, 1);
        QCOMPARE(scene.manager.tempStatisticsDistributionOfGroups.requests.first().personGorupIDList(),
            std::vector<int>({sent}));
        scene.page.getTrafficsStatisticsOfOrgas(key);
        QCOMPARE(scene.manager.trafficsStatisticsOfOrga.requests.first().orgaId, sent);
        std::vector<SnapDetailMajorItem> details;
        scene.page.getSnapDetailSamples(key, 4, details, 2);
        QCOMPARE(scene.manager.snapDetailSamples.requests.first().orgaId, sent);
    }

    void textsOfAnyScriptPassUnharmed()
    {
        const QString name = QString::fromUtf8("Größe 温度 \xF0\x9F\x8C\xA1");
        StatisticsScene scene(6);
        answerPersons(scene.manager, {{1, name.toStdString(), 1}});
        answerItems(scene.manager.temperatureStatisticsOfPerson, {{-1, name.toStdString(), 1}});
        QCOMPARE(scene.queryWholeLevel(), 4);
        QCOMPARE(listKeys(scene.page.barDataList), QStringList({name}));
        QCOMPARE(listKeys(scene.page.lineDataList), QStringList({name}));

        std::vector<SnapDetailMajorItem> details;
        scene.page.getSnapDetailSamples(name, 4, details, 1);
        QCOMPARE(text(scene.manager.snapDetailSamples.requests.first().channelUid()), name);
    }
};

TALVIX_TEST_MAIN(TestTemperatureMessages)
#include "tst_temperature_messages.moc"
