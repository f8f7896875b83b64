// What an operator sees of a page whose charts are replaced again and again.
#include "support/ChartProbe.h"
#include "support/EventCount.h"

#include <charts/ChartLook.h>

#include <TalvixWidgets/ZrPushButton.h>

#include <algorithm>
#include <memory>
#include <vector>

using namespace ChartProbe;

namespace {

/// Long enough for a chart that grows to be painted many times.
constexpr int someFrames = 400;

/// Counts the paints of each view of a page.
class PaintCounts
{
public:
    explicit PaintCounts(const ProbePage &page)
    {
        for (const ZrChartView *view : page.m_chartViewList)
            m_paints.push_back(std::make_unique<EventCount>(view->viewport(), QEvent::Paint));
    }

    /// The most paints that one of the views had within some frames since the last call.
    int mostWithinSomeFrames()
    {
        QTest::qWait(someFrames);
        int most = 0;
        for (const auto &paint : m_paints)
            most = std::max(most, std::exchange(paint->count, 0));
        return most;
    }

private:
    std::vector<std::unique_ptr<EventCount>> m_paints;
};

/// A page on the screen with ten bars that have grown.
struct GrownStage : ChartStage
{
    explicit GrownStage(int type)
        : ChartStage(type, OnScreen)
    {
        page.resize(1700, 1000);
        name(QStringLiteral("Gate "));
        page.lineDataList = bars(5);
        page.pieDataList = {{QStringLiteral("Motion"), 3}, {QStringLiteral("Tamper"), 1}};
        load();
        waitForAnimation();
    }

    /// Gives the ten bars names that begin with \a start.
    void name(const QString &start)
    {
        page.barDataList.clear();
        for (int i = 0; i < 10; ++i)
            page.barDataList.append({start + QString::number(i), i + 1});
        page.devTypeDataList = page.barDataList;
    }
    void turnTo(int number, int of)
    {
        page.setPageInfo(of, number);
        page.loadChart();
    }
};

QStringList drawnTexts(const QChart *chart)
{
    QStringList texts;
    const auto items = chart->scene()->items();
    for (const QGraphicsItem *item : items) {
        if (const auto *text = dynamic_cast<const QGraphicsTextItem *>(item); text && text->isVisible())
            texts.append(text->toPlainText().simplified());
    }
    return texts;
}

} // namespace

class ReloadsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void turnedPagesStandFinished_data();
    void turnedPagesStandFinished();
    void titlesOfOtherHeightsLetNothingGrow();
    void labelsStandTheSameOnAllPages();
    void emptiedChartsFollowTheSize();
    void legendsShowNamesAsTheyStand_data();
    void legendsShowNamesAsTheyStand();
};

void ReloadsTest::turnedPagesStandFinished_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {2, 4, 6})
        QTest::addRow("kind %d", type) << type;
}

// The buttons that come and go leave the bars another width.
void ReloadsTest::turnedPagesStandFinished()
{
    QFETCH(int, type);
    GrownStage stage(type);
    PaintCounts paints(stage.page);
    stage.turnTo(1, 4);
    QVERIFY(paints.mostWithinSomeFrames() >= 1);
    for (const int number : {2, 3, 4, 3, 1, 4, 1}) {
        const int width = stage.page.barChartView->width();
        stage.turnTo(number, 4);
        const int most = paints.mostWithinSomeFrames();
        QVERIFY2(most >= 1 && most <= 2, qPrintable(QStringLiteral("page %1: %2").arg(number).arg(most)));
        QCOMPARE(stage.page.pushButtonPrevious->isVisible(), number > 1);
        QCOMPARE(stage.page.pushButtonNext->isVisible(), number < 4);
        if (number == 2)
            QVERIFY(stage.page.barChartView->width() < width);
    }
}

// The name of the bar in focus stands in two titles, which take a line more for a long one.
void ReloadsTest::titlesOfOtherHeightsLetNothingGrow()
{
    GrownStage stage(1);
    PaintCounts paints(stage.page);
    const int usualHeight = stage.page.pieChartView->height();
    const QString longName = QStringLiteral("Airport, second floor, hall of departures ").repeated(6);
    for (const QString &start : {longName, QStringLiteral("Gate "), longName, QStringLiteral("Gate ")}) {
        stage.name(start);
        stage.page.loadChart();
        const int most = paints.mostWithinSomeFrames();
        QVERIFY2(most >= 1 && most <= 2, qPrintable(QString::number(most)));
        QCOMPARE(stage.page.pieChartView->height() < usualHeight, start == longName);
    }
}

// The width of the view changes with the buttons, that of the page doesn't.
void ReloadsTest::labelsStandTheSameOnAllPages()
{
    GrownStage stage(2);
    stage.name(QStringLiteral("Airport recorder, second floor - Camera "));
    stage.turnTo(1, 4);
    const int angle = categoryAxis(stage.page.barChartView->chart())->labelsAngle();
    QVERIFY2(angle != 0, "the names are too short for their purpose");
    stage.name(QStringLiteral("Gate "));
    for (const int number : {2, 3, 4, 1, 4}) {
        stage.turnTo(number, 4);
        QCoreApplication::processEvents();
        QCOMPARE(categoryAxis(stage.page.barChartView->chart())->labelsAngle(), angle);
    }
    stage.page.resize(1750, 1000);
    QCoreApplication::processEvents();
    QCOMPARE(categoryAxis(stage.page.barChartView->chart())->labelsAngle(), 0);
}

// Charts that lost their series and axes go on living in their views.
void ReloadsTest::emptiedChartsFollowTheSize()
{
    GrownStage stage(5);
    const int byNumber = stage.page.comboBoxPie->findData(1);
    QVERIFY(byNumber >= 0);
    QVERIFY(QMetaObject::invokeMethod(&stage.page, "slot_switchPieType", Q_ARG(int, byNumber)));
    QVERIFY(stage.page.barChartView->chart()->series().isEmpty());
    runDeferredDeletes();
    stage.page.resize(1400, 900);
    QCoreApplication::processEvents();
    QCOMPARE(stage.page.barChartView->chart()->size().toSize(), stage.page.barChartView->size());
}

void ReloadsTest::legendsShowNamesAsTheyStand_data()
{
    trickyNameRows();
}

void ReloadsTest::legendsShowNamesAsTheyStand()
{
    QFETCH(QString, name);
    QChartView view(new QChart);
    auto *bars = new QBarSeries;
    auto *set = new QBarSet(name);
    set->append(1);
    bars->append(set);
    view.chart()->addSeries(bars);
    ChartLook::showLegend(*view.chart(), Qt::AlignTop);
    ChartLook::showNamesAsTheyStand(*view.chart()->legend());
    view.resize(2600, 400);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QCoreApplication::processEvents();
    const QStringList drawn = drawnTexts(view.chart());
    QVERIFY2(drawn.contains(name.simplified()), qPrintable(drawn.join(u'|')));
    // Call-outs go by it.
    QCOMPARE(set->label(), name);
}

TALVIX_TEST_MAIN(ReloadsTest)
#include "tst_reloads.moc"
