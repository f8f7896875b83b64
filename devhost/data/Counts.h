#pragma once

#include "Periods.h"
#include "Sql.h"

#include <map>
#include <vector>

namespace devdata {

/// What a row of the table `figure` counts. The numbers are stored.
enum class Fact : int {
    Alarms = 1,
    AlarmTypes = 2, ///< by alarm type
    OnlineMinutes = 3,
    Readings = 4,
    ReadingClasses = 5,     ///< by temperature class
    MaskClasses = 6,        ///< by mask class
    HandlingStates = 7,     ///< temperature alarms by handling state
    Snapshots = 8,          ///< by snapshot class
    VehicleDetails = 9,     ///< by `detailClass`
    PedestrianDetails = 10, ///< by `detailClass`
};

/// Whom a row of the table `figure` counts for. The numbers are stored.
///
/// Every event also counts for all organisations above its own, so the count of a whole branch is read, not
/// summed: a query costs the same however many organisations and events there are.
enum class Scope : int {
    Source = 1,            ///< a channel or device
    Organisation = 2,      ///< an organisation's own sources
    BelowOrganisation = 3, ///< everything below an organisation, without its own
    Person = 4,
    PersonGroup = 5,
};

/// How an organisation is counted; the numbers are those of the requests.
enum class SumMode : int { Below = 1, All = 2, OnlyCurrent = 3 };

enum class SortOrder : int { Descending = 1, Ascending = 2 };

/// A minor type of a snapshot together with its major type, as one class.
constexpr int minorTypeLimit = 1000;
constexpr int detailClass(int major, int minor)
{
    return major * minorTypeLimit + minor;
}

/// Throws StoreError when \a orgType is none.
SumMode sumModeOf(int orgType);
SortOrder sortOrderOf(int sortType);
std::vector<Scope> scopesOf(SumMode mode);

/// Steps down from an organisation to those that a sum mode counts.
struct Distance
{
    int least;
    int most;
};
Distance distanceOf(SumMode mode);

/// Counts of answers have 32 bits; what is greater stays at the greatest.
int boundedCount(qint64 count);

/// Joins the counts of the subjects that a statement selects: " CROSS JOIN figure f WHERE …", with question
/// marks for fact, scope and time range. The cross join makes SQLite start from the few subjects; left to
/// itself it would look for them in all the counts there are.
QString joinCountsOf(const char *subject);

/// Whose counts, of what and in which time range. Several subjects count together.
struct Selection
{
    Fact fact;
    std::vector<Scope> scopes;
    std::vector<int> subjects;
    TimeRange range;
};

struct PeriodCount
{
    Period period;
    int eventClass;
    qint64 count;
};

/// The counts by period and class, in that order. Periods without counts are left out.
std::vector<PeriodCount> countsByPeriod(Connection &connection, const Selection &selection);

struct ClassCount
{
    int eventClass;
    qint64 count;
};

/// The counts by class.
std::vector<ClassCount> countsByClass(Connection &connection, const Selection &selection);

/// The counts by subject and class.
std::map<int, std::vector<ClassCount>> countsBySubject(Connection &connection, const Selection &selection);

/// A bar: how much was counted for an organisation, source, group or person.
struct SubjectCount
{
    int id;
    QString name;
    qint64 count;
};

/// The rows of a statement with the columns id, name and total; none when all totals are 0.
std::vector<SubjectCount> subjectCounts(Statement &rows);

/// The organisations that a whole-level answer has rows for: those of the list that exist and, unless each
/// counts alone, their direct children. In the order of their ids.
std::vector<int> organisationsOfLevel(Connection &connection, const std::vector<int> &listOrg, SumMode mode);

/// The organisations of the list that exist and lie below no other one of it, so that nothing is counted
/// twice.
std::vector<int> topmostOrganisations(Connection &connection, const std::vector<int> &listOrg);

/// A row for each organisation of the level, sorted by count. Empty when nothing at all was counted.
std::vector<SubjectCount> countsOfLevel(Connection &connection, Fact fact, const std::vector<int> &listOrg,
    SumMode mode, SortOrder order, const TimeRange &range);

/// Number of the channel, or else of the device, with this uid; 0 when there is none.
int sourceOfUid(Connection &connection, const std::string &uid);
/// Number of the device with this uid, or else of the device that the channel belongs to; 0 when there is
/// none.
int deviceOfUid(Connection &connection, const std::string &uid);

struct Page
{
    int index;
    int size;
};

/// The page that \a pageIndex and \a pageSize mean: from 1, with 10 rows when they say nothing sensible.
Page pageOf(int pageIndex, int pageSize);
int pagesFor(qint64 rows, const Page &page);
qint64 firstRowOf(const Page &page);
QString directionOf(SortOrder order);

struct PagedCounts
{
    std::vector<SubjectCount> rows;
    int pages = 0;
};

/// One page of the sources of \a organisation and everything below it of which something was counted, by
/// their uids.
PagedCounts countsOfSources(Connection &connection, Fact fact, int organisation, SortOrder order,
    const Page &page, const TimeRange &range);
/// The same of persons, by their names.
PagedCounts countsOfPersons(Connection &connection, Fact fact, int organisation, SortOrder order,
    const Page &page, const TimeRange &range);

/// Calls `emitRow(period, eventClass, count)` for each count and `emitRow(period, emptyClass, 0)` for each
/// period of the time range that has none. \a counts must be sorted by period. Nothing at all was counted:
/// nothing is emitted.
template <typename EmitRow>
void forEachPeriod(
    const TimeRange &range, const std::vector<PeriodCount> &counts, int emptyClass, const EmitRow &emitRow)
{
    if (counts.empty())
        return;
    auto next = counts.begin();
    for (const Period period : range.periods()) {
        if (next == counts.end() || next->period != period)
            emitRow(period, emptyClass, 0);
        for (; next != counts.end() && next->period == period; ++next)
            emitRow(period, next->eventClass, boundedCount(next->count));
    }
}

} // namespace devdata
