#include "ReadableLabels.h"

#include "page/LabelStance.h"
#include "page/Texts.h"

#include "ChartLayout.h"

#include <QtCharts/QBarCategoryAxis>
#include <QtCharts/QChart>
#include <QtCharts/QLegend>
#include <QtCharts/QLegendMarker>
#include <QtCharts/QValueAxis>
#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtGui/QFontInfo>
#include <QtGui/QFontMetricsF>
#include <QtGui/QTextDocument>
#include <QtWidgets/QGraphicsLayout>
#include <QtWidgets/QGraphicsTextItem>

#include <algorithm>
#include <cmath>

namespace ReadableLabels {

namespace {

constexpr QChar invisibleOne(0x200B);
constexpr QChar invisibleZero(0x2060);
constexpr QChar ellipsis(0x2026);

constexpr int smallestPixels = 9;
// Periods and values are never shortened; where nothing else helps their font goes on shrinking.
constexpr int leastPixels = 4;
constexpr double gapBetweenLabels = 6;
constexpr double diagonal = 0.70710678118654752;
// In less room for each category an axis draws no label.
constexpr double smallestRoom = 2;
// More than a row of screens has room to draw.
constexpr int mostLabelsDrawn = 4000;

// How Qt Charts divides a chart: what axes and legends keep free around their texts, and what they get at
// most.
constexpr double textMargin = 0.5;
constexpr double gapAboveLabels = 4;
constexpr double gapAroundLabels = 5;
constexpr double gapBesideValues = 8.5;
constexpr double legendShare = 0.4;
constexpr double axisShare = 0.4;
constexpr double gapsInMarker = 13;
constexpr double gapsAroundMarker = 6;

// What such an axis draws, measured as it measures.
QSizeF drawnSize(const QString &text, const QFont &font)
{
    QGraphicsTextItem item;
    item.document()->setDocumentMargin(textMargin);
    item.setFont(font);
    item.setHtml(Texts::inRichText(text));
    return item.boundingRect().size();
}

QSizeF turned(const QSizeF &size, Angle angle)
{
    switch (angle) {
    case Leaning: {
        const double side = (size.width() + size.height()) * diagonal;
        return {side, side};
    }
    case Upright:
        return size.transposed();
    case Level:
        break;
    }
    return size + QSizeF(gapBetweenLabels, 0);
}

QFont sized(QFont font, int pixels)
{
    font.setPixelSize(pixels);
    return font;
}

// Of so many labels none is drawn: the widest only keeps its height free. Rather than measure thousands, the
// longest stands for it.
QString widestText(const QStringList &texts, const QFont &font)
{
    if (texts.size() > mostLabelsDrawn) {
        return *std::max_element(texts.cbegin(), texts.cend(),
            [](const QString &left, const QString &right) { return left.size() < right.size(); });
    }
    const QFontMetricsF metrics(font);
    QString widest;
    double width = 0;
    for (const QString &text : texts) {
        const double advance = metrics.horizontalAdvance(text);
        if (advance > width) {
            width = advance;
            widest = text;
        }
    }
    return widest;
}

// Whether all texts fit in a font, and what the widest of them takes.
class Measure
{
public:
    Measure(const QStringList &texts, const QFont &usual)
        : m_usual(usual)
        , m_usualPixels(QFontInfo(usual).pixelSize())
        , m_widest(widestText(texts, usual))
    { }

    int usualPixels() const { return m_usualPixels; }
    QSizeF widest(int pixels)
    {
        QSizeF &size = m_sizes[pixels];
        if (size.isEmpty())
            size = drawnSize(m_widest, sized(m_usual, pixels));
        return size;
    }

