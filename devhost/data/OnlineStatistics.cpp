#include "OnlineStatistics.h"

#include "Hierarchy.h"

#include <algorithm>

namespace devdata {

namespace {

TimeRange untilNow(TimeRange range, Minute now)
{
    range.last = std::min(range.last, now.period(range.unit()));
    return range;
}

qint64 elapsedMinutes(const TimeRange &range, Minute now)
{
    return range.first.start().minutesTo(std::min(range.last.next().start(), now));
}

int percentOf(qint64 minutes, qint64 elapsed)
{
    return elapsed > 0 ? static_cast<int>(std::min<qint64>((minutes * 100 + elapsed / 2) / elapsed, 100)) : 0;
}

// The online minutes of each of the devices that belong to an organisation or to one below it.
const char *onlineDevices =
    "FROM organisation_path p JOIN source s ON s.orga_id = p.descendant AND s.kind = ? "
    "LEFT JOIN figure f ON f.fact = ? AND f.scope = ? AND f.subject = s.id "
    "AND f.bucket BETWEEN ? AND ? "
    "WHERE p.ancestor = ? GROUP BY s.id, s.uid";

// 0 when none of them was online at any time.
int pagesOfOnlineDevices(Connection &connection, int organisation, const Page &page, const TimeRange &range)
{
    Statement all(connection,
        QStringLiteral("SELECT COUNT(*) AS found, SUM(minutes) AS counted FROM "
                       "(SELECT COALESCE(SUM(f.count), 0) AS minutes %1) devices")
            .arg(QLatin1String(onlineDevices)));
    all.execute(SourceKind::Device, Fact::OnlineMinutes, Scope::Source, range, organisation);
    return all.next() && all.number("counted") > 0 ? pagesFor(all.number("found"), page) : 0;
}

} // namespace

std::vector<OnlineStatisticsRecord> onlineOfOrganisations(Connection &connection,
    const std::vector<int> &listOrg, SumMode mode, SortOrder order, const TimeRange &range, Minute now)
{
    const std::vector<int> level = organisationsOfLevel(connection, listOrg, mode);
    if (level.empty())
        return {};
    const TimeRange past = untilNow(range, now);
    const Distance distance = distanceOf(mode);
    Statement rows(connection,
        QStringLiteral("SELECT o.id, o.name, COUNT(DISTINCT f.subject) AS total FROM organisation o "
                       "LEFT JOIN organisation_path p ON p.ancestor = o.id AND p.distance BETWEEN ? AND ? "
                       "LEFT JOIN source s ON s.orga_id = p.descendant AND s.kind = ? "
                       "LEFT JOIN figure f ON f.fact = ? AND f.scope = ? AND f.subject = s.id "
                       "AND f.bucket BETWEEN ? AND ? WHERE o.id IN (%1) "
                       "GROUP BY o.id, o.name ORDER BY total %2, o.id")
            .arg(placeholders(level.size()), directionOf(order)));
    rows.execute(
        distance.least, distance.most, SourceKind::Device, Fact::OnlineMinutes, Scope::Source, past, level);
    std::vector<OnlineStatisticsRecord> records;
    for (const SubjectCount &bar : subjectCounts(rows))
        records.push_back({{}, bar.id, {}, boundedCount(bar.count)});
    return records;
}

std::vector<OnlineStatisticsRecord> onlineOfOrganisation(
    Connection &connection, int organisation, SumMode mode, const TimeRange &range, Minute now)
{
    const TimeRange past = untilNow(range, now);
    const Distance distance = distanceOf(mode);
    Statement rows(connection,
        QStringLiteral("SELECT f.bucket, COUNT(DISTINCT f.subject) AS total FROM organisation_path p "
                       "JOIN source s ON s.orga_id = p.descendant")
            + joinCountsOf("s.id")
            + QStringLiteral(" AND s.kind = ? AND p.ancestor = ? AND p.distance BETWEEN ? AND ? "
                             "GROUP BY f.bucket ORDER BY f.bucket"));
    rows.execute(Fact::OnlineMinutes, Scope::Source, past, SourceKind::Device, organisation, distance.least,
        distance.most);
    std::vector<PeriodCount> counts;
    while (rows.next())
        counts.push_back({Period::fromStored(past.unit(), rows.number("bucket")), 0, rows.number("total")});

    std::vector<OnlineStatisticsRecord> records;
    forEachPeriod(past, counts, 0, [&](Period period, int, int devices) {
        records.push_back({period.label(), organisation, {}, devices});
    });
    return records;
}

TalvixPagedRecordsResponse<OnlineStatisticsRecord> onlineOfDevices(Connection &connection, int organisation,
    SortOrder order, const Page &page, const TimeRange &range, Minute now)
{
    TalvixPagedRecordsResponse<OnlineStatisticsRecord> answer;
    answer.curPage = page.index;
    const TimeRange past = untilNow(range, now);
    const qint64 elapsed = past.isEmpty() ? 0 : elapsedMinutes(past, now);
    if (elapsed <= 0)
        return answer;
    answer.totalPage = pagesOfOnlineDevices(connection, organisation, page, past);
    if (answer.totalPage == 0)
        return answer;

    // Sorted by what is shown: devices of the same percentage are equal, whatever their minutes.
    Statement rows(connection,
        QStringLiteral("SELECT uid, CASE WHEN share > 100 THEN 100 ELSE share END AS total FROM "
                       "(SELECT s.id, s.uid, (CAST(COALESCE(SUM(f.count), 0) AS BIGINT) * 100 + %1) / %2 "
                       "AS share %3) devices ORDER BY total %4, id LIMIT ? OFFSET ?")
            .arg(elapsed / 2)
            .arg(elapsed)
            .arg(QLatin1String(onlineDevices), directionOf(order)));
    rows.execute(SourceKind::Device, Fact::OnlineMinutes, Scope::Source, past, organisation, page.size,
        firstRowOf(page));
    while (rows.next())
        answer.records.push_back({{}, 0, rows.text("uid").toStdString(), rows.integer("total")});
    return answer;
}

std::vector<OnlineStatisticsRecord> onlineOfDevice(
    Connection &connection, const std::string &uid, const TimeRange &range, Minute now)
{
    const TimeRange past = untilNow(range, now);
    const Selection selection = {Fact::OnlineMinutes, {Scope::Source}, {deviceOfUid(connection, uid)}, past};
    const std::vector<PeriodCount> counts = countsByPeriod(connection, selection);
    std::vector<OnlineStatisticsRecord> records;
    forEachPeriod(past, counts, 0, [&](Period period, int, int minutes) {
        const int percent = percentOf(minutes, elapsedMinutes({period, period}, now));
        records.push_back({period.label(), 0, uid, percent});
    });
    return records;
}

} // namespace devdata
