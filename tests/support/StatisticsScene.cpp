#include "StatisticsScene.h"

#include <QtCore/QRegularExpression>
#include <QtTest/QtTest>

#include <algorithm>

QString StatisticsScene::smallTree()
{
    return QStringLiteral("41 Company\n"
                          "  42 Plant North\n"
                          "  43 Plant South\n");
}

StatisticsScene::StatisticsScene(int type, const QString &tree)
    : page(type == 5 || type == 6 ? 1 : type)
{
    client.setTree(tree);
    page.show();
    page.setServiceType(type);
    forget();
}

void StatisticsScene::forget()
{
    page.tips.clear();
    client.calls.clear();
    forgetRequests(manager);
}

int StatisticsScene::queryWholeLevel()
{
    switch (page.m_serviceType) {
    case 5:
        return page.getTemperatureOfGroups();
    case 6:
        return page.getTemperatureOfPersons();
    case 7:
        return page.getTrafficsStatisticsOfOrgas();
    case 8:
        return page.getTrafficsStatisticsOfDevice();
    case 9:
        return page.getTemperatureStatisticsOfDevGroups();
    default:
        return 0;
    }
}

void StatisticsScene::press(const char *button)
{
    QTest::mouseClick(page.part<QWidget>(button), Qt::LeftButton);
}

QStringList StatisticsScene::tips() const
{
    QStringList shown;
    for (const ProbePage::Tip &tip : page.tips)
        shown.append(QStringLiteral("%1 %2").arg(tip.kind).arg(tip.text));
    return shown;
}

QStringList linesStartingWith(const LogCapture &log, const QStringList &starts)
{
    QStringList found;
    const QStringList lines = log.lines();
    for (const QString &line : lines) {
        const bool wanted = std::any_of(
            starts.cbegin(), starts.cend(), [&line](const QString &start) { return line.startsWith(start); });
        if (wanted)
            found.append(line);
    }
    return found;
}

int countOfReasonLines(const LogCapture &log, const QString &words, const QString &reason)
{
    const QRegularExpression pattern(
        QStringLiteral("\\A%1 ?\"?%2\"?\\z")
            .arg(QRegularExpression::escape(words), QRegularExpression::escape(reason)));
    return static_cast<int>(log.lines().filter(pattern).size());
}

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

QList<std::pair<int, int>> pairs(const std::vector<TempDistributionItem> &items)
{
    QList<std::pair<int, int>> list;
    for (const TempDistributionItem &item : items)
        list.append({item.code, item.count});
    return list;
}
