#include "Counts.h"

#include <algorithm>
#include <limits>

namespace devdata {

namespace {

/// "SELECT <columns>, SUM(…) AS total" of the selected counts, grouped and sorted by \a columns.
Statement totals(Connection &connection, const QString &columns, const Selection &selection)
{
    Statement rows(connection,
        QStringLiteral("SELECT %1, SUM(f.count) AS total FROM figure f WHERE f.fact = ? AND f.scope IN (%2) "
                       "AND f.subject IN (%3) AND f.bucket BETWEEN ? AND ? GROUP BY %1 ORDER BY %1")
            .arg(columns, placeholders(selection.scopes.size()), placeholders(selection.subjects.size())));
    rows.execute(selection.fact, selection.scopes, selection.subjects, selection.range);
    return rows;
}

std::vector<int> ids(Statement &rows)
{
    std::vector<int> ids;
    while (rows.next())
        ids.push_back(rows.integer("id"));
    return ids;
}

/// Subjects whose counts come in pages: \a joined are tables that belong to the organisations of `p`.
struct Subjects
{
    Scope scope;
    const char *id;
    const char *name;
    const char *joined;
};

// For a join PostgreSQL would read the counts of all times to find the few of a time range; a subquery goes
// from each subject to its own. The limit is none; with it both databases keep the filter outside, where it
// sums nothing a second time.
PagedCounts countsInPages(Connection &connection, const Subjects &subjects, Fact fact, int organisation,
    SortOrder order, const Page &page, const TimeRange &range)
{
    const QString counted =
        QStringLiteral("SELECT * FROM (SELECT %1 AS id, %2 AS name, (SELECT SUM(f.count) FROM figure f "
                       "WHERE f.fact = ? AND f.scope = ? AND f.subject = %1 AND f.bucket BETWEEN ? AND ?) "
                       "AS total FROM organisation_path p JOIN %3 WHERE p.ancestor = ? LIMIT %4) subjects "
                       "WHERE total IS NOT NULL")
            .arg(QLatin1String(subjects.id), QLatin1String(subjects.name), QLatin1String(subjects.joined))
            .arg(std::numeric_limits<int>::max());
    Statement all(connection, QStringLiteral("SELECT COUNT(*) FROM (%1) counted").arg(counted));
    Statement rows(connection,
        counted + QStringLiteral(" ORDER BY total %1, id LIMIT ? OFFSET ?").arg(directionOf(order)));
    const qint64 count = all.execute(fact, subjects.scope, range, organisation).single();
    rows.execute(fact, subjects.scope, range, organisation, page.size, firstRowOf(page));
    return {subjectCounts(rows), pagesFor(count, page)};
}

} // namespace

SumMode sumModeOf(int orgType)
{
    if (orgType < static_cast<int>(SumMode::Below) || orgType > static_cast<int>(SumMode::OnlyCurrent))
        throw StoreError(QStringLiteral("The sum mode %1 is unknown.").arg(orgType));
    return static_cast<SumMode>(orgType);
}

SortOrder sortOrderOf(int sortType)
{
    return sortType == static_cast<int>(SortOrder::Descending) ? SortOrder::Descending : SortOrder::Ascending;
}

std::vector<Scope> scopesOf(SumMode mode)
{
    switch (mode) {
    case SumMode::Below:
        return {Scope::BelowOrganisation};
    case SumMode::OnlyCurrent:
        return {Scope::Organisation};
    case SumMode::All:
        break;
    }
    return {Scope::Organisation, Scope::BelowOrganisation};
}

int boundedCount(qint64 count)
{
    return static_cast<int>(std::min<qint64>(count, std::numeric_limits<int>::max()));
}

Distance distanceOf(SumMode mode)
{
    constexpr int anyDepth = std::numeric_limits<int>::max();
    switch (mode) {
    case SumMode::Below:
        return {1, anyDepth};
    case SumMode::OnlyCurrent:
        return {0, 0};
    case SumMode::All:
        break;
    }
    return {0, anyDepth};
}

QString joinCountsOf(const char *subject)
{
    return QStringLiteral(" CROSS JOIN figure f WHERE f.fact = ? AND f.scope = ? AND f.subject = %1 "
                          "AND f.bucket BETWEEN ? AND ?")
        .arg(QLatin1String(subject));
}

std::vector<PeriodCount> countsByPeriod(Connection &connection, const Selection &selection)
{
    std::vector<PeriodCount> counts;
    if (selection.subjects.empty())
        return counts;
    Statement rows = totals(connection, QStringLiteral("f.bucket, f.class"), selection);
    while (rows.next())
        counts.push_back({Period::fromStored(selection.range.unit(), rows.number("bucket")),
            rows.integer("class"), rows.number("total")});
    return counts;
}

std::vector<ClassCount> countsByClass(Connection &connection, const Selection &selection)
{
    std::vector<ClassCount> counts;
    if (selection.subjects.empty())
        return counts;
    Statement rows = totals(connection, QStringLiteral("f.class"), selection);
    while (rows.next())
        counts.push_back({rows.integer("class"), rows.number("total")});
    return counts;
}

std::map<int, std::vector<ClassCount>> countsBySubject(Connection &connection, const Selection &selection)
{
    std::map<int, std::vector<ClassCount>> counts;
    if (selection.subjects.empty())
        return counts;
    Statement rows = totals(connection, QStringLiteral("f.subject, f.class"), selection);
    while (rows.next())
        counts[rows.integer("subject")].push_back({rows.integer("class"), rows.number("total")});
    return counts;
}

std::vector<SubjectCount> subjectCounts(Statement &rows)
{
    std::vector<SubjectCount> counts;
    bool anyCounted = false;
    while (rows.next()) {
        counts.push_back({rows.integer("id"), rows.text("name"), rows.number("total")});
        anyCounted = anyCounted || counts.back().count > 0;
    }
    return anyCounted ? counts : std::vector<SubjectCount>();
}

std::vector<int> organisationsOfLevel(Connection &connection, const std::vector<int> &listOrg, SumMode mode)
{
    if (listOrg.empty())
        return {};
    const QString list = placeholders(listOrg.size());
    if (mode == SumMode::OnlyCurrent) {
        Statement rows(
            connection, QStringLiteral("SELECT id FROM organisation WHERE id IN (%1) ORDER BY id").arg(list));
        return ids(rows.execute(listOrg));
    }
    Statement rows(connection,
        QStringLiteral("SELECT id FROM organisation WHERE id IN (%1) OR parent_id IN (%1) ORDER BY id")
            .arg(list));
    return ids(rows.execute(listOrg, listOrg));
}

std::vector<int> topmostOrganisations(Connection &connection, const std::vector<int> &listOrg)
{
    if (listOrg.empty())
        return {};
    Statement rows(connection,
        QStringLiteral("SELECT id FROM organisation WHERE id IN (%1) AND id NOT IN (SELECT descendant FROM "
                       "organisation_path WHERE distance > 0 AND ancestor IN (%1)) ORDER BY id")
            .arg(placeholders(listOrg.size())));
    return ids(rows.execute(listOrg, listOrg));
}

std::vector<SubjectCount> countsOfLevel(Connection &connection, Fact fact, const std::vector<int> &listOrg,
    SumMode mode, SortOrder order, const TimeRange &range)
{
    const std::vector<int> level = organisationsOfLevel(connection, listOrg, mode);
    if (level.empty())
        return {};
    const std::vector<Scope> scopes = scopesOf(mode);
    Statement rows(connection,
        QStringLiteral("SELECT o.id, o.name, COALESCE(SUM(f.count), 0) AS total FROM organisation o "
                       "LEFT JOIN figure f ON f.fact = ? AND f.scope IN (%1) AND f.subject = o.id "
                       "AND f.bucket BETWEEN ? AND ? WHERE o.id IN (%2) "
                       "GROUP BY o.id, o.name ORDER BY total %3, o.id")
            .arg(placeholders(scopes.size()), placeholders(level.size()), directionOf(order)));
    return subjectCounts(rows.execute(fact, scopes, range, level));
}

int sourceOfUid(Connection &connection, const std::string &uid)
{
    Statement rows(connection, QStringLiteral("SELECT id FROM source WHERE uid = ? ORDER BY kind LIMIT 1"));
    rows.execute(QString::fromStdString(uid));
    return rows.next() ? rows.integer("id") : 0;
}

int deviceOfUid(Connection &connection, const std::string &uid)
{
    Statement rows(
        connection, QStringLiteral("SELECT device_id FROM source WHERE uid = ? ORDER BY kind DESC LIMIT 1"));
    rows.execute(QString::fromStdString(uid));
    return rows.next() ? rows.integer("device_id") : 0;
}

Page pageOf(int pageIndex, int pageSize)
{
    return {pageIndex < 1 ? 1 : pageIndex, pageSize < 1 ? 10 : pageSize};
}

int pagesFor(qint64 rows, const Page &page)
{
    return static_cast<int>((rows + page.size - 1) / page.size);
}

qint64 firstRowOf(const Page &page)
{
    return (page.index - 1LL) * page.size;
}

QString directionOf(SortOrder order)
{
    return order == SortOrder::Descending ? QStringLiteral("DESC") : QStringLiteral("ASC");
}

PagedCounts countsOfSources(Connection &connection, Fact fact, int organisation, SortOrder order,
    const Page &page, const TimeRange &range)
{
    return countsInPages(connection, {Scope::Source, "s.id", "s.uid", "source s ON s.orga_id = p.descendant"},
        fact, organisation, order, page, range);
}

PagedCounts countsOfPersons(Connection &connection, Fact fact, int organisation, SortOrder order,
    const Page &page, const TimeRange &range)
{
    return countsInPages(connection,
        {Scope::Person, "n.id", "n.name",
            "person_group g ON g.orga_id = p.descendant JOIN person n ON n.group_id = g.id"},
        fact, organisation, order, page, range);
}

} // namespace devdata
