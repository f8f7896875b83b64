#include "TemperatureFigures.h"

namespace devdata {

namespace {

constexpr int normalTemperature = 0;
constexpr int noClass = -1;
constexpr int notAccepted = 0;

std::vector<TempDistributionItem> distribution(const std::vector<ClassFigure> &figures)
{
    std::vector<TempDistributionItem> items;
    items.reserve(figures.size());
    for (const ClassFigure &figure : figures)
        items.push_back({figure.figureClass, boundedCount(figure.count)});
    return items;
}

} // namespace

std::vector<TemperatureStatisticsItem> readingsOfGroups(
    Connection &connection, const std::vector<int> &listOrg, SumMode mode, SortOrder order, const Span &span)
{
    if (listOrg.empty())
        return {};
    const Distance distance = distanceOf(mode);
    Query rows(connection,
        QStringLiteral("SELECT g.id, g.name, COALESCE(SUM(f.count), 0) AS total FROM person_group g "
                       "LEFT JOIN figure f ON f.fact = ? AND f.scope = ? AND f.subject = g.id "
                       "AND f.bucket BETWEEN ? AND ? WHERE g.orga_id IN (SELECT descendant FROM "
                       "organisation_path WHERE distance BETWEEN ? AND ? AND ancestor IN (%1)) "
                       "GROUP BY g.id, g.name ORDER BY total %2, g.id")
            .arg(placeholders(listOrg.size()), directionOf(order)));
    rows.bind(static_cast<int>(Fact::Readings)).bind(static_cast<int>(Scope::PersonGroup));
    rows.bind(span.first).bind(span.last).bind(distance.least).bind(distance.most).bindAll(listOrg).start();
    std::vector<TemperatureStatisticsItem> items;
    bool anyReading = false;
    while (rows.next()) {
        items.push_back(
            {rows.integer("id"), rows.text("name").toStdString(), boundedCount(rows.number("total"))});
        anyReading = anyReading || items.back().count > 0;
    }
    return anyReading ? items : std::vector<TemperatureStatisticsItem>();
}

std::vector<TemperatureStatisticsItem> readingsOfGroup(Connection &connection, int group, const Span &span)
{
    const Selection selection = {Fact::Readings, {Scope::PersonGroup}, {group}, span};
    std::vector<TemperatureStatisticsItem> items;
    forEachPeriod(span, figuresByBucket(connection, selection), 0, [&](Bucket bucket, int, int count) {
        items.push_back({group, labelOf(bucket, span.unit), count});
    });
    return items;
}

TalvixGetTemperatureStatisticsOfPersonsResponseMessage readingsOfPersons(
    Connection &connection, int organisation, SortOrder order, const Page &page, const Span &span)
{
    const QString counted =
        onlyCounted(QStringLiteral("SELECT n.id, n.name, %1 AS total FROM organisation_path p "
                                   "JOIN person_group g ON g.orga_id = p.descendant "
                                   "JOIN person n ON n.group_id = g.id WHERE p.ancestor = ?")
                        .arg(sumOfFigures("n.id")));
    const auto bindTo = [&](Query &query) -> Query & {
        return query.bind(static_cast<int>(Fact::Readings))
            .bind(static_cast<int>(Scope::Person))
            .bind(span.first)
            .bind(span.last)
            .bind(organisation);
    };

    TalvixGetTemperatureStatisticsOfPersonsResponseMessage answer;
    answer.curPage = page.index;
    answer.totalPage = pagesFor(countRows(connection, counted, bindTo), page);
    Query rows(connection,
        counted + QStringLiteral(" ORDER BY total %1, id LIMIT ? OFFSET ?").arg(directionOf(order)));
    bindTo(rows).bind(page.size).bind(firstRowOf(page)).start();
    while (rows.next())
        answer.statisticsList.push_back(
            {rows.integer("id"), rows.text("name").toStdString(), boundedCount(rows.number("total"))});
    return answer;
}

std::vector<TemperatureStatisticsItem> readingsOfPerson(Connection &connection, int person, const Span &span)
{
    const Selection selection = {Fact::ReadingClasses, {Scope::Person}, {person}, span};
    std::vector<TemperatureStatisticsItem> items;
    forEachPeriod(span, figuresByBucket(connection, selection), noClass,
        [&](Bucket bucket, int temperatureClass, int count) {
            items.push_back({temperatureClass, labelOf(bucket, span.unit), count});
        });
    return items;
}

std::vector<TempDistributionItem> readingsByClass(
    Connection &connection, const std::vector<int> &groups, const Span &span)
{
    return distribution(
        figuresByClass(connection, {Fact::ReadingClasses, {Scope::PersonGroup}, groups, span}));
}

std::vector<TempDistributionItem> readingsByNumber(
    Connection &connection, const std::vector<int> &groups, const Span &span)
{
    qint64 abnormal = 0;
    qint64 total = 0;
    for (const ClassFigure &figure :
        figuresByClass(connection, {Fact::ReadingClasses, {Scope::PersonGroup}, groups, span})) {
        total += figure.count;
        if (figure.figureClass != normalTemperature)
            abnormal += figure.count;
    }
    if (total == 0)
        return {};
    return {{boundedCount(abnormal), boundedCount(total)}};
}

std::vector<TempDistributionItem> readingsOfOrganisations(
    Connection &connection, Fact fact, const std::vector<int> &listOrg, const Span &span)
{
    return distribution(figuresByClass(
        connection, {fact, scopesOf(SumMode::All), topmostOrganisations(connection, listOrg), span}));
}

std::vector<TempAlarmHandleItem> handledAlarms(
    Connection &connection, const std::vector<int> &listOrg, const Span &span)
{
    const Selection selection = {
        Fact::HandlingStates, scopesOf(SumMode::All), topmostOrganisations(connection, listOrg), span};
    std::vector<TempAlarmHandleItem> items;
    forEachPeriod(
        span, figuresByBucket(connection, selection), notAccepted, [&](Bucket bucket, int state, int count) {
            items.push_back({state, count, labelOf(bucket, span.unit)});
        });
    return items;
}

} // namespace devdata
