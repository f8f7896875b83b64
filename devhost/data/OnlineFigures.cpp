#include "OnlineFigures.h"

#include "Places.h"

#include <algorithm>

namespace devdata {

namespace {

Span untilNow(Span span, Minute now)
{
    span.last = std::min(span.last, bucketOf(now, span.unit));
    return span;
}

qint64 elapsedMinutes(const Span &span, Minute now)
{
    const Minute end = firstMinuteOf(nextBucket(span.last, span.unit), span.unit);
    return minutesBetween(firstMinuteOf(span.first, span.unit), std::min(end, now));
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

Query &bindOnlineDevices(Query &query, int organisation, const Span &span)
{
    return query.bind(static_cast<int>(SourceKind::Device))
        .bind(static_cast<int>(Fact::OnlineMinutes))
        .bind(static_cast<int>(Scope::Source))
        .bind(span.first)
        .bind(span.last)
        .bind(organisation);
}

int pagesOfOnlineDevices(Connection &connection, int organisation, const Page &page, const Span &span)
{
    Query all(connection,
        QStringLiteral("SELECT COUNT(*) AS found, SUM(minutes) AS counted FROM "
                       "(SELECT COALESCE(SUM(f.count), 0) AS minutes %1) devices")
            .arg(QLatin1String(onlineDevices)));
    bindOnlineDevices(all, organisation, span).start().next();
    return all.number("counted") > 0 ? pagesFor(all.number("found"), page) : 0;
}

} // namespace

std::vector<OnlineStatisticsRecord> onlineOfOrganisations(Connection &connection,
    const std::vector<int> &listOrg, SumMode mode, SortOrder order, const Span &span, Minute now)
{
    const std::vector<int> level = organisationsOfLevel(connection, listOrg, mode);
    if (level.empty())
        return {};
    const Span past = untilNow(span, now);
    const Distance distance = distanceOf(mode);
    Query rows(connection,
        QStringLiteral("SELECT o.id, COUNT(DISTINCT f.subject) AS total FROM organisation o "
                       "LEFT JOIN organisation_path p ON p.ancestor = o.id AND p.distance BETWEEN ? AND ? "
                       "LEFT JOIN source s ON s.orga_id = p.descendant AND s.kind = ? "
                       "LEFT JOIN figure f ON f.fact = ? AND f.scope = ? AND f.subject = s.id "
                       "AND f.bucket BETWEEN ? AND ? WHERE o.id IN (%1) "
                       "GROUP BY o.id ORDER BY total %2, o.id")
            .arg(placeholders(level.size()), directionOf(order)));
    rows.bind(distance.least).bind(distance.most).bind(static_cast<int>(SourceKind::Device));
    rows.bind(static_cast<int>(Fact::OnlineMinutes)).bind(static_cast<int>(Scope::Source));
    rows.bind(past.first).bind(past.last).bindAll(level).start();
    std::vector<OnlineStatisticsRecord> records;
    bool anyOnline = false;
    while (rows.next()) {
        OnlineStatisticsRecord record;
        record.orgaId = rows.integer("id");
        record.value = rows.integer("total");
        anyOnline = anyOnline || record.value > 0;
        records.push_back(record);
    }
    return anyOnline ? records : std::vector<OnlineStatisticsRecord>();
}

std::vector<OnlineStatisticsRecord> onlineOfOrganisation(
    Connection &connection, int organisation, SumMode mode, const Span &span, Minute now)
{
    const Span past = untilNow(span, now);
    const Distance distance = distanceOf(mode);
    Query rows(connection,
        QStringLiteral("SELECT f.bucket, COUNT(DISTINCT f.subject) AS total FROM organisation_path p "
                       "JOIN source s ON s.orga_id = p.descendant")
            + joinFiguresOf("s.id")
            + QStringLiteral(" AND s.kind = ? AND p.ancestor = ? AND p.distance BETWEEN ? AND ? "
                             "GROUP BY f.bucket ORDER BY f.bucket"));
    rows.run(static_cast<int>(Fact::OnlineMinutes), static_cast<int>(Scope::Source), past.first, past.last,
        static_cast<int>(SourceKind::Device), organisation, distance.least, distance.most);
    std::vector<BucketFigure> figures;
    while (rows.next())
        figures.push_back({rows.number("bucket"), 0, rows.number("total")});

    std::vector<OnlineStatisticsRecord> records;
    forEachPeriod(past, figures, 0, [&](Bucket bucket, int, int devices) {
        OnlineStatisticsRecord record;
        record.timeLabel = labelOf(bucket, past.unit);
        record.orgaId = organisation;
        record.value = devices;
        records.push_back(record);
    });
    return records;
}

TalvixPagedRecordsResponse<OnlineStatisticsRecord> onlineOfDevices(
    Connection &connection, int organisation, SortOrder order, const Page &page, const Span &span, Minute now)
{
    TalvixPagedRecordsResponse<OnlineStatisticsRecord> answer;
    answer.curPage = page.index;
    const Span past = untilNow(span, now);
    const qint64 elapsed = past.isEmpty() ? 0 : elapsedMinutes(past, now);
    if (elapsed <= 0)
        return answer;
    answer.totalPage = pagesOfOnlineDevices(connection, organisation, page, past);
    if (answer.totalPage == 0)
        return answer;

    // Sorted by what is shown: devices of the same percentage are equal, whatever their minutes.
    Query rows(connection,
        QStringLiteral("SELECT uid, CASE WHEN share > 100 THEN 100 ELSE share END AS total FROM "
                       "(SELECT s.id, s.uid, (CAST(COALESCE(SUM(f.count), 0) AS BIGINT) * 100 + %1) / %2 "
                       "AS share %3) devices ORDER BY total %4, id LIMIT ? OFFSET ?")
            .arg(elapsed / 2)
            .arg(elapsed)
            .arg(QLatin1String(onlineDevices), directionOf(order)));
    bindOnlineDevices(rows, organisation, past).bind(page.size).bind(firstRowOf(page)).start();
    while (rows.next()) {
        OnlineStatisticsRecord record;
        record.uid = rows.text("uid").toStdString();
        record.value = rows.integer("total");
        answer.records.push_back(record);
    }
    return answer;
}

std::vector<OnlineStatisticsRecord> onlineOfDevice(
    Connection &connection, const std::string &uid, const Span &span, Minute now)
{
    const Span past = untilNow(span, now);
    const Selection selection = {Fact::OnlineMinutes, {Scope::Source}, {deviceOfUid(connection, uid)}, past};
    const std::vector<BucketFigure> figures = figuresByBucket(connection, selection);
    std::vector<OnlineStatisticsRecord> records;
    forEachPeriod(past, figures, 0, [&](Bucket bucket, int, int minutes) {
        OnlineStatisticsRecord record;
        record.timeLabel = labelOf(bucket, past.unit);
        record.uid = uid;
        record.value = percentOf(minutes, elapsedMinutes({past.unit, bucket, bucket}, now));
        records.push_back(record);
    });
    return records;
}

} // namespace devdata
