#pragma once

#include <TalvixMessages/AlarmStatisticsMessages.h>
#include <TalvixMessages/OnlineStatisticsMessages.h>
#include <TalvixMessages/SnapStatisticsMessages.h>
#include <TalvixMessages/TemperatureStatisticsMessages.h>

#include <QtCore/QStringList>

#include <string>
#include <vector>

/// Answers of the statistics service as text, with every field of every row, for comparing whole answers.
namespace answertext {

inline QString textOf(const SnapChannelSample &sample);
inline QString textOf(const SnapTimeSample &sample);
inline QString textOf(const SnapDetailMajorItem &item);
inline QString textOf(const SnapOrgaItem &item);

inline QString field(const std::string &value)
{
    return QLatin1Char('"') + QString::fromStdString(value) + QLatin1Char('"');
}

inline QString field(int value)
{
    return QString::number(value);
}

template <typename... Fields>
QString row(const Fields &...fields)
{
    return QStringList{field(fields)...}.join(QLatin1Char(' '));
}

inline QString textOf(const AlarmStatisticsRecord &record)
{
    return row(
        record.timeLabel, record.orgaId, record.uid, record.reservedValue, record.alarmType, record.count);
}

inline QString textOf(const OnlineStatisticsRecord &record)
{
    return row(record.timeLabel, record.orgaId, record.uid, record.value);
}

inline QString textOf(const TemperatureStatisticsItem &item)
{
    return row(item.id, item.name, item.count);
}

inline QString textOf(const TempDistributionItem &item)
{
    return row(item.code, item.count);
}

inline QString textOf(const TempAlarmHandleItem &item)
{
    return row(item.handleState, item.count, item.time);
}

inline QString textOf(const SnapTypeCount &count)
{
    return row(count.snapType, count.count, count.reserved);
}

inline QString textOf(const SnapDetailMinorCount &minor)
{
    return row(minor.minorType, minor.count);
}

template <typename Item>
QStringList rowsOf(const std::vector<Item> &items)
{
    QStringList rows;
    for (const Item &item : items)
        rows.append(textOf(item));
    return rows;
}

template <typename Item>
QString listOf(const std::vector<Item> &items)
{
    return QLatin1Char('[') + rowsOf(items).join(QStringLiteral(", ")) + QLatin1Char(']');
}

inline QString textOf(const SnapOrgaItem &item)
{
    return row(item.id, item.name) + listOf(item.typeCounts);
}

inline QString textOf(const SnapChannelSample &sample)
{
    return row(sample.channelUid) + listOf(sample.typeCounts);
}

inline QString textOf(const SnapTimeSample &sample)
{
    return row(sample.time) + listOf(sample.channels);
}

inline QString textOf(const SnapDetailMajorItem &item)
{
    return row(item.majorType) + listOf(item.minors);
}

inline QString pageText(int curPage, int totalPage)
{
    return QStringLiteral("page %1 of %2").arg(curPage).arg(totalPage);
}

template <typename Record>
QStringList rowsOf(const TalvixRecordsResponse<Record> &response)
{
    return rowsOf(response.records);
}

template <typename Record>
QStringList rowsOf(const TalvixPagedRecordsResponse<Record> &response)
{
    return QStringList(pageText(response.curPage, response.totalPage)) + rowsOf(response.records);
}

inline QStringList rowsOf(const TalvixGetTemperatureStatisticsOfPersonsResponseMessage &response)
{
    return QStringList(pageText(response.curPage, response.totalPage)) + rowsOf(response.statisticsList);
}

template <typename Response>
auto rowsOf(const Response &response) -> decltype(rowsOf(response.snapSampleList))
{
    return rowsOf(response.snapSampleList);
}

template <typename Response>
auto rowsOf(const Response &response) -> decltype(rowsOf(response.snapDetailList))
{
    return rowsOf(response.snapDetailList);
}

template <typename Response>
auto rowsOf(const Response &response) -> decltype(rowsOf(response.snapOrgaList))
{
    return rowsOf(response.snapOrgaList);
}

template <typename Response>
auto rowsOf(const Response &response) -> decltype(rowsOf(response.handleList))
{
    return rowsOf(response.handleList);
}

template <typename Response>
auto rowsOf(const Response &response) -> decltype(rowsOf(response.statisticsList))
{
    return rowsOf(response.statisticsList);
}

inline QStringList rowsOf(const TalvixGetTempStatisticsDistributionOfGroupsResponseMessage &response)
{
    return QStringList(QStringLiteral("by number")) + rowsOf(response.byNumberList)
        + QStringList(QStringLiteral("by class")) + rowsOf(response.byEtiologyList);
}

inline QStringList rowsOf(const TalvixGetTempStatisticsDistributionOfOrgasResponseMessage &response)
{
    return QStringList(QStringLiteral("by temperature")) + rowsOf(response.byTemperatureList)
        + QStringList(QStringLiteral("by mask")) + rowsOf(response.byMaskList);
}

} // namespace answertext
