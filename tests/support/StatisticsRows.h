#pragma once

#include "ScriptedStatisticsManager.h"

#include <string>
#include <utility>

inline AlarmStatisticsRecord alarmsOfOrganisation(int orgaId, int count)
{
    AlarmStatisticsRecord row;
    row.orgaId = orgaId;
    row.count = count;
    return row;
}

inline AlarmStatisticsRecord alarmsOfDevice(const std::string &uid, int count)
{
    AlarmStatisticsRecord row;
    row.uid = uid;
    row.count = count;
    return row;
}

inline AlarmStatisticsRecord alarmsOfPeriod(const std::string &label, int alarmType, int count)
{
    AlarmStatisticsRecord row;
    row.timeLabel = label;
    row.alarmType = alarmType;
    row.count = count;
    return row;
}

inline OnlineStatisticsRecord onlineOfOrganisation(int orgaId, int value)
{
    OnlineStatisticsRecord row;
    row.orgaId = orgaId;
    row.value = value;
    return row;
}

inline OnlineStatisticsRecord onlineOfDevice(const std::string &uid, int value)
{
    OnlineStatisticsRecord row;
    row.uid = uid;
    row.value = value;
    return row;
}

inline OnlineStatisticsRecord onlineOfPeriod(const std::string &label, int value)
{
    OnlineStatisticsRecord row;
    row.timeLabel = label;
    row.value = value;
    return row;
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

/// The operation refuses, though it has filled the response with \a response.
template <typename Request, typename Response>
void refuseWith(ScriptedStatisticsManager::Operation<Request, Response> &operation, const Response &response)
{
    operation.answer = [response](const Request &, Response &out) {
        out = response;
        return false;
    };
}
