#include "SqlStatisticsManager.h"

#include "AlarmStatistics.h"
#include "OnlineStatistics.h"
#include "SnapshotStatistics.h"
#include "TemperatureStatistics.h"

#include <QtCore/QRandomGenerator>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>

#include <algorithm>

using namespace devdata;

namespace {

constexpr int longestLatency = 60'000;

template <typename Request>
TimeRange rangeOf(const Request &request)
{
    return parseTimeRange(request.timeType, request.startTime(), request.endTime());
}

TimeRange rangeOf(const StatisticsQueryOfOrga &query)
{
    return parseTimeRange(query.timeType, query.startTime, query.endTime);
}

// Which of two lists a query type asks for.
enum class Distribution { First = 1, Second = 2 };

Distribution distributionOf(int queryType)
{
    if (queryType != static_cast<int>(Distribution::First)
        && queryType != static_cast<int>(Distribution::Second))
        throw StoreError(QStringLiteral("The query type %1 is unknown.").arg(queryType));
    return static_cast<Distribution>(queryType);
}

template <typename Record>
void takePage(TalvixPagedRecordsResponse<Record> &response, const TalvixPagedRecordsResponse<Record> &page)
{
    response.records = page.records;
    response.curPage = page.curPage;
    response.totalPage = page.totalPage;
}

} // namespace

SqlStatisticsManager::SqlStatisticsManager(SqlStore &store)
    : m_store(store)
{ }

SqlStatisticsManager::~SqlStatisticsManager()
{
    endWaiting();
}

void SqlStatisticsManager::setLatency(int milliseconds)
{
    m_latency = std::clamp(milliseconds, 0, longestLatency);
}

void SqlStatisticsManager::setFailureRate(int percent)
{
    m_failureRate = std::clamp(percent, 0, 100);
}

void SqlStatisticsManager::failNext(int queries)
{
    m_failures = std::max(queries, 0);
}

bool SqlStatisticsManager::isToFail()
{
    if (m_failures > 0) {
        --m_failures;
        return true;
    }
    return m_failureRate > QRandomGenerator::global()->bounded(100);
}

Minute SqlStatisticsManager::now() const
{
    return Minute(m_store.presentMoment());
}

