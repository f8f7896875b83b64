#include "Requests.h"

#include "ui_BasicChart.h"

#include <TalvixWidgets/KrxClient.h>

#include <algorithm>
#include <utility>

namespace {

struct SnapSums
{
    int vehicles = 0;
    int pedestrians = 0;
};

SnapSums sumUp(const std::vector<SnapTypeCount> &counts)
{
    SnapSums sums;
    for (const SnapTypeCount &entry : counts) {
        if (entry.snapType == Codes::Vehicle)
            sums.vehicles = wrappingSum(sums.vehicles, entry.count);
        else if (entry.snapType == Codes::Pedestrian)
            sums.pedestrians = wrappingSum(sums.pedestrians, entry.count);
    }
    return sums;
}

bool hasFigures(const SnapTimeSample &sample)
{
    return std::any_of(sample.channels.cbegin(), sample.channels.cend(),
        [](const SnapChannelSample &channel) { return !channel.typeCounts.empty(); });
}

} // namespace

int BasicChart::getTrafficsStatisticsOfDevice()
{
    qDebug() << "BasicChart::getTrafficsStatisticsOfDevice";
    TalvixGetSnapSamplesRequestMessage request;
    request.setCmd("get_snap_samples");
    request.timeType = m_nTimeType;
    Requests::setSpan(*this, request);
    TalvixGetSnapSamplesResponseMessage response;
    if (!Requests::manager()->getSnapSamplesResource(request, response)) {
        qDebug() << "BasicChart::getTrafficsStatisticsOfDevice fail" << Requests::lastError();
        return Codes::Failed;
    }
    snapSamples = std::move(response.snapSampleList);
    if (snapSamples.empty()) {
        qDebug() << "BasicChart::getTrafficsStatisticsOfDevice records is empty";
        return Codes::NoRecords;
    }
    if (std::none_of(snapSamples.cbegin(), snapSamples.cend(), hasFigures))
        return Codes::NoRecords;
    setBarList(snapSamples);
    return Codes::Success;
}

void BasicChart::setBarList(const std::vector<SnapTimeSample> &samples)
{
    clearBarChartData();
    for (const SnapTimeSample &sample : samples) {
        for (const SnapChannelSample &channel : sample.channels)
            setTrafficDeviceBarItem(channel.channelUid, channel.typeCounts);
    }
    openFirstBar();
}

// A channel that got its address for a label keeps it for its first period only: the figures of later periods
// land on the bar of the channel that bears the name itself.
void BasicChart::setTrafficDeviceBarItem(const std::string &uid, const std::vector<SnapTypeCount> &counts)
{
    KrxClient *client = KrxClient::instance();
    TalvixChannel *channel = client->getChannelByUid(uid);
    if (!channel)
        return;
    QString name = client->getDevNameByChannelID(uid);
    const QString key = QString::fromStdString(uid);
    if (m_keyIndex.indexOfKey(devDataList, key) < 0) {
        name = distinctChannelName(name, *channel);
        m_keyIndex.append(devDataList, {name, key});
        devTypeDataList.append({name, channel->get_channel_type_id()});
    }
    const SnapSums sums = sumUp(counts);
    m_barIndex.fold(barDataList, name, sums.vehicles);
    m_barIndex2.fold(barDataList2, name, sums.pedestrians);
}

void BasicChart::drillIntoChannel(const QString &key)
{
    clearPieAndLineChartData();
    snapDetailMap.clear();
    getTrafficLineOfDevice(key);
    getSnapDetailPieData(key, Codes::ByDevice);
}

void BasicChart::getTrafficLineOfDevice(const QString &key)
{
    lineNames = {Texts::sentence("TK_Vehicle"), Texts::sentence("TK_Pedestrian")};
    const std::string uid = key.toStdString();
    for (const SnapTimeSample &sample : snapSamples) {
        const auto channel = std::find_if(sample.channels.cbegin(), sample.channels.cend(),
            [&uid](const SnapChannelSample &known) { return known.channelUid == uid; });
        setTrafficLineItem(sample.time,
            channel == sample.channels.cend() ? std::vector<SnapTypeCount>() : channel->typeCounts);
    }
}