    // The largest font down to \a least in which all texts fit, or 0.
    int fittingPixels(Angle angle, Room room, int least)
    {
        for (int pixels = m_usualPixels; pixels >= least; --pixels) {
            const QSizeF needed = turned(widest(pixels), angle);
            if (needed.width() <= room.width && needed.height() <= room.height)
                return pixels;
        }
        return 0;
    }

private:
    QFont m_usual;
    int m_usualPixels;
    QString m_widest;
    QHash<int, QSizeF> m_sizes;
};

// The number of characters that all of the texts begin with.
qsizetype commonStart(const QStringList &texts)
{
    QStringView start = texts.constFirst();
    for (const QString &text : texts) {
        const auto end = std::mismatch(start.cbegin(), start.cend(), text.cbegin(), text.cend()).first;
        start.truncate(std::distance(start.cbegin(), end));
    }
    if (!start.isEmpty() && start.back().isHighSurrogate())
        start.chop(1);
    return start.size();
}

// Texts that look the same when they are shortened, and what is shown of them in front of the rest.
struct Alike
{
    QList<int> places;
    QString shown;
};

// Shortened in the middle. Of texts that become the same by that the beginning goes which they share, and so
// on until they differ.
QStringList shortened(const QStringList &texts, const QFontMetricsF &metrics, double width)
{
    QStringList whole;
    QStringList result;
    QHash<QString, QList<int>> places;
    for (int i = 0; i < texts.size(); ++i) {
        whole.append(texts.at(i).simplified());
        result.append(metrics.elidedText(whole.constLast(), Qt::ElideMiddle, width));
        places[result.constLast()].append(i);
    }
    QList<Alike> groups;
    for (const QList<int> &same : std::as_const(places))
        groups.append({same, ellipsis});
    while (!groups.isEmpty()) {
        const Alike group = groups.takeLast();
        QStringList members;
        for (const int i : group.places)
            members.append(whole.at(i));
        if (members.count(members.constFirst()) == members.size())
            continue;
        const qsizetype start = commonStart(members);
        QHash<QString, QList<int>> apart;
        for (const int i : group.places) {
            result[i] = metrics.elidedText(group.shown + whole.at(i).mid(start), Qt::ElideRight, width);
            apart[whole.at(i).mid(start, 2)].append(i);
        }
        for (auto same = apart.cbegin(); same != apart.cend(); ++same)
            groups.append({same.value(), group.shown + same.key() + ellipsis});
    }
    return result;
}

// Shortened, or, where not even that has room, some of the names only.
Labels shortenedLabels(const QStringList &texts, const QFont &font, Room room)
{
    Labels labels{texts, Level, font.pixelSize()};
    const double line = drawnSize(QStringLiteral("…"), font).height();
    const double leaning = std::min(room.width, room.height) / diagonal - line;
    double width = room.width - gapBetweenLabels;
    if (leaning > width) {
        labels.angle = Leaning;
        width = leaning;
    }
    if (room.height > width) {
        labels.angle = Upright;
        width = room.height;
    }
    labels.texts = shortened(texts, QFontMetricsF(font), width - 2);
    if (labels.angle == Upright && line > room.width) {
        const int step = static_cast<int>(std::ceil(line / room.width));
        for (int i = 0; i < labels.texts.size(); ++i) {
            if (i % step != 0)
                labels.texts[i].clear();
        }
    }
    return labels;
}

// The digits of a number, without any for 0.
QString invisibleMarks(int number)
{
    if (number == 0)
        return {};
    return QString::number(number, 2).replace(u'1', invisibleOne).replace(u'0', invisibleZero);
}

// Height of the legend above a chart, if there is one.
double legendHeight(const QLegend &legend)
{
    const bool above = legend.isVisible() && legend.alignment() == Qt::AlignTop;
    return above ? legend.effectiveSizeHint(Qt::PreferredSize).height() : 0;
}

// Width that the labels of values beside a chart take.
double valuesWidth(const QChart &chart)
{
    double width = 0;
    const auto axes = chart.axes(Qt::Vertical);
    for (const QAbstractAxis *axis : axes) {
        if (const auto *values = qobject_cast<const QValueAxis *>(axis)) {
            const QString largest = QString::number(static_cast<qint64>(values->max()));
            width += QFontMetricsF(values->labelsFont()).horizontalAdvance(largest) + gapBesideValues;
        }
    }
    return width;
}

// Keeps the labels of one category axis readable.
class LabelFitter
{
public:
    LabelFitter(QChart &chart, QBarCategoryAxis &axis, const QStringList &texts, Kind kind,
        std::shared_ptr<LabelStance> stance)
        : m_chart(&chart)
        , m_axis(&axis)
        , m_texts(texts)
        , m_kind(kind)
        , m_usual(axis.labelsFont())
        , m_stance(std::move(stance))
    { }

