#include "QueryShapes.h"

#include <TalvixWidgets/AppTranslationHelper.h>

namespace {

constexpr int noClass = -1;

} // namespace

int BasicChart::getTemperatureOfGroups()
{
    qDebug() << "BasicChart::getTemperatureOfGroups";
    TalvixGetTemperatureStatisticsOfGroupsRequestMessage request;
    Query::setSpan(*this, request);
    request.userId = m_curUser.get_id();
    request.sortType = sortType();
    request.orgType = selectedOrgType();
    const std::vector<int> organisations = getOrgaIDList();
    if (organisations.empty()) {
        qDebug() << "BasicChart::getTemperatureOfGroups No Suborganization";
        return NoOrganisation;
    }
    request.setPersonGorupIDList(organisations);
    request.timeType = m_nTimeType;
    using Response = TalvixGetTemperatureStatisticsOfGroupsResponseMessage;
    return Query::wholeLevel<Response>(&KRXClientStatisticsManager::getTemperatureStatisticsOfGroups, request,
        &Response::statisticsList, "BasicChart::getTemperatureOfGroups fail",
        "BasicChart::getTemperatureOfGroups records is empty",
        [this](const Response &response) { setGroupsBarList(response.statisticsList); });
}

int BasicChart::getTemperatureOfPersons()
{
    qDebug() << " BasicChart::getTemperatureOfPersons";
    TalvixGetTemperatureStatisticsOfPersonsRequestMessage request;
    Query::fillDevicesRequest(*this, request);
    using Response = TalvixGetTemperatureStatisticsOfPersonsResponseMessage;
    return Query::wholeLevel<Response>(&KRXClientStatisticsManager::getTemperatureStatisticsOfPersons,
        request, &Response::statisticsList, "BasicChart::getTemperatureOfPersons fail",
        "BasicChart::getTemperatureOfPersons records is empty", [this](const Response &response) {
            setPageInfo(response.totalPage, response.curPage);
            setPersonsBarList(response.statisticsList);
        });
}

void BasicChart::getTemperatureOfGroup(const QString &key)
{
    qDebug() << "getTemperatureOfGroup";
    TalvixGetTemperatureStatisticsOfGroupRequestMessage request;
    Query::setSpan(*this, request);
    request.userId = m_curUser.get_id();
    request.groupId = key.toInt();
    request.timeType = m_nTimeType;
    request.orgType = selectedOrgType();
    using Response = TalvixGetTemperatureStatisticsOfGroupResponseMessage;
    Query::byKey<Response>(*this, &KRXClientStatisticsManager::getTemperatureStatisticsOfGroup, request,
        &Response::statisticsList, "BasicChart::getTemperatureOfGroup fail",
        "getTemperatureOfGroup records is empty", [this](const auto &items) {
            qDebug() << "getTemperatureOfGroup success";
            setGroupLineList(items);
        });
}

void BasicChart::getTemperatureOfPerson(const QString &key)
{
    qDebug() << "getTemperatureOfPerson";
    TalvixGetTemperatureStatisticsOfPersonRequestMessage request;
    Query::setSpan(*this, request);
    request.personId = key.toInt();
    request.timeType = m_nTimeType;
    using Response = TalvixGetTemperatureStatisticsOfPersonResponseMessage;
    Query::byKey<Response>(*this, &KRXClientStatisticsManager::getTemperatureStatisticsOfPerson, request,
        &Response::statisticsList, "BasicChart::getTemperatureOfPerson fail",
        "getTemperatureOfPerson records is empty", [this](const auto &items) {
            qDebug() << "getTemperatureOfPerson success";
            setPersonLineList(items);
        });
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
