#include "support/StatisticsRows.h"
#include "support/TestMain.h"

#include <devhost/client/ClientInstances.h>
#include <TalvixWidgets/AppTranslationHelper.h>
#include <TalvixWidgets/KrxClient.h>
#include <TalvixWidgets/KRXClientStatisticsManager.h>

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::string_literals;

namespace {

using AlarmOrgasRequest = TalvixGetAlarmStatisticsOfOrgasRequestMessage;
using AlarmOrgaRequest = TalvixGetAlarmStatisticsOfOrgaRequestMessage;
using AlarmDevicesRequest = TalvixGetAlarmStatisticsOfDevicesRequestMessage;
using AlarmDeviceRequest = TalvixGetAlarmStatisticsOfDeviceRequestMessage;
using OnlineOrgasRequest = TalvixGetOnlineStatisticsOfOrgasRequestMessage;
using OnlineOrgaRequest = TalvixGetOnlineStatisticsOfOrgaRequestMessage;
using OnlineDevicesRequest = TalvixGetOnlineStatisticsOfDevicesRequestMessage;
using OnlineDeviceRequest = TalvixGetOnlineStatisticsOfDeviceRequestMessage;
using AlarmOrgasResponse = TalvixGetAlarmStatisticsOfOrgasResponseMessage;
using AlarmOrgaResponse = TalvixGetAlarmStatisticsOfOrgaResponseMessage;
using AlarmDevicesResponse = TalvixGetAlarmStatisticsOfDevicesResponseMessage;
using AlarmDeviceResponse = TalvixGetAlarmStatisticsOfDeviceResponseMessage;
using OnlineOrgasResponse = TalvixGetOnlineStatisticsOfOrgasResponseMessage;
using OnlineOrgaResponse = TalvixGetOnlineStatisticsOfOrgaResponseMessage;
using OnlineDevicesResponse = TalvixGetOnlineStatisticsOfDevicesResponseMessage;
using OnlineDeviceResponse = TalvixGetOnlineStatisticsOfDeviceResponseMessage;

template <typename Message>
constexpr bool isMessage =
    std::is_base_of_v<TalvixMessage, Message> &&std::is_convertible_v<Message *, TalvixMessage *>
        &&std::is_default_constructible_v<Message> &&std::has_virtual_destructor_v<Message>;

template <typename... Messages>
constexpr bool areMessages = (isMessage<Messages> && ...);

static_assert(areMessages<TalvixMessage, AlarmOrgasRequest, AlarmOrgaRequest, AlarmDevicesRequest,
    AlarmDeviceRequest, OnlineOrgasRequest, OnlineOrgaRequest, OnlineDevicesRequest, OnlineDeviceRequest>);
static_assert(areMessages<AlarmOrgasResponse, AlarmOrgaResponse, AlarmDevicesResponse, AlarmDeviceResponse,
    OnlineOrgasResponse, OnlineOrgaResponse, OnlineDevicesResponse, OnlineDeviceResponse>);

template <typename Manager, typename Request, typename Response>
using Query = bool (Manager::*)(Request &, Response &);

static_assert(sizeof(int) == 4);

template <typename Field, typename Owner>
constexpr bool isInt(Field Owner::*)
{
    return std::is_same_v<Field, int>;
}

template <typename... Members>
constexpr bool areInts(Members... members)
{
    return (isInt(members) && ...);
}

template <typename Request>
constexpr bool orgasFieldsAreInts = areInts(
    &Request::userId, &Request::timeType, &Request::sortType, &Request::orgType);
template <typename Request>
constexpr bool orgaFieldsAreInts = areInts(
    &Request::userId, &Request::orgaId, &Request::timeType, &Request::orgType);
template <typename Request>
constexpr bool devicesFieldsAreInts = areInts(&Request::timeType, &Request::sortType, &Request::orgaId,
    &Request::userId, &Request::pageIndex, &Request::pageSize);

static_assert(orgasFieldsAreInts<AlarmOrgasRequest> && orgasFieldsAreInts<OnlineOrgasRequest>);
static_assert(orgaFieldsAreInts<AlarmOrgaRequest> && orgaFieldsAreInts<OnlineOrgaRequest>);
static_assert(devicesFieldsAreInts<AlarmDevicesRequest> && devicesFieldsAreInts<OnlineDevicesRequest>);
static_assert(areInts(&AlarmDeviceRequest::timeType, &OnlineDeviceRequest::timeType));
static_assert(areInts(&AlarmDevicesResponse::curPage, &AlarmDevicesResponse::totalPage));
static_assert(areInts(&OnlineDevicesResponse::curPage, &OnlineDevicesResponse::totalPage));
static_assert(areInts(&AlarmStatisticsRecord::orgaId, &AlarmStatisticsRecord::reservedValue,
    &AlarmStatisticsRecord::alarmType, &AlarmStatisticsRecord::count));
static_assert(areInts(&OnlineStatisticsRecord::orgaId, &OnlineStatisticsRecord::value));

static_assert(std::is_same_v<decltype(AlarmStatisticsRecord::timeLabel), std::string>);
static_assert(std::is_same_v<decltype(AlarmStatisticsRecord::uid), std::string>);
static_assert(std::is_same_v<decltype(OnlineStatisticsRecord::timeLabel), std::string>);
static_assert(std::is_same_v<decltype(OnlineStatisticsRecord::uid), std::string>);

using AlarmRows = std::vector<AlarmStatisticsRecord>;
using OnlineRows = std::vector<OnlineStatisticsRecord>;
template <typename Rows, typename... Responses>
constexpr bool carryRows = (std::is_same_v<decltype(Responses::records), Rows> && ...);

static_assert(
    carryRows<AlarmRows, AlarmOrgasResponse, AlarmOrgaResponse, AlarmDevicesResponse, AlarmDeviceResponse>);
static_assert(carryRows<OnlineRows, OnlineOrgasResponse, OnlineOrgaResponse, OnlineDevicesResponse,
    OnlineDeviceResponse>);

using Manager = KRXClientStatisticsManager;
static_assert(std::is_base_of_v<VuKRXClientManager, Manager>);
static_assert(std::is_same_v<decltype(&Manager::instance), Manager *(*)()>);
static_assert(std::is_same_v<decltype(std::declval<Manager &>().getLastErrorString()), QString>);

template <typename Request, typename Response, typename Method>
constexpr bool asks(Method)
{
    return std::is_same_v<Method, Query<Manager, Request, Response>>;
}

static_assert(asks<AlarmOrgasRequest, AlarmOrgasResponse>(&Manager::getAlarmStatisticsOfOrgas));
static_assert(asks<AlarmOrgaRequest, AlarmOrgaResponse>(&Manager::getAlarmStatisticsOfOrga));
static_assert(asks<AlarmDevicesRequest, AlarmDevicesResponse>(&Manager::getAlarmStatisticsOfDevices));
static_assert(asks<AlarmDeviceRequest, AlarmDeviceResponse>(&Manager::getAlarmStatisticsOfDevice));
static_assert(asks<OnlineOrgasRequest, OnlineOrgasResponse>(&Manager::getOnlineStatisticsOfOrgas));
static_assert(asks<OnlineOrgaRequest, OnlineOrgaResponse>(&Manager::getOnlineStatisticsOfOrga));
static_assert(asks<OnlineDevicesRequest, OnlineDevicesResponse>(&Manager::getOnlineStatisticsOfDevices));
static_assert(asks<OnlineDeviceRequest, OnlineDeviceResponse>(&Manager::getOnlineStatisticsOfDevice));

static_assert(std::is_same_v<decltype(&KrxClient::instance), KrxClient *(*)()>);
static_assert(std::is_same_v<decltype(&KrxClient::getChannelByUid),
    TalvixChannel *(KrxClient::*)(const std::string &)>);
static_assert(
    std::is_same_v<decltype(&KrxClient::getDevicesByUid), TalvixDevice *(KrxClient::*)(const std::string &)>);
static_assert(
    std::is_same_v<decltype(&KrxClient::getDevNameByChannelID), QString (KrxClient::*)(std::string)>);
static_assert(std::is_same_v<decltype(&KrxClient::getOrgaInfoById), TalvixGroup *(KrxClient::*)(int)>);
static_assert(std::is_same_v<decltype(&KrxClient::getAlarmTypeByCode), TalvixAlarmType *(KrxClient::*)(int)>);

static_assert(std::is_same_v<decltype(std::declval<TalvixDevice &>().get_device_name()), std::string>);
static_assert(std::is_same_v<decltype(std::declval<TalvixDevice &>().get_device_ip()), std::string>);
static_assert(std::is_same_v<decltype(std::declval<TalvixDevice &>().get_device_type_id()), int>);
static_assert(std::is_same_v<decltype(std::declval<TalvixChannel &>().get_channel_name()), std::string>);
static_assert(std::is_same_v<decltype(std::declval<TalvixChannel &>().get_channel_ip()), std::string>);
static_assert(std::is_same_v<decltype(std::declval<TalvixChannel &>().get_channel_type_id()), int>);
static_assert(std::is_same_v<decltype(std::declval<TalvixGroup &>().get_group_name()), std::string>);
static_assert(std::is_same_v<decltype(std::declval<TalvixAlarmType &>().get_alarm_type_name()), std::string>);

/// A setter that takes its value by const reference and gives nothing back.
template <typename Setter>
struct TakenByConstReference : std::false_type
{ };
template <typename Owner, typename Value>
struct TakenByConstReference<void (Owner::*)(const Value &)> : std::true_type
{ };

template <typename... Messages>
constexpr bool haveSpanSetters = (TakenByConstReference<decltype(&Messages::setStartTime)>::value && ...)
    && (TakenByConstReference<decltype(&Messages::setEndTime)>::value && ...);

static_assert(haveSpanSetters<AlarmOrgasRequest, AlarmOrgaRequest, AlarmDevicesRequest, AlarmDeviceRequest>);
static_assert(
    haveSpanSetters<OnlineOrgasRequest, OnlineOrgaRequest, OnlineDevicesRequest, OnlineDeviceRequest>);
static_assert(TakenByConstReference<decltype(&AlarmOrgasRequest::setListOrg)>::value);
static_assert(TakenByConstReference<decltype(&OnlineOrgasRequest::setListOrg)>::value);
static_assert(TakenByConstReference<decltype(&AlarmDeviceRequest::setUID)>::value);
static_assert(TakenByConstReference<decltype(&OnlineDeviceRequest::setUID)>::value);

bool ascending(std::initializer_list<const void *> addresses)
{
    return std::is_sorted(addresses.begin(), addresses.end(), std::less<const void *>());
}

/// A new request says nothing, and its span is what was set.
template <typename Request>
void checkSpan(std::initializer_list<int> numbers)
{
    for (const int number : numbers)
        QCOMPARE(number, 0);
    Request request;
    QVERIFY(request.startTime().empty());
    QVERIFY(request.endTime().empty());
    request.setStartTime("2024-05-03 00");
    request.setEndTime("2024-05-03 17");
    QCOMPARE(request.startTime(), "2024-05-03 00"s);
    QCOMPARE(request.endTime(), "2024-05-03 17"s);
}

template <typename Request>
void checkOrgasRequest()
{
    const Request untouched;
    checkSpan<Request>({untouched.userId, untouched.timeType, untouched.sortType, untouched.orgType});
    QVERIFY(untouched.listOrg().empty());
    QVERIFY(ascending({&untouched.userId, &untouched.timeType, &untouched.sortType, &untouched.orgType}));

    Request request;
    std::vector<int> organisations = {4, -1, 2147483647};
    request.setListOrg(organisations);
    organisations.clear();
    QCOMPARE(request.listOrg(), (std::vector<int>{4, -1, 2147483647}));
    QCOMPARE(request.userId, 0);
}

template <typename Request>
void checkOrgaRequest()
{
    const Request untouched;
    checkSpan<Request>({untouched.userId, untouched.orgaId, untouched.timeType, untouched.orgType});
    QVERIFY(ascending({&untouched.userId, &untouched.orgaId, &untouched.timeType, &untouched.orgType}));
}

template <typename Request>
void checkDevicesRequest()
{
    const Request untouched;
    checkSpan<Request>({untouched.timeType, untouched.sortType, untouched.orgaId, untouched.userId,
        untouched.pageIndex, untouched.pageSize});
    QVERIFY(ascending({&untouched.timeType, &untouched.sortType, &untouched.orgaId, &untouched.userId,
        &untouched.pageIndex, &untouched.pageSize}));
}

template <typename Request>
void checkDeviceRequest()
{
    Request request;
    checkSpan<Request>({request.timeType});
    QVERIFY(request.uid().empty());
    request.setUID("\xff\xfe not text");
    QCOMPARE(request.uid(), "\xff\xfe not text"s);
}

template <typename Response>
void checkPagedResponse()
{
    const Response untouched;
    QVERIFY(untouched.records.empty());
    QCOMPARE(untouched.curPage, 0);
    QCOMPARE(untouched.totalPage, 0);
    QVERIFY(ascending({&untouched.records, &untouched.curPage, &untouched.totalPage}));
}

template <typename Request, typename Response>
void checkRefusal(bool (Manager::*query)(Request &, Response &))
{
    Request request;
    Response response;
    response.records.resize(2);
    QVERIFY(!(Manager::instance()->*query)(request, response));
    QCOMPARE(response.records.size(), std::size_t(2));
    const QString reason = Manager::instance()->getLastErrorString();
    QVERIFY(!reason.isEmpty());
    QCOMPARE(Manager::instance()->getLastErrorString(), reason);
}

} // namespace

