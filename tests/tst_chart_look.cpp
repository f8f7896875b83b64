#include "support/ChartProbe.h"

#include <charts/ChartLook.h>

#include <QtGui/QFontInfo>
#include <QtGui/QFontMetricsF>

#include <algorithm>

using namespace ChartProbe;

namespace {

constexpr double gap = 20;
constexpr double labelShare = 0.37;
constexpr double legendShare = 0.4;
constexpr double markerLines = 2.2;
constexpr int smallest = 9;
constexpr double valueLabels = 32;

double widest(const QStringList &texts, const QFont &font)
{
    double width = 0;
    for (const QString &text : texts)
        width = std::max(width, QFontMetricsF(font).horizontalAdvance(text));
    return width;
}

void show(QChartView &view, const QSize &size)
{
    view.resize(size);
    view.show();
    if (!QTest::qWaitForWindowExposed(&view))
        qFatal("the view does not come up");
    QCoreApplication::processEvents();
}

/// A chart with a bar for each label, under labels that are to stay readable.
struct BarStage
{
    explicit BarStage(const QStringList &labels, bool readable = true)
        : view(new QChart)
        , chart(view.chart())
        , axis(ChartLook::categoryAxis(labels))
        , usual(axis->labelsFont())
        , count(static_cast<int>(labels.size()))
        , width(widest(labels, usual))
    {
        auto *set = new QBarSet(QStringLiteral("set"));
        set->append(QList<qreal>(labels.size(), 50));
        auto *bars = new QBarSeries(chart);
        bars->append(set);
        chart->addSeries(bars);
        ChartLook::setAxisX(*chart, axis, bars);
        if (readable)
            ChartLook::keepLabelsReadable(*chart, axis, nullptr);
        ChartLook::setAxisY(*chart, ChartLook::valueAxis(100), bars);
        ChartLook::removeMargins(*chart);
    }

    /// About the width of a view that leaves each label \a room; the labels of values take the rest.
    int widthWithRoom(double room) const { return static_cast<int>(count * room + valueLabels); }
    int usualPixels() const { return QFontInfo(usual).pixelSize(); }
    int pixels() const { return QFontInfo(axis->labelsFont()).pixelSize(); }
    double room() const { return chart->plotArea().width() / count; }
    double height() const { return chart->size().height() * labelShare; }
    /// What the widest label takes in a font of this size.
    double widthAt(int size) const { return width * size / usualPixels(); }
    bool fitsLevel(int size) const { return size <= usualPixels() && widthAt(size) <= room() - gap; }
    bool fitsUpright(int size) const
    {
        const double line = QFontMetricsF(usual).height() * size / usualPixels();
        return size <= usualPixels() && widthAt(size) <= height() && line <= room();
    }

    QChartView view;
    QChart *chart;
    QBarCategoryAxis *axis;
    QFont usual;
    int count;
    double width;
};

QStringList labels(int count, int length)
{
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts.append(QString::number(i).rightJustified(length, QLatin1Char('0')));
    return texts;
}

/// A pie whose legend stands beside it.
struct PieStage
{
    explicit PieStage(const QStringList &texts)
        : view(new QChart)
        , chart(view.chart())
        , usual(chart->legend()->font())
    {
        auto *pie = new QPieSeries(chart);
        for (const QString &text : texts)
            pie->append(text, 1);
        chart->addSeries(pie);
        ChartLook::showLegend(*chart, Qt::AlignRight);
        ChartLook::keepLegendReadable(*chart, nullptr);
        width = widest(texts, usual) + markerLines * QFontMetricsF(usual).height();
    }

    int usualPixels() const { return QFontInfo(usual).pixelSize(); }
    int pixels() const { return QFontInfo(chart->legend()->font()).pixelSize(); }
    bool fits(int size) const
    {
        return size <= usualPixels() && width * size / usualPixels() <= chart->size().width() * legendShare;
    }

    QChartView view;
    QChart *chart;
    QFont usual;
    double width = 0;
};

} // namespace

class ChartLookTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void labelsWithRoomStayAsTheyAre();
    void labelsForAViewWithoutASizeStayAsTheyAre();
    void crowdedLabelsGetTheLargestFontThatFitsLevel_data();
    void crowdedLabelsGetTheLargestFontThatFitsLevel();
    void labelsWithoutRoomStandUprightInTheLargestFontThatFits_data();
    void labelsWithoutRoomStandUprightInTheLargestFontThatFits();
    void labelsThatFitUprightStandEvenInWidePlaces();
    void uprightLabelsStayLegible();
    void namesThatFitNeitherWayStayLevel();
    void namesThatFitNeitherWayStandWhereHeightKeepsMore();
    void labelsNobodyCouldReadKeepTheirHeightOnly_data();
    void labelsNobodyCouldReadKeepTheirHeightOnly();
    void labelsFollowTheSize();
    void axisWithoutTextsIsLeftAlone_data();
    void axisWithoutTextsIsLeftAlone();
    void legendGetsTheLargestFontThatFits_data();
    void legendGetsTheLargestFontThatFits();
    void legendStaysLegible();
    void legendFollowsTheSize();
};

