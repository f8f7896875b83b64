#include "page/BasicChart.h"
#include "page/Codes.h"
#include "page/LabelStance.h"
#include "page/ServiceTypes.h"
#include "page/Texts.h"

#include "ChartLook.h"
#include "ReadableLabels.h"
#include "ui_BasicChart.h"
#include "UserData.h"

#include <TalvixWidgets/KrxClient.h>

#include <QtCharts/QBarCategoryAxis>
#include <QtCharts/QBarSeries>
#include <QtCharts/QBarSet>
#include <QtCharts/QChart>
#include <QtCharts/QLegend>
#include <QtCharts/QStackedBarSeries>
#include <QtCharts/QValueAxis>
#include <QtCore/QDebug>
#include <QtCore/QVariant>

#include <vector>

namespace {

constexpr double widthOfOneBar = 0.075;
constexpr double widthOfSeveralBars = 0.15;

QBarSet *coloredSet(const char *nameKey, const QColor &colour)
{
    auto *set = new QBarSet(Texts::sentence(nameKey));
    set->setColor(colour);
    set->setBorderColor(colour);
    return set;
}

QBarSet *firstSet(const char *nameKey)
{
    return coloredSet(nameKey, ChartLook::themeColour("$word_tabbar2_select"));
}

QBarSet *secondSet(const char *nameKey)
{
    return coloredSet(nameKey, ChartLook::secondSeries());
}

QList<qreal> asReals(const LabelledValues &list)
{
    QList<qreal> values;
    values.reserve(list.size());
    for (const auto &entry : list)
        values.append(entry.second);
    return values;
}

// Anything that is no recorder is drawn as a camera.
bool isRecorder(int deviceType)
{
    if (deviceType == Codes::Camera)
        return false;
    if (KrxClient::instance()->isNVROrDVRDevice(deviceType))
        return true;
    qDebug() << "name" << deviceType;
    return false;
}

// Keeps the items that a set's properties point to for as long as the set lives.
class BarItems : public QObject
{
public:
    BarItems(QBarSet *set, const LabelledValues &bars, qsizetype count)
        : QObject(set)
        , m_items(static_cast<std::size_t>(count))
    {
        for (int i = 0; i < count; ++i) {
            UserData &item = m_items[static_cast<std::size_t>(i)];
            item.index = i;
            item.label = bars.value(i).first;
            set->setProperty(UserData::propertyName(i).constData(), QVariant::fromValue(&item));
        }
    }

private:
    std::vector<UserData> m_items;
};

} // namespace

QChart *BasicChart::createBarChart()
{
    ui->labelBarChartTitle->setText(getChartTitle(ui->labelBarChartTitle));
    auto *chart = new QChart;
    auto *series = new QStackedBarSeries(chart);
    if (serviceType().series == ServiceTypeRow::Series::CamerasAndRecorders)
        appendDeviceSets(*chart, *series);
    else
        appendSingleSet(*chart, *series);
    if (series->count() > 0) {
        series->setBarWidth(barDataList.size() > 1 ? widthOfSeveralBars : widthOfOneBar);
        showBars(*chart, series);
    }
    ChartLook::removeMargins(*chart);
    qDebug() << "createBarChart";
    return chart;
}

void BasicChart::appendSingleSet(QChart &chart, QAbstractBarSeries &series)
{
    chart.legend()->setVisible(false);
    QBarSet *set = firstSet(serviceType().firstSeriesKey);
    set->append(asReals(barDataList));
    series.append(set);
}

void BasicChart::appendDeviceSets(QChart &chart, QAbstractBarSeries &series)
{
    ChartLook::showLegend(chart, Qt::AlignTop);
    QList<qreal> cameras;
    QList<qreal> recorders;
    ListIndex<int> deviceTypes;
    for (const auto &[name, value] : std::as_const(barDataList)) {
        const int index = deviceTypes.indexOf(devTypeDataList, name);
        if (index < 0)
            continue;
        const bool recorder = isRecorder(devTypeDataList.at(index).second);
        cameras.append(recorder ? 0.0 : value);
        recorders.append(recorder ? value : 0.0);
    }
    QBarSet *cameraSet = firstSet(serviceType().firstSeriesKey);
    QBarSet *recorderSet = secondSet(serviceType().secondSeriesKey);
    cameraSet->append(cameras);
    recorderSet->append(recorders);
    series.append(cameraSet);
    series.append(recorderSet);
}

QChart *BasicChart::createDualBarChart()
{
    ui->labelBarChartTitle->setText(getChartTitle(ui->labelBarChartTitle));
    auto *chart = new QChart;
    auto *series = new QBarSeries(chart);
    ChartLook::showLegend(*chart, Qt::AlignTop);

    QBarSet *set1 = firstSet(serviceType().firstSeriesKey);
    QBarSet *set2 = secondSet(serviceType().secondSeriesKey);
    set1->append(asReals(barDataList));
    new BarItems(set1, barDataList, barDataList.size());
    set2->append(asReals(barDataList2));
    new BarItems(set2, barDataList, barDataList2.size());
    series->append(set1);
    series->append(set2);
    if (series->count() > 0) {
        series->setBarWidth(series->count() * widthOfOneBar);
        showBars(*chart, series);
    }
    ChartLook::removeMargins(*chart);
    qDebug() << "createBarChart";
    return chart;
}

void BasicChart::showBars(QChart &chart, QAbstractBarSeries *series)
{
    chart.addSeries(series);
    ChartLook::showNamesAsTheyStand(*chart.legend());
    connect(series, &QAbstractBarSeries::hovered, this, &BasicChart::slotBarSelected);
    const QStringList names = listKeys(barDataList);
    QBarCategoryAxis *axisX = ChartLook::categoryAxis(names);
    chart.createDefaultAxes();
    ChartLook::setAxisX(chart, axisX, series);
    const int maximum = getMaxValue(listValues(barDataList) + listValues(barDataList2));
    ChartLook::setAxisY(chart, ChartLook::valueAxis(axisBound(serviceType().axisRule, maximum)), series);
    ReadableLabels::keepReadable(chart, axisX, names, ReadableLabels::Kind::Names,
        ChartLook::sizeIn(barChartView), LabelStance::of(*this, m_barLabelStance));
}
