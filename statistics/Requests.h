#pragma once

#include "page/BasicChart.h"
#include "page/Codes.h"
#include "page/Texts.h"

#include <TalvixWidgets/KRXClientStatisticsManager.h>

#include <QtCore/QDebug>

/// What the queries share: the fields of many requests, and the tips of the queries by key.
///
/// A query of a whole level tells its outcome by a code and shows nothing. A query by key tells nothing;
/// those of kinds 1 to 6 show tips. Both hand the answered rows to an operation that fills the data lists.
struct BasicChart::Requests
{
    static KRXClientStatisticsManager *manager() { return KRXClientStatisticsManager::instance(); }
    static QString lastError() { return manager()->getLastErrorString(); }

    static void tipFailed(BasicChart &page)
    {
        page.setTips(Texts::sentence("TK_GetFailed") + lastError(), Codes::Warning);
    }

    static void tipNoRecords(BasicChart &page)
    {
        page.setTips(Texts::sentence("TK_NoRecords"), Codes::Warning);
    }

    template <typename Request>
    static void setSpan(const BasicChart &page, Request &request)
    {
        QString start;
        QString end;
        page.currentTimeRange(start, end);
        request.setStartTime(start.toStdString());
        request.setEndTime(end.toStdString());
    }

    /// Alarms and online state of organisations. False when there is no organisation to ask for.
    template <typename Request>
    static bool fillOrgas(BasicChart &page, Request &request)
    {
        setSpan(page, request);
        request.userId = page.m_curUser.get_id();
        request.timeType = page.m_nTimeType;
        request.sortType = page.sortType();
        request.orgType = page.selectedOrgType();
        const std::vector<int> organisations = page.getOrgaIDList();
        if (organisations.empty())
            return false;
        request.setListOrg(organisations);
        return true;
    }

    /// One page of devices; a changed condition has gone back to page one before the page number is read.
    template <typename Request>
    static void fillDevices(BasicChart &page, Request &request)
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
    static void fillOrga(const BasicChart &page, Request &request, const QString &key)
    {
        setSpan(page, request);
        request.userId = page.m_curUser.get_id();
        request.timeType = page.m_nTimeType;
        request.orgaId = key.toInt();
        request.orgType = page.selectedOrgType();
    }

    template <typename Request>
    static void fillDevice(const BasicChart &page, Request &request, const QString &key)
    {
        setSpan(page, request);
        request.timeType = page.m_nTimeType;
        request.setUID(key.toStdString());
    }
};
