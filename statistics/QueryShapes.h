#pragma once

#include "page/BasicChart.h"
#include "page/Texts.h"

#include <TalvixWidgets/KRXClientStatisticsManager.h>

#include <QtCore/QDebug>

#include <functional>

/// The two shapes of the page's queries, and the fields that many requests share.
///
/// A whole-level query tells its outcome by a code and shows nothing; a query by key shows its own tips.
/// Both hand the answered rows to a filler of the data lists.
struct BasicChart::Query
{
    static KRXClientStatisticsManager *manager() { return KRXClientStatisticsManager::instance(); }
    static QString lastError() { return manager()->getLastErrorString(); }

    template <typename Request>
    static void setSpan(BasicChart &page, Request &request)
    {
        QString start;
        QString end;
        page.currentTimeRange(start, end);
        request.setStartTime(start.toStdString());
        request.setEndTime(end.toStdString());
    }

    template <typename Operation, typename Request, typename Response>
    static bool ask(Operation operation, Request &request, Response &response)
    {
        return std::invoke(operation, manager(), request, response);
    }

    static void tipFailed(BasicChart &page)
    {
        page.setTips(Texts::sentence("TK_GetFailed") + lastError(), 2);
    }
    static void tipNoRecords(BasicChart &page) { page.setTips(Texts::sentence("TK_NoRecords"), 2); }

    /// Asks for the bars. \a fill gets the whole response; \a rows is its list that must not be empty.
    template <typename Response, typename Operation, typename Request, typename Rows, typename Fill>
    static int wholeLevel(Operation operation, Request &request, Rows rows, const char *failedWords,
        const char *emptyWords, Fill fill)
    {
        Response response;
        if (!ask(operation, request, response)) {
            qDebug() << failedWords << lastError();
            return Failed;
        }
        if (std::invoke(rows, response).empty()) {
            qDebug() << emptyWords;
            return NoRecords;
        }
        fill(response);
        return Success;
    }

    /// Asks for the detail of one bar. The lists were cleared before, so a bar without detail shows none.
    template <typename Response, typename Operation, typename Request, typename Rows, typename Fill>
    static void byKey(BasicChart &page, Operation operation, Request &request, Rows rows,
        const char *failedWords, const char *emptyWords, Fill fill)
    {
        Response response;
        if (!ask(operation, request, response)) {
            tipFailed(page);
            qDebug() << failedWords << lastError();
            return;
        }
        if (std::invoke(rows, response).empty()) {
            tipNoRecords(page);
            qDebug() << emptyWords;
            return;
        }
        fill(std::invoke(rows, response));
    }

    /// The recipe that alarms and online state of organisations share.
    template <typename Request>
    static bool fillOrgasRequest(BasicChart &page, Request &request, const char *noOrganisationWords)
    {
        setSpan(page, request);
        request.userId = page.m_curUser.get_id();
        request.timeType = page.m_nTimeType;
        request.sortType = page.sortType();
        request.orgType = page.selectedOrgType();
        const std::vector<int> organisations = page.getOrgaIDList();
        if (organisations.empty()) {
            qDebug() << noOrganisationWords;
            return false;
        }
        request.setListOrg(organisations);
        return true;
    }

    /// One page of devices; a changed condition has gone back to page one before the page number is read.
    template <typename Request>
    static void fillDevicesRequest(BasicChart &page, Request &request)
    {
        setSpan(page, request);
        page.compareCondition();
        request.userId = page.m_curUser.get_id();
        request.orgaId = page.getOrgaID();
        request.pageIndex = page.m_nCurPage;
        request.pageSize = page.m_nPageSize;
        request.sortType = page.sortType();
        request.timeType = page.m_nTimeType;
    }

    template <typename Request>
    static void fillOrgaRequest(BasicChart &page, Request &request, const QString &key)
    {
        setSpan(page, request);
        request.userId = page.m_curUser.get_id();
        request.timeType = page.m_nTimeType;
        request.orgaId = key.toInt();
        request.orgType = page.selectedOrgType();
    }
};
