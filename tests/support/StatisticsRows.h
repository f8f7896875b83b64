#pragma once

#include "ScriptedStatisticsManager.h"

#include <string>
#include <utility>
#include <vector>

inline AlarmStatisticsRecord alarmsOfOrganisation(int orgaId, int count)
{
    return {{}, orgaId, {}, 0, 0, count};
}

inline AlarmStatisticsRecord alarmsOfDevice(const std::string &uid, int count)
{
    return {{}, 0, uid, 0, 0, count};
}

inline AlarmStatisticsRecord alarmsOfPeriod(const std::string &label, int alarmType, int count)
{
    return {label, 0, {}, 0, alarmType, count};
}

inline OnlineStatisticsRecord onlineOfOrganisation(int orgaId, int value)
{
    return {{}, orgaId, {}, value};
}

inline OnlineStatisticsRecord onlineOfDevice(const std::string &uid, int value)
{
    return {{}, 0, uid, value};
}

inline OnlineStatisticsRecord onlineOfPeriod(const std::string &label, int value)
{
    return {label, 0, {}, value};
}

/// The operation succeeds with these rows from now on.
template <typename Request, typename Response>
void answerRows(ScriptedStatisticsManager::Operation<Request, Response> &operation,
    const decltype(Response::records) &rows)
{
    Response response;
    response.records = rows;
    operation.answers(response);
}

/// The operation succeeds with these rows as one page of several.
template <typename Request, typename Response>
void answerPage(ScriptedStatisticsManager::Operation<Request, Response> &operation,
    const decltype(Response::records) &rows, int curPage, int totalPage)
{
    Response response;
    response.records = rows;
    response.curPage = curPage;
    response.totalPage = totalPage;
    operation.answers(response);
}

/// The operation answers each page that it is asked for, with the same rows on all of them.
template <typename Request, typename Response>
void answerEveryPage(ScriptedStatisticsManager::Operation<Request, Response> &operation,
    const decltype(Response::records) &rows, int totalPage)
{
    operation.answer = [rows, totalPage](const Request &request, Response &out) {
        out.records = rows;
        out.curPage = request.pageIndex;
        out.totalPage = totalPage;
        return true;
    };
}

/// Makes an operation of temperature figures answer \a items.
template <typename Request, typename Response>
void answerItems(ScriptedStatisticsManager::Operation<Request, Response> &operation,
    std::vector<TemperatureStatisticsItem> items)
{
    Response response;
    response.statisticsList = std::move(items);
    operation.answers(response);
}

/// Makes the paged operation of persons answer \a items as page \a curPage of \a totalPage.
void answerPersons(ScriptedStatisticsManager &manager, std::vector<TemperatureStatisticsItem> items,
    int totalPage = 1, int curPage = 1);

/// Makes an operation of organisations' snapshots answer \a items.
template <typename Request, typename Response>
void answerOrgas(
    ScriptedStatisticsManager::Operation<Request, Response> &operation, std::vector<SnapOrgaItem> items)
{
    Response response;
    response.snapOrgaList = std::move(items);
    operation.answers(response);
}

/// Makes the query for snapshots of all channels answer \a samples.
void answerSamples(ScriptedStatisticsManager &manager, std::vector<SnapTimeSample> samples);

/// Makes the query for minor types answer by class: vehicles (4) and pedestrians (2).
void answerDetails(ScriptedStatisticsManager &manager, std::vector<SnapDetailMajorItem> vehicles,
    std::vector<SnapDetailMajorItem> pedestrians);

/// Makes the distribution of a group answer each query type with its own list alone.
void answerGroupDistribution(ScriptedStatisticsManager &manager, std::vector<TempDistributionItem> byEtiology,
    std::vector<TempDistributionItem> byNumber);

/// Makes the distribution of device groups answer each query type with its own list alone.
void answerOrgaDistribution(ScriptedStatisticsManager &manager,
    std::vector<TempDistributionItem> byTemperature, std::vector<TempDistributionItem> byMask);

/// Makes the query for alarm handling answer \a records.
void answerHandling(ScriptedStatisticsManager &manager, std::vector<TempAlarmHandleItem> records);
