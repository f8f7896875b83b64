#include "TemperatureStatistics.h"

namespace devdata {

namespace {

constexpr int normalTemperature = 0;
constexpr int noClass = -1;
constexpr int notAccepted = 0;

std::vector<TemperatureStatisticsItem> itemsOf(const std::vector<SubjectCount> &counts)
{
    std::vector<TemperatureStatisticsItem> items;
    items.reserve(counts.size());
    for (const SubjectCount &bar : counts)
        items.push_back({bar.id, bar.name.toStdString(), boundedCount(bar.count)});
    return items;
}

std::vector<TempDistributionItem> distribution(const std::vector<ClassCount> &counts)
{
    std::vector<TempDistributionItem> items;
    items.reserve(counts.size());
    for (const ClassCount &count : counts)
        items.push_back({count.eventClass, boundedCount(count.count)});
    return items;
}

} // namespace

std::vector<TemperatureStatisticsItem> readingsOfGroups(Connection &connection,
    const std::vector<int> &listOrg, SumMode mode, SortOrder order, const TimeRange &range)
{
    if (listOrg.empty())
        return {};
    const Distance distance = distanceOf(mode);
    Statement rows(connection,
        QStringLiteral("SELECT g.id, g.name, COALESCE(SUM(f.count), 0) AS total FROM person_group g "
                       "LEFT JOIN figure f ON f.fact = ? AND f.scope = ? AND f.subject = g.id "
                       "AND f.bucket BETWEEN ? AND ? WHERE g.orga_id IN (SELECT descendant FROM "
                       "organisation_path WHERE distance BETWEEN ? AND ? AND ancestor IN (%1)) "
                       "GROUP BY g.id, g.name ORDER BY total %2, g.id")
            .arg(placeholders(listOrg.size()), directionOf(order)));
    rows.execute(Fact::Readings, Scope::PersonGroup, range, distance.least, distance.most, listOrg);
    return itemsOf(subjectCounts(rows));
}

std::vector<TemperatureStatisticsItem> readingsOfGroup(
    Connection &connection, int group, const TimeRange &range)
{
    const Selection selection = {Fact::Readings, {Scope::PersonGroup}, {group}, range};
    std::vector<TemperatureStatisticsItem> items;
    forEachPeriod(range, countsByPeriod(connection, selection), 0, [&](Period period, int, int count) {
        items.push_back({group, period.label(), count});
    });
    return items;
}

TalvixGetTemperatureStatisticsOfPersonsResponseMessage readingsOfPersons(
    Connection &connection, int organisation, SortOrder order, const Page &page, const TimeRange &range)
{
    const PagedCounts counts = countsOfPersons(connection, Fact::Readings, organisation, order, page, range);
    TalvixGetTemperatureStatisticsOfPersonsResponseMessage answer;
    answer.curPage = page.index;
    answer.totalPage = counts.pages;
    answer.statisticsList = itemsOf(counts.rows);
    return answer;
}

std::vector<TemperatureStatisticsItem> readingsOfPerson(
    Connection &connection, int person, const TimeRange &range)
{
    const Selection selection = {Fact::ReadingClasses, {Scope::Person}, {person}, range};
    std::vector<TemperatureStatisticsItem> items;
    forEachPeriod(range, countsByPeriod(connection, selection), noClass,
        [&](Period period, int temperatureClass, int count) {
            items.push_back({temperatureClass, period.label(), count});
        });
    return items;
}

std::vector<TempDistributionItem> readingsByClass(
    Connection &connection, const std::vector<int> &groups, const TimeRange &range)
{
    return distribution(
        countsByClass(connection, {Fact::ReadingClasses, {Scope::PersonGroup}, groups, range}));
}

std::vector<TempDistributionItem> readingsByNumber(
    Connection &connection, const std::vector<int> &groups, const TimeRange &range)
{
    qint64 abnormal = 0;
    qint64 total = 0;
    for (const ClassCount &count :
        countsByClass(connection, {Fact::ReadingClasses, {Scope::PersonGroup}, groups, range})) {
        total += count.count;
        if (count.eventClass != normalTemperature)
            abnormal += count.count;
    }
    if (total == 0)
        return {};
    return {{boundedCount(abnormal), boundedCount(total)}};
}

std::vector<TempDistributionItem> readingsOfOrganisations(
    Connection &connection, Fact fact, const std::vector<int> &listOrg, const TimeRange &range)
{
    return distribution(countsByClass(
        connection, {fact, scopesOf(SumMode::All), topmostOrganisations(connection, listOrg), range}));
}

std::vector<TempAlarmHandleItem> handledAlarms(
    Connection &connection, const std::vector<int> &listOrg, const TimeRange &range)
{
    const Selection selection = {
        Fact::HandlingStates, scopesOf(SumMode::All), topmostOrganisations(connection, listOrg), range};
    std::vector<TempAlarmHandleItem> items;
    forEachPeriod(
        range, countsByPeriod(connection, selection), notAccepted, [&](Period period, int state, int count) {
            items.push_back({state, count, period.label()});
        });
    return items;
}

} // namespace devdata
