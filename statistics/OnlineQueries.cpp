#include "QueryShapes.h"

#include "page/TimeFormats.h"
#include "ui_BasicChart.h"

int BasicChart::getOnlineOfOrgas()
{
    qDebug() << "BasicChart::getOnlineOfOrgas";
    TalvixGetOnlineStatisticsOfOrgasRequestMessage request;
    if (!Query::fillOrgasRequest(*this, request, "BasicChart::getOnlineOfOrgas No Suborganization"))
        return NoOrganisation;
    using Response = TalvixGetOnlineStatisticsOfOrgasResponseMessage;
    return Query::wholeLevel<Response>(&KRXClientStatisticsManager::getOnlineStatisticsOfOrgas, request,
        &Response::records, "BasicChart::getOnlineOfOrgas fail",
        "BasicChart::getOnlineOfOrgas records is empty",
        [this](const Response &response) { setOnlineBarList(response.records); });
}

int BasicChart::getOnlineOfDevices()
{
    qDebug() << "BasicChart::getOnlineOfDevices";
    TalvixGetOnlineStatisticsOfDevicesRequestMessage request;
    Query::fillDevicesRequest(*this, request);
    using Response = TalvixGetOnlineStatisticsOfDevicesResponseMessage;
    return Query::wholeLevel<Response>(&KRXClientStatisticsManager::getOnlineStatisticsOfDevices, request,
        &Response::records, "BasicChart::getOnlineOfDevices fail",
        "BasicChart::getOnlineOfDevices records is empty", [this](const Response &response) {
            setPageInfo(response.totalPage, response.curPage);
            setOnlineBarList(response.records);
        });
}

void BasicChart::getOnlineOfOrga(const QString &key)
{
    qDebug() << "getOnlineOfOrga by key" << key;
    TalvixGetOnlineStatisticsOfOrgaRequestMessage request;
    Query::fillOrgaRequest(*this, request, key);
    using Response = TalvixGetOnlineStatisticsOfOrgaResponseMessage;
    Query::byKey<Response>(*this, &KRXClientStatisticsManager::getOnlineStatisticsOfOrga, request,
        &Response::records, "BasicChart::getBarData fail", "getOnlineOfOrga is empty",
        [this](const auto &records) { setOnlinePieAndLineList(records); });
}

// The log of this query names the alarm query in two places; support reads it by these words.
void BasicChart::getOnlineOfDevice(const QString &key)
{
    if (TimeFormats::spanParts(ui->lineEditTime->text()).size() != 2)
        return;
    TalvixGetOnlineStatisticsOfDeviceRequestMessage request;
    Query::setSpan(*this, request);
    request.timeType = m_nTimeType;
    request.setUID(key.toStdString());
    qDebug() << " before BasicChart::getOnlineOfDevice";
    TalvixGetOnlineStatisticsOfDeviceResponseMessage response;
    if (!Query::ask(&KRXClientStatisticsManager::getOnlineStatisticsOfDevice, request, response)) {
        Query::tipFailed(*this);
        qDebug() << "BasicChart::getAlarmOfDevice fail" << Query::lastError();
        return;
    }
    qDebug() << "BasicChart::getOnlineOfDevice success";
    if (response.records.empty()) {
        Query::tipNoRecords(*this);
        qDebug() << "getAlarmOfDevice is empty";
        return;
    }
    qDebug() << "BasicChart::getOnlineOfDevice   setOnlinePieAndLineList";
    setOnlinePieAndLineList(response.records);
}
