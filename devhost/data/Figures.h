#pragma once

#include "Spans.h"
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
/// Every event also counts for all organisations above its own, so the figure of a whole branch is read, not
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

/// The figures of answers have 32 bits; what is greater stays at the greatest.
int boundedCount(qint64 count);

/// Joins the figures of the subjects that a statement selects: " CROSS JOIN figure f WHERE …", with question
/// marks for fact, scope and the ends of the span. The cross join makes SQLite start from the few subjects;
/// left to itself it would look for them in all the figures there are.
QString joinFiguresOf(const char *subject);

/// The sum of the figures of the subject that a statement has at hand: "(SELECT SUM(…) …)", with question
/// marks for fact, scope and the ends of the span; NULL when there are none. For a join PostgreSQL would read
/// the figures of all times to find the few of a span; a subquery goes from each subject to its own.
QString sumOfFigures(const char *subject);
/// Those rows of a statement with such a sum named `total` of which something was counted.
QString onlyCounted(const QString &subjects);

/// Whose figures, of what and over which span. Several subjects count together.
struct Selection
{
    Fact fact;
    std::vector<Scope> scopes;
    std::vector<int> subjects;
    Span span;
};

struct BucketFigure
{
    Bucket bucket;
    int figureClass;
    qint64 count;
};

/// The figures by period and class, in that order. Periods without figures are left out.
std::vector<BucketFigure> figuresByBucket(Connection &connection, const Selection &selection);

struct ClassFigure
{
    int figureClass;
    qint64 count;
};

/// The figures by class.
std::vector<ClassFigure> figuresByClass(Connection &connection, const Selection &selection);

/// The figures by subject and class.
std::map<int, std::vector<ClassFigure>> figuresBySubject(Connection &connection, const Selection &selection);

/// A bar of organisations, groups or persons.
struct SubjectFigure
{
    int id;
    QString name;
    qint64 value;
};

/// The organisations that a whole-level answer has rows for: those of the list that exist and, unless each
/// counts alone, their direct children. In the order of their ids.
std::vector<int> organisationsOfLevel(Connection &connection, const std::vector<int> &listOrg, SumMode mode);

/// The organisations of the list that exist and lie below no other one of it, so that nothing is counted
/// twice.
std::vector<int> topmostOrganisations(Connection &connection, const std::vector<int> &listOrg);

/// Whether a list of bars has anything to show.
bool isAnyCounted(const std::vector<SubjectFigure> &figures);

/// A row for each organisation of the level, sorted by value. Empty when nothing at all was counted.
std::vector<SubjectFigure> figuresOfLevel(Connection &connection, Fact fact, const std::vector<int> &listOrg,
    SumMode mode, SortOrder order, const Span &span);

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

/// How many rows \a sql gives; `bindTo(query)` binds its values.
template <typename BindTo>
qint64 countRows(Connection &connection, const QString &sql, const BindTo &bindTo)
{
    Query all(connection, QStringLiteral("SELECT COUNT(*) AS found FROM (%1) counted").arg(sql));
    bindTo(all).start().next();
    return all.number("found");
}

struct SourceFigure
{
    std::string uid;
    qint64 value;
};

struct PagedFigures
{
    std::vector<SourceFigure> rows;
    int pages = 0;
};

/// One page of the sources of \a organisation and everything below it of which something was counted.
PagedFigures figuresOfSources(
    Connection &connection, Fact fact, int organisation, SortOrder order, const Page &page, const Span &span);

/// Calls `emitRow(bucket, figureClass, count)` for each figure and `emitRow(bucket, emptyClass, 0)` for each
/// period of the span that has none. \a figures must be sorted by bucket. Nothing at all was counted: nothing
/// is emitted.
template <typename EmitRow>
void forEachPeriod(
    const Span &span, const std::vector<BucketFigure> &figures, int emptyClass, const EmitRow &emitRow)
{
    if (figures.empty())
        return;
    auto figure = figures.begin();
    for (const Bucket bucket : bucketsOf(span)) {
        if (figure == figures.end() || figure->bucket != bucket)
            emitRow(bucket, emptyClass, 0);
        for (; figure != figures.end() && figure->bucket == bucket; ++figure)
            emitRow(bucket, figure->figureClass, boundedCount(figure->count));
    }
}

} // namespace devdata
