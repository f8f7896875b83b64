#include "support/ChartProbe.h"

#include <charts/ReadableLabels.h>

#include <QtCore/QScopeGuard>
#include <QtGui/QFontDatabase>
#include <QtGui/QFontInfo>
#include <QtGui/QFontMetricsF>
#include <QtGui/QTextDocument>

#include <algorithm>
#include <cmath>
#include <iterator>

using namespace ChartProbe;
using namespace Qt::StringLiterals;
using namespace ReadableLabels;

Q_DECLARE_METATYPE(ReadableLabels::Room)
Q_DECLARE_METATYPE(ReadableLabels::Angle)

namespace {
constexpr int smallest = 9;
constexpr double plenty = 100000;

QFont fontOf(int pixels)
{
    QFont font;
    font.setPixelSize(pixels);
    return font;
}

/// What an axis draws, measured by the text's document.
QSizeF drawnSize(const QString &text, int pixels)
{
    QTextDocument document;
    document.setDocumentMargin(0.5);
    document.setDefaultFont(fontOf(pixels));
    document.setHtml(text.toHtmlEscaped());
    return document.size();
}

double widthOf(const QString &text, int pixels)
{
    return drawnSize(text, pixels).width();
}

double heightOf(int pixels)
{
    return drawnSize(u"Camera"_s, pixels).height();
}

QStringList names(int count, const QString &start)
{
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts.append(start + QString::number(i).rightJustified(3, u'0'));
    return texts;
}

bool isShortened(const QString &text)
{
    return text.contains(QChar(0x2026)) || text.contains("..."_L1);
}

QList<QGraphicsTextItem *> drawnTexts(const QChart *chart)
{
    QList<QGraphicsTextItem *> texts;
    const auto items = chart->scene()->items();
    for (QGraphicsItem *item : items) {
        auto *text = dynamic_cast<QGraphicsTextItem *>(item);
        if (text && text->isVisible() && !seen(text->toPlainText()).isEmpty())
            texts.append(text);
    }
    return texts;
}

/// The labels that an axis below a chart has really drawn, from left to right.
QList<QGraphicsTextItem *> drawnLabels(const QChart *chart)
{
    QList<QGraphicsTextItem *> labels = drawnTexts(chart);
    labels.removeIf([chart](const QGraphicsTextItem *text) {
        const QPointF middle = chart->mapFromScene(text->sceneBoundingRect().center());
        return middle.y() <= chart->plotArea().bottom() || middle.x() <= chart->plotArea().left();
    });
    std::sort(labels.begin(), labels.end(), [](const QGraphicsTextItem *a, const QGraphicsTextItem *b) {
        return a->sceneBoundingRect().center().x() < b->sceneBoundingRect().center().x();
    });
    return labels;
}

QStringList textsOf(const QList<QGraphicsTextItem *> &labels)
{
    QStringList texts;
    for (const QGraphicsTextItem *label : labels)
        texts.append(seen(label->toPlainText()));
    return texts;
}

/// Empty when each label is whole in the chart and clear of its neighbours; else what is wrong.
QString faultOf(const QChart *chart)
{
    const QList<QGraphicsTextItem *> labels = drawnLabels(chart);
    const QRectF inside = chart->mapRectToScene(chart->rect()).adjusted(-1, -1, 1, 1);
    for (qsizetype i = 0; i < labels.size(); ++i) {
        const QRectF place = labels.at(i)->sceneBoundingRect();
        if (!inside.contains(place))
            return u"\"%1\" lies outside"_s.arg(labels.at(i)->toPlainText());
        if (i == 0 || qRound(labels.at(i)->rotation()) == Leaning)
            continue;
        if (place.left() < labels.at(i - 1)->sceneBoundingRect().right() - 1)
            return u"\"%1\" lies on its neighbour"_s.arg(labels.at(i)->toPlainText());
    }
    return {};
}

QStringList hours()
{
    QStringList labels;
    for (int hour = 0; hour < 24; ++hour)
        labels.append(u"2026-03-17 %1"_s.arg(hour, 2, 10, QLatin1Char('0')));
    return labels;
}

QStringList days()
{
    QStringList labels;
    for (int day = 10; day < 18; ++day)
        labels.append(u"2026-03-%1"_s.arg(day));
    return labels;
}

QStringList months()
{
    QStringList labels;
    for (int month = 6; month <= 12; ++month)
        labels.append(u"2026-%1"_s.arg(month, 2, 10, QLatin1Char('0')));
    return labels;
}

LabelledValues valued(const QStringList &labels)
{
    LabelledValues list;
    for (const QString &label : labels)
        list.append({label, static_cast<int>(list.size() * 7 + 3)});
    return list;
}

/// What the bars of a host may be called.
QStringList deviceNames(int count)
{
    static const char *const kinds[] = {"Gate", "Airport recorder", "Harbour, north pier", "Depot"};
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts.append(u"%1 - Camera %2"_s.arg(QLatin1String(kinds[i % 4])).arg(i + 1));
    return texts;
}

/// A page whose bars and lines are the test's.
struct LabelStage : ChartStage
{
    explicit LabelStage(int type)
        : ChartStage(type, OnScreen)
    { }

