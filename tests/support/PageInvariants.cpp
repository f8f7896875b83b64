#include "PageInvariants.h"

#include <page/ServiceTypes.h>
#include <TalvixWidgets/ZrChartView.h>

#include <QtCharts/QtCharts>

#include <algorithm>

namespace {

const QBarCategoryAxis *namesBelow(const QChart &chart)
{
    const QList<QAbstractAxis *> axes = chart.axes(Qt::Horizontal);
    return axes.size() == 1 ? qobject_cast<const QBarCategoryAxis *>(axes.constFirst()) : nullptr;
}

QString brokenBars(const QChart &chart, bool twoSets)
{
    const QBarCategoryAxis *axis = namesBelow(chart);
    const QList<QAbstractSeries *> allSeries = chart.series();
    for (const QAbstractSeries *one : allSeries) {
        const auto *bars = qobject_cast<const QAbstractBarSeries *>(one);
        if (!bars)
            return QStringLiteral("the bar chart has a series of another kind");
        if (!axis)
            return QStringLiteral("the bar chart has not one axis of names");
        const QList<QBarSet *> sets = bars->barSets();
        if (twoSets && sets.size() != 2)
            return QStringLiteral("the bars are not in two sets");
        for (const QBarSet *set : sets) {
            if (set->count() != axis->count())
                return QStringLiteral("%1 bars stand above %2 names").arg(set->count()).arg(axis->count());
        }
    }
    return {};
}

QString brokenLines(const QChart &chart)
{
    const QBarCategoryAxis *axis = namesBelow(chart);
    const int periods = axis ? axis->count() : -1;
    const QList<QAbstractSeries *> allSeries = chart.series();
    for (const QAbstractSeries *one : allSeries) {
        const auto *line = qobject_cast<const QLineSeries *>(one);
        if (!line)
            return QStringLiteral("the line chart has a series of another kind");
        if (line->count() != periods)
            return QStringLiteral("%1 points stand above %2 periods").arg(line->count()).arg(periods);
    }
    return {};
}

bool sameLabels(const LabelledValues &left, const LabelledValues &right)
{
    const auto labels = [](const LabelledValues &list) {
        QStringList sorted = listKeys(list);
        std::sort(sorted.begin(), sorted.end());
        return sorted;
    };
    return labels(left) == labels(right);
}

QString brokenLists(const ProbePage &page, const BasicChart::ServiceTypeRow &row)
{
    if (row.dual() && !sameLabels(page.barDataList, page.barDataList2))
        return QStringLiteral("the two lists of bars have different names");
    if (row.dual() && !sameLabels(page.lineDataList, page.lineDataList2))
        return QStringLiteral("the two lines have different periods");
    if (!row.dual() && !(page.barDataList2.isEmpty() && page.lineDataList2.isEmpty()))
        return QStringLiteral("a second list is filled");
    if (page.barDataList.size() > page.devDataList.size())
        return QStringLiteral("%1 bars have %2 keys")
            .arg(page.barDataList.size())
            .arg(page.devDataList.size());
    const QStringList named = listKeys(page.devDataList);
    for (const QString &name : listKeys(page.barDataList)) {
        if (!row.dual() && !named.contains(name))
            return QStringLiteral("a bar has no key");
    }
    return {};
}

} // namespace

QString brokenInvariant(const ProbePage &page)
{
    const BasicChart::ServiceTypeRow &row = BasicChart::ServiceTypeRow::of(page.m_serviceType);
    const qsizetype views = page.m_chartViewList.size();
    if (views != 0 && views != (row.has(BasicChart::ServiceTypeRow::Pieless) ? 2 : 3))
        return QStringLiteral("there are %1 views").arg(views);
    const QString lists = brokenLists(page, row);
    if (!lists.isNull() || views == 0)
        return lists;
    const QString bars = brokenBars(*page.barChartView->chart(), row.dual());
    if (!bars.isNull())
        return bars;
    const QString lines = brokenLines(*page.lineChartView->chart());
    if (!lines.isNull())
        return lines;
    for (const ZrChartView *view : page.m_chartViewList) {
        const QList<QGraphicsItem *> items = view->scene()->items();
        const auto charts = std::count_if(items.cbegin(), items.cend(),
            [](QGraphicsItem *item) { return dynamic_cast<QChart *>(item) != nullptr; });
        if (charts != 1)
            return QStringLiteral("a view shows %1 charts").arg(charts);
    }
    return {};
}
