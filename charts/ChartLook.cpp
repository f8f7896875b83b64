#include "ChartLook.h"
#include "page/Texts.h"

#include <TalvixWidgets/QssFormatHelper.h>
#include <TalvixWidgets/ZrChartView.h>

#include <QtCharts/QAbstractBarSeries>
#include <QtCharts/QBarCategoryAxis>
#include <QtCharts/QBarSet>
#include <QtCharts/QChart>
#include <QtCharts/QLegend>
#include <QtCharts/QLegendMarker>
#include <QtCharts/QValueAxis>
#include <QtCore/QAbstractAnimation>
#include <QtCore/QCoreApplication>
#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtGui/QFontInfo>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPen>
#include <QtGui/QTextDocument>
#include <QtWidgets/QGraphicsLayout>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsTextItem>

#include <algorithm>
#include <cmath>

namespace ChartLook {

namespace {

constexpr QColor axisColour(63, 65, 71, 255);
constexpr double axisWidth = 1.5;
constexpr double gridWidth = 1.0;
constexpr int ticks = 6;
constexpr QChar invisibleOne(0x200B);
constexpr QChar invisibleZero(0x2060);
// What the axis itself keeps free around a label before it shortens it.
constexpr double gapBetweenLabels = 20;
// What the axis keeps free beside the labels of values.
constexpr double gapBesideValues = 8.5;
constexpr int uprightAngle = -90;
// Labels get about this much of the chart's height at the most.
constexpr double labelShare = 0.37;
constexpr int smallestLabelPixels = 9;
// In less room for each label the axis draws none at all.
constexpr double smallestRoom = 2;
// No screen is wide enough to draw more.
constexpr int mostLabelsDrawn = 4000;
// What the axis adds to the text of a label, within it and around it.
constexpr double labelMargin = 0.5;
constexpr double gapAroundLabels = 5;
// A legend beside a chart gets no more of its width than this.
constexpr double legendShare = 0.4;
constexpr double legendMarkerInLines = 2.2;
constexpr int manyBars = 50;

// The digits of a number, without any for 0.
QString invisibleMarks(int number)
{
    if (number == 0)
        return {};
    return QString::number(number, 2).replace(u'1', invisibleOne).replace(u'0', invisibleZero);
}

// A category axis drops labels that it has already and null ones, and every bar behind them would stand under
// a wrong label. Invisible marks behind the text tell such labels apart.
QStringList distinctLabels(const QStringList &labels)
{
    QStringList distinct;
    distinct.reserve(labels.size());
    QSet<QString> taken;
    QHash<QString, int> marksOf;
    for (const QString &given : labels) {
        const QString label = Texts::inRichText(given);
        int &marks = marksOf[label];
        QString candidate = QStringLiteral("") + label + invisibleMarks(marks);
        while (taken.contains(candidate))
            candidate = label + invisibleMarks(++marks);
        taken.insert(candidate);
        distinct.append(candidate);
    }
    return distinct;
}

struct WidestText
{
    QString text;
    double width = 0;
};

WidestText widestText(const QStringList &texts, const QFont &font)
{
    const QFontMetricsF metrics(font);
    WidestText widest;
    for (const QString &text : texts) {
        const double width = metrics.horizontalAdvance(text);
        if (width > widest.width)
            widest = {text, width};
    }
    return widest;
}

qsizetype shownLength(const QString &label)
{
    return label.size() - label.count(invisibleOne) - label.count(invisibleZero);
}

// Of so many labels none is drawn: the widest only keeps its height free. Rather than measure thousands, the
// longest stands for it.
WidestText widestLabel(const QStringList &labels, const QFont &font)
{
    if (labels.size() <= mostLabelsDrawn)
        return widestText(labels, font);
    const auto shorter = [](const QString &left, const QString &right) {
        return shownLength(left) < shownLength(right);
    };
    return widestText({*std::max_element(labels.cbegin(), labels.cend(), shorter)}, font);
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

// Height of the axis with this text standing upright, measured as the axis measures.
double axisHeight(const QString &label, const QFont &font)
{
    QGraphicsTextItem item;
    item.document()->setDocumentMargin(labelMargin);
    item.setFont(font);
    item.setHtml(label);
    return item.boundingRect().width() + gapAroundLabels;
}

// The item by which a chart lays its category axis out. That of a replaced axis is still there, hidden.
QGraphicsLayoutItem *layoutItem(const QChart &chart)
{
    const auto items = chart.childItems();
    for (QGraphicsItem *item : items) {
        const QGraphicsObject *object = item->toGraphicsObject();
        if (object && object->isVisible()
            && object->metaObject()->className() == QByteArrayView("ChartBarCategoryAxisX"))
            return dynamic_cast<QGraphicsLayoutItem *>(item);
    }
    return nullptr;
}

// Keeps the labels of one category axis readable.
class LabelKeeper
{
public:
    LabelKeeper(QChart &chart, QBarCategoryAxis &axis)
        : m_chart(&chart)
        , m_axis(&axis)
        , m_usual(axis.labelsFont())
        , m_widest(widestLabel(axis.categories(), m_usual))
    { }

    void place(QSizeF chartSize, double plotWidth) const
    {
        if (m_widest.width <= 0 || chartSize.isEmpty())
            return;
        const double room = plotWidth / m_axis->count();
        const LabelPlace place = placeLabels(m_widest.width, m_usual, room, chartSize.height());
        if (place.angle != m_axis->labelsAngle()
            || place.pixels != QFontInfo(m_axis->labelsFont()).pixelSize()) {
            QFont font = m_usual;
            font.setPixelSize(place.pixels);
            m_axis->setLabelsFont(font);
            m_axis->setLabelsAngle(place.angle);
        }
        showLabels(room >= smallestRoom);
    }

private:
    // An axis draws none of its labels where they are too many, yet measures them all to know its height. It
    // is told the height instead, which is that of the widest.
    void showLabels(bool shown) const
    {
        if (shown == m_axis->labelsVisible())
            return;
        m_axis->setLabelsVisible(shown);
        if (QGraphicsLayoutItem *item = layoutItem(*m_chart))
            item->setPreferredHeight(shown ? -1 : axisHeight(m_widest.text, m_axis->labelsFont()));
    }

    QChart *m_chart;
    QBarCategoryAxis *m_axis;
    QFont m_usual;
    WidestText m_widest;
};

// What the plot will have of the chart's width, closely enough to choose the labels' font before the chart is
// laid out: all but the labels of the value axis.
double expectedPlotWidth(const QChart &chart, QSizeF chartSize)
{
    double labels = 0;
    const auto axes = chart.axes(Qt::Vertical);
    for (const QAbstractAxis *axis : axes) {
        if (const auto *values = qobject_cast<const QValueAxis *>(axis)) {
            const QString largest = QString::number(static_cast<qint64>(values->max()));
            labels += QFontMetricsF(values->labelsFont()).horizontalAdvance(largest) + gapBesideValues;
        }
    }
    return chartSize.width() - labels;
}

// A scene hands its changes to its view by calls that it posts to itself, and each has the window painted.
void deliverCalls(const QChartView &view)
{
    QCoreApplication::sendPostedEvents(view.scene(), QEvent::MetaCall);
}

// What stood for a replaced axis is deleted later, and its place would be painted once more then.
void deleteReplaced(const QChart &chart)
{
    QList<QPointer<QObject>> parts;
    const auto items = chart.childItems();
    for (QGraphicsItem *item : items) {
        if (!item->isVisible())
            parts.append(item->toGraphicsObject());
    }
    for (const QPointer<QObject> &part : std::as_const(parts)) {
        if (part)
            QCoreApplication::sendPostedEvents(part, QEvent::DeferredDelete);
    }
}

bool hasManyBars(const QChart &chart)
{
    const auto all = chart.series();
    return std::any_of(all.cbegin(), all.cend(), [](const QAbstractSeries *series) {
        const auto *bars = qobject_cast<const QAbstractBarSeries *>(series);
        return bars && bars->count() > 0 && bars->barSets().constFirst()->count() > manyBars;
    });
}

// A series begins to grow by a call that is posted to its animation. Left to itself it would begin after the
// finished chart has been painted.
void beginAnimations(const QGraphicsItem &item)
{
    const auto children = item.childItems();
    for (QGraphicsItem *child : children) {
        const QGraphicsObject *object = child->toGraphicsObject();
        if (!object)
            continue;
        const auto animations = object->findChildren<QAbstractAnimation *>(Qt::FindDirectChildrenOnly);
        for (QAbstractAnimation *animation : animations)
            QCoreApplication::sendPostedEvents(animation, QEvent::MetaCall);
        beginAnimations(*object);
    }
}

// A chart lays itself out whenever its size or a part of it changes. While it has such a child it does not.
class HeldLayout : public QObject
{
public:
    explicit HeldLayout(QChart &chart)
        : QObject(&chart)
    {
        chart.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        return event->type() == QEvent::GraphicsSceneResize || event->type() == QEvent::LayoutRequest;
    }
};

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
    const auto markers = legend->markers();
    for (QLegendMarker *marker : markers) {
        const QString shown = Texts::inRichText(marker->label());
        if (shown != marker->label())
            marker->setLabel(shown);
    }
    legend->setVisible(true);
}

void keepLabelsReadable(QChart &chart, QBarCategoryAxis *axis, const ZrChartView *view)
{
    const LabelKeeper keeper(chart, *axis);
    const auto placeFor = [keeper, &chart](
                              QSizeF size) { keeper.place(size, expectedPlotWidth(chart, size)); };
    QMetaObject::Connection beforeLayout;
    if (view)
        placeFor(view->size());
    else
        beforeLayout = QObject::connect(
            &chart, &QGraphicsWidget::geometryChanged, axis, [placeFor, &chart] { placeFor(chart.size()); });
    QObject::connect(
        &chart, &QChart::plotAreaChanged, axis, [keeper, beforeLayout, &chart](const QRectF &plot) {
            QObject::disconnect(beforeLayout);
            keeper.place(chart.size(), plot.width());
        });
}

void keepLegendReadable(QChart &chart, const ZrChartView *view)
{
    QStringList texts;
    const auto markers = chart.legend()->markers();
    for (const QLegendMarker *marker : markers)
        texts.append(marker->label());
    QLegend *legend = chart.legend();
    const QFont usual = legend->font();
    const double widest =
        widestText(texts, usual).width + legendMarkerInLines * QFontMetricsF(usual).height();
    const auto fit = [=](QSizeF chartSize) {
        const double share = std::min(1.0, chartSize.width() * legendShare / widest);
        QFont font = usual;
        font.setPixelSize(
            std::max(smallestLabelPixels, static_cast<int>(QFontInfo(usual).pixelSize() * share)));
        if (font.pixelSize() != QFontInfo(legend->font()).pixelSize())
            legend->setFont(font);
    };
    if (view)
        fit(view->size());
    QObject::connect(&chart, &QGraphicsWidget::geometryChanged, legend, [=, &chart] { fit(chart.size()); });
}

void removeMargins(QChart &chart)
{
    chart.layout()->setContentsMargins(0, 0, 0, 0);
    chart.setMargins(QMargins());
}

void setRenderLook(QChart &chart)
{
    chart.setAnimationOptions(QChart::SeriesAnimations);
    const QBrush transparent(Qt::transparent);
    if (chart.backgroundBrush() != transparent)
        chart.setBackgroundBrush(transparent);
}

void holdLayout(QChart &chart)
{
    setRenderLook(chart);
    new HeldLayout(chart);
}

void layOut(QChartView &view)
{
    QChart *chart = view.chart();
    // Bars that grow are a place to paint each; many are painted faster as one.
    view.setViewportUpdateMode(hasManyBars(*chart) ? QGraphicsView::BoundingRectViewportUpdate
                                                   : QGraphicsView::MinimalViewportUpdate);
    deleteReplaced(*chart);
    // By these calls the scene tells its new items that they are on show, which asks for a layout as well.
    deliverCalls(view);
    const QObjectList children = chart->children();
    for (QObject *child : children)
        delete dynamic_cast<HeldLayout *>(child);
    chart->layout()->activate();
}

HeldPainting::HeldPainting(const QList<ZrChartView *> &views)
{
    for (ZrChartView *view : views) {
        // A parent may hold still as well, as that of a tab does while the tab is shown.
        if (!view->testAttribute(Qt::WA_ForceUpdatesDisabled)) {
            view->setUpdatesEnabled(false);
            m_views.append(view);
        }
    }
}

HeldPainting::~HeldPainting()
{
    for (const QChartView *view : std::as_const(m_views)) {
        beginAnimations(*view->chart());
        deliverCalls(*view);
    }
    for (QChartView *view : std::as_const(m_views))
        view->setUpdatesEnabled(true);
}

} // namespace ChartLook
