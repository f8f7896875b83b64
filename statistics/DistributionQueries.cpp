#include "Requests.h"

#include "page/ServiceTypes.h"

#include <QtCore/QCalendar>
#include <QtCore/QDateTime>

#include <stdexcept>

namespace {

// Months of device groups are asked for by their first day.
QString firstDayOfMonth(const QString &month)
{
    return QDateTime::fromString(month, QStringLiteral("yyyy-MM"), QCalendar())
        .toString(QStringLiteral("yyyy-MM-dd"));
}

// Figures that came for no organisation are a fault of the host, which hears of it in these words.
int firstOf(const std::vector<int> &organisations)
{
    if (organisations.empty())
        throw std::out_of_range("invalid vector<T> subscript");
    return organisations.front();
}

} // namespace

void BasicChart::drillIntoGroup(const QString &key)
{
    getTemperatureOfGroup(key);
    getTempStatisticsDistributionOfGroups(key, Codes::ByEtiology);
    getTempStatisticsDistributionOfGroups(key, Codes::ByNumber);
    if (etiologyDistribution.empty() && numberDistribution.empty())
        Requests::tipNoRecords(*this);
    else
        setEtiologyPieList(etiologyDistribution);
}

void BasicChart::drillIntoDeviceGroup(const QString &key)
{
    getTemperatureStatisticsOfDevGroups(key, Codes::ByTemperature);
    getTemperatureStatisticsOfDevGroups(key, Codes::ByMask);
    if (temperatureDistribution.empty() && maskDistribution.empty()) {
        Requests::tipNoRecords(*this);
        return;
    }
    if (const PieMode *mode = chosenPieMode())
        (this->*mode->fill)();
}

// A refused call leaves the answer of an earlier bar in place, and the pie shows it.
void BasicChart::getTempStatisticsDistributionOfGroups(const QString &key, int queryType)
{
    TalvixGetTempStatisticsDistributionOfGroupsRequestMessage request;
    Requests::setSpan(*this, request);
    request.userId = m_curUser.get_id();
    request.timeType = m_nTimeType;
    request.queryType = queryType;
    request.setPersonGorupIDList({key.toInt()});
    request.orgType = selectedOrgType();
    TalvixGetTempStatisticsDistributionOfGroupsResponseMessage response;
    if (!Requests::manager()->getTempStatisticsDistributionOfGroups(request, response)) {
        Requests::tipFailed(*this);
        qDebug() << "BasicChart::getTempStatisticsDistributionOfGroups fail" << Requests::lastError();
        return;
    }
    if (queryType != Codes::ByNumber && queryType != Codes::ByEtiology)
        return;
    auto &distribution = queryType == Codes::ByNumber ? numberDistribution : etiologyDistribution;
    distribution = queryType == Codes::ByNumber ? response.byNumberList : response.byEtiologyList;
    if (distribution.empty())
        qDebug() << "getTempStatisticsDistributionOfGroups records is empty";
    else
        qDebug() << "getTempStatisticsDistributionOfGroups success";
}

StatisticsQueryOfOrga BasicChart::deviceGroupQuery(int queryType)
{
    QString start;
    QString end;
    currentTimeRange(start, end);
    if (m_nTimeType == ZrCalendarWidget::Month) {
        start = firstDayOfMonth(start);
        end = firstDayOfMonth(end);
    }
    StatisticsQueryOfOrga query;
    query.queryType = queryType;
    query.startTime = start.toStdString();
    query.endTime = end.toStdString();
    query.timeType = m_nTimeType;
    query.listOrg = getOrgaIDList();
    query.userId = m_curUser.get_id();
    return query;
}

int BasicChart::getTemperatureStatisticsOfDevGroups()
{
    TalvixGetTempAlarmHandleStatisticsOfOrgaRequestMessage request;
    request.setQueryStatisticsOfOrga(deviceGroupQuery(Codes::AlarmHandling));
    TalvixGetTempAlarmHandleStatisticsOfOrgaResponseMessage response;
    if (!Requests::manager()->getTempAlarmHandleStatistics(request, response)) {
        qDebug() << "BasicChart::getTemperatureStatisticsOfDevGroups fail" << Requests::lastError();
        return Codes::Failed;
    }
    tempAlarmHandleList = response.handleList;
    if (tempAlarmHandleList.empty()) {
        qDebug() << "BasicChart::getTemperatureStatisticsOfDevGroups records is empty";
        return Codes::NoRecords;
    }
    clearBarChartData();
    setTempAlarmBarItem(firstOf(getOrgaIDList()), tempAlarmHandleList);
    if (!openFirstBar())
        qDebug() << "setGroupsBarList is empty";
    return Codes::Success;
}

void BasicChart::setTempAlarmBarItem(const int &id, const std::vector<TempAlarmHandleItem> &records)
{
    int accepted = 0;
    int notAccepted = 0;
    for (const TempAlarmHandleItem &record : records) {
        if (record.handleState == Codes::Accepted)
            accepted = wrappingSum(accepted, record.count);
        else if (record.handleState == Codes::NotAccepted)
            notAccepted = wrappingSum(notAccepted, record.count);
    }
    foldOrgaBar(id, accepted, notAccepted);
}

void BasicChart::foldOrgaBar(int id, int first, int second)
{
    const QString name = organisationName(id);
    const QString key = QString::number(id);
    if (m_keyIndex.indexOfKey(devDataList, key) < 0)
        m_keyIndex.append(devDataList, {name, key});
    m_barIndex.fold(barDataList, name, first);
    m_barIndex2.fold(barDataList2, name, second);
}

// The answer is for the organisation of the page whatever the bar: there is one bar.
void BasicChart::getTemperatureStatisticsOfDevGroups(const QString &, int queryType)
{
    lineNames = {Texts::sentence("TK_AlarmAccepted"), Texts::sentence("TK_AlarmUnAccepted")};
    setTempAlarmLineList(tempAlarmHandleList);
    TalvixGetTempStatisticsDistributionOfOrgasRequestMessage request;
    request.setQueryStatisticsOfOrga(deviceGroupQuery(queryType));
    TalvixGetTempStatisticsDistributionOfOrgasResponseMessage response;
    if (!Requests::manager()->getTemperatureOfDevice(request, response)) {
        qDebug() << "BasicChart::getTemperatureStatisticsOfDevGroups fail" << Requests::lastError();
        return;
    }
    if (queryType != Codes::ByTemperature && queryType != Codes::ByMask)
        return;
    auto &distribution = queryType == Codes::ByTemperature ? temperatureDistribution : maskDistribution;
    distribution = queryType == Codes::ByTemperature ? response.byTemperatureList : response.byMaskList;
    if (distribution.empty())
        qDebug() << "BasicChart::getTemperatureStatisticsOfDevGroups records is empty";
}

void BasicChart::setTempAlarmLineList(const std::vector<TempAlarmHandleItem> &records)
{
    clearPieAndLineChartData();
    for (const TempAlarmHandleItem &record : records)
        setTempAlarmLineItem(record);
}

void BasicChart::setTempAlarmLineItem(const TempAlarmHandleItem &record)
{
    const QString time = QString::fromStdString(record.time);
    m_lineIndex.fold(lineDataList, time, record.handleState == Codes::Accepted ? record.count : 0);
    m_lineIndex2.fold(lineDataList2, time, record.handleState == Codes::NotAccepted ? record.count : 0);
}
