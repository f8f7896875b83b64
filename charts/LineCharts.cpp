#include "page/BasicChart.h"
#include "page/LabelStance.h"
#include "page/ServiceTypes.h"

#include "ChartLook.h"
#include "ReadableLabels.h"
#include "ui_BasicChart.h"

#include <QtCharts/QBarCategoryAxis>
#include <QtCharts/QChart>
#include <QtCharts/QLegend>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>
#include <QtCore/QDebug>
#include <QtGui/QFont>
#include <QtGui/QPen>

namespace {

constexpr double lineWidth = 3.0;
constexpr int pointLabelPixels = 20;
constexpr QColor firstPointLabelColour(157, 172, 253, 255);
constexpr int longestLabelKept = 12;
constexpr int hourPosition = 11;
constexpr int hourLength = 2;

QLineSeries *lineOf(QChart &chart, const LabelledValues &list, const QString &name, const QColor &colour,
    const QColor &pointLabelColour)
{
    auto *line = new QLineSeries(&chart);
    QList<QPointF> points;
    points.reserve(list.size());
    for (const auto &entry : list)
        points.append(QPointF(static_cast<qreal>(points.size()), entry.second));
    line->append(points);
    line->setName(name);
    line->setPen(ChartLook::pen(colour, lineWidth, Qt::SolidLine));
    QFont font;
    font.setPixelSize(pointLabelPixels);
    line->setPointLabelsFont(font);
    line->setPointLabelsColor(pointLabelColour);
    line->setPointsVisible(true);
    return line;
}

// Of "yyyy-MM-dd hh" the hour is enough: hours are counted within one day.
QStringList periodLabels(const LabelledValues &list, int timeType)
{
    QStringList labels = listKeys(list);
    if (timeType != ZrCalendarWidget::Hour)
        return labels;
    for (QString &label : labels) {
        if (label.size() > longestLabelKept)
            label = label.mid(hourPosition, hourLength);
    }
    return labels;
}

} // namespace

QChart *BasicChart::createLineChart()
{
    ui->labelLineChartTitle->setText(getChartTitle(ui->labelLineChartTitle));
    auto *chart = new QChart;
    QLineSeries *line = lineOf(*chart, lineDataList, m_strSelectedBar,
        ChartLook::themeColour("$word_color_4"), firstPointLabelColour);
    showLines(*chart, {line}, listValues(lineDataList));
    return chart;
}

QChart *BasicChart::createDualLineChart()
{
    ui->labelLineChartTitle->setText(getChartTitle(ui->labelLineChartTitle));
    auto *chart = new QChart;
    QLineSeries *line1 = lineOf(*chart, lineDataList, lineNames.value(0),
        ChartLook::themeColour("$word_color_4"), firstPointLabelColour);
    line1->setObjectName(QStringLiteral("Line1"));
    QLineSeries *line2 = lineOf(
        *chart, lineDataList2, lineNames.value(1), ChartLook::secondSeries(), ChartLook::secondSeries());
    line2->setObjectName(QStringLiteral("Line2"));
    showLines(*chart, {line1, line2}, listValues(lineDataList) + listValues(lineDataList2));
    return chart;
}

// All lines share the periods of the first.
void BasicChart::showLines(QChart &chart, const QList<QLineSeries *> &lines, const QList<int> &values)
{
    const QStringList periods = periodLabels(lineDataList, m_nTimeType);
    QBarCategoryAxis *axisX = ChartLook::categoryAxis(periods);
    for (QLineSeries *line : lines) {
        connect(line, &QXYSeries::hovered, this, &BasicChart::slotLineSelected);
        chart.addSeries(line);
    }
    chart.createDefaultAxes();
    for (QLineSeries *line : lines)
        ChartLook::setAxisX(chart, axisX, line);
    QValueAxis *axisY = ChartLook::valueAxis(axisBound(serviceType().axisRule, getMaxValue(values)));
    for (QLineSeries *line : lines)
        ChartLook::setAxisY(chart, axisY, line);
    ReadableLabels::keepReadable(chart, axisX, periods, ReadableLabels::Kind::Periods,
        ChartLook::sizeIn(lineChartView), LabelStance::of(*this, m_lineLabelStances[m_nTimeType]));
    chart.legend()->setMarkerShape(QLegend::MarkerShapeFromSeries);
    ChartLook::showLegend(chart, Qt::AlignTop);
    ChartLook::showNamesAsTheyStand(*chart.legend());
    ChartLook::removeMargins(chart);
    qDebug() << "createLineChart";
}