// An empty list of organisations is asked for as well: the server's answer decides.
int BasicChart::getTrafficsStatisticsOfOrgas()
{
    TalvixGetSnapDetailSamplesOfOrgasRequestMessage request;
    Requests::setSpan(*this, request);
    request.timeType = m_nTimeType;
    request.sortType = sortType();
    request.setListOrg(getOrgaIDList());
    request.orgType = selectedOrgType();
    TalvixGetSnapDetailSamplesOfOrgasResponseMessage response;
    if (!Requests::manager()->getTrafficsStatisticsOfOrgas(request, response)) {
        qDebug() << "BasicChart::getTrafficsStatisticsOfOrgas fail" << Requests::lastError();
        return Codes::Failed;
    }
    if (response.snapOrgaList.empty()) {
        qDebug() << "BasicChart::getTrafficsStatisticsOfOrgas records is empty";
        return Codes::NoRecords;
    }
    setGroupsBarList(response.snapOrgaList);
    return Codes::Success;
}

void BasicChart::setGroupsBarList(const std::vector<SnapOrgaItem> &items)
{
    clearBarChartData();
    for (const SnapOrgaItem &item : items)
        setTrafficOrgaBarItem(item.id, item.typeCounts);
    if (!openFirstBar())
        qDebug() << "setGroupsBarList is empty";
}

void BasicChart::setTrafficOrgaBarItem(const int &id, const std::vector<SnapTypeCount> &counts)
{
    const SnapSums sums = sumUp(counts);
    foldOrgaBar(id, sums.vehicles, sums.pedestrians);
}

void BasicChart::getTrafficsStatisticsOfOrgas(const QString &key)
{
    lineNames = {Texts::sentence("TK_Vehicle"), Texts::sentence("TK_Pedestrian")};
    TalvixGetSnapDetailSamplesOfOrgaRequestMessage request;
    Requests::fillOrga(*this, request, key);
    TalvixGetSnapDetailSamplesOfOrgaResponseMessage response;
    if (!Requests::manager()->getTrafficsStatisticsOfOrga(request, response)) {
        qDebug() << "BasicChart::getTrafficsStatisticsOfOrgas fail" << Requests::lastError();
        return;
    }
    if (response.snapOrgaList.empty()) {
        qDebug() << "BasicChart::getTrafficsStatisticsOfOrgas records is empty";
        return;
    }
    clearPieAndLineChartData();
    for (const SnapOrgaItem &item : response.snapOrgaList)
        setTrafficLineItem(item.name, item.typeCounts);
    snapDetailMap.clear();
    getSnapDetailPieData(key, Codes::ByOrganisation);
}

void BasicChart::setTrafficLineItem(const std::string &label, const std::vector<SnapTypeCount> &counts)
{
    const QString time = QString::fromStdString(label);
    const SnapSums sums = sumUp(counts);
    m_lineIndex.fold(lineDataList, time, sums.vehicles);
    m_lineIndex2.fold(lineDataList2, time, sums.pedestrians);
}

int BasicChart::chosenSnapClass() const
{
    return ui->carRadio->isChecked() ? Codes::Vehicle : Codes::Pedestrian;
}

void BasicChart::getSnapDetailPieData(const QString &key, int mode)
{
    std::vector<SnapDetailMajorItem> items;
    for (const int snapClass : {Codes::Vehicle, Codes::Pedestrian}) {
        if (getSnapDetailSamples(key, snapClass, items, mode))
            snapDetailMap.insert(snapClass, items);
    }
    const std::vector<SnapDetailMajorItem> chosen = snapDetailMap.value(chosenSnapClass());
    if (!chosen.empty())
        setSnapMinorPieList(chosen, chosen.front().majorType);
}

bool BasicChart::getSnapDetailSamples(
    const QString &key, int majorClass, std::vector<SnapDetailMajorItem> &out, int mode)
{
    qDebug() << "BasicChart::getTrafficsStatisticsOfDevice";
    QString start;
    QString end;
    currentTimeRange(start, end);
    TalvixGetSnapDetailSamplesRequestMessage request;
    request.setCmd("get_snap_detail_samples");
    request.timeType = m_nTimeType;
    if (mode == Codes::ByDevice) {
        request.setChannelUid(key.toStdString());
        request.orgaId = unsetValue;
    } else {
        request.orgaId = key.toInt();
    }
    request.orgType = selectedOrgType();
    request.setBeginTime(start.toStdString());
    request.setEndTIme(end.toStdString());
    request.majorType = majorClass;
    TalvixGetSnapDetailSamplesResponseMessage response;
    if (!Requests::manager()->getSnapDetailSamples(request, response))
        return false;
    out = response.snapDetailList;
    return true;
}
