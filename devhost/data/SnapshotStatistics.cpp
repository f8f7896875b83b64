#include "SnapshotStatistics.h"

#include "Events.h"

#include <map>

namespace devdata {

namespace {

Fact detailsOf(int snapClass)
{
    if (snapClass == vehicleClass)
        return Fact::VehicleDetails;
    if (snapClass == pedestrianClass)
        return Fact::PedestrianDetails;
    throw StoreError(QStringLiteral("The snapshot class %1 is unknown.").arg(snapClass));
}

// Both classes, so that both series of a chart have every bar and point.
std::vector<SnapTypeCount> bothClasses(const std::vector<ClassCount> &classCounts)
{
    std::vector<SnapTypeCount> counts = {{vehicleClass, 0, 0}, {pedestrianClass, 0, 0}};
    for (const ClassCount &classCount : classCounts)
        for (SnapTypeCount &count : counts)
            if (count.snapType == classCount.eventClass)
                count.count = boundedCount(classCount.count);
    return counts;
}

std::vector<SnapDetailMajorItem> byMajor(const std::vector<ClassCount> &classCounts)
{
    std::vector<SnapDetailMajorItem> items;
    for (const ClassCount &classCount : classCounts) {
        const int major = classCount.eventClass / minorTypeLimit;
        if (items.empty() || items.back().majorType != major)
            items.push_back({major, {}});
        items.back().minors.push_back(
            {classCount.eventClass % minorTypeLimit, boundedCount(classCount.count)});
    }
    return items;
}

} // namespace

std::vector<SnapTimeSample> snapshotsOfChannels(Connection &connection, const TimeRange &range)
{
    std::vector<SnapTimeSample> samples;
    std::map<Period, size_t> rowOf;
    for (const Period period : range.periods()) {
        rowOf[period] = samples.size();
        samples.push_back({period.label(), {}});
    }

    Statement rows(connection,
        QStringLiteral("SELECT f.bucket, s.uid, f.class, f.count FROM source s") + joinCountsOf("s.id")
            + QStringLiteral(" ORDER BY s.id, f.bucket, f.class"));
    rows.execute(Fact::Snapshots, Scope::Source, range);
    bool anySnapshot = false;
    while (rows.next()) {
        anySnapshot = true;
        auto &channels = samples[rowOf[Period::fromStored(range.unit(), rows.number("bucket"))]].channels;
        const std::string uid = rows.text("uid").toStdString();
        if (channels.empty() || channels.back().channelUid != uid)
            channels.push_back({uid, {}});
        channels.back().typeCounts.push_back({rows.integer("class"), boundedCount(rows.number("count")), 0});
    }
    return anySnapshot ? samples : std::vector<SnapTimeSample>();
}

std::vector<SnapOrgaItem> snapshotsOfOrganisations(Connection &connection, const std::vector<int> &listOrg,
    SumMode mode, SortOrder order, const TimeRange &range)
{
    const std::vector<SubjectCount> level =
        countsOfLevel(connection, Fact::Snapshots, listOrg, mode, order, range);
    std::vector<int> organisations;
    organisations.reserve(level.size());
    for (const SubjectCount &bar : level)
        organisations.push_back(bar.id);
    auto classes = countsBySubject(connection, {Fact::Snapshots, scopesOf(mode), organisations, range});
    std::vector<SnapOrgaItem> items;
    items.reserve(level.size());
    for (const SubjectCount &bar : level)
        items.push_back({bar.id, bar.name.toStdString(), bothClasses(classes[bar.id])});
    return items;
}

std::vector<SnapOrgaItem> snapshotsOfOrganisation(
    Connection &connection, int organisation, SumMode mode, const TimeRange &range)
{
    const Selection selection = {Fact::Snapshots, scopesOf(mode), {organisation}, range};
    std::map<Period, std::vector<ClassCount>> periods;
    for (const PeriodCount &count : countsByPeriod(connection, selection))
        periods[count.period].push_back({count.eventClass, count.count});
    if (periods.empty())
        return {};
    std::vector<SnapOrgaItem> items;
    for (const Period period : range.periods())
        items.push_back({organisation, period.label(), bothClasses(periods[period])});
    return items;
}

std::vector<SnapDetailMajorItem> snapshotDetailsOfChannel(
    Connection &connection, const std::string &uid, int snapClass, const TimeRange &range)
{
    return byMajor(countsByClass(
        connection, {detailsOf(snapClass), {Scope::Source}, {sourceOfUid(connection, uid)}, range}));
}

std::vector<SnapDetailMajorItem> snapshotDetailsOfOrganisation(
    Connection &connection, int organisation, SumMode mode, int snapClass, const TimeRange &range)
{
    return byMajor(countsByClass(connection, {detailsOf(snapClass), scopesOf(mode), {organisation}, range}));
}

} // namespace devdata
