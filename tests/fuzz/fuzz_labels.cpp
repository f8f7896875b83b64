// Names and figures of any kind in titles, axes, legends and call-outs.

#include "FuzzSupport.h"

#include "support/ChartProbe.h"
#include "support/PageInvariants.h"

#include <page/ServiceTypes.h>
#include <page/Texts.h>

namespace {

constexpr int mostEntries = 12;

LabelledValues entries(FuzzedDataProvider &data)
{
    LabelledValues list;
    for (int i = data.ConsumeIntegralInRange(0, mostEntries); i > 0 && data.remaining_bytes() > 0; --i)
        list.append({Fuzz::text(data), Fuzz::number(data)});
    return list;
}

LabelledValues otherValues(FuzzedDataProvider &data, LabelledValues list)
{
    for (auto &entry : list)
        entry.second = Fuzz::number(data);
    return list;
}

class Visit
{
public:
    Visit(FuzzedDataProvider &data, ChartStage &stage)
        : m_data(data)
        , m_page(stage.page)
        , m_row(BasicChart::ServiceTypeRow::of(stage.page.m_serviceType))
    {
        m_page.m_nTimeType = data.ConsumeIntegralInRange(1, 3);
        stage.setTime(Fuzz::text(data));
    }

    void run()
    {
        fill();
        m_page.loadChart();
        Fuzz::report(brokenInvariant(m_page));
        checkNames();
        m_page.resize(m_data.ConsumeIntegralInRange(300, 1300), m_data.ConsumeIntegralInRange(300, 900));
        hover();
        Fuzz::settle();
        if (m_data.ConsumeIntegralInRange(0, 15) == 0)
            m_page.grab();
    }

private:
    void fill()
    {
        m_page.clearBarChartData();
        m_page.clearPieAndLineChartData();
        m_page.barDataList = entries(m_data);
        m_page.lineDataList = entries(m_data);
        m_page.pieDataList = entries(m_data);
        for (const auto &[name, value] : std::as_const(m_page.barDataList)) {
            m_page.devDataList.append({name, QString::number(value)});
            m_page.devTypeDataList.append({name, m_data.ConsumeIntegralInRange(0, 4)});
        }
        if (m_row.dual()) {
            m_page.barDataList2 = otherValues(m_data, m_page.barDataList);
            m_page.lineDataList2 = otherValues(m_data, m_page.lineDataList);
        }
    }

    // Every bar stands under its own name, whatever the name; where there is no room for it under what is
    // left of it.
    void checkNames()
    {
        const QChart *chart = m_page.barChartView->chart();
        if (chart->series().isEmpty())
            return;
        const QStringList shown = ChartProbe::categories(chart);
        Fuzz::report(
            shown.size() == m_page.barDataList.size() ? QString() : QStringLiteral("a bar lost its place"));
        for (qsizetype i = 0; i < shown.size(); ++i) {
            const QString &label = shown.at(i);
            const QString name = m_page.barDataList.at(i).first;
            const bool whole = label.startsWith(Texts::inRichText(name))
                || label.startsWith(Texts::inRichText(name.simplified()));
            const bool shortened = label.contains(QChar(0x2026)) || ChartProbe::seen(label).isEmpty();
            Fuzz::report(whole || shortened ? QString() : QStringLiteral("a bar lost its name"));
        }
    }

    void hover()
    {
        const QAbstractSeries *first = m_page.barChartView->chart()->series().value(0);
        const auto *bars = qobject_cast<const QAbstractBarSeries *>(first);
        if (bars && bars->count() > 0) {
            m_page.slotBarSelected(
                true, m_data.ConsumeIntegralInRange(-1, mostEntries), bars->barSets().first());
            checkCallout();
        }
        m_page.slotLineSelected(QPointF(m_data.ConsumeFloatingPointInRange(-1.0, 30.0), 0), true);
        auto *pie =
            m_page.pieChartView ? ChartProbe::series<QPieSeries>(m_page.pieChartView->chart()) : nullptr;
        if (pie && !pie->isEmpty())
            m_page.slotPieSelected(
                pie->slices().at(m_data.ConsumeIntegralInRange(0, pie->count() - 1)), true);
        checkCallout();
        m_page.slotPieSelected(nullptr, false);
        m_page.slotLineSelected({}, false);
    }

    // A name that looks like a place for an argument takes none.
    void checkCallout()
    {
        if (!m_page.labelCallout)
            return;
        const bool whole = m_page.labelCallout->text().startsWith(QStringLiteral("<p>&nbsp; "))
            && m_page.labelCallout->text().endsWith(QStringLiteral("</p>"));
        Fuzz::report(whole ? QString() : m_page.labelCallout->text());
    }

    FuzzedDataProvider &m_data;
    ProbePage &m_page;
    const BasicChart::ServiceTypeRow &m_row;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    FuzzedDataProvider data(bytes, size);
    // One page for each way of drawing: a set, two sets of devices, in percent, two figures, pie modes.
    constexpr int kinds[] = {1, 2, 4, 5, 7, 9};
    static ChartStage *stages[std::size(kinds)] = {};
    const auto kind = data.ConsumeIntegralInRange<std::size_t>(0, std::size(kinds) - 1);
    if (!stages[kind])
        stages[kind] = new ChartStage(kinds[kind]);
    Visit(data, *stages[kind]).run();
    stages[kind]->page.tips.clear();
    Fuzz::settle();
    return 0;
}