void ChartLookTest::labelsWithRoomStayAsTheyAre()
{
    BarStage stage(labels(4, 5));
    show(stage.view, {800, 300});
    QVERIFY(stage.fitsLevel(stage.usualPixels()));
    QCOMPARE(stage.pixels(), stage.usualPixels());
    QCOMPARE(stage.axis->labelsAngle(), 0);
}

void ChartLookTest::labelsForAViewWithoutASizeStayAsTheyAre()
{
    ZrChartView view(new QChart);
    view.resize(0, 0);
    QChart chart;
    QBarCategoryAxis *axis = ChartLook::categoryAxis(labels(40, 12));
    chart.addAxis(axis, Qt::AlignBottom);
    const QFont usual = axis->labelsFont();
    ChartLook::keepLabelsReadable(chart, axis, &view);
    QCOMPARE(axis->labelsFont(), usual);
    QCOMPARE(axis->labelsAngle(), 0);
    QVERIFY(axis->labelsVisible());
}

void ChartLookTest::crowdedLabelsGetTheLargestFontThatFitsLevel_data()
{
    QTest::addColumn<int>("percent");
    for (int percent = 78; percent <= 98; percent += 2)
        QTest::addRow("room for %d percent of the font", percent) << percent;
}

void ChartLookTest::crowdedLabelsGetTheLargestFontThatFitsLevel()
{
    QFETCH(int, percent);
    BarStage stage(labels(6, 12));
    show(stage.view, {stage.widthWithRoom(gap + stage.width * percent / 100), 300});
    QVERIFY2(stage.fitsLevel(smallest), "the row is too narrow for its purpose");
    QCOMPARE(stage.axis->labelsAngle(), 0);
    QVERIFY(stage.fitsLevel(stage.pixels()));
    QVERIFY(!stage.fitsLevel(stage.pixels() + 1));
}

void ChartLookTest::labelsWithoutRoomStandUprightInTheLargestFontThatFits_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("length");
    QTest::addColumn<QSize>("size");
    QTest::newRow("both height and neighbours leave room") << 24 << 8 << QSize(800, 300);
    for (int height = 180; height <= 300; height += 10)
        QTest::addRow("%d pixels high, the height limits them", height) << 20 << 10 << QSize(800, height);
    for (int width = 500; width <= 700; width += 20)
        QTest::addRow("%d pixels wide, the neighbours limit them", width) << 40 << 6 << QSize(width, 400);
}

void ChartLookTest::labelsWithoutRoomStandUprightInTheLargestFontThatFits()
{
    QFETCH(int, count);
    QFETCH(int, length);
    QFETCH(QSize, size);
    BarStage stage(labels(count, length));
    show(stage.view, size);
    QVERIFY2(!stage.fitsLevel(smallest), "the row is too wide for its purpose");
    QCOMPARE(stage.axis->labelsAngle(), -90);
    QVERIFY(stage.pixels() >= smallest);
    QVERIFY(stage.pixels() == smallest || stage.fitsUpright(stage.pixels()));
    QVERIFY(!stage.fitsUpright(stage.pixels() + 1));
}

void ChartLookTest::labelsThatFitUprightStandEvenInWidePlaces()
{
    BarStage stage(labels(6, 12));
    const double height = stage.width * (smallest + 0.5) / stage.usualPixels();
    const double roomForLevel = gap + stage.width * smallest / stage.usualPixels();
    show(stage.view,
        {stage.widthWithRoom((height + roomForLevel) / 2), static_cast<int>(height / labelShare)});
    QVERIFY(!stage.fitsLevel(smallest));
    QVERIFY(stage.fitsUpright(smallest));
    QVERIFY(!stage.fitsUpright(smallest + 1));
    QVERIFY(stage.room() > stage.height());
    QCOMPARE(stage.axis->labelsAngle(), -90);
    QCOMPARE(stage.pixels(), smallest);
}

void ChartLookTest::uprightLabelsStayLegible()
{
    BarStage stage(labels(100, 5));
    show(stage.view, {500, 300});
    QVERIFY(!stage.fitsUpright(smallest));
    QCOMPARE(stage.axis->labelsAngle(), -90);
    QCOMPARE(stage.pixels(), smallest);
}

