#include "AlarmStatistics.h"

namespace devdata {

namespace {

constexpr int noAlarmType = -1;

std::vector<AlarmStatisticsRecord> alarmsByType(Connection &connection, const Selection &selection)
{
    std::vector<AlarmStatisticsRecord> records;
    forEachPeriod(selection.range, countsByPeriod(connection, selection), noAlarmType,
        [&](Period period, int type, int count) {
            AlarmStatisticsRecord record;
            record.timeLabel = period.label();
            record.alarmType = type;
            record.count = count;
            records.push_back(record);
        });
    return records;
}

} // namespace

std::vector<AlarmStatisticsRecord> alarmsOfOrganisations(Connection &connection,
    const std::vector<int> &listOrg, SumMode mode, SortOrder order, const TimeRange &range)
{
    std::vector<AlarmStatisticsRecord> records;
    for (const SubjectCount &bar : countsOfLevel(connection, Fact::Alarms, listOrg, mode, order, range)) {
        AlarmStatisticsRecord record;
        record.orgaId = bar.id;
        record.alarmType = noAlarmType;
        record.count = boundedCount(bar.count);
        records.push_back(record);
    }
    return records;
}

std::vector<AlarmStatisticsRecord> alarmsOfOrganisation(
    Connection &connection, int organisation, SumMode mode, const TimeRange &range)
{
    return alarmsByType(connection, {Fact::AlarmTypes, scopesOf(mode), {organisation}, range});
}

TalvixPagedRecordsResponse<AlarmStatisticsRecord> alarmsOfDevices(
    Connection &connection, int organisation, SortOrder order, const Page &page, const TimeRange &range)
{
    const PagedCounts counts = countsOfSources(connection, Fact::Alarms, organisation, order, page, range);
    TalvixPagedRecordsResponse<AlarmStatisticsRecord> answer;
    answer.curPage = page.index;
    answer.totalPage = counts.pages;
    for (const SubjectCount &bar : counts.rows) {
        AlarmStatisticsRecord record;
        record.uid = bar.name.toStdString();
        record.alarmType = noAlarmType;
        record.count = boundedCount(bar.count);
        answer.records.push_back(record);
    }
    return answer;
}

std::vector<AlarmStatisticsRecord> alarmsOfDevice(
    Connection &connection, const std::string &uid, const TimeRange &range)
{
    return alarmsByType(
        connection, {Fact::AlarmTypes, {Scope::Source}, {sourceOfUid(connection, uid)}, range});
}

} // namespace devdata
