#include "Requests.h"

#include <TalvixWidgets/AppTranslationHelper.h>

namespace {

constexpr int noClass = -1;

} // namespace

int BasicChart::getTemperatureOfGroups()
{
    qDebug() << "BasicChart::getTemperatureOfGroups";
    TalvixGetTemperatureStatisticsOfGroupsRequestMessage request;
    Requests::setSpan(*this, request);
    request.userId = m_curUser.get_id();
    request.sortType = sortType();
    request.orgType = selectedOrgType();
    const std::vector<int> organisations = getOrgaIDList();
    if (organisations.empty()) {
        qDebug() << "BasicChart::getTemperatureOfGroups No Suborganization";
        return Codes::NoOrganisation;
    }
    request.setPersonGorupIDList(organisations);
    request.timeType = m_nTimeType;
    TalvixGetTemperatureStatisticsOfGroupsResponseMessage response;
    if (!Requests::manager()->getTemperatureStatisticsOfGroups(request, response)) {
        qDebug() << "BasicChart::getTemperatureOfGroups fail" << Requests::lastError();
        return Codes::Failed;
    }
    if (response.statisticsList.empty()) {
        qDebug() << "BasicChart::getTemperatureOfGroups records is empty";
        return Codes::NoRecords;
    }
    setGroupsBarList(response.statisticsList);
    return Codes::Success;
}

int BasicChart::getTemperatureOfPersons()
{
    qDebug() << " BasicChart::getTemperatureOfPersons";
    TalvixGetTemperatureStatisticsOfPersonsRequestMessage request;
    Requests::fillDevices(*this, request);
    TalvixGetTemperatureStatisticsOfPersonsResponseMessage response;
    if (!Requests::manager()->getTemperatureStatisticsOfPersons(request, response)) {
        qDebug() << "BasicChart::getTemperatureOfPersons fail" << Requests::lastError();
        return Codes::Failed;
    }
    if (response.statisticsList.empty()) {
        qDebug() << "BasicChart::getTemperatureOfPersons records is empty";
        return Codes::NoRecords;
    }
    setPageInfo(response.totalPage, response.curPage);
    setPersonsBarList(response.statisticsList);
    return Codes::Success;
}

void BasicChart::getTemperatureOfGroup(const QString &key)
{
    qDebug() << "getTemperatureOfGroup";
    TalvixGetTemperatureStatisticsOfGroupRequestMessage request;
    Requests::setSpan(*this, request);
    request.userId = m_curUser.get_id();
    request.groupId = key.toInt();
    request.timeType = m_nTimeType;
    request.orgType = selectedOrgType();
    TalvixGetTemperatureStatisticsOfGroupResponseMessage response;
    if (!Requests::manager()->getTemperatureStatisticsOfGroup(request, response)) {
        Requests::tipFailed(*this);
        qDebug() << "BasicChart::getTemperatureOfGroup fail" << Requests::lastError();
        return;
    }
    if (response.statisticsList.empty()) {
        Requests::tipNoRecords(*this);
        qDebug() << "getTemperatureOfGroup records is empty";
        return;
    }
    qDebug() << "getTemperatureOfGroup success";
    setGroupLineList(response.statisticsList);
}

void BasicChart::getTemperatureOfPerson(const QString &key)
{
    qDebug() << "getTemperatureOfPerson";
    TalvixGetTemperatureStatisticsOfPersonRequestMessage request;
    Requests::setSpan(*this, request);
    request.personId = key.toInt();
    request.timeType = m_nTimeType;
    TalvixGetTemperatureStatisticsOfPersonResponseMessage response;
    if (!Requests::manager()->getTemperatureStatisticsOfPerson(request, response)) {
        Requests::tipFailed(*this);
        qDebug() << "BasicChart::getTemperatureOfPerson fail" << Requests::lastError();
        return;
    }
    if (response.statisticsList.empty()) {
        Requests::tipNoRecords(*this);
        qDebug() << "getTemperatureOfPerson records is empty";
        return;
    }
    qDebug() << "getTemperatureOfPerson success";
    setPersonLineList(response.statisticsList);
}

void BasicChart::setGroupsBarList(const std::vector<TemperatureStatisticsItem> &items)
{
    clearBarChartData();
    for (const TemperatureStatisticsItem &item : items) {
        const QString name = AppTranslationHelper::instance()->getStringAfterTranslation(item.name.c_str());
        appendBar(name, QString::number(item.id), item.count);
    }
    if (!openFirstBar())
        qDebug() << "setGroupsBarList is empty";
}

void BasicChart::setPersonsBarList(const std::vector<TemperatureStatisticsItem> &items)
{
    clearBarChartData();
    for (const TemperatureStatisticsItem &item : items)
        appendBar(QString::fromStdString(item.name), QString::number(item.id), item.count);
    if (!openFirstBar())
        qDebug() << "setPersonsBarList is empty";
}

void BasicChart::setGroupLineList(const std::vector<TemperatureStatisticsItem> &items)
{
    clearPieAndLineChartData();
    for (const TemperatureStatisticsItem &item : items)
        m_lineIndex.fold(lineDataList, QString::fromStdString(item.name), item.count);
}

void BasicChart::setPersonLineList(const std::vector<TemperatureStatisticsItem> &items)
{
    clearPieAndLineChartData();
    for (const TemperatureStatisticsItem &item : items) {
        QString label = QString::fromStdString(item.name);
        m_lineIndex.fold(lineDataList, label, item.count);
        if (item.count == 0)
            continue;
        if (item.id != noClass)
            label = QString::number(item.id);
        m_pieIndex.fold(pieDataList, label, item.count);
    }
}
