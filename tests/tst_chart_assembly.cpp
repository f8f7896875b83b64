#include "support/ChartProbe.h"
#include "support/EventCount.h"
#include "support/LogCapture.h"
#include "support/PageScene.h"
#include "support/StatisticsRows.h"

#include <charts/ChartLayout.h>

#include <devhost/widgets/HostSettings.h>
#include <TalvixWidgets/AppTranslationHelper.h>
#include <TalvixWidgets/ZrPushButton.h>

#include <functional>
#include <limits>
#include <memory>
#include <vector>

using namespace ChartProbe;
using namespace Qt::StringLiterals;

namespace {
/// Long enough for a chart that grows to be painted many times.
constexpr int someFrames = 400;

QList<QAbstractAnimation *> animations(const QGraphicsItem &item)
{
    QList<QAbstractAnimation *> found;
    const auto children = item.childItems();
    for (QGraphicsItem *child : children) {
        if (QGraphicsObject *object = child->toGraphicsObject())
            found += object->findChildren<QAbstractAnimation *>(Qt::FindDirectChildrenOnly);
        found += animations(*child);
    }
    return found;
}

/// Has all charts stand as they do when they have grown.
void finishAnimations(ProbePage &page)
{
    QCoreApplication::processEvents();
    for (const ZrChartView *view : std::as_const(page.m_chartViewList)) {
        const auto running = animations(*view->chart());
        for (QAbstractAnimation *animation : running)
            animation->setCurrentTime(animation->totalDuration());
    }
    QCoreApplication::processEvents();
}

/// Notes which animations a chart has when a view gives it a size.
class SizedCharts : public QObject
{
public:
    SizedCharts() { qApp->installEventFilter(this); }

    QHash<QObject *, QChart::AnimationOptions> optionsThen;

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        const auto *chart = qobject_cast<QChart *>(object);
        if (chart && event->type() == QEvent::GraphicsSceneResize)
            optionsThen.insert(object, chart->animationOptions());
        return false;
    }
};

/// Keeps what is to be deleted, and whom.
class DeletionWatch : public QObject
{
public:
    QList<QObject *> asked;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::DeferredDelete)
            return false;
        asked.append(watched);
        return true;
    }
};

/// Lets a test look at what stands when the palette changes.
class PaletteWatch : public QObject
{
public:
    std::function<void()> whenChanged;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::PaletteChange)
            whenChanged();
        return false;
    }
};

bool isDual(int type)
{
    return type >= 7 && type <= 9;
}

void fill(ProbePage &page)
{
    page.barDataList = {{"North", 30}, {"South", 7}};
    page.devTypeDataList = {{"North", 1}, {"South", 2}};
    page.lineDataList = {{"2024-05-01", 20}, {"2024-05-02", 10}};
    page.pieDataList = {{"fire", 25}, {"smoke", 5}};
    if (isDual(page.m_serviceType)) {
        page.barDataList2 = {{"North", 3}, {"South", 41}};
        page.lineDataList2 = {{"2024-05-01", 60}, {"2024-05-02", 1}};
    }
}

/// What stands alone in a host's column.
QLayoutItem *onlyItem(const QWidget *host)
{
    const auto *column = qobject_cast<QVBoxLayout *>(host->layout());
    return column && column->count() == 1 ? column->itemAt(0) : nullptr;
}

/// A page on show with charts in which something is.
struct FilledStage : ChartStage
{
    explicit FilledStage(int type)
        : ChartStage(type, OnScreen)
    {
        fill(page);
        load();
    }
};

} // namespace

