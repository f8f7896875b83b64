#include "ChartLook.h"

#include <TalvixWidgets/QssFormatHelper.h>

#include <QtCharts/QBarCategoryAxis>
#include <QtCharts/QChart>
#include <QtCharts/QLegend>
#include <QtCharts/QLegendMarker>
#include <QtCharts/QValueAxis>
#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtGui/QFontInfo>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPen>
#include <QtWidgets/QGraphicsLayout>

#include <algorithm>
#include <cmath>

namespace ChartLook {

namespace {

constexpr QColor axisColour(63, 65, 71, 255);
constexpr double axisWidth = 1.5;
constexpr double gridWidth = 1.0;
constexpr int ticks = 6;
constexpr QChar invisibleMark(0x200B);
// What the axis itself keeps free around a label before it shortens it.
constexpr double gapBetweenLabels = 20;
constexpr int uprightAngle = -90;
// Labels get about this much of the chart's height at the most.
constexpr double labelShare = 0.37;
constexpr int smallestLabelPixels = 9;
// A legend beside a chart gets no more of its width than this.
constexpr double legendShare = 0.4;
constexpr double legendMarkerInLines = 2.2;

// A category axis drops labels that it has already and null ones, and every bar behind them would stand under
// a wrong label. Invisible marks behind the text tell such labels apart.
QStringList distinctLabels(const QStringList &labels)
{
    QStringList distinct;
    distinct.reserve(labels.size());
    QSet<QString> taken;
    QHash<QString, int> marksOf;
    for (const QString &label : labels) {
        int &marks = marksOf[label];
        QString candidate = label.isNull() ? QStringLiteral("") : label + QString(marks, invisibleMark);
        while (taken.contains(candidate))
            candidate = label + QString(++marks, invisibleMark);
        taken.insert(candidate);
        distinct.append(candidate);
    }
    return distinct;
}

double widestText(const QStringList &texts, const QFont &font)
{
    const QFontMetricsF metrics(font);
    double widest = 0;
    for (const QString &text : texts)
        widest = std::max(widest, metrics.horizontalAdvance(text));
    return widest;
}

struct LabelPlace
{
    int angle = 0;
    int pixels = 0;
};

// Labels that have no room side by side lessen their font; where that is not enough they stand upright, in
// the font that their height and their neighbours leave them. A name that fits neither way is shortened by
// the axis, where it keeps more of itself; its bar's call-out has it whole.
LabelPlace placeLabels(double widest, const QFont &font, double room, double chartHeight)
{
    const int pixels = QFontInfo(font).pixelSize();
    const double height = chartHeight * labelShare;
    const int level = static_cast<int>(pixels * std::min(1.0, (room - gapBetweenLabels) / widest));
    if (level >= smallestLabelPixels)
        return {0, level};
    const int upright =
        static_cast<int>(pixels * std::min({1.0, height / widest, room / QFontMetricsF(font).height()}));
    const bool levelKeepsMore = upright < smallestLabelPixels && room > height;
    return {levelKeepsMore ? 0 : uprightAngle, std::max(smallestLabelPixels, upright)};
}

} // namespace

QColor secondSeries()
{
    return QColor(QStringLiteral("#2CACCE"));
}

QColor themeColour(const char *key)
{
    return QssFormatHelper::getInstance()->findColorByKey(QString::fromLatin1(key));
}

QPen pen(const QColor &colour, double width, Qt::PenStyle style)
{
    return QPen(QBrush(colour), width, style, Qt::SquareCap, Qt::BevelJoin);
}

QBarCategoryAxis *categoryAxis(const QStringList &labels)
{
    auto *axis = new QBarCategoryAxis;
    axis->append(distinctLabels(labels));
    axis->setGridLineVisible(false);
    axis->setLinePen(pen(axisColour, axisWidth, Qt::SolidLine));
    axis->setLabelsColor(Qt::gray);
    return axis;
}

QValueAxis *valueAxis(double bound)
{
    auto *axis = new QValueAxis;
    axis->setRange(0, bound);
    axis->setTickCount(ticks);
    axis->setLabelFormat(QStringLiteral("%d"));
    axis->setLabelsColor(Qt::gray);
    axis->setGridLinePen(pen(axisColour, gridWidth, Qt::DashLine));
    axis->setGridLineVisible(true);
    axis->setLineVisible(false);
    return axis;
}

// Attaching an axis to its series alone would leave the default axis in the chart, so these are called
// although they are marked deprecated.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED
void setAxisX(QChart &chart, QAbstractAxis *axis, QAbstractSeries *series)
{
    chart.setAxisX(axis, series);
}

void setAxisY(QChart &chart, QAbstractAxis *axis, QAbstractSeries *series)
{
    chart.setAxisY(axis, series);
}

void removeAxisX(QChart &chart)
{
    QAbstractAxis *axis = chart.axisX(nullptr);
    if (!axis)
        return;
    chart.removeAxis(axis);
    axis->deleteLater();
}
QT_WARNING_POP

void showLegend(QChart &chart, Qt::Alignment alignment)
{
    QLegend *legend = chart.legend();
    legend->setAlignment(alignment);
    legend->setLabelColor(themeColour("$word_color_2"));
    legend->setVisible(true);
}

void keepLabelsReadable(QChart &chart, QBarCategoryAxis *axis)
{
    const int count = axis->count();
    const QFont usual = axis->labelsFont();
    const double widest = widestText(axis->categories(), usual);
    if (widest <= 0)
        return;
    QObject::connect(&chart, &QChart::plotAreaChanged, axis, [=, &chart](const QRectF &plot) {
        const LabelPlace place = placeLabels(widest, usual, plot.width() / count, chart.size().height());
        if (place.angle == axis->labelsAngle() && place.pixels == QFontInfo(axis->labelsFont()).pixelSize())
            return;
        QFont font = usual;
        font.setPixelSize(place.pixels);
        axis->setLabelsFont(font);
        axis->setLabelsAngle(place.angle);
    });
}

void keepLegendReadable(QChart &chart)
{
    QStringList texts;
    const auto markers = chart.legend()->markers();
    for (const QLegendMarker *marker : markers)
        texts.append(marker->label());
    const QFont usual = chart.legend()->font();
    const int usualPixels = QFontInfo(usual).pixelSize();
    const double widest = widestText(texts, usual) + legendMarkerInLines * QFontMetricsF(usual).height();
    QLegend *legend = chart.legend();
    QObject::connect(&chart, &QGraphicsWidget::geometryChanged, legend, [=, &chart] {
        const double share = std::min(1.0, chart.size().width() * legendShare / widest);
        QFont font = usual;
        font.setPixelSize(std::max(smallestLabelPixels, static_cast<int>(usualPixels * share)));
        if (font.pixelSize() != QFontInfo(legend->font()).pixelSize())
            legend->setFont(font);
    });
}

void removeMargins(QChart &chart)
{
    chart.layout()->setContentsMargins(0, 0, 0, 0);
    chart.setMargins(QMargins());
}

} // namespace ChartLook
