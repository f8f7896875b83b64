#include "SnapFigures.h"

#include "Events.h"

#include <QtCore/QHash>

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
std::vector<SnapTypeCount> bothClasses(const std::vector<ClassFigure> &figures)
{
    std::vector<SnapTypeCount> counts = {{vehicleClass, 0, 0}, {pedestrianClass, 0, 0}};
    for (const ClassFigure &figure : figures)
        for (SnapTypeCount &count : counts)
            if (count.snapType == figure.figureClass)
                count.count = boundedCount(figure.count);
    return counts;
}

std::vector<SnapDetailMajorItem> byMajor(const std::vector<ClassFigure> &figures)
{
    std::vector<SnapDetailMajorItem> items;
    for (const ClassFigure &figure : figures) {
        const int major = figure.figureClass / minorTypeLimit;
        if (items.empty() || items.back().majorType != major)
            items.push_back({major, {}});
        items.back().minors.push_back({figure.figureClass % minorTypeLimit, boundedCount(figure.count)});
    }
    return items;
}

} // namespace

std::vector<SnapTimeSample> snapshotsOfChannels(Connection &connection, const Span &span)
{
    std::vector<SnapTimeSample> samples;
    QHash<Bucket, size_t> places;
    for (const Bucket bucket : bucketsOf(span)) {
        places.insert(bucket, samples.size());
        samples.push_back({labelOf(bucket, span.unit), {}});
    }

    Query rows(connection,
        QStringLiteral("SELECT f.bucket, s.uid, f.class, f.count FROM source s") + joinFiguresOf("s.id")
            + QStringLiteral(" ORDER BY s.id, f.bucket, f.class"));
    rows.run(static_cast<int>(Fact::Snapshots), static_cast<int>(Scope::Source), span.first, span.last);
    bool anySnapshot = false;
    while (rows.next()) {
        anySnapshot = true;
        auto &channels = samples[places.value(rows.number("bucket"))].channels;
        const std::string uid = rows.text("uid").toStdString();
        if (channels.empty() || channels.back().channelUid != uid)
            channels.push_back({uid, {}});
        channels.back().typeCounts.push_back({rows.integer("class"), boundedCount(rows.number("count")), 0});
    }
    return anySnapshot ? samples : std::vector<SnapTimeSample>();
}

std::vector<SnapOrgaItem> snapshotsOfOrganisations(
    Connection &connection, const std::vector<int> &listOrg, SumMode mode, SortOrder order, const Span &span)
{
    const std::vector<SubjectFigure> level =
        figuresOfLevel(connection, Fact::Snapshots, listOrg, mode, order, span);
    std::vector<int> organisations;
    organisations.reserve(level.size());
    for (const SubjectFigure &figure : level)
        organisations.push_back(figure.id);
    auto classes = figuresBySubject(connection, {Fact::Snapshots, scopesOf(mode), organisations, span});
    std::vector<SnapOrgaItem> items;
    items.reserve(level.size());
    for (const SubjectFigure &figure : level)
        items.push_back({figure.id, figure.name.toStdString(), bothClasses(classes[figure.id])});
    return items;
}

std::vector<SnapOrgaItem> snapshotsOfOrganisation(
    Connection &connection, int organisation, SumMode mode, const Span &span)
{
    const Selection selection = {Fact::Snapshots, scopesOf(mode), {organisation}, span};
    std::map<Bucket, std::vector<ClassFigure>> periods;
    for (const BucketFigure &figure : figuresByBucket(connection, selection))
        periods[figure.bucket].push_back({figure.figureClass, figure.count});
    if (periods.empty())
        return {};
    std::vector<SnapOrgaItem> items;
    for (const Bucket bucket : bucketsOf(span))
        items.push_back({organisation, labelOf(bucket, span.unit), bothClasses(periods[bucket])});
    return items;
}

std::vector<SnapDetailMajorItem> snapshotDetailsOfChannel(
    Connection &connection, const std::string &uid, int snapClass, const Span &span)
{
    return byMajor(figuresByClass(
        connection, {detailsOf(snapClass), {Scope::Source}, {sourceOfUid(connection, uid)}, span}));
}

std::vector<SnapDetailMajorItem> snapshotDetailsOfOrganisation(
    Connection &connection, int organisation, SumMode mode, int snapClass, const Span &span)
{
    return byMajor(figuresByClass(connection, {detailsOf(snapClass), scopesOf(mode), {organisation}, span}));
}

} // namespace devdata