// A search asks several times and then draws. One cursor for all of it does not flicker.
void SqlStatisticsManager::showWaiting()
{
    if (m_waiting || !qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return;
    m_waiting = true;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    if (m_asked)
        m_asked();
    QTimer::singleShot(0, &m_endOfWaiting, [this] { endWaiting(); });
}

void SqlStatisticsManager::endWaiting()
{
    if (!m_waiting)
        return;
    m_waiting = false;
    QGuiApplication::restoreOverrideCursor();
}

// No operation throws: an error becomes the text of the last error.
template <typename Answer>
bool SqlStatisticsManager::run(const Answer &answer)
{
    showWaiting();
    if (m_latency > 0)
        QThread::msleep(static_cast<unsigned long>(m_latency));
    try {
        if (isToFail())
            throw StoreError(QStringLiteral("The connection to the statistics service was lost."));
        answer(m_store.connection());
        setLastErrorString({});
        if (m_answered)
            m_answered();
        return true;
    } catch (const std::exception &exception) {
        setLastErrorString(QString::fromUtf8(exception.what()));
    } catch (...) {
        setLastErrorString(QStringLiteral("The statistics service failed."));
    }
    return false;
}

bool SqlStatisticsManager::getAlarmStatisticsOfOrgas(TalvixGetAlarmStatisticsOfOrgasRequestMessage &request,
    TalvixGetAlarmStatisticsOfOrgasResponseMessage &response)
{
    return run([&](Connection &connection) {
        response.records = alarmsOfOrganisations(connection, request.listOrg(), sumModeOf(request.orgType),
            sortOrderOf(request.sortType), rangeOf(request));
    });
}

bool SqlStatisticsManager::getAlarmStatisticsOfOrga(TalvixGetAlarmStatisticsOfOrgaRequestMessage &request,
    TalvixGetAlarmStatisticsOfOrgaResponseMessage &response)
{
    return run([&](Connection &connection) {
        response.records =
            alarmsOfOrganisation(connection, request.orgaId, sumModeOf(request.orgType), rangeOf(request));
    });
}

bool SqlStatisticsManager::getAlarmStatisticsOfDevices(
    TalvixGetAlarmStatisticsOfDevicesRequestMessage &request,
    TalvixGetAlarmStatisticsOfDevicesResponseMessage &response)
{
    return run([&](Connection &connection) {
        takePage(response,
            alarmsOfDevices(connection, request.orgaId, sortOrderOf(request.sortType),
                pageOf(request.pageIndex, request.pageSize), rangeOf(request)));
    });
}

bool SqlStatisticsManager::getAlarmStatisticsOfDevice(TalvixGetAlarmStatisticsOfDeviceRequestMessage &request,
    TalvixGetAlarmStatisticsOfDeviceResponseMessage &response)
{
    return run([&](Connection &connection) {
        response.records = alarmsOfDevice(connection, request.uid(), rangeOf(request));
    });
}

bool SqlStatisticsManager::getOnlineStatisticsOfOrgas(TalvixGetOnlineStatisticsOfOrgasRequestMessage &request,
    TalvixGetOnlineStatisticsOfOrgasResponseMessage &response)
{
    return run([&](Connection &connection) {
        response.records = onlineOfOrganisations(connection, request.listOrg(), sumModeOf(request.orgType),
            sortOrderOf(request.sortType), rangeOf(request), now());
    });
}

bool SqlStatisticsManager::getOnlineStatisticsOfOrga(TalvixGetOnlineStatisticsOfOrgaRequestMessage &request,
    TalvixGetOnlineStatisticsOfOrgaResponseMessage &response)
{
    return run([&](Connection &connection) {
        response.records = onlineOfOrganisation(
            connection, request.orgaId, sumModeOf(request.orgType), rangeOf(request), now());
    });
}

bool SqlStatisticsManager::getOnlineStatisticsOfDevices(
    TalvixGetOnlineStatisticsOfDevicesRequestMessage &request,
    TalvixGetOnlineStatisticsOfDevicesResponseMessage &response)
{
    return run([&](Connection &connection) {
        takePage(response,
            onlineOfDevices(connection, request.orgaId, sortOrderOf(request.sortType),
                pageOf(request.pageIndex, request.pageSize), rangeOf(request), now()));
    });
}

bool SqlStatisticsManager::getOnlineStatisticsOfDevice(
    TalvixGetOnlineStatisticsOfDeviceRequestMessage &request,
    TalvixGetOnlineStatisticsOfDeviceResponseMessage &response)
{
    return run([&](Connection &connection) {
        response.records = onlineOfDevice(connection, request.uid(), rangeOf(request), now());
    });
}

bool SqlStatisticsManager::getTemperatureStatisticsOfGroups(
    TalvixGetTemperatureStatisticsOfGroupsRequestMessage &request,
    TalvixGetTemperatureStatisticsOfGroupsResponseMessage &response)
{
    return run([&](Connection &connection) {
        response.statisticsList = readingsOfGroups(connection, request.personGorupIDList(),
            sumModeOf(request.orgType), sortOrderOf(request.sortType), rangeOf(request));
    });
}

bool SqlStatisticsManager::getTemperatureStatisticsOfGroup(
    TalvixGetTemperatureStatisticsOfGroupRequestMessage &request,
    TalvixGetTemperatureStatisticsOfGroupResponseMessage &response)
{
    return run([&](Connection &connection) {
        response.statisticsList = readingsOfGroup(connection, request.groupId, rangeOf(request));
    });
}

bool SqlStatisticsManager::getTemperatureStatisticsOfPersons(
    TalvixGetTemperatureStatisticsOfPersonsRequestMessage &request,
    TalvixGetTemperatureStatisticsOfPersonsResponseMessage &response)
{
    return run([&](Connection &connection) {
        response = readingsOfPersons(connection, request.orgaId, sortOrderOf(request.sortType),
            pageOf(request.pageIndex, request.pageSize), rangeOf(request));
    });
}

bool SqlStatisticsManager::getTemperatureStatisticsOfPerson(
    TalvixGetTemperatureStatisticsOfPersonRequestMessage &request,
    TalvixGetTemperatureStatisticsOfPersonResponseMessage &response)
{
    return run([&](Connection &connection) {
        response.statisticsList = readingsOfPerson(connection, request.personId, rangeOf(request));
    });
}

bool SqlStatisticsManager::getTempStatisticsDistributionOfGroups(
    TalvixGetTempStatisticsDistributionOfGroupsRequestMessage &request,
    TalvixGetTempStatisticsDistributionOfGroupsResponseMessage &response)
{
    return run([&](Connection &connection) {
        const std::vector<int> &groups = request.personGorupIDList();
        switch (distributionOf(request.queryType)) {
        case Distribution::First:
            response.byNumberList = readingsByNumber(connection, groups, rangeOf(request));
            break;
        case Distribution::Second:
            response.byEtiologyList = readingsByClass(connection, groups, rangeOf(request));
            break;
        }
    });
}

bool SqlStatisticsManager::getTemperatureOfDevice(
    TalvixGetTempStatisticsDistributionOfOrgasRequestMessage &request,
    TalvixGetTempStatisticsDistributionOfOrgasResponseMessage &response)
{
    return run([&](Connection &connection) {
        const StatisticsQueryOfOrga &query = request.queryStatisticsOfOrga();
        switch (distributionOf(query.queryType)) {
        case Distribution::First:
            response.byTemperatureList =
                readingsOfOrganisations(connection, Fact::ReadingClasses, query.listOrg, rangeOf(query));
            break;
        case Distribution::Second:
            response.byMaskList =
                readingsOfOrganisations(connection, Fact::MaskClasses, query.listOrg, rangeOf(query));
            break;
        }
    });
}

bool SqlStatisticsManager::getTempAlarmHandleStatistics(
    TalvixGetTempAlarmHandleStatisticsOfOrgaRequestMessage &request,
    TalvixGetTempAlarmHandleStatisticsOfOrgaResponseMessage &response)
{
    return run([&](Connection &connection) {
        const StatisticsQueryOfOrga &query = request.queryStatisticsOfOrga();
        response.handleList = handledAlarms(connection, query.listOrg, rangeOf(query));
    });
}

bool SqlStatisticsManager::getSnapSamplesResource(
    TalvixGetSnapSamplesRequestMessage &request, TalvixGetSnapSamplesResponseMessage &response)
{
    return run([&](Connection &connection) {
        response.snapSampleList = snapshotsOfChannels(connection, rangeOf(request));
    });
}

bool SqlStatisticsManager::getSnapDetailSamples(
    TalvixGetSnapDetailSamplesRequestMessage &request, TalvixGetSnapDetailSamplesResponseMessage &response)
{
    return run([&](Connection &connection) {
        const TimeRange range = parseTimeRange(request.timeType, request.beginTime(), request.endTime());
        response.snapDetailList = request.channelUid().empty()
            ? snapshotDetailsOfOrganisation(
                connection, request.orgaId, sumModeOf(request.orgType), request.majorType, range)
            : snapshotDetailsOfChannel(connection, request.channelUid(), request.majorType, range);
    });
}

bool SqlStatisticsManager::getTrafficsStatisticsOfOrgas(
    TalvixGetSnapDetailSamplesOfOrgasRequestMessage &request,
    TalvixGetSnapDetailSamplesOfOrgasResponseMessage &response)
{
    return run([&](Connection &connection) {
        response.snapOrgaList = snapshotsOfOrganisations(connection, request.listOrg(),
            sumModeOf(request.orgType), sortOrderOf(request.sortType), rangeOf(request));
    });
}

bool SqlStatisticsManager::getTrafficsStatisticsOfOrga(
    TalvixGetSnapDetailSamplesOfOrgaRequestMessage &request,
    TalvixGetSnapDetailSamplesOfOrgaResponseMessage &response)
{
    return run([&](Connection &connection) {
        response.snapOrgaList =
            snapshotsOfOrganisation(connection, request.orgaId, sumModeOf(request.orgType), rangeOf(request));
    });
}