static void handleEverywhere(ProbePage &page)
{
    for (const char *pane : {"widgetBarChart", "widgetLineChart", "widgetPieChart"}) {
        auto *host = page.part<QWidget>(pane);
        if (!host->isVisible())
            continue;
        for (int x = 1; x < host->width(); x += host->width() / 7) {
            for (int y = 1; y < host->height(); y += host->height() / 5) {
                const QPoint inPage = host->mapTo(&page, QPoint(x, y));
                QWidget *target = page.childAt(inPage);
                if (qobject_cast<QComboBox *>(target))
                    continue;
                for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
                    QTest::mouseClick(page.windowHandle(), button, {}, inPage);
                QTest::mouseDClick(page.windowHandle(), Qt::LeftButton, {}, inPage);
                QTest::mousePress(page.windowHandle(), Qt::LeftButton, {}, inPage);
                QTest::mouseMove(page.windowHandle(), inPage + QPoint(20, 10));
                QTest::mouseRelease(page.windowHandle(), Qt::LeftButton, {}, inPage + QPoint(20, 10));
                QWheelEvent wheel(target->mapFrom(&page, inPage), page.mapToGlobal(inPage), {}, {0, 120},
                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
                QCoreApplication::sendEvent(target, &wheel);
            }
        }
    }
}

class ChartAssemblyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstLoadMakesTheViewsOfTheKind_data()
    {
        kinds({1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 10, -1, std::numeric_limits<int>::max()});
    }

    void firstLoadMakesTheViewsOfTheKind()
    {
        QFETCH(int, type);
        ChartStage stage(type);
        ProbePage &page = stage.page;
        fill(page);
        page.loadChart();

        QCOMPARE(page.m_chartViewList.size(), hasPie(type) ? 3 : 2);
        QVERIFY(page.barChartView);
        QCOMPARE(page.m_chartViewList.at(0), page.barChartView);
        QCOMPARE(page.m_chartViewList.at(1), page.lineChartView);
        QCOMPARE(page.pieChartView, hasPie(type) ? page.m_chartViewList.at(2) : nullptr);

        if (isDual(type))
            QVERIFY(series<QBarSeries>(page.barChartView->chart()));
        else
            QVERIFY(series<QStackedBarSeries>(page.barChartView->chart()));
        const auto *barSeries = series<QAbstractBarSeries>(page.barChartView->chart());
        QCOMPARE(barSeries->barSets().size(), type == 2 || type == 4 || isDual(type) ? 2 : 1);
        QCOMPARE(page.lineChartView->chart()->series().size(), isDual(type) ? 2 : 1);
        QVERIFY(series<QLineSeries>(page.lineChartView->chart()));
        if (hasPie(type))
            QVERIFY(series<QPieSeries>(page.pieChartView->chart()));

        QCOMPARE(page.pushButtonPrevious != nullptr, isPaged(type));
        QCOMPARE(page.pushButtonNext != nullptr, isPaged(type));
        QCOMPARE(page.labelPiecount != nullptr, hasPie(type));
        QVERIFY(page.comboBoxPie);
        QVERIFY(!page.labelCallout);
    }

    void viewsStandInTheirHosts_data() { allKinds(); }
    void viewsStandInTheirHosts()
    {
        QFETCH(int, type);
        ChartStage stage(type);
        ProbePage &page = stage.page;
        page.loadChart();

        const auto *barHost = page.part<QWidget>("widgetBarChart");
        QVERIFY(onlyItem(barHost));
        const auto *row = qobject_cast<QHBoxLayout *>(onlyItem(barHost)->layout());
        QVERIFY(row);
        QList<QWidget *> widgets;
        QList<int> stretches;
        for (int i = 0; i < row->count(); ++i) {
            widgets.append(row->itemAt(i)->widget());
            stretches.append(row->stretch(i));
        }
        if (isPaged(type)) {
            QCOMPARE(
                widgets, (QList<QWidget *>{page.pushButtonPrevious, page.barChartView, page.pushButtonNext}));
            QCOMPARE(stretches, (QList<int>{1, 20, 1}));
        } else {
            QCOMPARE(widgets, QList<QWidget *>{page.barChartView});
            QCOMPARE(stretches, QList<int>{0});
        }
        QCOMPARE(page.barChartView->parentWidget(), barHost);

        const std::pair<const char *, ZrChartView *> others[] = {
            {"widgetLineChart", page.lineChartView}, {"widgetPieChart", page.pieChartView}};
        for (const auto &[name, view] : others) {
            const auto *host = page.part<QWidget>(name);
            QCOMPARE(host->layout() != nullptr, view != nullptr);
            if (!view)
                continue;
            QVERIFY(onlyItem(host));
            QCOMPARE(onlyItem(host)->widget(), view);
            QCOMPARE(view->parentWidget(), host);
        }
    }

    void pageButtonsStandBesideTheBars_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("language");
        for (const int type : {2, 4, 6}) {
            QTest::addRow("service type %d without a language", type) << type << "";
            QTest::addRow("service type %d in English", type) << type << "en";
        }
    }

    void pageButtonsStandBesideTheBars()
    {
        QFETCH(QString, language);
        QVERIFY(HostSettings::setLanguage(language));
        const auto reset = qScopeGuard([] { HostSettings::setLanguage({}); });
        FilledStage stage(kindOfRow());

        const ZrPushButton *previous = stage.page.pushButtonPrevious;
        const ZrPushButton *next = stage.page.pushButtonNext;
        const auto *host = stage.page.part<QWidget>("widgetBarChart");
        QCOMPARE(previous->objectName(), u"pushButtonPrevious"_s);
        QCOMPARE(next->objectName(), u"pushButtonNext"_s);
        QCOMPARE(previous->toolTip(), ChartProbe::text("TK_PreviousPage"));
        QCOMPARE(next->toolTip(), ChartProbe::text("TK_NextPage"));
        QVERIFY(!next->toolTip().isEmpty());
        for (const ZrPushButton *button : {previous, next}) {
            QCOMPARE(button->minimumSize(), QSize(48, 64));
            QCOMPARE(button->maximumSize(), QSize(48, 64));
            QCOMPARE(button->parentWidget(), host);
            QVERIFY(button->isHidden());
        }
        const QObjectList children = host->children();
        QVERIFY(children.indexOf(previous) < children.indexOf(next));
    }

    void pageButtonsTurnThePageOncePerClick_data() { kinds({2, 4, 6}); }
    void pageButtonsTurnThePageOncePerClick()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        fill(stage.page);
        stage.page.m_nTotalPage = 5;
        stage.page.m_nCurPage = 2;
        for (int i = 0; i < 3; ++i)
            stage.page.loadChart();
        QVERIFY(stage.page.pushButtonNext->isVisible());
        QVERIFY(stage.page.pushButtonPrevious->isVisible());

        LogCapture log;
        QTest::mouseClick(stage.page.pushButtonNext, Qt::LeftButton);
        QCOMPARE(stage.page.m_nCurPage, 3);
        QCOMPARE(log.count("BasicChart::slotSearch "), 1);
        QTest::mouseClick(stage.page.pushButtonPrevious, Qt::LeftButton);
        QTest::mouseClick(stage.page.pushButtonPrevious, Qt::LeftButton);
        QCOMPARE(stage.page.m_nCurPage, 1);
        QCOMPARE(log.count("BasicChart::slotSearch "), 3);
    }

    void pieControlsAreMadeOnce_data() { allKinds(); }
    void pieControlsAreMadeOnce()
    {
        QFETCH(int, type);
        ChartStage stage(type, ChartStage::OnScreen);
        ProbePage &page = stage.page;
        stage.load();
        const QLabel *label = page.labelPiecount;
        const QComboBox *box = page.comboBoxPie;

        QCOMPARE(box->objectName(), u"comboBoxPie"_s);
        QCOMPARE(box->minimumWidth(), 150);
        QCOMPARE(box->maximumWidth(), 150);
        QCOMPARE(box->parentWidget(), hasPie(type) ? page.pieChartView : nullptr);
        QCOMPARE(box->isVisible(), hasModes(type));
        if (hasModes(type))
            QCOMPARE(box->pos(), QPoint(450, 28));
        if (hasPie(type)) {
            QCOMPARE(label->objectName(), u"labelPiecount"_s);
            QCOMPARE(label->parentWidget(), page.pieChartView);
            QVERIFY(label->isHidden());
        }

        fill(page);
        page.loadChart();
        page.reloadLineAndPieChart();
        page.reloadPieChart();
        QCOMPARE(page.labelPiecount, label);
        QCOMPARE(page.comboBoxPie, box);
        QCOMPARE(box->isVisible(), hasModes(type));
        if (hasPie(type)) {
            QVERIFY(label->isVisible());
            QCOMPARE(page.pieChartView->findChildren<QLabel *>("labelPiecount").size(), 1);
            QCOMPARE(page.pieChartView->findChildren<QComboBox *>("comboBoxPie").size(), 1);
        }
    }

    void nothingIsMadeBeforeTheFirstLoad()
    {
        ChartStage stage(2, ChartStage::OnScreen);
        const ProbePage &page = stage.page;
        QVERIFY(page.m_chartViewList.isEmpty());
        QVERIFY(!page.barChartView && !page.lineChartView && !page.pieChartView);
        QVERIFY(!page.pushButtonPrevious && !page.pushButtonNext);
        QVERIFY(!page.labelPiecount && !page.comboBoxPie && !page.labelCallout);
        QVERIFY(page.findChildren<QChartView *>().isEmpty());
    }

    void firstLoadTellsItsSteps_data() { kinds({1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 10}); }
    void firstLoadTellsItsSteps()
    {
        QFETCH(int, type);
        ChartStage stage(type);
        fill(stage.page);
        LogCapture log;
        stage.page.loadChart();
        QCOMPARE(log.lines(),
            (QStringList{"BasicChart::loadChart", "BasicChart::loadChart  frist loadcharts"}
                + buildLines(type)));
        QCOMPARE(log.complaints(), QStringList());
    }

    void reloadTellsItsSteps_data() { kinds({1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 10}); }
    void reloadTellsItsSteps()
    {
        QFETCH(int, type);
        ChartStage stage(type);
        stage.page.loadChart();
        fill(stage.page);
        for (int i = 0; i < 2; ++i) {
            LogCapture log;
            stage.page.loadChart();
            QCOMPARE(log.lines(),
                (QStringList{"BasicChart::loadChart", "BasicChart::loadChart reloadcharts"}
                    + buildLines(type)));
        }
    }

    void reloadWithoutBarsStopsBeforeTheModes_data() { allKinds(); }
    void reloadWithoutBarsStopsBeforeTheModes()
    {
        QFETCH(int, type);
        FilledStage stage(type);
        ProbePage &page = stage.page;
        page.comboBoxPie->addItem("left over", 77);
        page.comboBoxPie->setCurrentIndex(page.comboBoxPie->count() - 1);
        const auto kept = items(page.comboBoxPie);
        const QList<QPointer<QChart>> old = charts(page);
        page.barDataList.clear();
        page.barDataList2.clear();
        page.m_strSelectedBar = "selected";
        spoilLook(page);

        LogCapture log;
        page.loadChart();
        QStringList lines = {"BasicChart::loadChart", "BasicChart::loadChart reloadcharts",
            "BasicChart::getMaxValue  0", "createBarChart"};
        lines += detailLines(type);
        lines += "BasicChart::loadChart  barDataList is empty";
        QCOMPARE(log.lines(), lines);
        QCOMPARE(items(page.comboBoxPie), kept);
        QCOMPARE(page.comboBoxPie->currentIndex(), kept.size() - 1);
        QCOMPARE(page.m_strSelectedBar, type == 7 || type == 8 ? QString() : u"selected"_s);
        runDeferredDeletes();
        for (const QPointer<QChart> &chart : old)
            QVERIFY(chart.isNull());
        QVERIFY(categories(page.barChartView->chart()).isEmpty());
        verifyLook(page);
        if (hasPie(type))
            QVERIFY(page.labelPiecount->text() != u"before"_s);
    }

    void firstLoadWithoutBarsKeepsTheSelectedBar()
    {
        for (const int type : {1, 3, 5, 9}) {
            ChartStage stage(type);
            stage.page.m_strSelectedBar = "selected";
            LogCapture log;
            stage.page.loadChart();
            QCOMPARE(stage.page.m_strSelectedBar, u"selected"_s);
            QVERIFY(!log.contains("BasicChart::loadChart  barDataList is empty"));
            QVERIFY(!stage.page.m_chartViewList.isEmpty());
            QVERIFY(stage.titleText("labelLineChartTitle").contains("selected"));
        }
    }

    void firstBarIsSelectedBeforeAnythingIsBuilt()
    {
        for (const int type : {1, 2, 3, 4, 5, 6}) {
            ChartStage stage(type);
            fill(stage.page);
            stage.page.m_strSelectedBar = "before";
            stage.page.loadChart();
            QCOMPARE(stage.page.m_strSelectedBar, u"North"_s);
            QCOMPARE(series<QLineSeries>(stage.page.lineChartView->chart())->name(), u"North"_s);
            QVERIFY(stage.titleText("labelLineChartTitle").contains("2024-05-01~2024-05-03 North</font>"));

            stage.page.barDataList = {{"East", 1}, {"North", 9}};
            stage.page.loadChart();
            QCOMPARE(stage.page.m_strSelectedBar, u"East"_s);
            QCOMPARE(series<QLineSeries>(stage.page.lineChartView->chart())->name(), u"East"_s);
            if (hasPie(type))
                QVERIFY(stage.titleText("labelPieChartTitle").contains("2024-05-01~2024-05-03 East</font>"));
        }
    }

    void trafficEndsWithoutASelectedBar()
    {
        for (const int type : {7, 8}) {
            ChartStage stage(type);
            fill(stage.page);
            for (int i = 0; i < 2; ++i) {
                stage.page.loadChart();
                QCOMPARE(stage.page.m_strSelectedBar, QString());
                QVERIFY(
                    stage.titleText("labelLineChartTitle").contains("2024-05-01~2024-05-03 North</font>"));
                QVERIFY(stage.titleText("labelPieChartTitle").contains("2024-05-01~2024-05-03 </font>"));
            }
        }
        ChartStage groups(9);
        fill(groups.page);
        groups.page.loadChart();
        QCOMPARE(groups.page.m_strSelectedBar, u"North"_s);
    }

    void reloadKeepsViewsAndControls_data() { allKinds(); }
    void reloadKeepsViewsAndControls()
    {
        FilledStage stage(kindOfRow());
        ProbePage &page = stage.page;
        page.showCallout("text", page.mapToGlobal(QPoint(10, 10)));
        const auto state = [&page] {
            QList<const QObject *> objects = {page.barChartView, page.lineChartView, page.pieChartView,
                page.pushButtonPrevious, page.pushButtonNext, page.labelPiecount, page.comboBoxPie,
                page.labelCallout, page.part<QWidget>("widgetBarChart")->layout(),
                page.part<QWidget>("widgetLineChart")->layout(),
                page.part<QWidget>("widgetPieChart")->layout()};
            for (const ZrChartView *view : std::as_const(page.m_chartViewList))
                objects.append(view);
            return objects;
        };
        const auto before = state();
        for (int i = 0; i < 3; ++i) {
            page.barDataList.prepend({"another", i});
            page.loadChart();
            runDeferredDeletes();
        }
        QCOMPARE(state(), before);
        QCOMPARE(page.findChildren<QChartView *>().size(), page.m_chartViewList.size());
        QCOMPARE(page.labelCallout->text(), u"text"_s);
        QVERIFY(page.labelCallout->isVisible());
    }

    void reloadReplacesAllCharts_data() { allKinds(); }
    void reloadReplacesAllCharts()
    {
        QFETCH(int, type);
        FilledStage stage(type);
        ProbePage &page = stage.page;
        const QList<QPointer<QChart>> old = charts(page);
        page.barDataList = {{"East", 5}, {"West", 4}, {"Centre", 3}};
        page.devTypeDataList = {{"East", 1}, {"West", 1}, {"Centre", 1}};
        page.lineDataList = {{"2024-06-01", 8}};
        page.pieDataList = {{"water", 8}};
        page.snapDetailMap = {{4, {}}};

        page.loadChart();
        for (int i = 0; i < old.size(); ++i) {
            QVERIFY(old.at(i));
            QVERIFY(charts(page).at(i) != old.at(i));
        }
        QCOMPARE(categories(page.barChartView->chart()), (QStringList{"East", "West", "Centre"}));
        const auto *barSeries = series<QAbstractBarSeries>(page.barChartView->chart());
        QCOMPARE(values(barSeries->barSets().constFirst()), (QList<double>{5, 4, 3}));
        QCOMPARE(series<QLineSeries>(page.lineChartView->chart())->points(), (QList<QPointF>{{0, 8}}));
        if (hasPie(type))
            QCOMPARE(series<QPieSeries>(page.pieChartView->chart())->slices().constFirst()->label(),
                u"water | 100.0% 8"_s);

        runDeferredDeletes();
        for (const QPointer<QChart> &chart : old)
            QVERIFY(chart.isNull());
        for (const QPointer<QChart> &chart : charts(page))
            QVERIFY(chart);
    }

    void firstLoadKeepsControlsThatAreThere()
    {
        ChartStage stage(9);
        ProbePage &page = stage.page;
        fill(page);
        auto *modes = new QComboBox(&page);
        auto *total = new QLabel(&page);
        page.comboBoxPie = modes;
        page.labelPiecount = total;
        page.loadChart();
        QCOMPARE(page.comboBoxPie, modes);
        QCOMPARE(page.labelPiecount, total);
        QCOMPARE(modes->width(), 150);
    }

    void firstChartsAreLaidOutOnce_data() { allKinds(); }
    // Series that grow while their chart finds its size would move sideways.
    void firstChartsAreLaidOutOnce()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        ProbePage &page = stage.page;
        fill(page);
        // Room for a button beside the bars, where there are pages.
        page.m_nCurPage = 1;
        page.m_nTotalPage = 2;
        page.loadChart();
        QList<QSize> sizes;
        QList<QRectF> plots;
        const auto measure = [&] {
            sizes.clear();
            plots.clear();
            for (const ZrChartView *view : std::as_const(page.m_chartViewList)) {
                sizes.append(view->size());
                plots.append(view->chart()->plotArea());
            }
        };
        measure();
        const QList<QSize> sizesAtOnce = sizes;
        const QList<QRectF> plotsAtOnce = plots;
        QVERIFY(plotsAtOnce.constFirst().width() > sizesAtOnce.constFirst().width() / 2);
        for (int round = 0; round < 5; ++round)
            QCoreApplication::processEvents();
        measure();
        QCOMPARE(sizes, sizesAtOnce);
        QCOMPARE(plots, plotsAtOnce);
    }

    void chartsFollowTheSizeOfThePage_data() { allKinds(); }
    void chartsFollowTheSizeOfThePage()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        ProbePage &page = stage.page;
        fill(page);
        page.resize(1600, 900);
        const auto followsTheSize = [&page](QSize size) {
            page.resize(size);
            QCoreApplication::processEvents();
            const double margins = 200;
            for (const ZrChartView *view : std::as_const(page.m_chartViewList)) {
                const QSizeF plot = view->chart()->plotArea().size();
                if (view->chart()->size() != QSizeF(view->size()) || plot.height() > view->height()
                    || plot.height() < view->height() - margins)
                    return false;
            }
            return true;
        };
        stage.load();
        QVERIFY(followsTheSize({1700, 1500}));
        QVERIFY(followsTheSize({1600, 700}));
        page.loadChart();
        QVERIFY(followsTheSize({1700, 1500}));
    }

    void viewsKeepTheirUpdateMode_data() { allKinds(); }
    void viewsKeepTheirUpdateMode()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        ProbePage &page = stage.page;
        page.barDataList = bars(60);
        stage.load();
        const ZrChartView untouched(new QChart);
        for (ZrChartView *view : std::as_const(page.m_chartViewList)) {
            QCOMPARE(view->viewportUpdateMode(), untouched.viewportUpdateMode());
            view->setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
        }
        page.loadChart();
        for (const ZrChartView *view : std::as_const(page.m_chartViewList))
            QCOMPARE(view->viewportUpdateMode(), QGraphicsView::FullViewportUpdate);
    }

    void replacedChartsStandFinished_data() { allKinds(); }
    // A chart that grows is painted some sixty times in a second.
    void replacedChartsStandFinished()
    {
        FilledStage stage(kindOfRow());
        ProbePage &page = stage.page;
        finishAnimations(page);
        std::vector<std::unique_ptr<EventCount>> paints;
        for (const ZrChartView *view : std::as_const(page.m_chartViewList))
            paints.push_back(std::make_unique<EventCount>(view->viewport(), QEvent::Paint));
        const auto paintsAfter = [&](const auto &reload) {
            for (const auto &paint : paints)
                paint->count = 0;
            reload();
            QTest::qWait(someFrames);
            QList<int> counts;
            for (const auto &paint : paints)
                counts.append(paint->count);
            return counts;
        };
        const auto verifyAtMostTwo = [&](const QList<int> &counts, const QList<int> &least) {
            for (qsizetype i = 0; i < counts.size(); ++i) {
                QVERIFY2(counts.at(i) >= least.at(i) && counts.at(i) <= 2,
                    qPrintable(QString::number(counts.at(i))));
                QCOMPARE(page.m_chartViewList.at(i)->chart()->animationOptions(), QChart::SeriesAnimations);
            }
        };
        verifyAtMostTwo(paintsAfter([&page] { page.loadChart(); }), {1, 1, 1});
        verifyAtMostTwo(paintsAfter([&page] { page.reloadLineAndPieChart(); }), {0, 1, 1});
        verifyAtMostTwo(paintsAfter([&page] { page.reloadPieChart(); }), {0, 0, 1});
        for (const ZrChartView *view : std::as_const(page.m_chartViewList))
            QVERIFY(view->updatesEnabled());
    }

    void firstChartsGrow_data() { allKinds(); }
    void firstChartsGrow()
    {
        FilledStage stage(kindOfRow());
        std::vector<std::unique_ptr<EventCount>> paints;
        for (const ZrChartView *view : std::as_const(stage.page.m_chartViewList))
            paints.push_back(std::make_unique<EventCount>(view->viewport(), QEvent::Paint));
        QTest::qWait(someFrames);
        for (const auto &paint : paints)
            QVERIFY2(paint->count > 5, qPrintable(QString::number(paint->count)));
    }

    void theAnimationOptionComesAfterTheView_data() { allKinds(); }
    void theAnimationOptionComesAfterTheView()
    {
        FilledStage stage(kindOfRow());
        SizedCharts sized;
        stage.page.loadChart();
        QCOMPARE(sized.optionsThen.size(), stage.page.m_chartViewList.size());
        for (const ZrChartView *view : std::as_const(stage.page.m_chartViewList)) {
            QCOMPARE(sized.optionsThen.value(view->chart()), QChart::NoAnimation);
            QCOMPARE(view->chart()->animationOptions(), QChart::SeriesAnimations);
        }
    }

    void plainLayoutGivesTheSamePictures_data() { allKinds(); }
    // Nothing but time may hang on what is known of Qt Charts' insides.
    void plainLayoutGivesTheSamePictures()
    {
        QFETCH(int, type);
        const auto pictures = [type](bool plain) {
            ChartLayouting::setPlain(plain);
            ChartStage stage(type, ChartStage::OnScreen);
            ProbePage &page = stage.page;
            fill(page);
            QList<QImage> images;
            const auto take = [&images, &page] {
                finishAnimations(page);
                for (ZrChartView *view : std::as_const(page.m_chartViewList))
                    images.append(view->grab().toImage());
            };
            stage.load();
            take();
            page.barDataList = bars(40);
            page.devTypeDataList = bars(40);
            page.loadChart();
            take();
            page.resize(1400, 900);
            take();
            page.barDataList = bars(1200);
            page.devTypeDataList = bars(1200);
            page.loadChart();
            take();
            ChartLayouting::setPlain(false);
            return images;
        };
        QCOMPARE(pictures(true), pictures(false));
    }

    void aViewThatTheHostDeletesIsGone_data() { allKinds(); }
    void aViewThatTheHostDeletesIsGone()
    {
        for (int place = 0; place < 3; ++place) {
            ChartStage stage(kindOfRow(), ChartStage::OnScreen);
            ProbePage &page = stage.page;
            fill(page);
            stage.load();
            if (place >= page.m_chartViewList.size())
                break;
            const qsizetype views = page.m_chartViewList.size();
            delete page.m_chartViewList.at(place);
            QCOMPARE(page.m_chartViewList.size(), views);
            QVERIFY(!page.m_chartViewList.at(place));
            page.loadChart();
            page.reloadLineAndPieChart();
            page.reloadPieChart();
            page.slot_switchPieType(0);
            page.slot_switchPieChart(nullptr);
            page.clearChartData();
            page.resize(900, 500);
            page.resize(1200, 700);
            QCoreApplication::processEvents();
            QCOMPARE(std::count(page.m_chartViewList.cbegin(), page.m_chartViewList.cend(), nullptr), 1);
        }
    }

    void aPictureTakenAtOnceHasTheNewCharts()
    {
        FilledStage stage(1);
        ProbePage &page = stage.page;
        page.loadChart();
        for (ZrChartView *view : std::as_const(page.m_chartViewList)) {
            const QImage atOnce = page.grab(QRect(view->mapTo(&page, QPoint()), view->size())).toImage();
            QImage blank(atOnce.size(), atOnce.format());
            blank.fill(atOnce.pixelColor(0, 0));
            QVERIFY(atOnce != blank);
        }
    }

    void replacedChartGoesWithAllItsParts_data() { kinds({1, 2, 5, 7, 9}); }
    void replacedChartGoesWithAllItsParts()
    {
        FilledStage stage(kindOfRow());
        waitForAnimation();
        QList<QPointer<QObject>> parts;
        for (const QPointer<QChart> &chart : charts(stage.page))
            parts += partsOf(chart);
        QVERIFY(parts.size() >= 8);
        stage.page.loadChart();
        runDeferredDeletes();
        for (const QPointer<QObject> &part : std::as_const(parts))
            QVERIFY(part.isNull());
        QVERIFY(!stage.page.grab().isNull());
    }

    void manyReloadsLeaveNothingBehind_data() { kinds({1, 2, 4, 7, 9}); }
    void manyReloadsLeaveNothingBehind()
    {
        FilledStage stage(kindOfRow());
        stage.page.loadChart();
        runDeferredDeletes();
        const auto population = [&stage] {
            QList<qsizetype> counts = {stage.page.findChildren<QObject *>().size()};
            for (const ZrChartView *view : std::as_const(stage.page.m_chartViewList))
                counts.append(view->scene()->items().size());
            return counts;
        };
        const QList<qsizetype> before = population();
        for (int i = 0; i < 30; ++i)
            stage.page.loadChart();
        runDeferredDeletes();
        QCOMPARE(population(), before);
    }

    void connectionsAreMadeOnce()
    {
        ChartStage stage(1, ChartStage::OnScreen);
        fill(stage.page);
        stage.page.devDataList = {{"North", "11"}, {"South", "12"}};
        for (int i = 0; i < 4; ++i)
            stage.page.loadChart();
        QString bar = "South";
        LogCapture log;
        Q_EMIT stage.page.barSetChanged(bar);
        QCOMPARE(log.count("BasicChart::getChartDataByBarId"), 1);
        QCOMPARE(stage.manager.calls, QStringList{"getAlarmStatisticsOfOrga"});
        QCOMPARE(stage.manager.alarmStatisticsOfOrga.requests.constFirst().orgaId, 12);
        QCOMPARE(log.count("createLineChart"), 1);
    }

    void barSetChangedIsHeardFromTheFirstLoadOn()
    {
        ChartStage stage(1);
        stage.page.devDataList = {{"North", "11"}};
        QString bar = "North";
        Q_EMIT stage.page.barSetChanged(bar);
        QCOMPARE(stage.manager.calls, QStringList());
        stage.page.loadChart();
        Q_EMIT stage.page.barSetChanged(bar);
        QCOMPARE(stage.manager.calls, QStringList{"getAlarmStatisticsOfOrga"});
    }

    void everyViewMovesTheCallout_data() { kinds({1, 4, 9}); }
    void everyViewMovesTheCallout()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        stage.page.loadChart();
        stage.page.loadChart();
        stage.page.showCallout("text", stage.page.mapToGlobal(QPoint(10, 10)));
        int x = 100;
        for (ZrChartView *view : std::as_const(stage.page.m_chartViewList)) {
            x += 50;
            Q_EMIT view->mouseMoved(stage.page.mapToGlobal(QPoint(x, 200)));
            QCOMPARE(stage.page.labelCallout->pos(), QPoint(x + 15, 185));
        }
    }

    void modesOfTemperature_data()
    {
        table<int, QString, int, QString, int>({"type", "first", "firstMode", "second", "secondMode"},
            {{"of groups", 5, "TK_ByEtiology", 2, "TK_ByNumber", 1},
                {"of device groups", 9, "TK_ByTemperature", 1, "TK_ByMask", 2}});
    }

    void modesOfTemperature()
    {
        QFETCH(int, type);
        QFETCH(QString, first);
        QFETCH(int, firstMode);
        QFETCH(QString, second);
        QFETCH(int, secondMode);
        for (const char *language : {"", "en"}) {
            QVERIFY(HostSettings::setLanguage(language));
            const auto reset = qScopeGuard([] { HostSettings::setLanguage({}); });
            QCOMPARE(ChartProbe::text(first) == first, *language == 0);
            ChartStage stage(type);
            stage.page.loadChart();
            QCOMPARE(items(stage.page.comboBoxPie),
                (QList<std::pair<QString, int>>{
                    {ChartProbe::text(first), firstMode}, {ChartProbe::text(second), secondMode}}));
            QCOMPARE(stage.page.comboBoxPie->currentIndex(), 0);
        }
    }

    void modesOfGroupsBeginAnewWithAReload()
    {
        ChartStage stage(5);
        stage.page.loadChart();
        const auto modes = items(stage.page.comboBoxPie);
        fill(stage.page);
        stage.page.comboBoxPie->setCurrentIndex(1);
        stage.page.comboBoxPie->addItem("left over", 77);
        stage.page.loadChart();
        QCOMPARE(items(stage.page.comboBoxPie), modes);
        QCOMPARE(stage.page.comboBoxPie->currentIndex(), 0);
    }

    void modesOfDeviceGroupsSurviveAReload_data()
    {
        table<int, int>({"index", "kept"},
            {{"by temperature", 0, 0}, {"by mask", 1, 1}, {"no item", -1, 0},
                {"an item beyond the two", 2, 0}});
    }

    void modesOfDeviceGroupsSurviveAReload()
    {
        QFETCH(int, index);
        ChartStage stage(9);
        fill(stage.page);
        stage.page.loadChart();
        stage.page.comboBoxPie->addItem("left over", 77);
        stage.page.comboBoxPie->setCurrentIndex(index);
        for (int i = 0; i < 2; ++i) {
            stage.page.loadChart();
            QCOMPARE(items(stage.page.comboBoxPie),
                (QList<std::pair<QString, int>>{
                    {ChartProbe::text("TK_ByTemperature"), 1}, {ChartProbe::text("TK_ByMask"), 2}}));
            QTEST(stage.page.comboBoxPie->currentIndex(), "kept");
        }
    }

    void modesOfTrafficAreTheMajorTypes_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("vehicles");
        QTest::addColumn<QList<int>>("majorTypes");
        QTest::addColumn<LabelledValues>("pie");

        for (const int type : {7, 8}) {
            QTest::addRow("service type %d, vehicles", type)
                << type << true << QList<int>{30, 2, 17} << LabelledValues{{"TK_Other", 11}};
            QTest::addRow("service type %d, pedestrians", type)
                << type << false << QList<int>{5} << LabelledValues{{"TK_Other", 21}};
        }
    }

    void modesOfTrafficAreTheMajorTypes()
    {
        QFETCH(bool, vehicles);
        QFETCH(QList<int>, majorTypes);
        ChartStage stage(kindOfRow());
        stage.page.part<QAbstractButton>(vehicles ? "carRadio" : "personRadio")->setChecked(true);
        stage.page.snapDetailMap = {{4, {major(30, 11), major(2, 12), major(17, 13)}}, {2, {major(5, 21)}}};
        for (int i = 0; i < 2; ++i) {
            fill(stage.page);
            stage.page.loadChart();
            QCOMPARE(items(stage.page.comboBoxPie), majorItems(majorTypes));
            QCOMPARE(stage.page.comboBoxPie->currentIndex(), 0);
            QTEST(stage.page.pieDataList, "pie");
            stage.page.comboBoxPie->setCurrentIndex(static_cast<int>(majorTypes.size()) - 1);
        }
    }

    void modesOfTrafficFollowTheReload()
    {
        ChartStage stage(7);
        fill(stage.page);
        stage.page.snapDetailMap = {{4, {major(30, 11), major(2, 12)}}};
        stage.page.loadChart();
        QCOMPARE(stage.page.comboBoxPie->count(), 2);

        stage.page.pieDataList = {{"kept", 1}};
        stage.page.snapDetailMap = {{4, {}}, {2, {major(5, 21)}}};
        stage.page.loadChart();
        QCOMPARE(stage.page.comboBoxPie->count(), 0);
        QCOMPARE(stage.page.pieDataList, (LabelledValues{{"kept", 1}}));

        stage.page.comboBoxPie->addItem("left over", 77);
        stage.page.snapDetailMap.clear();
        stage.page.loadChart();
        QCOMPARE(stage.page.comboBoxPie->count(), 0);
        QCOMPARE(stage.page.pieDataList, (LabelledValues{{"kept", 1}}));
    }

    void trafficPieIsBuiltBeforeItsListIsFilled()
    {
        ChartStage stage(7, ChartStage::OnScreen);
        fill(stage.page);
        stage.page.snapDetailMap = {{4, {major(30, 11)}}};
        stage.page.loadChart();
        QCOMPARE(series<QPieSeries>(stage.page.pieChartView->chart())->slices().constFirst()->value(), 25.0);
        QVERIFY(stage.page.labelPiecount->text().contains("<font> 11</font>"));
        stage.page.loadChart();
        QCOMPARE(series<QPieSeries>(stage.page.pieChartView->chart())->slices().constFirst()->value(), 11.0);
    }

    void modesOfOtherKinds_data() { kinds({1, 2, 3, 4, 6, 10}); }
    void modesOfOtherKinds()
    {
        ChartStage stage(kindOfRow());
        fill(stage.page);
        stage.page.snapDetailMap = {{4, {major(30, 11)}}};
        stage.page.loadChart();
        QCOMPARE(stage.page.comboBoxPie->count(), 0);
        QVERIFY(stage.page.comboBoxPie->isHidden());
        stage.page.comboBoxPie->addItem("left over", 77);
        stage.page.loadChart();
        QCOMPARE(stage.page.comboBoxPie->count(), 1);
        QVERIFY(stage.page.pieDataList.contains({"fire", 25}));
    }

    void fillingTheModesSwitchesNothing_data() { kinds({5, 7, 8, 9}); }
    void fillingTheModesSwitchesNothing()
    {
        ChartStage stage(kindOfRow(), ChartStage::OnScreen);
        fill(stage.page);
        stage.page.snapDetailMap = {{4, {major(30, 11), major(5, 12)}}};
        stage.page.loadChart();
        QSignalSpy activated(stage.page.comboBoxPie, SIGNAL(activated(int)));
        stage.page.comboBoxPie->setCurrentIndex(1);
        stage.page.loadChart();
        QCOMPARE(activated.size(), 0);
        QVERIFY(activated.isValid());
    }

    void lineAndPieReloadKeepsTheBars_data() { allKinds(); }
    void lineAndPieReloadKeepsTheBars()
    {
        QFETCH(int, type);
        ChartStage stage(type);
        ProbePage &page = stage.page;
        page.loadChart();
        fill(page);
        page.m_strSelectedBar = "South";
        const QList<QPointer<QChart>> old = charts(page);

        LogCapture log;
        page.reloadLineAndPieChart();
        QCOMPARE(log.lines(), detailLines(type));
        QCOMPARE(page.barChartView->chart(), old.at(0).data());
        for (int i = 1; i < old.size(); ++i) {
            QVERIFY(old.at(i));
            QVERIFY(charts(page).at(i) != old.at(i));
        }
        QVERIFY(stage.titleText("labelLineChartTitle").contains("South"));
        QCOMPARE(page.lineChartView->chart()->series().size(), isDual(type) ? 2 : 1);
        runDeferredDeletes();
        QVERIFY(old.at(0));
        for (int i = 1; i < old.size(); ++i)
            QVERIFY(old.at(i).isNull());
    }

    void pieReloadTouchesOnlyTheVisiblePie()
    {
        FilledStage stage(1);
        ProbePage &page = stage.page;
        const QList<QPointer<QChart>> old = charts(page);

        page.pieDataList = {{"water", 8}};
        LogCapture log;
        page.reloadPieChart();
        QCOMPARE(log.lines(), QStringList{"createPieChart"});
        QCOMPARE(page.barChartView->chart(), old.at(0).data());
        QCOMPARE(page.lineChartView->chart(), old.at(1).data());
        QCOMPARE(series<QPieSeries>(page.pieChartView->chart())->count(), 1);
        runDeferredDeletes();
        QVERIFY(old.at(2).isNull());

        page.part<QWidget>("widgetPie")->hide();
        const QPointer<QChart> kept = page.pieChartView->chart();
        page.pieDataList = {{"a", 1}, {"b", 2}};
        log.clear();
        page.reloadPieChart();
        QCOMPARE(log.lines(), QStringList());
        runDeferredDeletes();
        QVERIFY(kept);
        QCOMPARE(page.pieChartView->chart(), kept.data());
        QCOMPARE(series<QPieSeries>(kept)->count(), 1);
        QVERIFY(page.labelPiecount->text().contains("<font> 3</font>"));
    }

    void oldChartIsGivenUpBeforeTheNewOneIsBuilt_data() { allKinds(); }
    // A chart that is on its way out gets its deletion as soon as that is asked for; it is kept alive here,
    // as it is still on show.
    void oldChartIsGivenUpBeforeTheNewOneIsBuilt()
    {
        QFETCH(int, type);
        ChartStage stage(type);
        fill(stage.page);
        stage.page.loadChart();
        const QList<QPointer<QChart>> old = charts(stage.page);
        DeletionWatch watch;
        for (QChart *chart : old)
            chart->installEventFilter(&watch);
        QStringList givenUp;
        LogCapture log;
        log.whenWritten = [&](const QString &line) {
            const QStringList builders = {"createBarChart", "createLineChart", "createPieChart"};
            const auto view = builders.indexOf(line);
            if (view < 0)
                return;
            QCoreApplication::sendPostedEvents(old.at(view), QEvent::DeferredDelete);
            if (watch.asked.contains(old.at(view)))
                givenUp.append(line);
        };
        stage.page.loadChart();
        QStringList built = {"createBarChart", "createLineChart"};
        if (hasPie(type))
            built.append("createPieChart");
        QCOMPARE(givenUp, built);
        qDeleteAll(old);
    }

    void lookIsSetBeforePaletteAndOverlays()
    {
        FilledStage stage(1);
        ProbePage &page = stage.page;
        spoilLook(page);
        PaletteWatch watch;
        bool hintsThen = false;
        QString totalThen;
        watch.whenChanged = [&] {
            hintsThen = page.pieChartView->renderHints().testFlag(QPainter::Antialiasing)
                && page.pieChartView->chart()->animationOptions() == QChart::SeriesAnimations;
            totalThen = page.labelPiecount->text();
        };
        page.installEventFilter(&watch);
        page.part<QWidget>("widgetPie")->hide();
        page.reloadPieChart();
        QVERIFY(hintsThen);
        QCOMPARE(totalThen, u"before"_s);
        QVERIFY(page.labelPiecount->text() != u"before"_s);
    }

    void everyRebuildEndsInTheSameLook_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("rebuild");

        for (const int type : {1, 3, 5, 9}) {
            QTest::addRow("a load of service type %d", type) << type << 0;
            QTest::addRow("a reload of line and pie of service type %d", type) << type << 1;
        }
        QTest::newRow("a reload of the pie") << 1 << 2;
        QTest::newRow("a reload of the hidden pie") << 1 << 3;
    }

    void everyRebuildEndsInTheSameLook()
    {
        QFETCH(int, rebuild);
        FilledStage stage(kindOfRow());
        ProbePage &page = stage.page;
        verifyLook(page);
        spoilLook(page);
        if (rebuild == 0) {
            page.loadChart();
        } else if (rebuild == 1) {
            page.reloadLineAndPieChart();
        } else {
            page.part<QWidget>("widgetPie")->setVisible(rebuild == 2);
            page.reloadPieChart();
        }
        verifyLook(page);
        if (page.labelPiecount)
            QVERIFY(page.labelPiecount->text() != u"before"_s);
    }

    void renderHintIsSwitched()
    {
        ChartStage stage(1);
        fill(stage.page);
        stage.page.setChartRenderHint(true);
        stage.page.loadChart();
        spoilLook(stage.page);
        stage.page.setChartRenderHint(true);
        for (const ZrChartView *view : std::as_const(stage.page.m_chartViewList))
            QVERIFY(view->renderHints().testFlag(QPainter::Antialiasing));
        spoilLook(stage.page);
        for (ZrChartView *view : std::as_const(stage.page.m_chartViewList))
            view->setRenderHint(QPainter::Antialiasing, true);
        stage.page.setChartRenderHint(false);
        for (const ZrChartView *view : std::as_const(stage.page.m_chartViewList)) {
            QVERIFY(!view->renderHints().testFlag(QPainter::Antialiasing));
            QCOMPARE(view->chart()->animationOptions(), QChart::SeriesAnimations);
            QCOMPARE(view->chart()->backgroundBrush(), QBrush(Qt::transparent));
        }
    }

    void paletteOfTheTopLevelWindowIsSet()
    {
        FakeKrxClient client;
        QWidget window;
        QPalette palette = window.palette();
        palette.setColor(QPalette::Disabled, QPalette::Button, QColor(1, 2, 3));
        palette.setBrush(QPalette::Window, QBrush(Qt::red, Qt::Dense4Pattern));
        window.setPalette(palette);
        auto *page = new ProbePage(1, &window);
        page->initForm();
        page->setChartPalette();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            QCOMPARE(window.palette().brush(group, QPalette::Window),
                QBrush(QColor(0x19, 0x1A, 0x1E), Qt::SolidPattern));
            QCOMPARE(window.palette().brush(group, QPalette::WindowText),
                QBrush(QColor(0xD6, 0xD6, 0xD6), Qt::SolidPattern));
        }
        QCOMPARE(window.palette().color(QPalette::Disabled, QPalette::Button), QColor(1, 2, 3));
    }

    void hiddenChartsComeBackWithTheNextLoad()
    {
        ChartStage stage(2, ChartStage::OnScreen);
        ProbePage &page = stage.page;
        page.m_nTotalPage = 3;
        fill(page);
        stage.load();
        page.clearChartData();
        for (const ZrChartView *view : std::as_const(page.m_chartViewList)) {
            QVERIFY(view->isVisible());
            QVERIFY(!view->chart()->isVisible());
        }
        QVERIFY(page.pushButtonNext->isHidden());
        QCOMPARE(page.m_chartViewList.size(), 3);

        fill(page);
        page.loadChart();
        QCOMPARE(page.m_chartViewList.size(), 3);
        for (const ZrChartView *view : std::as_const(page.m_chartViewList))
            QVERIFY(view->chart()->isVisible());
        QVERIFY(page.pushButtonNext->isVisible());
        QVERIFY(page.labelPiecount->isVisible());
    }

    void pressingHiddenChartsIsHarmless_data() { kinds({1, 2, 3, 9}); }
    void pressingHiddenChartsIsHarmless()
    {
        FilledStage stage(kindOfRow());
        stage.page.clearChartData();
        QCoreApplication::processEvents();
        const QList<QPointer<QChart>> before = charts(stage.page);
        handleEverywhere(stage.page);
        for (const QPointer<QChart> &chart : before) {
            QVERIFY(chart);
            QVERIFY(!chart->isVisible());
        }
        QVERIFY(!stage.page.labelCallout || stage.page.labelCallout->isHidden());
    }

    void pressingShownChartsIsHarmless()
    {
        FilledStage stage(1);
        waitForAnimation();
        const QList<QPointer<QChart>> before = charts(stage.page);
        handleEverywhere(stage.page);
        QCOMPARE(charts(stage.page), before);
        for (const QPointer<QChart> &chart : before) {
            QVERIFY(chart->isVisible());
            QVERIFY(!chart->isZoomed());
        }
    }

    void largestValue_data()
    {
        table<QList<int>, int>({"list", "expected"},
            {{"of nothing", {}, 0}, {"of one", {7}, 7}, {"in the middle", {3, 90, 12}, 90},
                {"at the start", {90, 3, 12}, 90}, {"all below zero", {-5, -3, -9}, -3},
                {"both ends of int", {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()},
                    std::numeric_limits<int>::max()},
                {"the smallest int", {std::numeric_limits<int>::min()}, std::numeric_limits<int>::min()}});
    }

    void largestValue()
    {
        QFETCH(QList<int>, list);
        QFETCH(int, expected);
        ChartStage stage(1);
        const QList<int> before = list;
        LogCapture log;
        QCOMPARE(stage.page.getMaxValue(list), expected);
        QCOMPARE(list, before);
        QCOMPARE(log.lines(), (QStringList{u"BasicChart::getMaxValue  %1"_s.arg(expected)}));
    }

    void largestValueLeavesTheMutexFree()
    {
        ChartStage stage(1);
        stage.page.getMaxValue({1, 2});
        QVERIFY(stage.page.m_mutex.tryLock());
        stage.page.m_mutex.unlock();
        stage.page.getMaxValue({});
        QVERIFY(stage.page.m_mutex.tryLock());
        stage.page.m_mutex.unlock();
    }

    void kindMayChangeAfterTheFirstLoad_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("after");

        for (int before = 1; before <= 9; ++before) {
            for (const int after : {1, 3, 4, 5, 6, 7, 9}) {
                if (before != after)
                    QTest::addRow("from %d to %d", before, after) << before << after;
            }
        }
    }

    void kindMayChangeAfterTheFirstLoad()
    {
        QFETCH(int, before);
        QFETCH(int, after);
        FilledStage stage(before);
        ProbePage &page = stage.page;
        const QList<ZrChartView *> views = page.m_chartViewList;

        page.setServiceType(after);
        fill(page);
        page.numberDistribution = {{2, 10}};
        page.loadChart();
        page.slot_switchPieType(0);
        page.slot_switchPieType(1);
        page.slot_switchPieChart(nullptr);
        page.reloadLineAndPieChart();
        page.reloadPieChart();
        QCOMPARE(page.m_chartViewList, views);
        if (isDual(after))
            QVERIFY(series<QBarSeries>(page.barChartView->chart()));
        else if (after != 5)
            QVERIFY(series<QStackedBarSeries>(page.barChartView->chart()));
        if (!hasPie(before))
            QVERIFY(page.comboBoxPie->isHidden());
        page.clearChartData();
        runDeferredDeletes();
        QVERIFY(!page.grab().isNull());
    }

    void modeSlotsBeforeTheFirstLoadAreHarmless_data() { allKinds(); }
    void modeSlotsBeforeTheFirstLoadAreHarmless()
    {
        QFETCH(int, type);
        ChartStage stage(type, ChartStage::OnScreen);
        fill(stage.page);
        stage.page.slot_switchPieType(0);
        stage.page.slot_switchPieType(-1);
        stage.page.slot_switchPieChart(nullptr);
        stage.page.reloadPieChart();
        stage.page.setChartRenderHint(true);
        stage.page.clearChartData();
        stage.load();
        QCOMPARE(stage.page.m_chartViewList.size(), hasPie(type) ? 3 : 2);
        QVERIFY(stage.page.barChartView->isVisible());
    }

    void modeBoxWithoutAPieGoesWithThePage_data() { kinds({3, 4}); }
    void modeBoxWithoutAPieGoesWithThePage()
    {
        QFETCH(int, type);
        auto stage = std::make_unique<ChartStage>(type, ChartStage::OnScreen);
        stage->load();
        const QPointer<QComboBox> box = stage->page.comboBoxPie;
        QVERIFY(box);
        QVERIFY(!box->parent());
        stage.reset();
        QVERIFY(box.isNull());
    }

    void unknownKindsLoadAndReload_data() { kinds({0, 10, -7}); }
    void unknownKindsLoadAndReload()
    {
        FilledStage stage(kindOfRow());
        stage.page.loadChart();
        QCOMPARE(stage.page.m_chartViewList.size(), 3);
        QVERIFY(valueAxis(stage.page.barChartView->chart())->max() > 30);
        QVERIFY(valueAxis(stage.page.lineChartView->chart())->max() > 20);
        QVERIFY(!stage.page.grab().isNull());
    }

    void alarmsOfOrganisationsFromShowToCharts()
    {
        FakeKrxClient client;
        client.setTree("1 Company\n  2 Plant North\n  3 Plant South\n");
        client.addAlarmType(5, "Fire");
        ScriptedStatisticsManager manager;
        answerRows(
            manager.alarmStatisticsOfOrgas, {alarmsOfOrganisation(2, 7), alarmsOfOrganisation(3, 130)});
        answerRows(manager.alarmStatisticsOfOrga,
            {{"2024-05-03 01", 0, "", 0, 5, 9}, {"2024-05-03 00", 0, "", 0, 5, 4}});

        ProbePage page(1);
        LogCapture log;
        showPage(page);
        QCOMPARE(log.count("BasicChart::loadChart  frist loadcharts"), 1);
        QCOMPARE(page.m_chartViewList.size(), 3);
        QCOMPARE(categories(page.barChartView->chart()), (QStringList{"Plant South", "Plant North"}));
        QCOMPARE(valueAxis(page.barChartView->chart())->max(), 200.0);
        QCOMPARE(categories(page.lineChartView->chart()), (QStringList{"00", "01"}));
        const auto *line = series<QLineSeries>(page.lineChartView->chart());
        QCOMPARE(line->points(), (QList<QPointF>{{0, 4}, {1, 9}}));
        QCOMPARE(line->name(), u"Plant South"_s);
        QCOMPARE(series<QPieSeries>(page.pieChartView->chart())->slices().constFirst()->label(),
            u"Fire | 100.0% 13"_s);
        QVERIFY(page.barChartView->isVisible());
        QTRY_VERIFY(page.barChartView->height() > 100);
        QVERIFY(page.labelPiecount->isVisible());
        QVERIFY(page.tips.isEmpty());
    }

    void onlineOfDevicesFromShowToCharts()
    {
        FakeKrxClient client;
        client.setTree("1 Company\n");
        client.addChannel("c1", "Gate", {}, {}, 1);
        client.addDevice("d1", "Recorder", {}, 2);
        ScriptedStatisticsManager manager;
        answerPage(manager.onlineStatisticsOfDevices, {{"", 0, "c1", 40}, {"", 0, "d1", 90}}, 1, 2);
        answerRows(manager.onlineStatisticsOfDevice, {{"2024-05-03 00", 0, "", 55}});

        ProbePage page(4);
        showPage(page);
        QCOMPARE(page.m_chartViewList.size(), 2);
        QCOMPARE(categories(page.barChartView->chart()), (QStringList{"Recorder", "Gate"}));
        const auto *barSeries = series<QStackedBarSeries>(page.barChartView->chart());
        QCOMPARE(values(barSeries->barSets().at(0)), (QList<double>{0, 40}));
        QCOMPARE(values(barSeries->barSets().at(1)), (QList<double>{90, 0}));
        QVERIFY(page.pushButtonNext->isVisible());
        QVERIFY(page.pushButtonPrevious->isHidden());
        QVERIFY(!page.part<QWidget>("widgetPie")->isVisible());
        QVERIFY(page.comboBoxPie->isHidden());
    }

    void trafficOfOrganisationsFromShowToCharts()
    {
        FakeKrxClient client;
        client.setTree("1 Company\n  2 Plant North\n  3 Plant South\n");
        ScriptedStatisticsManager manager;
        TalvixGetSnapDetailSamplesOfOrgasResponseMessage orgas;
        orgas.snapOrgaList = {{2, "", {{4, 70, 0}, {2, 5, 0}}}, {3, "", {{4, 20, 0}, {2, 8, 0}}}};
        manager.trafficsStatisticsOfOrgas.answers(orgas);
        TalvixGetSnapDetailSamplesOfOrgaResponseMessage orga;
        orga.snapOrgaList = {{0, "2024-05-03 00", {{4, 6, 0}, {2, 1, 0}}}};
        manager.trafficsStatisticsOfOrga.answers(orga);
        TalvixGetSnapDetailSamplesResponseMessage detail;
        detail.snapDetailList = {major(30, 11), major(2, 12)};
        manager.snapDetailSamples.answers(detail);

        ProbePage page(7);
        showPage(page);
        QCOMPARE(page.m_chartViewList.size(), 3);
        QCOMPARE(categories(page.barChartView->chart()), (QStringList{"Plant North", "Plant South"}));
        const auto *barSeries = series<QBarSeries>(page.barChartView->chart());
        QCOMPARE(values(barSeries->barSets().at(0)), (QList<double>{70, 20}));
        QCOMPARE(page.lineChartView->chart()->series().size(), 2);
        QCOMPARE(items(page.comboBoxPie), majorItems({30, 2}));
        QVERIFY(page.comboBoxPie->isVisible());
        QCOMPARE(series<QPieSeries>(page.pieChartView->chart())->slices().constFirst()->label(),
            u"TK_Other | 100.0% 11"_s);
    }

    void deviceGroupsFromShowToCharts()
    {
        FakeKrxClient client;
        client.setTree("1 Company\n");
        ScriptedStatisticsManager manager;
        TalvixGetTempAlarmHandleStatisticsOfOrgaResponseMessage handled;
        handled.handleList = {{2, 6, "2024-05-03 00"}, {0, 2, "2024-05-03 00"}, {2, 1, "2024-05-03 01"}};
        manager.tempAlarmHandleStatistics.answers(handled);
        TalvixGetTempStatisticsDistributionOfOrgasResponseMessage distribution;
        distribution.byTemperatureList = {{0, 30}, {1, 10}};
        distribution.byMaskList = {{1, 5}};
        manager.temperatureOfDevice.answers(distribution);

        ProbePage page(9);
        showPage(page);
        QCOMPARE(page.m_chartViewList.size(), 3);
        QCOMPARE(categories(page.barChartView->chart()), QStringList{"Company"});
        const auto *barSeries = series<QBarSeries>(page.barChartView->chart());
        QCOMPARE(values(barSeries->barSets().at(0)), QList<double>{7});
        QCOMPARE(values(barSeries->barSets().at(1)), QList<double>{2});
        QCOMPARE(
            series<QLineSeries>(page.lineChartView->chart(), 0)->points(), (QList<QPointF>{{0, 6}, {1, 1}}));
        QCOMPARE(
            series<QLineSeries>(page.lineChartView->chart(), 1)->points(), (QList<QPointF>{{0, 2}, {1, 0}}));
        QCOMPARE(series<QLineSeries>(page.lineChartView->chart(), 0)->name(),
            ChartProbe::text("TK_AlarmAccepted"));
        QCOMPARE(series<QPieSeries>(page.pieChartView->chart())->slices().constFirst()->label(),
            ChartProbe::text("TK_NormalTemperature") + u" |  75.0% 30"_s);
    }

    void failedQueryKeepsTheViews()
    {
        FakeKrxClient client;
        client.setTree("1 Company\n  2 Plant North\n");
        ScriptedStatisticsManager manager;
        answerRows(manager.alarmStatisticsOfOrgas, {alarmsOfOrganisation(2, 7)});
        ProbePage page(1);
        showPage(page);
        const QList<ZrChartView *> views = page.m_chartViewList;
        QCOMPARE(views.size(), 3);

        manager.failWith("no line");
        page.slotSearch();
        QCOMPARE(page.m_chartViewList, views);
        for (const ZrChartView *view : views)
            QVERIFY(!view->chart()->isVisible());

        manager.failWith(QString());
        page.slotSearch();
        QCOMPARE(page.m_chartViewList, views);
        for (const ZrChartView *view : views)
            QVERIFY(view->chart()->isVisible());
        QCOMPARE(categories(page.barChartView->chart()), QStringList{"Plant North"});
    }

