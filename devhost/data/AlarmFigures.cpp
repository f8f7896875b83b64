#include "AlarmFigures.h"

namespace devdata {

namespace {

constexpr int noAlarmType = -1;

std::vector<AlarmStatisticsRecord> alarmsByType(Connection &connection, const Selection &selection)
{
    std::vector<AlarmStatisticsRecord> records;
    forEachPeriod(selection.span, figuresByBucket(connection, selection), noAlarmType,
        [&](Bucket bucket, int type, int count) {
            AlarmStatisticsRecord record;
            record.timeLabel = labelOf(bucket, selection.span.unit);
            record.alarmType = type;
            record.count = count;
            records.push_back(record);
        });
    return records;
}

} // namespace

std::vector<AlarmStatisticsRecord> alarmsOfOrganisations(
    Connection &connection, const std::vector<int> &listOrg, SumMode mode, SortOrder order, const Span &span)
{
    std::vector<AlarmStatisticsRecord> records;
    for (const SubjectFigure &figure : figuresOfLevel(connection, Fact::Alarms, listOrg, mode, order, span)) {
        AlarmStatisticsRecord record;
        record.orgaId = figure.id;
        record.alarmType = noAlarmType;
        record.count = boundedCount(figure.value);
        records.push_back(record);
    }
    return records;
}

std::vector<AlarmStatisticsRecord> alarmsOfOrganisation(
    Connection &connection, int organisation, SumMode mode, const Span &span)
{
    return alarmsByType(connection, {Fact::AlarmTypes, scopesOf(mode), {organisation}, span});
}

TalvixPagedRecordsResponse<AlarmStatisticsRecord> alarmsOfDevices(
    Connection &connection, int organisation, SortOrder order, const Page &page, const Span &span)
{
    const PagedFigures figures = figuresOfSources(connection, Fact::Alarms, organisation, order, page, span);
    TalvixPagedRecordsResponse<AlarmStatisticsRecord> answer;
    answer.curPage = page.index;
    answer.totalPage = figures.pages;
    for (const SourceFigure &figure : figures.rows) {
        AlarmStatisticsRecord record;
        record.uid = figure.uid;
        record.alarmType = noAlarmType;
        record.count = boundedCount(figure.value);
        answer.records.push_back(record);
    }
    return answer;
}

std::vector<AlarmStatisticsRecord> alarmsOfDevice(
    Connection &connection, const std::string &uid, const Span &span)
{
    return alarmsByType(
        connection, {Fact::AlarmTypes, {Scope::Source}, {sourceOfUid(connection, uid)}, span});
}

} // namespace devdata
