#include "ChartLook.h"

#include "page/Texts.h"

#include "ReadableLabels.h"

#include <TalvixWidgets/QssFormatHelper.h>
#include <TalvixWidgets/ZrChartView.h>

#include <QtCharts/QBarCategoryAxis>
#include <QtCharts/QChart>
#include <QtCharts/QLegend>
#include <QtCharts/QLegendMarker>
#include <QtCharts/QValueAxis>
#include <QtGui/QPen>
#include <QtWidgets/QGraphicsLayout>

namespace ChartLook {

namespace {

constexpr QColor axisColour(63, 65, 71, 255);
constexpr double axisWidth = 1.5;
constexpr double gridWidth = 1.0;
constexpr int ticks = 6;

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
    axis->append(ReadableLabels::categories(labels));
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

void showNamesAsTheyStand(const QLegend &legend)
{
    const auto markers = legend.markers();
    for (QLegendMarker *marker : markers) {
        const QString shown = Texts::inRichText(marker->label());
        if (shown != marker->label())
            marker->setLabel(shown);
    }
}

QSizeF sizeIn(const ZrChartView *view)
{
    return view ? QSizeF(view->size()) : QSizeF();
}

void removeMargins(QChart &chart)
{
    chart.layout()->setContentsMargins(0, 0, 0, 0);
    chart.setMargins(QMargins());
}

} // namespace ChartLook
