#pragma once

#include "FakeKrxClient.h"
#include "LogCapture.h"
#include "ProbePage.h"
#include "ScriptedStatisticsManager.h"

#include <QtCore/QStringList>

#include <string>
#include <utility>
#include <vector>

/// A page on show over a small organisation tree, its first search done and forgotten.
///
/// Pages of types 5 and 6 get no tree of their own; theirs comes from a show as type 1.
class StatisticsScene
{
public:
    /// Root 41 "Company", below it 42 "Plant North" and 43 "Plant South".
    static QString smallTree();

    explicit StatisticsScene(int type, const QString &tree = smallTree());

    FakeKrxClient client;
    ScriptedStatisticsManager manager;
    ProbePage page;

    /// Forgets calls, requests and tips so far. Answers and the page's data stay.
    void forget();
    /// Runs the whole-level query of the page's type and gives its result code.
    int queryWholeLevel();
    /// Presses a button of the page by its object name.
    void press(const char *button);
    /// The tips so far, each as its kind, a blank and its text.
    QStringList tips() const;
};

/// UTF-8 as text.
inline QString text(const std::string &utf8)
{
    return QString::fromStdString(utf8);
}

/// The lines that begin with one of \a starts, in the order of the log.
QStringList linesStartingWith(const LogCapture &log, const QStringList &starts);

/// How many lines are \a words followed by \a reason, with or without quotation marks around the reason.
int countOfReasonLines(const LogCapture &log, const QString &words, const QString &reason);

/// Makes an operation of temperature figures answer \a items.
template <typename Request, typename Response>
void answerItems(ScriptedStatisticsManager::Operation<Request, Response> &operation,
    std::vector<TemperatureStatisticsItem> items)
{
    Response response;
    response.statisticsList = std::move(items);
    operation.answers(response);
}

/// Makes the paged operation of persons answer \a items as page \a curPage of \a totalPage.
void answerPersons(ScriptedStatisticsManager &manager, std::vector<TemperatureStatisticsItem> items,
    int totalPage = 1, int curPage = 1);

/// Makes an operation of organisations' snapshots answer \a items.
template <typename Request, typename Response>
void answerOrgas(
    ScriptedStatisticsManager::Operation<Request, Response> &operation, std::vector<SnapOrgaItem> items)
{
    Response response;
    response.snapOrgaList = std::move(items);
    operation.answers(response);
}

/// Makes the query for snapshots of all channels answer \a samples.
void answerSamples(ScriptedStatisticsManager &manager, std::vector<SnapTimeSample> samples);

/// Makes the query for minor types answer by class: vehicles (4) and pedestrians (2).
void answerDetails(ScriptedStatisticsManager &manager, std::vector<SnapDetailMajorItem> vehicles,
    std::vector<SnapDetailMajorItem> pedestrians);

/// Makes the distribution of a group answer each query type with its own list alone.
void answerGroupDistribution(ScriptedStatisticsManager &manager, std::vector<TempDistributionItem> byEtiology,
    std::vector<TempDistributionItem> byNumber);

/// Makes the distribution of device groups answer each query type with its own list alone.
void answerOrgaDistribution(ScriptedStatisticsManager &manager,
    std::vector<TempDistributionItem> byTemperature, std::vector<TempDistributionItem> byMask);

/// Makes the query for alarm handling answer \a records.
void answerHandling(ScriptedStatisticsManager &manager, std::vector<TempAlarmHandleItem> records);

/// Classes and counts of a distribution, in a form that tests can compare.
QList<std::pair<int, int>> pairs(const std::vector<TempDistributionItem> &items);
