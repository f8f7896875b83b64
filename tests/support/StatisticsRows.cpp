#include "StatisticsRows.h"

void answerPersons(ScriptedStatisticsManager &manager, std::vector<TemperatureStatisticsItem> items,
    int totalPage, int curPage)
{
    TalvixGetTemperatureStatisticsOfPersonsResponseMessage response;
    response.statisticsList = std::move(items);
    response.totalPage = totalPage;
    response.curPage = curPage;
    manager.temperatureStatisticsOfPersons.answers(response);
}

void answerSamples(ScriptedStatisticsManager &manager, std::vector<SnapTimeSample> samples)
{
    TalvixGetSnapSamplesResponseMessage response;
    response.snapSampleList = std::move(samples);
    manager.snapSamplesResource.answers(response);
}

void answerDetails(ScriptedStatisticsManager &manager, std::vector<SnapDetailMajorItem> vehicles,
    std::vector<SnapDetailMajorItem> pedestrians)
{
    manager.snapDetailSamples.answer = [vehicles = std::move(vehicles), pedestrians = std::move(pedestrians)](
                                           const TalvixGetSnapDetailSamplesRequestMessage &request,
                                           TalvixGetSnapDetailSamplesResponseMessage &response) {
        response.snapDetailList = request.majorType == 4 ? vehicles : pedestrians;
        return true;
    };
}

void answerGroupDistribution(ScriptedStatisticsManager &manager, std::vector<TempDistributionItem> byEtiology,
    std::vector<TempDistributionItem> byNumber)
{
    manager.tempStatisticsDistributionOfGroups.answer =
        [byEtiology = std::move(byEtiology), byNumber = std::move(byNumber)](
            const TalvixGetTempStatisticsDistributionOfGroupsRequestMessage &request,
            TalvixGetTempStatisticsDistributionOfGroupsResponseMessage &response) {
            if (request.queryType == 1)
                response.byNumberList = byNumber;
            else
                response.byEtiologyList = byEtiology;
            return true;
        };
}

void answerOrgaDistribution(ScriptedStatisticsManager &manager,
    std::vector<TempDistributionItem> byTemperature, std::vector<TempDistributionItem> byMask)
{
    manager.temperatureOfDevice.answer =
        [byTemperature = std::move(byTemperature), byMask = std::move(byMask)](
            const TalvixGetTempStatisticsDistributionOfOrgasRequestMessage &request,
            TalvixGetTempStatisticsDistributionOfOrgasResponseMessage &response) {
            if (request.queryStatisticsOfOrga().queryType == 1)
                response.byTemperatureList = byTemperature;
            else
                response.byMaskList = byMask;
            return true;
        };
}

void answerHandling(ScriptedStatisticsManager &manager, std::vector<TempAlarmHandleItem> records)
{
    TalvixGetTempAlarmHandleStatisticsOfOrgaResponseMessage response;
    response.handleList = std::move(records);
    manager.tempAlarmHandleStatistics.answers(response);
}
