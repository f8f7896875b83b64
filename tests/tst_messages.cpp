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

#define HAS_INT_FIELD(Message, field)                                                                        \
    static_assert(std::is_same_v<decltype(Message::field), int>, #Message " " #field)

HAS_INT_FIELD(AlarmOrgasRequest, userId);
HAS_INT_FIELD(AlarmOrgasRequest, timeType);
HAS_INT_FIELD(AlarmOrgasRequest, sortType);
HAS_INT_FIELD(AlarmOrgasRequest, orgType);
HAS_INT_FIELD(OnlineOrgasRequest, userId);
HAS_INT_FIELD(OnlineOrgasRequest, timeType);
HAS_INT_FIELD(OnlineOrgasRequest, sortType);
HAS_INT_FIELD(OnlineOrgasRequest, orgType);
HAS_INT_FIELD(AlarmOrgaRequest, userId);
HAS_INT_FIELD(AlarmOrgaRequest, orgaId);
HAS_INT_FIELD(AlarmOrgaRequest, timeType);
HAS_INT_FIELD(AlarmOrgaRequest, orgType);
HAS_INT_FIELD(OnlineOrgaRequest, userId);
HAS_INT_FIELD(OnlineOrgaRequest, orgaId);
HAS_INT_FIELD(OnlineOrgaRequest, timeType);
HAS_INT_FIELD(OnlineOrgaRequest, orgType);
HAS_INT_FIELD(AlarmDevicesRequest, timeType);
HAS_INT_FIELD(AlarmDevicesRequest, sortType);
HAS_INT_FIELD(AlarmDevicesRequest, orgaId);
HAS_INT_FIELD(AlarmDevicesRequest, userId);
HAS_INT_FIELD(AlarmDevicesRequest, pageIndex);
HAS_INT_FIELD(AlarmDevicesRequest, pageSize);
HAS_INT_FIELD(OnlineDevicesRequest, timeType);
HAS_INT_FIELD(OnlineDevicesRequest, sortType);
HAS_INT_FIELD(OnlineDevicesRequest, orgaId);
HAS_INT_FIELD(OnlineDevicesRequest, userId);
HAS_INT_FIELD(OnlineDevicesRequest, pageIndex);
HAS_INT_FIELD(OnlineDevicesRequest, pageSize);
HAS_INT_FIELD(AlarmDeviceRequest, timeType);
HAS_INT_FIELD(OnlineDeviceRequest, timeType);
HAS_INT_FIELD(AlarmDevicesResponse, curPage);
HAS_INT_FIELD(AlarmDevicesResponse, totalPage);
HAS_INT_FIELD(OnlineDevicesResponse, curPage);
HAS_INT_FIELD(OnlineDevicesResponse, totalPage);
HAS_INT_FIELD(AlarmStatisticsRecord, orgaId);
HAS_INT_FIELD(AlarmStatisticsRecord, reservedValue);
HAS_INT_FIELD(AlarmStatisticsRecord, alarmType);
HAS_INT_FIELD(AlarmStatisticsRecord, count);
HAS_INT_FIELD(OnlineStatisticsRecord, orgaId);
HAS_INT_FIELD(OnlineStatisticsRecord, value);

#undef HAS_INT_FIELD

static_assert(std::is_same_v<decltype(AlarmStatisticsRecord::timeLabel), std::string>);
static_assert(std::is_same_v<decltype(AlarmStatisticsRecord::uid), std::string>);
static_assert(std::is_same_v<decltype(OnlineStatisticsRecord::timeLabel), std::string>);
static_assert(std::is_same_v<decltype(OnlineStatisticsRecord::uid), std::string>);

using AlarmRows = std::vector<AlarmStatisticsRecord>;
using OnlineRows = std::vector<OnlineStatisticsRecord>;
static_assert(std::is_same_v<decltype(AlarmOrgasResponse::records), AlarmRows>);
static_assert(std::is_same_v<decltype(AlarmOrgaResponse::records), AlarmRows>);
static_assert(std::is_same_v<decltype(AlarmDevicesResponse::records), AlarmRows>);
static_assert(std::is_same_v<decltype(AlarmDeviceResponse::records), AlarmRows>);
static_assert(std::is_same_v<decltype(OnlineOrgasResponse::records), OnlineRows>);
static_assert(std::is_same_v<decltype(OnlineOrgaResponse::records), OnlineRows>);
static_assert(std::is_same_v<decltype(OnlineDevicesResponse::records), OnlineRows>);
static_assert(std::is_same_v<decltype(OnlineDeviceResponse::records), OnlineRows>);

using Manager = KRXClientStatisticsManager;
static_assert(std::is_base_of_v<VuKRXClientManager, Manager>);
static_assert(std::is_same_v<decltype(&Manager::instance), Manager *(*)()>);
static_assert(std::is_same_v<decltype(std::declval<Manager &>().getLastErrorString()), QString>);
static_assert(std::is_same_v<decltype(&Manager::getAlarmStatisticsOfOrgas),
    Query<Manager, AlarmOrgasRequest, AlarmOrgasResponse>>);
static_assert(std::is_same_v<decltype(&Manager::getAlarmStatisticsOfOrga),
    Query<Manager, AlarmOrgaRequest, AlarmOrgaResponse>>);
static_assert(std::is_same_v<decltype(&Manager::getAlarmStatisticsOfDevices),
    Query<Manager, AlarmDevicesRequest, AlarmDevicesResponse>>);
static_assert(std::is_same_v<decltype(&Manager::getAlarmStatisticsOfDevice),
    Query<Manager, AlarmDeviceRequest, AlarmDeviceResponse>>);
static_assert(std::is_same_v<decltype(&Manager::getOnlineStatisticsOfOrgas),
    Query<Manager, OnlineOrgasRequest, OnlineOrgasResponse>>);
static_assert(std::is_same_v<decltype(&Manager::getOnlineStatisticsOfOrga),
    Query<Manager, OnlineOrgaRequest, OnlineOrgaResponse>>);
static_assert(std::is_same_v<decltype(&Manager::getOnlineStatisticsOfDevices),
    Query<Manager, OnlineDevicesRequest, OnlineDevicesResponse>>);
static_assert(std::is_same_v<decltype(&Manager::getOnlineStatisticsOfDevice),
    Query<Manager, OnlineDeviceRequest, OnlineDeviceResponse>>);

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

template <typename Message>
constexpr bool hasSpanSetters = TakenByConstReference<decltype(&Message::setStartTime)>::value
    &&TakenByConstReference<decltype(&Message::setEndTime)>::value;

static_assert(
    hasSpanSetters<
        AlarmOrgasRequest> && hasSpanSetters<AlarmOrgaRequest> && hasSpanSetters<AlarmDevicesRequest> && hasSpanSetters<AlarmDeviceRequest>);
static_assert(
    hasSpanSetters<
        OnlineOrgasRequest> && hasSpanSetters<OnlineOrgaRequest> && hasSpanSetters<OnlineDevicesRequest> && hasSpanSetters<OnlineDeviceRequest>);
static_assert(TakenByConstReference<decltype(&AlarmOrgasRequest::setListOrg)>::value);
static_assert(TakenByConstReference<decltype(&OnlineOrgasRequest::setListOrg)>::value);
static_assert(TakenByConstReference<decltype(&AlarmDeviceRequest::setUID)>::value);
static_assert(TakenByConstReference<decltype(&OnlineDeviceRequest::setUID)>::value);

bool ascending(std::initializer_list<const void *> addresses)
{
    return std::is_sorted(addresses.begin(), addresses.end(), std::less<const void *>());
}

template <typename Request>
void checkOrgasRequest()
{
    const Request untouched;
    QCOMPARE(untouched.userId, 0);
    QCOMPARE(untouched.timeType, 0);
    QCOMPARE(untouched.sortType, 0);
    QCOMPARE(untouched.orgType, 0);
    QVERIFY(untouched.startTime().empty());
    QVERIFY(untouched.endTime().empty());
    QVERIFY(untouched.listOrg().empty());
    QVERIFY(ascending({&untouched.userId, &untouched.timeType, &untouched.sortType, &untouched.orgType}));

    Request request;
    std::vector<int> organisations = {4, -1, 2147483647};
    request.setStartTime("2024-05");
    request.setEndTime("2024-06");
    request.setListOrg(organisations);
    organisations.clear();
    QCOMPARE(request.startTime(), std::string("2024-05"));
    QCOMPARE(request.endTime(), std::string("2024-06"));
    QCOMPARE(request.listOrg(), (std::vector<int>{4, -1, 2147483647}));
    QCOMPARE(request.userId, 0);
}

template <typename Request>
void checkOrgaRequest()
{
    const Request untouched;
    QCOMPARE(untouched.userId, 0);
    QCOMPARE(untouched.orgaId, 0);
    QCOMPARE(untouched.timeType, 0);
    QCOMPARE(untouched.orgType, 0);
    QVERIFY(untouched.startTime().empty());
    QVERIFY(untouched.endTime().empty());
    QVERIFY(ascending({&untouched.userId, &untouched.orgaId, &untouched.timeType, &untouched.orgType}));

    Request request;
    request.setStartTime("2024-05-03 00");
    request.setEndTime("2024-05-03 17");
    QCOMPARE(request.startTime(), std::string("2024-05-03 00"));
    QCOMPARE(request.endTime(), std::string("2024-05-03 17"));
}

template <typename Request>
void checkDevicesRequest()
{
    const Request untouched;
    QCOMPARE(untouched.timeType, 0);
    QCOMPARE(untouched.sortType, 0);
    QCOMPARE(untouched.orgaId, 0);
    QCOMPARE(untouched.userId, 0);
    QCOMPARE(untouched.pageIndex, 0);
    QCOMPARE(untouched.pageSize, 0);
    QVERIFY(untouched.startTime().empty());
    QVERIFY(untouched.endTime().empty());
    QVERIFY(ascending({&untouched.timeType, &untouched.sortType, &untouched.orgaId, &untouched.userId,
        &untouched.pageIndex, &untouched.pageSize}));

    Request request;
    request.setStartTime("2024-04-26");
    request.setEndTime("2024-05-03");
    QCOMPARE(request.startTime(), std::string("2024-04-26"));
    QCOMPARE(request.endTime(), std::string("2024-05-03"));
}

template <typename Request>
void checkDeviceRequest()
{
    const Request untouched;
    QCOMPARE(untouched.timeType, 0);
    QVERIFY(untouched.startTime().empty());
    QVERIFY(untouched.endTime().empty());
    QVERIFY(untouched.uid().empty());

    Request request;
    request.setStartTime("2024-05");
    request.setEndTime("2024-06");
    request.setUID("\xff\xfe not text");
    QCOMPARE(request.startTime(), std::string("2024-05"));
    QCOMPARE(request.endTime(), std::string("2024-06"));
    QCOMPARE(request.uid(), std::string("\xff\xfe not text"));
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
        QCOMPARE(copy.front().timeLabel, std::string("2024-05-03 08"));
        QCOMPARE(copy.front().orgaId, 12);
        QCOMPARE(copy.front().uid, std::string("uid-1"));
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
        QCOMPARE(copy.front().timeLabel, std::string("2024-05"));
        QCOMPARE(copy.front().orgaId, 3);
        QCOMPARE(copy.front().uid, std::string("uid-2"));
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
        for (const std::string &uid : {std::string(), std::string("nobody"), std::string("\xff")}) {
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
        QCOMPARE(device.get_device_name(), std::string("Camera"));
        QCOMPARE(device.get_device_ip(), std::string("10.0.0.1"));
        QCOMPARE(device.get_device_type_id(), 3);

        TalvixChannel channel;
        channel.set_channel_name("Door");
        channel.set_channel_ip("10.0.0.2");
        channel.set_channel_type_id(2);
        QCOMPARE(channel.get_channel_name(), std::string("Door"));
        QCOMPARE(channel.get_channel_ip(), std::string("10.0.0.2"));
        QCOMPARE(channel.get_channel_type_id(), 2);

        TalvixGroup group;
        group.set_group_name("Plant");
        QCOMPARE(group.get_group_name(), std::string("Plant"));

        TalvixAlarmType type;
        type.set_alarm_type_name("Motion");
        QCOMPARE(type.get_alarm_type_name(), std::string("Motion"));

        TalvixUser user;
        QCOMPARE(user.get_id(), 0);
        user.set_id(9);
        QCOMPARE(user.get_id(), 9);
    }

    void anUntranslatedNamePassesAsItStands()
    {
        AppTranslationHelper *const helper = AppTranslationHelper::instance();
        QCOMPARE(helper->getStringAfterTranslation("Plant North"), QStringLiteral("Plant North"));
        QCOMPARE(helper->getStringAfterTranslation(""), QString());
        QCOMPARE(helper->getStringAfterTranslation(nullptr), QString());
        QVERIFY(!helper->getStringAfterTranslation("\xff\xfe").isEmpty());
    }
};

TALVIX_TEST_MAIN(TestMessages)
#include "tst_messages.moc"
