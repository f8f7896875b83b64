#include "QueryShapes.h"

int BasicChart::getAlarmOfOrgas()
{
    qDebug() << "BasicChart::getAlarmOfOrgas";
    TalvixGetAlarmStatisticsOfOrgasRequestMessage request;
    if (!Query::fillOrgasRequest(*this, request, "BasicChart::getAlarmOfOrgas No Suborganization"))
        return NoOrganisation;
    using Response = TalvixGetAlarmStatisticsOfOrgasResponseMessage;
    return Query::wholeLevel<Response>(&KRXClientStatisticsManager::getAlarmStatisticsOfOrgas, request,
        &Response::records, "BasicChart::getAlarmOfOrgas fail",
        "BasicChart::getAlarmOfOrgas records is empty",
        [this](const Response &response) { setBarList(response.records); });
}

int BasicChart::getAlarmOfDevices()
{
    qDebug() << "BasicChart::getAlarmOfDevices";
    TalvixGetAlarmStatisticsOfDevicesRequestMessage request;
    Query::fillDevicesRequest(*this, request);
    using Response = TalvixGetAlarmStatisticsOfDevicesResponseMessage;
    return Query::wholeLevel<Response>(&KRXClientStatisticsManager::getAlarmStatisticsOfDevices, request,
        &Response::records, "BasicChart::getAlarmOfDevices fail",
        "BasicChart::getAlarmOfDevices records is empty", [this](const Response &response) {
            setPageInfo(response.totalPage, response.curPage);
            setBarList(response.records);
        });
}

void BasicChart::getAlarmOfOrga(const QString &key)
{
    qDebug() << "getAlarmOfOrga by key" << key;
    TalvixGetAlarmStatisticsOfOrgaRequestMessage request;
    Query::fillOrgaRequest(*this, request, key);
    using Response = TalvixGetAlarmStatisticsOfOrgaResponseMessage;
    Query::byKey<Response>(*this, &KRXClientStatisticsManager::getAlarmStatisticsOfOrga, request,
        &Response::records, "BasicChart::AlarmOfOrga fail", "getAlarmOfOrga is empty   dispaly req",
        [this](const auto &records) { setPieAndLineList(records); });
}

void BasicChart::getAlarmOfDevice(const QString &key)
{
    qDebug() << "getAlarmOfDevice by key" << key;
    TalvixGetAlarmStatisticsOfDeviceRequestMessage request;
    Query::setSpan(*this, request);
    request.timeType = m_nTimeType;
    request.setUID(key.toStdString());
    using Response = TalvixGetAlarmStatisticsOfDeviceResponseMessage;
    Query::byKey<Response>(*this, &KRXClientStatisticsManager::getAlarmStatisticsOfDevice, request,
        &Response::records, "BasicChart::getAlarmOfDevice fail", " getAlarmOfDevice is empty",
        [this](const auto &records) { setPieAndLineList(records); });
}
