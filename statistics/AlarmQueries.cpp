#include "Requests.h"

int BasicChart::getAlarmOfOrgas()
{
    qDebug() << "BasicChart::getAlarmOfOrgas";
    TalvixGetAlarmStatisticsOfOrgasRequestMessage request;
    if (!Requests::fillOrgas(*this, request)) {
        qDebug() << "BasicChart::getAlarmOfOrgas No Suborganization";
        return Codes::NoOrganisation;
    }
    TalvixGetAlarmStatisticsOfOrgasResponseMessage response;
    if (!Requests::manager()->getAlarmStatisticsOfOrgas(request, response)) {
        qDebug() << "BasicChart::getAlarmOfOrgas fail" << Requests::lastError();
        return Codes::Failed;
    }
    if (response.records.empty()) {
        qDebug() << "BasicChart::getAlarmOfOrgas records is empty";
        return Codes::NoRecords;
    }
    setBarList(response.records);
    return Codes::Success;
}

int BasicChart::getAlarmOfDevices()
{
    qDebug() << "BasicChart::getAlarmOfDevices";
    TalvixGetAlarmStatisticsOfDevicesRequestMessage request;
    Requests::fillDevices(*this, request);
    TalvixGetAlarmStatisticsOfDevicesResponseMessage response;
    if (!Requests::manager()->getAlarmStatisticsOfDevices(request, response)) {
        qDebug() << "BasicChart::getAlarmOfDevices fail" << Requests::lastError();
        return Codes::Failed;
    }
    if (response.records.empty()) {
        qDebug() << "BasicChart::getAlarmOfDevices records is empty";
        return Codes::NoRecords;
    }
    setPageInfo(response.totalPage, response.curPage);
    setBarList(response.records);
    return Codes::Success;
}

void BasicChart::getAlarmOfOrga(const QString &key)
{
    qDebug() << "getAlarmOfOrga by key" << key;
    TalvixGetAlarmStatisticsOfOrgaRequestMessage request;
    Requests::fillOrga(*this, request, key);
    TalvixGetAlarmStatisticsOfOrgaResponseMessage response;
    if (!Requests::manager()->getAlarmStatisticsOfOrga(request, response)) {
        Requests::tipFailed(*this);
        qDebug() << "BasicChart::AlarmOfOrga fail" << Requests::lastError();
        return;
    }
    if (response.records.empty()) {
        Requests::tipNoRecords(*this);
        qDebug() << "getAlarmOfOrga is empty   dispaly req";
        return;
    }
    setPieAndLineList(response.records);
}

void BasicChart::getAlarmOfDevice(const QString &key)
{
    qDebug() << "getAlarmOfDevice by key" << key;
    TalvixGetAlarmStatisticsOfDeviceRequestMessage request;
    Requests::fillDevice(*this, request, key);
    TalvixGetAlarmStatisticsOfDeviceResponseMessage response;
    if (!Requests::manager()->getAlarmStatisticsOfDevice(request, response)) {
        Requests::tipFailed(*this);
        qDebug() << "BasicChart::getAlarmOfDevice fail" << Requests::lastError();
        return;
    }
    if (response.records.empty()) {
        Requests::tipNoRecords(*this);
        qDebug() << " getAlarmOfDevice is empty";
        return;
    }
    setPieAndLineList(response.records);
}
