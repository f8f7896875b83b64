#include "StoreQuestions.h"

#include "support/AnswerText.h"

#include <devhost/data/World.h>

#include <QtCore/QElapsedTimer>

using namespace devdata;

namespace {

constexpr const char *busyChannel = "ipc-111-1";
constexpr const char *busyDevice = "ipc-111";
constexpr int rowsOfPage = 10;
constexpr int everybody = 2; // sum mode: own and below
constexpr int greatestFirst = 1;
constexpr int somePerson = 1003;
constexpr int someGroup = 2;

/// As much as a page's calendar lets through: a day of hours, a week and its day, half a year and its month.
struct Period
{
    TimeUnit unit;
    const char *start;
    const char *end;
};
constexpr Period periods[] = {
    {TimeUnit::Hour, "2024-05-02 00", "2024-05-02 23"},
    {TimeUnit::Day, "2024-04-26", "2024-05-03"},
    {TimeUnit::Month, "2023-11", "2024-05"},
};

std::vector<int> allGroups()
{
    return {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
}

qsizetype fieldsOf(const QStringList &rows)
{
    return rows.join(QLatin1Char(' ')).count(QLatin1Char(' ')) + 1;
}

class Questions
{
public:
    template <typename Request, typename Response>
    void add(const char *name, bool (KRXClientStatisticsManager::*operation)(Request &, Response &),
        const std::function<void(Request &)> &complete)
    {
        for (const Period &period : periods) {
            Request request;
            setPeriod(request, period);
            complete(request);
            questions.push_back({name, period.unit, [operation, request](SqlStatisticsManager &service) {
                                     return askFor(service, operation, request);
                                 }});
        }
    }

    std::vector<StoreQuestion> questions;

private:
    template <typename Request>
    static auto setPeriod(Request &request, const Period &period) -> decltype(request.setStartTime(""))
    {
        request.timeType = static_cast<int>(period.unit);
        request.setStartTime(period.start);
        request.setEndTime(period.end);
    }
    static void setPeriod(TalvixGetSnapDetailSamplesRequestMessage &request, const Period &period)
    {
        request.timeType = static_cast<int>(period.unit);
        request.setBeginTime(period.start);
        request.setEndTIme(period.end);
    }
    template <typename Request>
    static auto setPeriod(Request &request, const Period &period)
        -> decltype(request.setQueryStatisticsOfOrga(StatisticsQueryOfOrga()))
    {
        StatisticsQueryOfOrga query;
        query.queryType = 1;
        query.timeType = static_cast<int>(period.unit);
        query.startTime = period.start;
        query.endTime = period.end;
        query.listOrg = {rootOrganisation};
        request.setQueryStatisticsOfOrga(query);
    }

    template <typename Request, typename Response>
    static StoreAnswer askFor(SqlStatisticsManager &service,
        bool (KRXClientStatisticsManager::*operation)(Request &, Response &), Request request)
    {
        Response response;
        QElapsedTimer watch;
        watch.start();
        const bool answered = (service.*operation)(request, response);
        const qint64 nanoseconds = watch.nsecsElapsed();
        if (!answered)
            qFatal("%s", qUtf8Printable(service.getLastErrorString()));
        return {nanoseconds, fieldsOf(answertext::rowsOf(response))};
    }
};

template <typename Request>
void ofWholeTree(Request &request)
{
    request.setListOrg({rootOrganisation});
    request.orgType = everybody;
    request.sortType = greatestFirst;
}

template <typename Request>
void ofRoot(Request &request)
{
    request.orgaId = rootOrganisation;
    request.orgType = everybody;
}

template <typename Request>
void firstPage(Request &request)
{
    request.orgaId = rootOrganisation;
    request.sortType = greatestFirst;
    request.pageIndex = 1;
    request.pageSize = rowsOfPage;
}

template <typename Request>
void asItIs(Request &)
{ }

void ofAllGroups(TalvixGetTemperatureStatisticsOfGroupsRequestMessage &request)
{
    request.setPersonGorupIDList({rootOrganisation});
    request.orgType = everybody;
    request.sortType = greatestFirst;
}

void distributionOfAllGroups(TalvixGetTempStatisticsDistributionOfGroupsRequestMessage &request)
{
    request.setPersonGorupIDList(allGroups());
    request.queryType = 2;
}

void detailsOfAllPedestrians(TalvixGetSnapDetailSamplesRequestMessage &request)
{
    ofRoot(request);
    request.majorType = pedestrianClass;
}

} // namespace

QDateTime storeMoment()
{
    return QDateTime(QDate(2024, 5, 3), QTime(17, 20));
}

std::vector<StoreQuestion> storeQuestions()
{
    using Manager = KRXClientStatisticsManager;
    Questions all;
    const auto add = [&all](const char *name, auto operation, auto complete) {
        all.add(name, operation, {complete});
    };
    add("alarms of organisations", &Manager::getAlarmStatisticsOfOrgas,
        ofWholeTree<TalvixGetAlarmStatisticsOfOrgasRequestMessage>);
    add("alarms of an organisation", &Manager::getAlarmStatisticsOfOrga,
        ofRoot<TalvixGetAlarmStatisticsOfOrgaRequestMessage>);
    add("alarms of devices", &Manager::getAlarmStatisticsOfDevices,
        firstPage<TalvixGetAlarmStatisticsOfDevicesRequestMessage>);
    add("alarms of a device", &Manager::getAlarmStatisticsOfDevice,
        [](TalvixGetAlarmStatisticsOfDeviceRequestMessage &request) { request.setUID(busyChannel); });
    add("online state of organisations", &Manager::getOnlineStatisticsOfOrgas,
        ofWholeTree<TalvixGetOnlineStatisticsOfOrgasRequestMessage>);
    add("online state of an organisation", &Manager::getOnlineStatisticsOfOrga,
        ofRoot<TalvixGetOnlineStatisticsOfOrgaRequestMessage>);
    add("online state of devices", &Manager::getOnlineStatisticsOfDevices,
        firstPage<TalvixGetOnlineStatisticsOfDevicesRequestMessage>);
    add("online state of a device", &Manager::getOnlineStatisticsOfDevice,
        [](TalvixGetOnlineStatisticsOfDeviceRequestMessage &request) { request.setUID(busyDevice); });
    add("temperatures of groups", &Manager::getTemperatureStatisticsOfGroups, ofAllGroups);
    add("temperatures of a group", &Manager::getTemperatureStatisticsOfGroup,
        [](TalvixGetTemperatureStatisticsOfGroupRequestMessage &request) { request.groupId = someGroup; });
    add("temperatures of persons", &Manager::getTemperatureStatisticsOfPersons,
        firstPage<TalvixGetTemperatureStatisticsOfPersonsRequestMessage>);
    add("temperatures of a person", &Manager::getTemperatureStatisticsOfPerson,
        [](TalvixGetTemperatureStatisticsOfPersonRequestMessage &request) { request.personId = somePerson; });
    add("distribution of groups", &Manager::getTempStatisticsDistributionOfGroups, distributionOfAllGroups);
    add("distribution of organisations", &Manager::getTemperatureOfDevice,
        asItIs<TalvixGetTempStatisticsDistributionOfOrgasRequestMessage>);
    add("handling of temperature alarms", &Manager::getTempAlarmHandleStatistics,
        asItIs<TalvixGetTempAlarmHandleStatisticsOfOrgaRequestMessage>);
    add("snapshots of channels", &Manager::getSnapSamplesResource,
        asItIs<TalvixGetSnapSamplesRequestMessage>);
    add("details of snapshots", &Manager::getSnapDetailSamples, detailsOfAllPedestrians);
    add("snapshots of organisations", &Manager::getTrafficsStatisticsOfOrgas,
        ofWholeTree<TalvixGetSnapDetailSamplesOfOrgasRequestMessage>);
    add("snapshots of an organisation", &Manager::getTrafficsStatisticsOfOrga,
        ofRoot<TalvixGetSnapDetailSamplesOfOrgaRequestMessage>);
    return all.questions;
}
