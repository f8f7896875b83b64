#include "page/BasicChart.h"
#include "page/ServiceTypes.h"
#include "page/Texts.h"

#include "ChartLook.h"
#include "ReadableLabels.h"
#include "ui_BasicChart.h"

#include <TalvixWidgets/AppTranslationHelper.h>
#include <TalvixWidgets/ZrChartView.h>

#include <QtCharts/QChart>
#include <QtCharts/QLegend>
#include <QtCharts/QPieSeries>
#include <QtCharts/QPieSlice>
#include <QtCore/QDebug>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>

#include <algorithm>

namespace {

constexpr double pieSize = 0.86;
constexpr double holeSize = 0.618;
constexpr int slicesKept = 8;

struct ClassColour
{
    const char *nameKey;
    const char *colourKey;
};

constexpr ClassColour classColours[] = {
    {"TK_NormalTemperature", "$word_normaltemp"},
    {"TK_OvertemperatureOfHighTemperature", "$word_overtemp"},
    {"TK_LowTemp", "$word_lowtemp"},
    {"TK_AbnormalTemperature", "$word_anormaltemp"},
    {"TK_MaskWeared", "$word_weared"},
    {"TK_MaskUncovered", "$word_uncovered"},
    {"TK_MaskUndetected", "$word_undetected"},
};

// Largest first, what is left over last; from the ninth slice on all is left over.
void orderSlices(LabelledValues &slices)
{
    std::stable_sort(
        slices.begin(), slices.end(), [](const auto &a, const auto &b) { return a.second > b.second; });

    const QString other = Texts::sentence("TK_Other");
    const auto leftOver = std::find_if(
        slices.begin(), slices.end(), [&other](const auto &slice) { return slice.first == other; });
    if (leftOver != slices.end())
        std::rotate(leftOver, leftOver + 1, slices.end());

    if (slices.size() <= slicesKept)
        return;
    const int sum = wrappingTotal(slices.mid(slicesKept));
    slices.resize(slicesKept);
    slices.append({other, sum});
}

// What stands behind the name of a slice.
QString sliceFigures(int value, int total)
{
    const double percentage = value * 100.0 / total;
    return Texts::sentence(" | %1% %2").arg(percentage, 5, 'f', 1, QLatin1Char(' ')).arg(value);
}

QList<QColor> positionColours()
{
    return {ChartLook::themeColour("$background_chart_color_1"), QColor(225, 79, 113), QColor(67, 178, 249),
        QColor(249, 206, 79), QColor(159, 80, 255), QColor(182, 182, 182)};
}

void colourByClass(QPieSlice &slice, const QString &name)
{
    for (const ClassColour &known : classColours) {
        if (name == Texts::sentence(known.nameKey)) {
            slice.setColor(ChartLook::themeColour(known.colourKey));
            return;
        }
    }
}

} // namespace

QChart *BasicChart::createPieChart()
{
    ui->labelPieChartTitle->setText(getChartTitle(ui->labelPieChartTitle));
    auto *chart = new QChart;
    auto *series = new QPieSeries(chart);
    series->setPieSize(pieSize);
    series->setHoleSize(holeSize);
    const int total = wrappingTotal(pieDataList);
    orderSlices(pieDataList);
    const QList<std::pair<QString, QString>> legendTexts = appendSlices(*series, total);
    connect(series, &QPieSeries::hovered, this, &BasicChart::slotPieSelected);
    chart->addSeries(series);
    chart->legend()->setMarkerShape(QLegend::MarkerShapeCircle);
    ChartLook::showLegend(*chart, Qt::AlignRight);
    ChartLook::showNamesAsTheyStand(*chart->legend());
    chart->legend()->setBackgroundVisible(false);
    ReadableLabels::keepLegendReadable(*chart, legendTexts, ChartLook::sizeIn(pieChartView));
    // The pane may get its size after the chart; the total in its middle follows.
    connect(chart, &QGraphicsWidget::geometryChanged, this, [this] {
        if (labelPiecount && !labelPiecount->isHidden())
            updatePieCount();
    });
    ChartLook::removeMargins(*chart);
    qDebug() << "createPieChart";
    return chart;
}

