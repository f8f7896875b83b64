#include "FloorCharts.h"

#include <charts/ReadableLabels.h>
#include <charts/UserData.h>
#include <page/AxisBound.h>
#include <page/LabelStance.h>

#include <TalvixWidgets/QssFormatHelper.h>

#include <QtCharts/QBarCategoryAxis>
#include <QtCharts/QBarSeries>
#include <QtCharts/QBarSet>
#include <QtCharts/QChart>
#include <QtCharts/QLegend>
#include <QtCharts/QLineSeries>
#include <QtCharts/QPieSeries>
#include <QtCharts/QPieSlice>
#include <QtCharts/QStackedBarSeries>
#include <QtCharts/QValueAxis>
#include <QtCore/QVariant>
#include <QtWidgets/QGraphicsLayout>

#include <algorithm>
#include <utility>

namespace {

const QColor secondColour(QStringLiteral("#2CACCE"));
const QColor axisColour(63, 65, 71, 255);
constexpr int hourPosition = 11;

QColor theme(const char *key)
{
    return QssFormatHelper::getInstance()->findColorByKey(QString::fromLatin1(key));
}

QPen solidPen(const QColor &colour, double width, Qt::PenStyle style)
{
    return QPen(QBrush(colour), width, style, Qt::SquareCap, Qt::BevelJoin);
}

int largest(const LabelledValues &first, const LabelledValues &second)
{
    int maximum = 0;
    for (const LabelledValues *list : {&first, &second}) {
        for (const auto &entry : *list)
            maximum = std::max(maximum, entry.second);
    }
    return maximum;
}

QBarCategoryAxis *categoryAxis(const QStringList &labels)
{
    auto *axis = new QBarCategoryAxis;
    axis->append(labels);
    axis->setGridLineVisible(false);
    axis->setLinePen(solidPen(axisColour, 1.5, Qt::SolidLine));
    axis->setLabelsColor(Qt::gray);
    return axis;
}

QValueAxis *valueAxis(bool dual, int maximum)
{
    auto *axis = new QValueAxis;
    axis->setRange(0, axisBound(dual ? AxisRule::Digit : AxisRule::Hundred, maximum));
    axis->setTickCount(6);
    axis->setLabelFormat(QStringLiteral("%d"));
    axis->setLabelsColor(Qt::gray);
    axis->setGridLinePen(solidPen(axisColour, 1.0, Qt::DashLine));
    axis->setGridLineVisible(true);
    axis->setLineVisible(false);
    return axis;
}

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED
void attachX(QChart *chart, QAbstractAxis *axis, QAbstractSeries *series)
{
    chart->setAxisX(axis, series);
}

void attachY(QChart *chart, QAbstractAxis *axis, QAbstractSeries *series)
{
    chart->setAxisY(axis, series);
}
QT_WARNING_POP

void showLegend(QChart *chart, Qt::Alignment alignment)
{
    chart->legend()->setAlignment(alignment);
    chart->legend()->setLabelColor(theme("$word_color_2"));
    chart->legend()->setVisible(true);
}

void removeMargins(QChart *chart)
{
    chart->layout()->setContentsMargins(0, 0, 0, 0);
    chart->setMargins(QMargins());
}

QBarSet *barSet(const char *name, const QColor &colour)
{
    auto *set = new QBarSet(QString::fromLatin1(name));
    set->setColor(colour);
    set->setBorderColor(colour);
    return set;
}

using BarItems = std::vector<std::unique_ptr<UserData>>;

void nameBars(QBarSet *set, const LabelledValues &bars, qsizetype count, BarItems &items)
{
    for (int i = 0; i < count; ++i) {
        items.push_back(std::make_unique<UserData>());
        UserData *item = items.back().get();
        item->index = i;
        item->label = bars.at(i).first;
        set->setProperty(UserData::propertyName(i).constData(), QVariant::fromValue(item));
    }
}

QChart *barChart(const ChartFigures &figures, const QSizeF &size, BarItems &items,
    const std::shared_ptr<LabelStance> &stance)
{
    auto *chart = new QChart;
    QAbstractBarSeries *series = nullptr;
    if (figures.dual) {
        series = new QBarSeries(chart);
        showLegend(chart, Qt::AlignTop);
        QBarSet *set1 = barSet("TK_Vehicle", theme("$word_tabbar2_select"));
        QBarSet *set2 = barSet("TK_Pedestrian", secondColour);
        for (const auto &entry : figures.bars)
            set1->append(entry.second);
        nameBars(set1, figures.bars, figures.bars.size(), items);
        for (const auto &entry : figures.bars2)
            set2->append(entry.second);
        nameBars(set2, figures.bars, figures.bars2.size(), items);
        series->append(set1);
        series->append(set2);
        series->setBarWidth(0.15);
    } else {
        series = new QStackedBarSeries(chart);
        if (figures.devices)
            showLegend(chart, Qt::AlignTop);
        else
            chart->legend()->setVisible(false);
        QBarSet *set = barSet(figures.devices ? "TK_IPC" : "TK_Organization", theme("$word_tabbar2_select"));
        for (const auto &entry : figures.bars)
            set->append(entry.second);
        series->append(set);
        if (figures.devices) {
            QBarSet *recorders = barSet("TK_NVRAndDVR", secondColour);
            for (int i = 0; i < figures.bars.size(); ++i)
                recorders->append(0);
            series->append(recorders);
        }
        series->setBarWidth(figures.bars.size() > 1 ? 0.15 : 0.075);
    }
    chart->addSeries(series);
    const QStringList names = listKeys(figures.bars);
    QBarCategoryAxis *axisX = categoryAxis(names);
    chart->createDefaultAxes();
    attachX(chart, axisX, series);
    ReadableLabels::keepReadable(*chart, axisX, names, ReadableLabels::Kind::Names, size, stance);
    attachY(chart, valueAxis(figures.dual, largest(figures.bars, figures.bars2)), series);
    removeMargins(chart);
    return chart;
}

QLineSeries *lineSeries(
    QChart *chart, const LabelledValues &list, const QString &name, const QColor &colour, const QColor &label)
{
    auto *line = new QLineSeries(chart);
    for (int i = 0; i < list.size(); ++i)
        line->append(i, list.at(i).second);
    line->setName(name);
    line->setPen(solidPen(colour, 3.0, Qt::SolidLine));
    QFont font;
    font.setPixelSize(20);
    line->setPointLabelsFont(font);
    line->setPointLabelsColor(label);
    line->setPointsVisible(true);
    return line;
}

QChart *lineChart(const ChartFigures &figures, const QSizeF &size, const std::shared_ptr<LabelStance> &stance)
{
    auto *chart = new QChart;
    const QColor firstLabel(157, 172, 253);
    QList<QLineSeries *> lines;
    if (figures.dual) {
        lines.append(
            lineSeries(chart, figures.line, figures.lineNames.value(0), theme("$word_color_4"), firstLabel));
        lines.append(
            lineSeries(chart, figures.line2, figures.lineNames.value(1), secondColour, secondColour));
    } else {
        lines.append(lineSeries(chart, figures.line, figures.lineName, theme("$word_color_4"), firstLabel));
    }
    QStringList hours = listKeys(figures.line);
    for (QString &hour : hours)
        hour = hour.mid(hourPosition, 2);
    QBarCategoryAxis *axisX = categoryAxis(hours);
    for (QLineSeries *line : std::as_const(lines))
        chart->addSeries(line);
    chart->createDefaultAxes();
    for (QLineSeries *line : std::as_const(lines))
        attachX(chart, axisX, line);
    ReadableLabels::keepReadable(*chart, axisX, hours, ReadableLabels::Kind::Periods, size, stance);
    QValueAxis *axisY = valueAxis(figures.dual, largest(figures.line, figures.line2));
    for (QLineSeries *line : std::as_const(lines))
        attachY(chart, axisY, line);
    chart->legend()->setMarkerShape(QLegend::MarkerShapeFromSeries);
    showLegend(chart, Qt::AlignTop);
    removeMargins(chart);
    return chart;
}

QChart *pieChart(const ChartFigures &figures, const QSizeF &size)
{
    const QList<QColor> colours = {theme("$background_chart_color_1"), QColor(225, 79, 113),
        QColor(67, 178, 249), QColor(249, 206, 79), QColor(159, 80, 255), QColor(182, 182, 182)};
    auto *chart = new QChart;
    auto *series = new QPieSeries(chart);
    series->setPieSize(0.86);
    series->setHoleSize(0.618);
    const int total = wrappingTotal(figures.pie);
    LabelledValues slices = figures.pie;
    std::stable_sort(
        slices.begin(), slices.end(), [](const auto &a, const auto &b) { return a.second > b.second; });
    QList<std::pair<QString, QString>> texts;
    for (int i = 0; i < slices.size(); ++i) {
        const auto &[name, value] = slices.at(i);
        texts.append({name, QStringLiteral(" | %1% %2").arg(value * 100.0 / total, 5, 'f', 1).arg(value)});
        QPieSlice *slice = series->append(name + texts.constLast().second, value);
        slice->setBorderColor(Qt::transparent);
        if (i < colours.size())
            slice->setColor(colours.at(i));
    }
    chart->addSeries(series);
    chart->legend()->setMarkerShape(QLegend::MarkerShapeCircle);
    showLegend(chart, Qt::AlignRight);
    chart->legend()->setBackgroundVisible(false);
    // Fitted any later, the legend would change the plot once animations are on, and the slices would grow.
    ReadableLabels::keepLegendReadable(*chart, texts, size);
    removeMargins(chart);
    return chart;
}

} // namespace

