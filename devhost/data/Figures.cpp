#include "Figures.h"

#include <algorithm>
#include <limits>

namespace devdata {

namespace {

std::vector<int> numbersOf(const std::vector<Scope> &scopes)
{
    std::vector<int> numbers;
    numbers.reserve(scopes.size());
    for (const Scope scope : scopes)
        numbers.push_back(static_cast<int>(scope));
    return numbers;
}

/// "SELECT <columns>, SUM(…) AS total" of the selected figures, grouped and sorted by \a columns.
Query totals(Connection &connection, const QString &columns, const Selection &selection)
{
    Query query(connection,
        QStringLiteral("SELECT %1, SUM(f.count) AS total FROM figure f WHERE f.fact = ? AND f.scope IN (%2) "
                       "AND f.subject IN (%3) AND f.bucket BETWEEN ? AND ? GROUP BY %1 ORDER BY %1")
            .arg(columns, placeholders(selection.scopes.size()), placeholders(selection.subjects.size())));
    query.bind(static_cast<int>(selection.fact))
        .bindAll(numbersOf(selection.scopes))
        .bindAll(selection.subjects)
        .bind(selection.span.first)
        .bind(selection.span.last)
        .start();
    return query;
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

QString joinFiguresOf(const char *subject)
{
    return QStringLiteral(" CROSS JOIN figure f WHERE f.fact = ? AND f.scope = ? AND f.subject = %1 "
                          "AND f.bucket BETWEEN ? AND ?")
        .arg(QLatin1String(subject));
}

QString sumOfFigures(const char *subject)
{
    return QStringLiteral("(SELECT SUM(f.count) FROM figure f WHERE f.fact = ? AND f.scope = ? "
                          "AND f.subject = %1 AND f.bucket BETWEEN ? AND ?)")
        .arg(QLatin1String(subject));
}

// The limit is none; with it both databases keep the filter outside, where it sums nothing a second time.
QString onlyCounted(const QString &subjects)
{
    return QStringLiteral("SELECT * FROM (%1 LIMIT %2) subjects WHERE total IS NOT NULL")
        .arg(subjects)
        .arg(std::numeric_limits<int>::max());
}

std::vector<BucketFigure> figuresByBucket(Connection &connection, const Selection &selection)
{
    std::vector<BucketFigure> figures;
    if (selection.subjects.empty())
        return figures;
    Query rows = totals(connection, QStringLiteral("f.bucket, f.class"), selection);
    while (rows.next())
        figures.push_back({rows.number("bucket"), rows.integer("class"), rows.number("total")});
    return figures;
}

std::vector<ClassFigure> figuresByClass(Connection &connection, const Selection &selection)
{
    std::vector<ClassFigure> figures;
    if (selection.subjects.empty())
        return figures;
    Query rows = totals(connection, QStringLiteral("f.class"), selection);
    while (rows.next())
        figures.push_back({rows.integer("class"), rows.number("total")});
    return figures;
}

std::map<int, std::vector<ClassFigure>> figuresBySubject(Connection &connection, const Selection &selection)
{
    std::map<int, std::vector<ClassFigure>> figures;
    if (selection.subjects.empty())
        return figures;
    Query rows = totals(connection, QStringLiteral("f.subject, f.class"), selection);
    while (rows.next())
        figures[rows.integer("subject")].push_back({rows.integer("class"), rows.number("total")});
    return figures;
}

std::vector<int> organisationsOfLevel(Connection &connection, const std::vector<int> &listOrg, SumMode mode)
{
    if (listOrg.empty())
        return {};
    QString sql = QStringLiteral("SELECT id FROM organisation WHERE id IN (%1)");
    if (mode != SumMode::OnlyCurrent)
        sql += QStringLiteral(" OR parent_id IN (%1)");
    Query rows(connection, sql.arg(placeholders(listOrg.size())) + QStringLiteral(" ORDER BY id"));
    rows.bindAll(listOrg);
    if (mode != SumMode::OnlyCurrent)
        rows.bindAll(listOrg);
    rows.start();
    std::vector<int> organisations;
    while (rows.next())
        organisations.push_back(rows.integer("id"));
    return organisations;
}

std::vector<int> topmostOrganisations(Connection &connection, const std::vector<int> &listOrg)
{
    if (listOrg.empty())
        return {};
    Query rows(connection,
        QStringLiteral("SELECT id FROM organisation WHERE id IN (%1) AND id NOT IN (SELECT descendant FROM "
                       "organisation_path WHERE distance > 0 AND ancestor IN (%1)) ORDER BY id")
            .arg(placeholders(listOrg.size())));
    rows.bindAll(listOrg).bindAll(listOrg).start();
    std::vector<int> organisations;
    while (rows.next())
        organisations.push_back(rows.integer("id"));
    return organisations;
}

bool isAnyCounted(const std::vector<SubjectFigure> &figures)
{
    return std::any_of(
        figures.begin(), figures.end(), [](const SubjectFigure &figure) { return figure.value > 0; });
}

std::vector<SubjectFigure> figuresOfLevel(Connection &connection, Fact fact, const std::vector<int> &listOrg,
    SumMode mode, SortOrder order, const Span &span)
{
    const std::vector<int> level = organisationsOfLevel(connection, listOrg, mode);
    if (level.empty())
        return {};
    const std::vector<Scope> scopes = scopesOf(mode);
    Query rows(connection,
        QStringLiteral("SELECT o.id, o.name, COALESCE(SUM(f.count), 0) AS total FROM organisation o "
                       "LEFT JOIN figure f ON f.fact = ? AND f.scope IN (%1) AND f.subject = o.id "
                       "AND f.bucket BETWEEN ? AND ? WHERE o.id IN (%2) "
                       "GROUP BY o.id, o.name ORDER BY total %3, o.id")
            .arg(placeholders(scopes.size()), placeholders(level.size()), directionOf(order)));
    rows.bind(static_cast<int>(fact)).bindAll(numbersOf(scopes)).bind(span.first).bind(span.last);
    rows.bindAll(level).start();
    std::vector<SubjectFigure> figures;
    while (rows.next())
        figures.push_back({rows.integer("id"), rows.text("name"), rows.number("total")});
    return isAnyCounted(figures) ? figures : std::vector<SubjectFigure>();
}

int sourceOfUid(Connection &connection, const std::string &uid)
{
    Query rows(connection, QStringLiteral("SELECT id FROM source WHERE uid = ? ORDER BY kind LIMIT 1"));
    rows.run(QString::fromStdString(uid));
    return rows.next() ? rows.integer("id") : 0;
}

int deviceOfUid(Connection &connection, const std::string &uid)
{
    Query rows(
        connection, QStringLiteral("SELECT device_id FROM source WHERE uid = ? ORDER BY kind DESC LIMIT 1"));
    rows.run(QString::fromStdString(uid));
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

PagedFigures figuresOfSources(
    Connection &connection, Fact fact, int organisation, SortOrder order, const Page &page, const Span &span)
{
    const QString counted =
        onlyCounted(QStringLiteral("SELECT s.id, s.uid, %1 AS total FROM organisation_path p "
                                   "JOIN source s ON s.orga_id = p.descendant WHERE p.ancestor = ?")
                        .arg(sumOfFigures("s.id")));
    const auto bindTo = [&](Query &query) -> Query & {
        return query.bind(static_cast<int>(fact))
            .bind(static_cast<int>(Scope::Source))
            .bind(span.first)
            .bind(span.last)
            .bind(organisation);
    };

    PagedFigures figures;
    figures.pages = pagesFor(countRows(connection, counted, bindTo), page);
    Query rows(connection,
        counted + QStringLiteral(" ORDER BY total %1, id LIMIT ? OFFSET ?").arg(directionOf(order)));
    bindTo(rows).bind(page.size).bind(firstRowOf(page)).start();
    while (rows.next())
        figures.rows.push_back({rows.text("uid").toStdString(), rows.number("total")});
    return figures;
}

} // namespace devdata
