#include "page/BasicChart.h"
#include "page/ServiceTypes.h"

#include <TalvixWidgets/AppTranslationHelper.h>
#include <TalvixWidgets/KrxClient.h>

#include <QtCore/QDebug>
#include <QtCore/QMutexLocker>

namespace {

constexpr int noAlarmType = -1;

QString translatedName(const std::string &name)
{
    return AppTranslationHelper::instance()->getStringAfterTranslation(name.c_str());
}

} // namespace

void BasicChart::clearBarChartData()
{
    qDebug() << "BasicChart::clearBarChartData ";
    const QMutexLocker lock(&m_mutex);
    barDataList.clear();
    barDataList2.clear();
    devDataList.clear();
    devTypeDataList.clear();
}

void BasicChart::clearPieAndLineChartData()
{
    qDebug() << "BasicChart::clearPieAndLineChartData";
    const QMutexLocker lock(&m_mutex);
    lineDataList.clear();
    lineDataList2.clear();
    pieDataList.clear();
}

void BasicChart::clearPieChartData()
{
    qDebug() << "BasicChart::clearPieChartData";
    const QMutexLocker lock(&m_mutex);
    pieDataList.clear();
}

void BasicChart::setBarList(const std::vector<AlarmStatisticsRecord> &records)
{
    qDebug() << "BasicChart::setBarList";
    clearBarChartData();
    const ServiceTypeRow &row = serviceType();
    const bool alarms = row.figures == ServiceTypeRow::Figures::Alarm;
    if (alarms && row.bars == ServiceTypeRow::Bars::Organisations) {
        for (const AlarmStatisticsRecord &record : records)
            setOrgaBarItem(record.orgaId, record.count);
        qDebug() << "type AlarmStatisticsOfOrgas bardatalist " << barDataList << "\n devDataList"
                 << devDataList;
    } else if (alarms && row.bars == ServiceTypeRow::Bars::Devices) {
        for (const AlarmStatisticsRecord &record : records)
            setDevBarItem(record.uid, record.count);
        qDebug() << "type AlarmStatisticsOfDevices  bardatalist " << barDataList << "\n devDataList"
                 << devDataList;
    }
    if (!openFirstBar())
        qDebug() << " BasicChart::setBarList  barDataList is empty";
}

void BasicChart::setOnlineBarList(const std::vector<OnlineStatisticsRecord> &records)
{
    clearBarChartData();
    const ServiceTypeRow &row = serviceType();
    const bool online = row.figures == ServiceTypeRow::Figures::Online;
    if (online && row.bars == ServiceTypeRow::Bars::Organisations) {
        for (const OnlineStatisticsRecord &record : records)
            setOrgaBarItem(record.orgaId, record.value);
        qDebug() << "type OnlineStatisticsOfOrgas bardatalist " << barDataList << "\n devDataList"
                 << devDataList;
    } else if (online && row.bars == ServiceTypeRow::Bars::Devices) {
        for (const OnlineStatisticsRecord &record : records)
            setDevBarItem(record.uid, record.value);
        qDebug() << "type OnlineStatisticsOfDevices bardatalist " << barDataList << "\n devDataList"
                 << devDataList;
    }
    if (!openFirstBar())
        qDebug() << " setOnlineBarList  barDataList is empty";
}

bool BasicChart::openFirstBar()
{
    if (barDataList.isEmpty() || devDataList.isEmpty())
        return false;
    const QString key = devDataList.constFirst().second;
    getChartDataByBarId(key);
    return true;
}

void BasicChart::setPieAndLineList(const std::vector<AlarmStatisticsRecord> &records)
{
    clearPieAndLineChartData();
    for (const AlarmStatisticsRecord &record : records)
        setLineAndPieItem(record.timeLabel, record.count, record.alarmType);
}

void BasicChart::setOnlinePieAndLineList(const std::vector<OnlineStatisticsRecord> &records)
{
    clearPieAndLineChartData();
    for (const OnlineStatisticsRecord &record : records)
        setLineAndPieItem(record.timeLabel, record.value, noAlarmType);
}

QString BasicChart::organisationName(int id)
{
    TalvixGroup *organisation = KrxClient::instance()->getOrgaInfoById(id);
    if (!organisation)
        return QString::number(id);
    return translatedName(organisation->get_group_name());
}

void BasicChart::appendBar(const QString &name, const QString &key, int value)
{
    barDataList.append({name, value});
    m_keyIndex.append(devDataList, {name, key});
}

void BasicChart::setOrgaBarItem(int id, int value)
{
    appendBar(organisationName(id), QString::number(id), value);
}

void BasicChart::setDevBarItem(const std::string &uid, int value)
{
    KrxClient *client = KrxClient::instance();
    const QString key = QString::fromStdString(uid);
    if (TalvixChannel *channel = client->getChannelByUid(uid)) {
        const QString name = distinctChannelName(client->getDevNameByChannelID(uid), *channel);
        appendBar(name, key, value);
        devTypeDataList.append({name, channel->get_channel_type_id()});
    } else if (TalvixDevice *device = client->getDevicesByUid(uid)) {
        QString name = QString::fromStdString(device->get_device_name());
        if (m_keyIndex.indexOf(devDataList, name) >= 0)
            name = QString::fromStdString(device->get_device_ip());
        appendBar(name, key, value);
        devTypeDataList.append({name, device->get_device_type_id()});
    } else {
        qDebug() << "uid  is invalid" << key;
    }
}

// A name that is taken gives way to the address, or to the channel's own name. It is not compared again.
QString BasicChart::distinctChannelName(const QString &name, TalvixChannel &channel)
{
    if (m_keyIndex.indexOf(devDataList, name) < 0)
        return name;
    const std::string address = channel.get_channel_ip();
    return QString::fromStdString(address.empty() ? channel.get_channel_name() : address);
}

void BasicChart::setLineAndPieItem(const std::string &label, int value, int alarmType)
{
    const QMutexLocker lock(&m_mutex);
    QString name = QString::fromStdString(label);
    m_lineIndex.fold(lineDataList, name, value);
    if (value == 0)
        return;
    if (alarmType != noAlarmType) {
        name = QString::number(alarmType);
        if (TalvixAlarmType *type = KrxClient::instance()->getAlarmTypeByCode(alarmType))
            name = translatedName(type->get_alarm_type_name());
    }
    m_pieIndex.fold(pieDataList, name, value);
}

void BasicChart::sortLineList()
{
    lineDataList = sortedByLabel(lineDataList);
    lineDataList2 = sortedByLabel(lineDataList2);
}

void BasicChart::getChartDataByBarId(const QString &key)
{
    qDebug() << "BasicChart::getChartDataByBarId";
    clearPieAndLineChartData();
    (this->*serviceType().drillDown)(key);
    sortLineList();
    qDebug() << "linedatalist" << lineDataList;
    qDebug() << " piedatalist " << pieDataList;
}