FloorCharts::~FloorCharts() = default;

FloorCharts::FloorCharts(QSize windowSize, const std::array<QRect, 3> &places)
    : m_places(places)
{
    resize(windowSize);
    QPalette colours = palette();
    colours.setBrush(QPalette::All, QPalette::Window, QBrush(QColor(0x191A1E)));
    colours.setBrush(QPalette::All, QPalette::WindowText, QBrush(QColor(0xD6D6D6)));
    setPalette(colours);
}

void FloorCharts::show(std::size_t place, QChart *chart)
{
    QChartView *&view = m_views.at(place);
    if (view) {
        view->chart()->deleteLater();
        view->setChart(chart);
    } else {
        view = new QChartView(chart, this);
        view->setGeometry(m_places.at(place));
        view->show();
    }
}

// As soon as the chart knows its size, which is too late for laying it out once.
QSizeF FloorCharts::labelSize(std::size_t place) const
{
    return m_fitFirst ? QSizeF(m_places.at(place).size()) : QSizeF();
}

void FloorCharts::finish()
{
    for (QChartView *view : m_views) {
        view->setRenderHint(QPainter::Antialiasing, true);
        view->chart()->setAnimationOptions(QChart::SeriesAnimations);
        view->chart()->setBackgroundBrush(QBrush(Qt::transparent));
    }
}

void FloorCharts::reload(const ChartFigures &figures)
{
    m_barItems.clear();
    show(0, barChart(figures, labelSize(0), m_barItems, LabelStance::of(*this, m_barStance)));
    reloadLineAndPie(figures);
}

void FloorCharts::reloadLineAndPie(const ChartFigures &figures)
{
    show(1, lineChart(figures, labelSize(1), LabelStance::of(*this, m_lineStance)));
    show(2, pieChart(figures, m_places[2].size()));
    finish();
}
