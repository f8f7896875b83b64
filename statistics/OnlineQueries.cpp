#include "Requests.h"

#include "page/TimeFormats.h"
#include "ui_BasicChart.h"

int BasicChart::getOnlineOfOrgas()
{
    qDebug() << "BasicChart::getOnlineOfOrgas";
    TalvixGetOnlineStatisticsOfOrgasRequestMessage request;
    if (!Requests::fillOrgas(*this, request)) {
        qDebug() << "BasicChart::getOnlineOfOrgas No Suborganization";
        return Codes::NoOrganisation;
    }
    TalvixGetOnlineStatisticsOfOrgasResponseMessage response;
    if (!Requests::manager()->getOnlineStatisticsOfOrgas(request, response)) {
        qDebug() << "BasicChart::getOnlineOfOrgas fail" << Requests::lastError();
        return Codes::Failed;
    }
    if (response.records.empty()) {
        qDebug() << "BasicChart::getOnlineOfOrgas records is empty";
        return Codes::NoRecords;
    }
    setOnlineBarList(response.records);
    return Codes::Success;
}

int BasicChart::getOnlineOfDevices()
{
    qDebug() << "BasicChart::getOnlineOfDevices";
    TalvixGetOnlineStatisticsOfDevicesRequestMessage request;
    Requests::fillDevices(*this, request);
    TalvixGetOnlineStatisticsOfDevicesResponseMessage response;
    if (!Requests::manager()->getOnlineStatisticsOfDevices(request, response)) {
        qDebug() << "BasicChart::getOnlineOfDevices fail" << Requests::lastError();
        return Codes::Failed;
    }
    if (response.records.empty()) {
        qDebug() << "BasicChart::getOnlineOfDevices records is empty";
        return Codes::NoRecords;
    }
    setPageInfo(response.totalPage, response.curPage);
    setOnlineBarList(response.records);
    return Codes::Success;
}

void BasicChart::getOnlineOfOrga(const QString &key)
{
    qDebug() << "getOnlineOfOrga by key" << key;
    TalvixGetOnlineStatisticsOfOrgaRequestMessage request;
    Requests::fillOrga(*this, request, key);
    TalvixGetOnlineStatisticsOfOrgaResponseMessage response;
    if (!Requests::manager()->getOnlineStatisticsOfOrga(request, response)) {
        Requests::tipFailed(*this);
        qDebug() << "BasicChart::getBarData fail" << Requests::lastError();
        return;
    }
    if (response.records.empty()) {
        Requests::tipNoRecords(*this);
        qDebug() << "getOnlineOfOrga is empty";
        return;
    }
    setOnlinePieAndLineList(response.records);
}

// The log of this query names the alarm query in two places; support reads it by these words.
void BasicChart::getOnlineOfDevice(const QString &key)
{
    if (TimeFormats::spanParts(ui->lineEditTime->text()).size() != 2)
        return;
    TalvixGetOnlineStatisticsOfDeviceRequestMessage request;
    Requests::fillDevice(*this, request, key);
    qDebug() << " before BasicChart::getOnlineOfDevice";
    TalvixGetOnlineStatisticsOfDeviceResponseMessage response;
    if (!Requests::manager()->getOnlineStatisticsOfDevice(request, response)) {
        Requests::tipFailed(*this);
        qDebug() << "BasicChart::getAlarmOfDevice fail" << Requests::lastError();
        return;
    }
    qDebug() << "BasicChart::getOnlineOfDevice success";
    if (response.records.empty()) {
        Requests::tipNoRecords(*this);
        qDebug() << "getAlarmOfDevice is empty";
        return;
    }
    qDebug() << "BasicChart::getOnlineOfDevice   setOnlinePieAndLineList";
    setOnlinePieAndLineList(response.records);
}