QList<std::pair<QString, QString>> BasicChart::appendSlices(QPieSeries &series, int total)
{
    QList<std::pair<QString, QString>> legendTexts;
    const bool byClass = serviceType().has(ServiceTypeRow::ColoursByClass);
    const QList<QColor> colours = positionColours();
    for (int i = 0; i < pieDataList.size(); ++i) {
        const auto &entry = pieDataList.at(i);
        legendTexts.append({entry.first, sliceFigures(entry.second, total)});
        QPieSlice *slice = series.append(entry.first + legendTexts.constLast().second, entry.second);
        slice->setBorderColor(Qt::transparent);
        if (byClass)
            colourByClass(*slice, entry.first);
        else if (i < colours.size())
            slice->setColor(colours.at(i));
    }
    return legendTexts;
}

void BasicChart::slot_switchPieChart(QAbstractButton *)
{
    pieDataList.clear();
    const QList<int> majorTypes = openSnapClass();
    if (!comboBoxPie)
        return;
    offerSnapMajorTypes(majorTypes);
    reloadPieChart();
}

QList<int> BasicChart::openSnapClass()
{
    const std::vector<SnapDetailMajorItem> items = snapDetailMap.value(chosenSnapClass());
    QList<int> majorTypes;
    for (const SnapDetailMajorItem &item : items)
        majorTypes.append(item.majorType);
    if (!majorTypes.isEmpty())
        setSnapMinorPieList(items, majorTypes.constFirst());
    return majorTypes;
}

void BasicChart::offerSnapMajorTypes(const QList<int> &majorTypes)
{
    comboBoxPie->clear();
    for (const int type : majorTypes)
        comboBoxPie->addItem(AppTranslationHelper::instance()->getSnapDetailMajorTypeName(type), type);
    if (!majorTypes.isEmpty())
        comboBoxPie->setCurrentIndex(0);
}

void BasicChart::slot_switchPieType(int index)
{
    if (!comboBoxPie)
        return;
    const int mode = comboBoxPie->itemData(index, Qt::UserRole).toInt();
    if (!serviceType().has(ServiceTypeRow::SnapClasses))
        openPieMode(pieMode(mode));
    else if (snapDetailMap.contains(chosenSnapClass()))
        setSnapMinorPieList(snapDetailMap.value(chosenSnapClass()), mode);
    reloadPieChart();
}

void BasicChart::openPieMode(const PieMode *mode)
{
    if (mode)
        (this->*mode->fill)();
    if (mode && mode->alone)
        emptyAllCharts();
    else if (mode || serviceType().has(ServiceTypeRow::LoadsUnknownPieMode))
        loadChart();
}

const BasicChart::PieMode *BasicChart::pieMode(int code) const
{
    const QList<PieMode> &modes = serviceType().pieModes;
    const auto known =
        std::find_if(modes.cbegin(), modes.cend(), [code](const PieMode &mode) { return mode.code == code; });
    return known == modes.cend() ? nullptr : &*known;
}

// Before the first load there is no box; its first mode is the one to come.
const BasicChart::PieMode *BasicChart::chosenPieMode() const
{
    if (comboBoxPie)
        return pieMode(comboBoxPie->currentData(Qt::UserRole).toInt());
    const QList<PieMode> &modes = serviceType().pieModes;
    return modes.isEmpty() ? nullptr : &modes.constFirst();
}

void BasicChart::fillEtiologyPie()
{
    setEtiologyPieList(etiologyDistribution);
}

void BasicChart::fillNumberPie()
{
    setNumberPieList(numberDistribution);
}

void BasicChart::fillTemperaturePie()
{
    setTemperaturePieList(temperatureDistribution);
}

void BasicChart::fillMaskPie()
{
    setMaskPieList(maskDistribution);
}

// Counts by number belong to no bar and no period, so bars and line stand empty until they are loaded again.
void BasicChart::emptyAllCharts()
{
    for (ZrChartView *view : std::as_const(m_chartViewList)) {
        if (!view)
            continue;
        QChart *chart = view->chart();
        const QList<QAbstractSeries *> allSeries = chart->series();
        for (QAbstractSeries *series : allSeries) {
            chart->removeSeries(series);
            series->deleteLater();
        }
        chart->removeAllSeries();
        ChartLook::removeAxisX(*chart);
    }
}