class TestMessages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void requestsOfAWholeLevel()
    {
        checkOrgasRequest<AlarmOrgasRequest>();
        checkOrgasRequest<OnlineOrgasRequest>();
    }

    void requestsOfOneBarOfALevel()
    {
        checkOrgaRequest<AlarmOrgaRequest>();
        checkOrgaRequest<OnlineOrgaRequest>();
    }

    void requestsOfTheDeviceLevel()
    {
        checkDevicesRequest<AlarmDevicesRequest>();
        checkDevicesRequest<OnlineDevicesRequest>();
    }

    void requestsOfOneDevice()
    {
        checkDeviceRequest<AlarmDeviceRequest>();
        checkDeviceRequest<OnlineDeviceRequest>();
    }

    void pagedResponsesCarryThePageBehindTheRows()
    {
        checkPagedResponse<AlarmDevicesResponse>();
        checkPagedResponse<OnlineDevicesResponse>();
    }

    void alarmRowsStandInTheServicesOrderAndAreCopiedMemberByMember()
    {
        const AlarmStatisticsRecord untouched;
        QVERIFY(ascending({&untouched.timeLabel, &untouched.orgaId, &untouched.uid, &untouched.reservedValue,
            &untouched.alarmType, &untouched.count}));
        QCOMPARE(untouched.reservedValue, 0);

        AlarmStatisticsRecord row;
        row.timeLabel = "2024-05-03 08";
        row.orgaId = 12;
        row.uid = "uid-1";
        row.reservedValue = 77;
        row.alarmType = -1;
        row.count = 2147483647;
        AlarmOrgaResponse response;
        response.records.push_back(row);
        const AlarmRows copy = response.records;
        response.records.clear();
        QCOMPARE(copy.front().timeLabel, "2024-05-03 08"s);
        QCOMPARE(copy.front().orgaId, 12);
        QCOMPARE(copy.front().uid, "uid-1"s);
        QCOMPARE(copy.front().reservedValue, 77);
        QCOMPARE(copy.front().alarmType, -1);
        QCOMPARE(copy.front().count, 2147483647);
    }

    void onlineRowsStandInTheServicesOrderAndAreCopiedMemberByMember()
    {
        const OnlineStatisticsRecord untouched;
        QVERIFY(ascending({&untouched.timeLabel, &untouched.orgaId, &untouched.uid, &untouched.value}));

        OnlineOrgaResponse response;
        response.records.push_back({"2024-05", 3, "uid-2", -4});
        const OnlineRows copy = response.records;
        response.records.clear();
        QCOMPARE(copy.front().timeLabel, "2024-05"s);
        QCOMPARE(copy.front().orgaId, 3);
        QCOMPARE(copy.front().uid, "uid-2"s);
        QCOMPARE(copy.front().value, -4);
    }

    void aResponseHandedToTheBaseIsDestroyedWhole()
    {
        auto counter = std::make_shared<int>(0);
        struct Counting : AlarmOrgasResponse
        {
            explicit Counting(std::shared_ptr<int> destroyed)
                : m_destroyed(std::move(destroyed))
            { }
            ~Counting() override { ++*m_destroyed; }
            std::shared_ptr<int> m_destroyed;
        };
        std::unique_ptr<TalvixMessage> message = std::make_unique<Counting>(counter);
        message.reset();
        QCOMPARE(*counter, 1);
    }

    void theInstalledManagerIsTheInstance()
    {
        Manager *const builtIn = Manager::instance();
        QVERIFY(builtIn);
        {
            ScriptedStatisticsManager first;
            QCOMPARE(Manager::instance(), static_cast<Manager *>(&first));
            ScriptedStatisticsManager second;
            QCOMPARE(Manager::instance(), static_cast<Manager *>(&second));
            installStatisticsManager(&first);
            QCOMPARE(Manager::instance(), static_cast<Manager *>(&first));
        }
        QCOMPARE(Manager::instance(), builtIn);
    }

    void theInstalledClientIsTheInstance()
    {
        KrxClient *const builtIn = KrxClient::instance();
        QVERIFY(builtIn);
        KrxClient client;
        installKrxClient(&client);
        QCOMPARE(KrxClient::instance(), &client);
        installKrxClient(nullptr);
        QCOMPARE(KrxClient::instance(), builtIn);
    }

    void withoutAServiceEachQueryIsRefusedWithAReason()
    {
        checkRefusal(&Manager::getAlarmStatisticsOfOrgas);
        checkRefusal(&Manager::getAlarmStatisticsOfOrga);
        checkRefusal(&Manager::getAlarmStatisticsOfDevices);
        checkRefusal(&Manager::getAlarmStatisticsOfDevice);
        checkRefusal(&Manager::getOnlineStatisticsOfOrgas);
        checkRefusal(&Manager::getOnlineStatisticsOfOrga);
        checkRefusal(&Manager::getOnlineStatisticsOfDevices);
        checkRefusal(&Manager::getOnlineStatisticsOfDevice);
    }

    void anUnknownIdIsNull()
    {
        KrxClient *const client = KrxClient::instance();
        for (const std::string &uid : {std::string(), "nobody"s, "\xff"s}) {
            QVERIFY(!client->getChannelByUid(uid));
            QVERIFY(!client->getDevicesByUid(uid));
            QVERIFY(client->getDevNameByChannelID(uid).isEmpty());
        }
        for (int id : {-1, 0, 1, 2147483647}) {
            QVERIFY(!client->getOrgaInfoById(id));
            QVERIFY(!client->getAlarmTypeByCode(id));
        }
    }

    void dataRecordsGiveBackWhatWasSet()
    {
        TalvixDevice device;
        device.set_device_name("Camera");
        device.set_device_ip("10.0.0.1");
        device.set_device_type_id(3);
        QCOMPARE(device.get_device_name(), "Camera"s);
        QCOMPARE(device.get_device_ip(), "10.0.0.1"s);
        QCOMPARE(device.get_device_type_id(), 3);

        TalvixChannel channel;
        channel.set_channel_name("Door");
        channel.set_channel_ip("10.0.0.2");
        channel.set_channel_type_id(2);
        QCOMPARE(channel.get_channel_name(), "Door"s);
        QCOMPARE(channel.get_channel_ip(), "10.0.0.2"s);
        QCOMPARE(channel.get_channel_type_id(), 2);

        TalvixGroup group;
        group.set_group_name("Plant");
        QCOMPARE(group.get_group_name(), "Plant"s);

        TalvixAlarmType type;
        type.set_alarm_type_name("Motion");
        QCOMPARE(type.get_alarm_type_name(), "Motion"s);

        TalvixUser user;
        QCOMPARE(user.get_id(), 0);
        user.set_id(9);
        QCOMPARE(user.get_id(), 9);
    }

    void anUntranslatedNamePassesAsItStands()
    {
        AppTranslationHelper *const helper = AppTranslationHelper::instance();
        QCOMPARE(helper->getStringAfterTranslation("Plant North"), u"Plant North"_s);
        QCOMPARE(helper->getStringAfterTranslation(""), QString());
        QCOMPARE(helper->getStringAfterTranslation(nullptr), QString());
        QVERIFY(!helper->getStringAfterTranslation("\xff\xfe").isEmpty());
    }
};

TALVIX_TEST_MAIN(TestMessages)
#include "tst_messages.moc"