    void fill(const QStringList &bars, const QStringList &periods, int timeType)
    {
        page.m_nTimeType = timeType;
        page.barDataList = valued(bars);
        page.barDataList2 = type() >= 7 ? valued(bars) : LabelledValues();
        page.devTypeDataList = valued(bars);
        page.lineDataList = valued(periods);
        page.lineDataList2 = type() >= 7 ? valued(periods) : LabelledValues();
        page.pieDataList = {{"Motion detected", 100}, {"Intrusion at the gate", 7}, {"Other", 1}};
        load();
    }

    void resize(const QSize &size)
    {
        page.resize(size);
        QCoreApplication::processEvents();
    }
    int type() const { return page.m_serviceType; }
    QChart *bars() const { return page.barChartView->chart(); }
    QChart *lines() const { return page.lineChartView->chart(); }
};

/// A pie whose legend stands beside it.
struct LegendStage
{
    using Entries = QList<std::pair<QString, QString>>;

    explicit LegendStage(const Entries &texts)
        : view(new QChart)
        , chart(view.chart())
        , usualPixels(QFontInfo(chart->legend()->font()).pixelSize())
    {
        auto *pie = new QPieSeries(chart);
        for (const auto &[name, values] : texts)
            pie->append(name + values, 1);
        chart->addSeries(pie);
        chart->legend()->setAlignment(Qt::AlignRight);
        chart->layout()->setContentsMargins(0, 0, 0, 0);
        chart->setMargins(QMargins());
        keepLegendReadable(*chart, texts, {});
    }

    void show(const QSize &size)
    {
        view.resize(size);
        view.show();
        if (!QTest::qWaitForWindowExposed(&view))
            qFatal("the view does not come up");
        QCoreApplication::processEvents();
    }
    int pixels() const { return QFontInfo(chart->legend()->font()).pixelSize(); }
    QFont legendFont(int pixels) const
    {
        QFont font = chart->legend()->font();
        font.setPixelSize(pixels);
        return font;
    }
    double margins() const
    {
        qreal left = 0;
        qreal right = 0;
        chart->legend()->layout()->getContentsMargins(&left, nullptr, &right, nullptr);
        return left + right;
    }

    /// The texts that the legend has really drawn, from top to bottom.
    QStringList texts() const
    {
        QList<QGraphicsTextItem *> items = drawnTexts(chart);
        std::sort(items.begin(), items.end(), [](const QGraphicsItem *a, const QGraphicsItem *b) {
            return a->scenePos().y() < b->scenePos().y();
        });
        return textsOf(items);
    }

    QChartView view;
    QChart *chart;
    int usualPixels;
};

} // namespace

class ReadableLabelsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsGetTheFirstWayInWhichTheyFit_data()
    {
        const QString text = names(1, "Camera ").constFirst();
        const double width = widthOf(text, smallest);
        const double line = heightOf(smallest);
        const double leaning = (width + line) * M_SQRT1_2;
        QVERIFY2(leaning < width && line < leaning, "the text is too short for its purpose");
        table<Room, Angle, bool>({"room", "angle", "shortened"},
            {{"side by side", {width + 10, plenty}, Level, false},
                {"leaning where they would touch", {leaning + 1, plenty}, Leaning, false},
                {"upright where they would lie on each other", {line + 2, plenty}, Upright, false},
                {"level where only the height is short", {width + 10, line + 2}, Level, false},
                {"shortened side by side", {width - 5, line + 2}, Level, true},
                {"shortened upright", {line + 2, width - 10}, Upright, true},
                {"shortened leaning", {leaning - 4, leaning - 4}, Leaning, true}});
    }

    void textsGetTheFirstWayInWhichTheyFit()
    {
        QFETCH(Room, room);
        QFETCH(bool, shortened);
        const QStringList texts = names(4, "Camera ");
        const Labels labels = fitted(texts, Kind::Names, fontOf(14), room, Level);
        QTEST(labels.angle, "angle");
        QCOMPARE(labels.texts == texts, !shortened);
        QVERIFY(labels.pixels >= smallest);
        for (const QString &label : labels.texts)
            QCOMPARE(isShortened(label), shortened);
    }

    void aWayOfStandingIsKeptWhereItFits()
    {
        const Room room = {plenty, plenty};
        for (const Angle angle : {Level, Leaning, Upright}) {
            const Labels labels = fitted(names(4, "Camera "), Kind::Names, fontOf(14), room, angle);
            QCOMPARE(labels.angle, angle);
            QCOMPARE(labels.pixels, 14);
        }
    }

    void aWayOfStandingIsLeftWhereOnlyAnotherFits()
    {
        const QStringList texts = names(4, "Camera ");
        const double line = heightOf(smallest);
        const Labels labels = fitted(texts, Kind::Names, fontOf(14), {plenty, line + 2}, Upright);
        QCOMPARE(labels.angle, Level);
        QCOMPARE(labels.texts, texts);
    }

    void theFontIsTheLargestThatFits_data()
    {
        QTest::addColumn<int>("pixels");
        for (int pixels = smallest; pixels <= 16; ++pixels)
            QTest::addRow("%d pixels", pixels) << pixels;
    }

    void theFontIsTheLargestThatFits()
    {
        QFETCH(int, pixels);
        const QStringList texts = {u"A name of some length"_s, u"short"_s};
        const double width = widthOf(texts.constFirst(), pixels) + 6.5;
        const Labels level = fitted(texts, Kind::Names, fontOf(16), {width, heightOf(16) + 1}, Level);
        QCOMPARE(level.angle, Level);
        QCOMPARE(level.pixels, pixels);
        const Labels upright = fitted(texts, Kind::Names, fontOf(16), {heightOf(16) + 1, width - 6}, Upright);
        QCOMPARE(upright.angle, Upright);
        QCOMPARE(upright.pixels, pixels);
    }

    void shortenedNamesStayApart_data()
    {
        QTest::addColumn<QStringList>("texts");
        const QString filler(40, u'x');
        QTest::newRow("what differs stands at the end")
            << names(12, "Airport recorder of the second terminal - Camera ");
        QTest::newRow("what differs stands in front") << QStringList{
            "North gate of the second terminal, camera", "South gate of the second terminal, camera"};
        QTest::newRow("what differs stands in the middle")
            << QStringList{filler + "north" + filler, filler + "south" + filler, filler + "east" + filler};
        QTest::newRow("some differ early and some late")
            << QStringList{filler + "a" + filler + "1" + filler, filler + "a" + filler + "2" + filler,
                   filler + "b" + filler + "1" + filler, filler + "b" + filler + "2" + filler};
        QTest::newRow("one is the beginning of the other")
            << QStringList{filler + filler, filler + filler + filler};
        const QString face = QString::fromUcs4(U"\U0001F600\U0001F601");
        QTest::newRow("characters of two halves")
            << QStringList{filler + face.left(2) + filler, filler + face.mid(2) + filler};
    }

    void shortenedNamesStayApart()
    {
        QFETCH(QStringList, texts);
        const Labels labels = fitted(texts, Kind::Names, fontOf(14), {75, heightOf(14)}, Level);
        QCOMPARE(labels.texts.size(), texts.size());
        QCOMPARE(QSet<QString>(labels.texts.cbegin(), labels.texts.cend()).size(), texts.size());
        for (const QString &label : labels.texts) {
            QVERIFY(isShortened(label));
            QVERIFY(widthOf(label, smallest) <= 75);
            QVERIFY(label.isValidUtf16());
        }
    }

    void equalNamesAreShortenedAlike()
    {
        const QString name(60, u'x');
        const Labels labels = fitted({name, name, name}, Kind::Names, fontOf(14), {60, heightOf(14)}, Level);
        QCOMPARE(labels.texts.count(labels.texts.constFirst()), 3);
    }

    void periodsAreNeverShortened()
    {
        const QStringList texts = days();
        const Labels labels = fitted(texts, Kind::Periods, fontOf(14), {30, 30}, Level);
        QCOMPARE(labels.texts, texts);
        QVERIFY(labels.pixels < smallest);
        const Labels impossible = fitted(texts, Kind::Periods, fontOf(14), {1, 1}, Leaning);
        QCOMPARE(impossible.texts, texts);
        QCOMPARE(impossible.angle, Leaning);
    }

    void ofNamesThatHaveNoRoomSomeAreLeftOut()
    {
        const QStringList texts = names(200, "Camera ");
        const double line = heightOf(smallest);
        const Labels labels = fitted(texts, Kind::Names, fontOf(14), {line / 2.5, plenty}, Level);
        QCOMPARE(labels.angle, Upright);
        QCOMPARE(labels.texts.size(), texts.size());
        for (int i = 0; i < texts.size(); ++i)
            QCOMPARE(labels.texts.at(i), i % 3 == 0 ? texts.at(i) : QString());
    }

    void categoriesAreDistinct_data()
    {
        table<QStringList>({"texts"},
            {{"different texts", {"a", "b"}}, {"equal texts", {"a", "a", "a", "b", "a"}},
                {"empty and null texts", {QString(), u""_s, QString(), "a"}},
                {"a text that has the marks of another",
                    {"a", u"a"_s + QChar(0x200B), "a", u"a"_s + QChar(0x200B)}},
                {"many equal texts", QStringList(300, u"a"_s)}});
    }

    void categoriesAreDistinct()
    {
        QFETCH(QStringList, texts);
        const QStringList labels = categories(texts);
        QCOMPARE(labels.size(), texts.size());
        QCOMPARE(QSet<QString>(labels.cbegin(), labels.cend()).size(), texts.size());
        for (int i = 0; i < texts.size(); ++i) {
            QVERIFY(!labels.at(i).isNull());
            QCOMPARE(seen(labels.at(i)), seen(texts.at(i)));
        }
    }

    void categoriesShowTheirTexts_data()
    {
        table<QString>({"text"},
            {{"plain", "Gate 1"}, {"a tag", "Gate <b>1</b>"}, {"an entity", "Gate &lt;1&gt;"},
                {"a numbered entity", "R&#38;D"}, {"an ampersand alone", "R&D"}, {"quotes", "\"Gate\" 'one'"},
                {"a place of arg", "100%1 of %2 and %L3"},
                {"right to left", QString::fromUtf8("\u05e9\u05e2\u05e8 <1>")}});
    }

    void categoriesShowTheirTexts()
    {
        QFETCH(QString, text);
        QTextDocument document;
        document.setHtml(categories({text}).constFirst());
        QCOMPARE(document.toPlainText(), text);
    }

    void labelsAreReadableAtEveryWidth_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("timeType");
        QTest::addColumn<int>("height");
        const char *const units[] = {"months", "days", "hours"};
        for (const int height : {600, 648, 1000}) {
            for (const int type : {1, 2, 3, 5, 6, 8, 9}) {
                for (const int timeType : {3, 2, 1})
                    QTest::addRow("kind %d by %s, %d high", type, units[timeType - 1], height)
                        << type << timeType << height;
            }
        }
    }

    void labelsAreReadableAtEveryWidth()
    {
        QFETCH(int, type);
        QFETCH(int, timeType);
        QFETCH(int, height);
        const QStringList periods = timeType == 3 ? hours() : timeType == 2 ? days() : months();
        const int bars = timeType == 3 ? 10 : timeType == 2 ? 24 : 3;
        LabelStage stage(type);
        stage.resize({1000, height});
        stage.fill(deviceNames(bars), periods, timeType);
        QStringList shown = periods;
        if (timeType == 3) {
            for (QString &period : shown)
                period = period.mid(11);
        }
        for (int width = 1000; width <= 2600; width += 61) {
            stage.resize({width, height});
            const QByteArray place = QByteArray::number(width) + " pixels wide: ";
            QVERIFY2(textsOf(drawnLabels(stage.lines())) == shown, place.constData());
            QVERIFY2(faultOf(stage.lines()).isEmpty(),
                qPrintable(QString::fromLatin1(place) + faultOf(stage.lines())));
            QVERIFY2(drawnLabels(stage.bars()).size() == bars, place.constData());
            QVERIFY2(faultOf(stage.bars()).isEmpty(),
                qPrintable(QString::fromLatin1(place) + faultOf(stage.bars())));
        }
    }

    void labelsAreReadableInEveryFont_data()
    {
        QTest::addColumn<QString>("family");
        QTest::addColumn<int>("points");
        QStringList families = {QApplication::font().family()};
        for (const char *family :
            {"DejaVu Sans", "Inter", "Noto Sans", "Noto Sans CJK SC", "Noto Sans Arabic"}) {
            if (QFontDatabase::families().contains(QLatin1String(family)))
                families.append(QLatin1String(family));
        }
        families.removeDuplicates();
        for (const QString &family : std::as_const(families)) {
            for (const int points : {7, 9, 12, 18})
                QTest::addRow("%s, %d points", qPrintable(family), points) << family << points;
        }
    }

    void labelsAreReadableInEveryFont()
    {
        QFETCH(QString, family);
        QFETCH(int, points);
        const QFont before = QApplication::font();
        QApplication::setFont(QFont(family, points));
        const auto restore = qScopeGuard([&before] { QApplication::setFont(before); });
        for (const int width : {1000, 1136, 1280, 1920}) {
            LabelStage stage(2);
            stage.resize({width, 648});
            stage.fill(deviceNames(10), days(), 2);
            QVERIFY2(faultOf(stage.lines()).isEmpty(), qPrintable(faultOf(stage.lines())));
            QVERIFY2(faultOf(stage.bars()).isEmpty(), qPrintable(faultOf(stage.bars())));
            QCOMPARE(textsOf(drawnLabels(stage.lines())), days());
        }
    }

    void shortenedLabelsDifferOnThePage()
    {
        LabelStage stage(2);
        stage.resize({1000, 600});
        stage.fill(
            names(
                24, "Recorder of the second terminal at the airport of the capital, eastern wing - Camera "),
            hours(), 3);
        const QStringList shown = textsOf(drawnLabels(stage.bars()));
        QCOMPARE(shown.size(), 24);
        QCOMPARE(QSet<QString>(shown.cbegin(), shown.cend()).size(), 24);
        QVERIFY(std::all_of(shown.cbegin(), shown.cend(), isShortened));
        QCOMPARE(faultOf(stage.bars()), QString());
    }

    void pagesKeepOneWayOfStanding()
    {
        LabelStage stage(2);
        stage.resize({1700, 1000});
        stage.fill(names(10, "Airport recorder, second floor - Camera "), hours(), 3);
        const int angle = categoryAxis(stage.bars())->labelsAngle();
        QVERIFY2(angle != Level, "the names are too short for their purpose");
        for (const char *name : {"Gate ", "Airport recorder, second floor - Camera ", "Yard "}) {
            stage.fill(names(10, QLatin1String(name)), hours(), 3);
            QCOMPARE(categoryAxis(stage.bars())->labelsAngle(), angle);
        }
    }

    void anotherSizeFindsItsOwnWayOfStanding()
    {
        LabelStage stage(2);
        stage.resize({1000, 700});
        stage.fill(names(16, "Second floor - Camera "), hours(), 3);
        QVERIFY(categoryAxis(stage.bars())->labelsAngle() != Level);
        stage.resize({2600, 700});
        QCOMPARE(categoryAxis(stage.bars())->labelsAngle(), int(Level));
        stage.resize({1000, 700});
        QVERIFY(categoryAxis(stage.bars())->labelsAngle() != Level);
    }

    void eachUnitHasItsOwnWayOfStanding()
    {
        LabelStage stage(1);
        stage.resize({1000, 1200});
        QStringList longPeriods;
        for (const QString &day : days())
            longPeriods.append(day + u", a whole day"_s);
        stage.fill(deviceNames(3), longPeriods, 2);
        QVERIFY(categoryAxis(stage.lines())->labelsAngle() != Level);
        stage.fill(deviceNames(3), months(), 1);
        QCOMPARE(categoryAxis(stage.lines())->labelsAngle(), int(Level));
    }

    // An axis draws no label in less than two pixels for each, and its plot ends above where they would be.
    void labelsThatNobodySeesKeepTheirHeight()
    {
        LabelStage stage(1);
        stage.resize({1000, 700});
        stage.fill(names(2000, "Camera "), hours(), 3);
        QVERIFY(drawnLabels(stage.bars()).isEmpty());
        const double free = stage.bars()->size().height() - stage.bars()->plotArea().bottom();
        QVERIFY2(
            std::abs(free - widthOf(u"Camera 1000"_s, smallest)) < 10, qPrintable(QString::number(free)));
        stage.fill(names(5, "Camera "), hours(), 3);
        QCOMPARE(drawnLabels(stage.bars()).size(), 5);
    }

    void axisWithoutTextsIsLeftAlone_data()
    {
        table<int>({"count"}, {{"no bars", 0}, {"bars of nameless devices", 30}});
    }

    void axisWithoutTextsIsLeftAlone()
    {
        QFETCH(int, count);
        LabelStage stage(1);
        stage.fill(QStringList(count, QString()), {}, 3);
        QCOMPARE(categoryAxis(stage.bars())->labelsAngle(), 0);
        QCOMPARE(categoryAxis(stage.bars())->labelsFont(), QBarCategoryAxis().labelsFont());
        QCOMPARE(categoryAxis(stage.bars())->count(), count);
    }

    void legendWithRoomStaysAsItIs()
    {
        LegendStage stage(LegendStage::Entries{{"Motion", " |  99.0% 99"}, {"Other", " |   1.0% 1"}});
        stage.show({900, 300});
        QCOMPARE(stage.pixels(), stage.usualPixels);
        QCOMPARE(stage.texts(), (QStringList{"Motion | 99.0% 99", "Other | 1.0% 1"}));
    }

    void legendGetsTheLargestFontThatFits_data()
    {
        QTest::addColumn<int>("pixels");
        for (int pixels = smallest; pixels <= QFontInfo(QChart().legend()->font()).pixelSize(); ++pixels)
            QTest::addRow("%d pixels", pixels) << pixels;
    }

    void legendGetsTheLargestFontThatFits()
    {
        QFETCH(int, pixels);
        const QString whole = u"Motion detected |  12.5% 3"_s;
        LegendStage stage(
            LegendStage::Entries{{"Motion detected", " |  12.5% 3"}, {"Short", " |  87.5% 21"}});
        const QFont font = stage.legendFont(pixels);
        const double text = QFontMetricsF(font).horizontalAdvance(whole);
        const double marker = QFontMetrics(font).height() / 2 + 13;
        stage.show({static_cast<int>((stage.margins() + marker + text) / 0.4) + 1, 300});
        QCOMPARE(stage.pixels(), pixels);
        QCOMPARE(stage.texts().constFirst(), whole.simplified());
    }

    void legendKeepsItsValues_data()
    {
        table<QString>({"name"},
            {{"a long name", "A name of an alarm that no legend has the room for at all"},
                {"a long name of markup", "<b>bold</b> &lt; and <i>more</i> of it &amp; so on"},
                {"a name without blanks", QString(3000, u'W')}});
    }

    void legendKeepsItsValues()
    {
        QFETCH(QString, name);
        for (const int width : {280, 300, 350, 400, 500}) {
            LegendStage stage(LegendStage::Entries{{name, u" | 100.0% 1234567"_s}, {"Other", " |   0.0% 1"}});
            stage.show({width, 300});
            const QString shown = stage.texts().constFirst();
            QVERIFY2(shown.endsWith("| 100.0% 1234567"_L1), qPrintable(shown));
            QVERIFY2(!shown.contains(name), qPrintable(shown));
            QVERIFY2(!shown.contains("&lt"_L1) || name.contains("&lt"_L1), qPrintable(shown));
            QVERIFY(stage.pixels() <= smallest);
        }
    }

    void legendFollowsTheSize()
    {
        LegendStage stage(LegendStage::Entries{{"Intrusion at the gate of the depot", " |  12.5% 3"}});
        stage.show({300, 300});
        QVERIFY(isShortened(stage.texts().constFirst()));
        stage.show({1600, 300});
        QCOMPARE(stage.pixels(), stage.usualPixels);
        QCOMPARE(stage.texts().constFirst(), u"Intrusion at the gate of the depot | 12.5% 3"_s);
    }
};

TALVIX_TEST_MAIN(ReadableLabelsTest)
#include "tst_readable_labels.moc"
