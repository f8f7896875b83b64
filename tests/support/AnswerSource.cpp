#include "AnswerSource.h"

namespace {

constexpr int mostRows = 12;
constexpr int mostInnerRows = 3;
constexpr int snapClasses = 6;

void make(AnswerSource &source, SnapTypeCount &row)
{
    row = {source.rows(snapClasses), source.number(), source.number()};
}

void make(AnswerSource &source, SnapDetailMinorCount &row)
{
    row = {source.number(), source.number()};
}

void make(AnswerSource &source, AlarmStatisticsRecord &row)
{
    row.timeLabel = source.period();
    row.orgaId = source.organisation();
    row.uid = source.uid();
    row.alarmType = source.number();
    row.count = source.number();
}

void make(AnswerSource &source, OnlineStatisticsRecord &row)
{
    row.timeLabel = source.period();
    row.orgaId = source.organisation();
    row.uid = source.uid();
    row.value = source.number();
}

void make(AnswerSource &source, TemperatureStatisticsItem &row)
{
    row.id = source.number();
    row.name = source.rows(1) > 0 ? source.name() : source.period();
    row.count = source.number();
}

void make(AnswerSource &source, TempDistributionItem &row)
{
    row = {source.number(), source.number()};
}

void make(AnswerSource &source, TempAlarmHandleItem &row)
{
    row.handleState = source.rows(mostInnerRows);
    row.count = source.number();
    row.time = source.period();
}

template <typename Row>
void fill(AnswerSource &source, std::vector<Row> &list, int most = mostRows);

void make(AnswerSource &source, SnapOrgaItem &row)
{
    row.id = source.organisation();
    row.name = source.period();
    fill(source, row.typeCounts, mostInnerRows);
}

void make(AnswerSource &source, SnapDetailMajorItem &row)
{
    row.majorType = source.number();
    fill(source, row.minors, mostInnerRows);
}

void make(AnswerSource &source, SnapChannelSample &row)
{
    row.channelUid = source.uid();
    fill(source, row.typeCounts, mostInnerRows);
}

void make(AnswerSource &source, SnapTimeSample &row)
{
    row.time = source.period();
    fill(source, row.channels, mostInnerRows);
}

template <typename Row>
void fill(AnswerSource &source, std::vector<Row> &list, int most)
{
    for (int i = source.rows(most); i > 0; --i) {
        Row row;
        make(source, row);
        list.push_back(row);
    }
}

template <typename Record>
void fillAnswer(AnswerSource &source, TalvixRecordsResponse<Record> &response)
{
    fill(source, response.records);
}

template <typename Record>
void fillAnswer(AnswerSource &source, TalvixPagedRecordsResponse<Record> &response)
{
    fill(source, response.records);
    response.curPage = source.number();
    response.totalPage = source.number();
}

void fillAnswer(AnswerSource &source, TalvixTemperatureListResponse &response)
{
    fill(source, response.statisticsList);
}

void fillAnswer(AnswerSource &source, TalvixGetTemperatureStatisticsOfPersonsResponseMessage &response)
{
    fill(source, response.statisticsList);
    response.curPage = source.number();
    response.totalPage = source.number();
}

void fillAnswer(AnswerSource &source, TalvixGetTempStatisticsDistributionOfGroupsResponseMessage &response)
{
    fill(source, response.byNumberList);
    fill(source, response.byEtiologyList);
}

void fillAnswer(AnswerSource &source, TalvixGetTempStatisticsDistributionOfOrgasResponseMessage &response)
{
    fill(source, response.byTemperatureList);
    fill(source, response.byMaskList);
}

void fillAnswer(AnswerSource &source, TalvixGetTempAlarmHandleStatisticsOfOrgaResponseMessage &response)
{
    fill(source, response.handleList);
}

void fillAnswer(AnswerSource &source, TalvixGetSnapSamplesResponseMessage &response)
{
    fill(source, response.snapSampleList);
}

void fillAnswer(AnswerSource &source, TalvixGetSnapDetailSamplesResponseMessage &response)
{
    fill(source, response.snapDetailList);
}

void fillAnswer(AnswerSource &source, TalvixSnapOrgaListResponse &response)
{
    fill(source, response.snapOrgaList);
}

template <typename Request, typename Response>
void answer(ScriptedStatisticsManager::Operation<Request, Response> &operation, AnswerSource &source)
{
    operation.answer = [&source](const Request &, Response &response) {
        if (source.refuses())
            return false;
        fillAnswer(source, response);
        return true;
    };
}

} // namespace

void answerFrom(ScriptedStatisticsManager &manager, AnswerSource &source)
{
    answer(manager.alarmStatisticsOfOrgas, source);
    answer(manager.alarmStatisticsOfOrga, source);
    answer(manager.alarmStatisticsOfDevices, source);
    answer(manager.alarmStatisticsOfDevice, source);
    answer(manager.onlineStatisticsOfOrgas, source);
    answer(manager.onlineStatisticsOfOrga, source);
    answer(manager.onlineStatisticsOfDevices, source);
    answer(manager.onlineStatisticsOfDevice, source);
    answer(manager.temperatureStatisticsOfGroups, source);
    answer(manager.temperatureStatisticsOfGroup, source);
    answer(manager.temperatureStatisticsOfPersons, source);
    answer(manager.temperatureStatisticsOfPerson, source);
    answer(manager.tempStatisticsDistributionOfGroups, source);
    answer(manager.temperatureOfDevice, source);
    answer(manager.tempAlarmHandleStatistics, source);
    answer(manager.snapSamplesResource, source);
    answer(manager.snapDetailSamples, source);
    answer(manager.trafficsStatisticsOfOrgas, source);
    answer(manager.trafficsStatisticsOfOrga, source);
}