    void fit(const QSizeF &chartSize) const
    {
        if (!m_axis || m_texts.isEmpty() || chartSize.isEmpty())
            return;
        m_stance->follow();
        const Room room = roomIn(chartSize);
        if (room.width < smallestRoom) {
            apply({m_texts, Upright, smallestPixels});
            const QFont font = m_axis->labelsFont();
            ChartLayouting::skipLabels(
                *m_chart, *m_axis, drawnSize(widestText(m_texts, font), font).width() + gapAroundLabels);
            return;
        }
        ChartLayouting::measureLabels(*m_chart, *m_axis);
        const Labels labels = fitted(m_texts, m_kind, m_usual, room, static_cast<Angle>(m_stance->angle));
        m_stance->angle = labels.angle;
        apply(labels);
    }

private:
    Room roomIn(const QSizeF &chartSize) const
    {
        const double height = chartSize.height() - legendHeight(*m_chart->legend());
        return {(chartSize.width() - valuesWidth(*m_chart)) / static_cast<double>(m_texts.size()),
            std::floor(height * axisShare) - gapAboveLabels};
    }

    void apply(const Labels &labels) const
    {
        if (labels.pixels != QFontInfo(m_axis->labelsFont()).pixelSize())
            m_axis->setLabelsFont(sized(m_usual, labels.pixels));
        if (labels.angle != m_axis->labelsAngle())
            m_axis->setLabelsAngle(labels.angle);
        if (const QStringList shown = categories(labels.texts); shown != m_axis->categories())
            m_axis->setCategories(shown);
    }

    QChart *m_chart;
    // Not the chart's own for ever: axes are removed from charts that go on living.
    QPointer<QBarCategoryAxis> m_axis;
    QStringList m_texts;
    Kind m_kind;
    QFont m_usual;
    std::shared_ptr<LabelStance> m_stance;
};

// Keeps the texts of a legend beside a chart readable.
class LegendFitter
{
public:
    LegendFitter(QLegend &legend, const QList<std::pair<QString, QString>> &texts)
        : m_legend(&legend)
        , m_texts(texts)
        , m_usual(legend.font())
        , m_usualPixels(QFontInfo(m_usual).pixelSize())
    { }

    void fit(const QSizeF &chartSize) const
    {
        if (m_texts.isEmpty() || chartSize.isEmpty())
            return;
        int pixels = m_usualPixels;
        while (pixels > smallestPixels && !wholeTextsFit(pixels, chartSize))
            --pixels;
        while (pixels > leastPixels && !valuesFit(pixels, chartSize))
            --pixels;
        if (pixels != QFontInfo(m_legend->font()).pixelSize())
            m_legend->setFont(sized(m_usual, pixels));
        const auto markers = m_legend->markers();
        const QFontMetricsF metrics(m_legend->font());
        const double width = textWidth(pixels, chartSize);
        for (qsizetype i = 0; i < std::min(markers.size(), m_texts.size()); ++i) {
            const auto &[name, values] = m_texts.at(i);
            const QString shown = metrics.elidedText(
                name.simplified(), Qt::ElideMiddle, width - metrics.horizontalAdvance(values));
            const QString label = Texts::inRichText(shown) + Texts::inRichText(values);
            if (label != markers.at(i)->label())
                markers.at(i)->setLabel(label);
        }
    }

private:
    bool valuesFit(int pixels, const QSizeF &chartSize) const
    {
        const QFontMetricsF metrics(sized(m_usual, pixels));
        const double width = textWidth(pixels, chartSize);
        return std::all_of(m_texts.cbegin(), m_texts.cend(),
            [&](const auto &text) { return metrics.horizontalAdvance(text.second) <= width; });
    }