private:
    static bool hasPie(int type) { return type != 3 && type != 4; }
    static bool isPaged(int type) { return type == 2 || type == 4 || type == 6; }
    static bool hasModes(int type) { return type == 5 || isDual(type); }

    static QList<QPointer<QChart>> charts(const ProbePage &page)
    {
        QList<QPointer<QChart>> list;
        for (const ZrChartView *view : page.m_chartViewList)
            list.append(view->chart());
        return list;
    }

    /// What a builder and its title write for a filled page.
    static QStringList linesOf(int type, int maximum, const QString &builder)
    {
        QStringList lines;
        if (type < 1 || type > 9)
            lines += "ServiceType unkonw";
        return lines + QStringList{u"BasicChart::getMaxValue  %1"_s.arg(maximum), builder};
    }
    static QStringList buildLines(int type)
    {
        return linesOf(type, isDual(type) ? 41 : 30, "createBarChart") + detailLines(type);
    }
    static QStringList detailLines(int type)
    {
        return linesOf(type, isDual(type) ? 60 : 20, "createLineChart") + pieLines(type);
    }
    static QStringList pieLines(int type)
    {
        if (!hasPie(type))
            return {};
        if (type == 7 || type == 8)
            return {" ServiceType unknown", "createPieChart"};
        if (type < 1 || type > 9)
            return {"ServiceType unkonw", "createPieChart"};
        return {"createPieChart"};
    }
    static QList<std::pair<QString, int>> items(const QComboBox *box)
    {
        QList<std::pair<QString, int>> list;
        for (int i = 0; i < box->count(); ++i)
            list.append({box->itemText(i), box->itemData(i).toInt()});
        return list;
    }
    static QList<std::pair<QString, int>> majorItems(const QList<int> &types)
    {
        QList<std::pair<QString, int>> list;
        for (const int type : types)
            list.append({AppTranslationHelper::instance()->getSnapDetailMajorTypeName(type), type});
        return list;
    }
    static void verifyLook(const ProbePage &page)
    {
        for (const ZrChartView *view : page.m_chartViewList) {
            QVERIFY(view->renderHints().testFlag(QPainter::Antialiasing));
            QCOMPARE(view->chart()->animationOptions(), QChart::SeriesAnimations);
            QCOMPARE(view->chart()->backgroundBrush(), QBrush(Qt::transparent, Qt::SolidPattern));
        }
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const QPalette palette = page.window()->palette();
            QCOMPARE(palette.brush(group, QPalette::Window), QBrush(QColor(0x19, 0x1A, 0x1E)));
            QCOMPARE(palette.brush(group, QPalette::WindowText), QBrush(QColor(0xD6, 0xD6, 0xD6)));
        }
    }
    static void spoilLook(ProbePage &page)
    {
        for (ZrChartView *view : std::as_const(page.m_chartViewList)) {
            view->setRenderHint(QPainter::Antialiasing, false);
            view->chart()->setAnimationOptions(QChart::NoAnimation);
            view->chart()->setBackgroundBrush(Qt::red);
        }
        QPalette palette = page.window()->palette();
        palette.setColor(QPalette::Window, Qt::red);
        palette.setColor(QPalette::WindowText, Qt::red);
        page.window()->setPalette(palette);
        if (page.labelPiecount)
            page.labelPiecount->setText("before");
    }
};

TALVIX_TEST_MAIN(ChartAssemblyTest)

#include "tst_chart_assembly.moc"