void ChartLookTest::namesThatFitNeitherWayStayLevel()
{
    BarStage stage(labels(3, 60));
    show(stage.view, {800, 200});
    QVERIFY(!stage.fitsLevel(smallest));
    QVERIFY(!stage.fitsUpright(smallest));
    QVERIFY(stage.room() > stage.height());
    QCOMPARE(stage.axis->labelsAngle(), 0);
    QCOMPARE(stage.pixels(), smallest);
}

void ChartLookTest::namesThatFitNeitherWayStandWhereHeightKeepsMore()
{
    BarStage stage(labels(10, 60));
    show(stage.view, {800, 400});
    QVERIFY(!stage.fitsLevel(smallest));
    QVERIFY(!stage.fitsUpright(smallest));
    QVERIFY(stage.room() < stage.height());
    QCOMPARE(stage.axis->labelsAngle(), -90);
    QCOMPARE(stage.pixels(), smallest);
}

void ChartLookTest::labelsNobodyCouldReadKeepTheirHeightOnly_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("other");
    QTest::addColumn<QString>("widest");
    const QString narrow(10, QLatin1Char('i'));
    const QString wide(8, QLatin1Char('W'));
    QTest::newRow("too many for this view") << 400 << narrow << wide;
    QTest::newRow("as many as the widest screen may have") << 4000 << narrow << wide;
    QTest::newRow("too many for any screen") << 4001 << narrow << narrow + wide;
    QTest::newRow("too many for any screen, most of them nameless") << 4001 << QString() << wide;
}

void ChartLookTest::labelsNobodyCouldReadKeepTheirHeightOnly()
{
    QFETCH(int, count);
    QFETCH(QString, other);
    QFETCH(QString, widest);
    QStringList texts(count, other);
    texts[count / 2] = widest;
    BarStage stage(texts);
    show(stage.view, {500, 400});
    QVERIFY(stage.room() < 2);
    QVERIFY(!stage.axis->labelsVisible());

    BarStage drawn({widest}, false);
    drawn.axis->setLabelsFont(stage.axis->labelsFont());
    drawn.axis->setLabelsAngle(stage.axis->labelsAngle());
    show(drawn.view, {500, 400});
    QCOMPARE(stage.chart->plotArea().height(), drawn.chart->plotArea().height());
}

void ChartLookTest::labelsFollowTheSize()
{
    BarStage stage(labels(12, 8));
    show(stage.view, {400, 300});
    QCOMPARE(stage.axis->labelsAngle(), -90);
    show(stage.view, {1600, 300});
    QCOMPARE(stage.axis->labelsAngle(), 0);
    QCOMPARE(stage.pixels(), stage.usualPixels());
    show(stage.view, {400, 300});
    QCOMPARE(stage.axis->labelsAngle(), -90);
}

void ChartLookTest::axisWithoutTextsIsLeftAlone_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("no bars") << QStringList();
    QTest::newRow("many bars of nameless devices") << QStringList(100, QString());
}

void ChartLookTest::axisWithoutTextsIsLeftAlone()
{
    QFETCH(QStringList, texts);
    BarStage stage(texts);
    show(stage.view, {300, 200});
    QCOMPARE(stage.axis->labelsAngle(), 0);
    QCOMPARE(stage.axis->labelsFont(), stage.usual);
}

void ChartLookTest::legendGetsTheLargestFontThatFits_data()
{
    QTest::addColumn<int>("width");
    for (int width = 290; width <= 350; width += 10)
        QTest::addRow("%d pixels wide", width) << width;
}

void ChartLookTest::legendGetsTheLargestFontThatFits()
{
    QFETCH(int, width);
    PieStage stage({QStringLiteral("Intrusion | 12.5% 3"), QStringLiteral("Short")});
    show(stage.view, {width, 300});
    QVERIFY2(stage.fits(smallest), "the row is too narrow for its purpose");
    QVERIFY2(!stage.fits(stage.usualPixels()), "the row is too wide for its purpose");
    QVERIFY(stage.fits(stage.pixels()));
    QVERIFY(!stage.fits(stage.pixels() + 1));
}

void ChartLookTest::legendStaysLegible()
{
    PieStage stage({QStringLiteral("A name that no legend has the room for | 100.0% 2147483647")});
    show(stage.view, {300, 300});
    QVERIFY(!stage.fits(smallest));
    QCOMPARE(stage.pixels(), smallest);
}

void ChartLookTest::legendFollowsTheSize()
{
    PieStage stage({QStringLiteral("Intrusion at the gate | 12.5% 3")});
    show(stage.view, {300, 300});
    QVERIFY(stage.pixels() < stage.usualPixels());
    show(stage.view, {1600, 300});
    QCOMPARE(stage.pixels(), stage.usualPixels());
}

TALVIX_TEST_MAIN(ChartLookTest)
#include "tst_chart_look.moc"