    bool wholeTextsFit(int pixels, const QSizeF &chartSize) const
    {
        const QFontMetricsF metrics(sized(m_usual, pixels));
        const double width = textWidth(pixels, chartSize);
        const double height = (metrics.height() + gapsAroundMarker) * static_cast<double>(m_texts.size());
        return height <= chartSize.height()
            && std::all_of(m_texts.cbegin(), m_texts.cend(), [&](const auto &text) {
                   return metrics.horizontalAdvance(text.first + text.second) <= width;
               });
    }

    // What is left for the text of a marker.
    double textWidth(int pixels, const QSizeF &chartSize) const
    {
        const int markerWidth = QFontMetrics(sized(m_usual, pixels)).height() / 2;
        qreal left = 0;
        qreal right = 0;
        m_legend->layout()->getContentsMargins(&left, nullptr, &right, nullptr);
        return chartSize.width() * legendShare - left - right - markerWidth - gapsInMarker;
    }

    QLegend *m_legend;
    QList<std::pair<QString, QString>> m_texts;
    QFont m_usual;
    int m_usualPixels;
};

// Where the chart's size is known it is fitted before it is laid out; else it is as soon as it has one.
template <typename Fitter>
void keepFitted(QChart &chart, const QSizeF &size, const Fitter &fitter)
{
    fitter.fit(size);
    QObject::connect(
        &chart, &QGraphicsWidget::geometryChanged, &chart, [fitter, &chart, fittedTo = size]() mutable {
            if (std::exchange(fittedTo, chart.size()) != chart.size())
                fitter.fit(chart.size());
        });
}

} // namespace

Labels fitted(const QStringList &texts, Kind kind, const QFont &usual, Room room, Angle first)
{
    Measure measure(texts, usual);
    for (const Angle angle : {first, Level, Leaning, Upright}) {
        if (const int pixels = measure.fittingPixels(angle, room, smallestPixels))
            return {texts, angle, pixels};
    }
    if (kind == Kind::Names)
        return shortenedLabels(texts, sized(usual, smallestPixels), room);
    Labels labels{texts, first, leastPixels};
    for (const Angle angle : {first, Level, Leaning, Upright}) {
        if (const int pixels = measure.fittingPixels(angle, room, leastPixels); pixels > labels.pixels)
            labels = {texts, angle, pixels};
    }
    return labels;
}

QStringList categories(const QStringList &texts)
{
    QStringList distinct;
    distinct.reserve(texts.size());
    QSet<QString> taken;
    QHash<QString, int> marksOf;
    for (const QString &text : texts) {
        const QString label = Texts::inRichText(text);
        int &marks = marksOf[label];
        QString candidate = QStringLiteral("") + label + invisibleMarks(marks);
        while (taken.contains(candidate))
            candidate = label + invisibleMarks(++marks);
        taken.insert(candidate);
        distinct.append(candidate);
    }
    return distinct;
}

void keepReadable(QChart &chart, QBarCategoryAxis *axis, const QStringList &texts, Kind kind,
    const QSizeF &size, const std::shared_ptr<LabelStance> &stance)
{
    // The axis would cut its labels by a rule of its own.
    axis->setTruncateLabels(false);
    keepFitted(chart, size, LabelFitter(chart, *axis, texts, kind, stance));
}

void keepLegendReadable(QChart &chart, const QList<std::pair<QString, QString>> &texts, const QSizeF &size)
{
    keepFitted(chart, size, LegendFitter(*chart.legend(), texts));
}

} // namespace ReadableLabels
