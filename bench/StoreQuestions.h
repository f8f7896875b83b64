#pragma once

#include <devhost/data/Periods.h>
#include <devhost/data/SqlStatisticsManager.h>

#include <QtCore/QDateTime>

#include <functional>
#include <vector>

struct StoreAnswer
{
    qint64 nanoseconds;
    qsizetype fields; ///< values in all rows, nested ones as well
};

/// One operation of the statistics service with a request that takes long: the whole tree, all of its levels,
/// and the longest span of the unit that a page lets its user choose.
struct StoreQuestion
{
    const char *operation;
    devdata::TimeUnit unit;
    std::function<StoreAnswer(SqlStatisticsManager &)> ask;
};

/// The present moment of all stores that are measured.
QDateTime storeMoment();

/// Every operation in every unit.
std::vector<StoreQuestion> storeQuestions();
