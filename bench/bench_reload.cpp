#include "ReloadStage.h"

#include <tests/support/TestMain.h>

#include <benchmark/benchmark.h>

#include <TalvixWidgets/ZrChartView.h>

#include <QtCore/QThread>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <functional>
#include <memory>
#include <vector>

#include <malloc.h>

namespace {

using Seconds = std::chrono::duration<double>;

double timed(const std::function<void()> &action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return Seconds(std::chrono::steady_clock::now() - start).count();
}

// Page, floor, floor, page: what drifts over time meets both alike. The time is the page's.
void alternate(benchmark::State &state, const std::function<void()> &page, const std::function<void()> &floor)
{
    double pageTime = 0;
    double floorTime = 0;
    for (auto _ : state) {
        const double first = timed(page);
        floorTime += timed(floor) + timed(floor);
        const double second = timed(page);
        pageTime += first + second;
        state.SetIterationTime((first + second) / 2);
    }
    state.counters["ratio"] = pageTime / floorTime;
}

std::unique_ptr<ReloadStage> stageOf(benchmark::State &state)
{
    auto stage =
        std::make_unique<ReloadStage>(static_cast<Kind>(state.range(0)), static_cast<int>(state.range(1)));
    if (!stage->samePictures())
        state.SkipWithError("page and floor show different pictures");
    return stage;
}

void newSearch(benchmark::State &state)
{
    const auto stage = stageOf(state);
    alternate(
        state, [&] { stage->reloadPage(); }, [&] { stage->reloadFloor(); });
}

void drillDown(benchmark::State &state)
{
    const auto stage = stageOf(state);
    alternate(
        state, [&] { stage->drillDownPage(); }, [&] { stage->drillDownFloor(); });
}

// The page turns its bars round and opens the first; the floor draws what came of it.
void sortPress(benchmark::State &state)
{
    const auto stage = stageOf(state);
    bool descending = true;
    const auto press = [&] {
        descending = !descending;
        if (descending)
            stage->page().on_pushButtonDesc_clicked();
        else
            stage->page().on_pushButtonAsc_clicked();
        settle();
    };
    alternate(state, press, [&] { stage->reloadFloor(); });
}

// A tab that comes back asks anew and sorts its bars, so it is compared with one reload.
void tabChange(benchmark::State &state)
{
    const auto stage = stageOf(state);
    const auto comeBack = [&] {
        stage->page().hide();
        stage->page().show();
        settle();
    };
    alternate(state, comeBack, [&] {
        stage->floor().hide();
        stage->floor().QWidget::show();
        stage->reloadFloor();
    });
}

// A page that was never open, against a bare form with the floor's charts.
void firstLoad(benchmark::State &state)
{
    const auto stage = stageOf(state);
    const auto kind = static_cast<Kind>(state.range(0));
    alternate(
        state, [&] { stage->openedPage(kind); }, [&] { stage->openedFloor(); });
}

// The answer names the page that is shown, so that there is always a next one.
void pageTurn(benchmark::State &state)
{
    const auto stage = stageOf(state);
    alternate(
        state, [&] { stage->turnPage(); }, [&] { stage->reloadFloor(); });
}

/// Counts the paints of a view.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QGraphicsView *view) { view->viewport()->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        m_count += event->type() == QEvent::Paint;
        return false;
    }
    int count() const { return m_count; }

private:
    int m_count = 0;
};

template <typename Views>
int paintsOf(const Views &views, const std::function<void()> &action)
{
    std::vector<std::unique_ptr<PaintCount>> counts;
    for (QGraphicsView *view : views)
        counts.push_back(std::make_unique<PaintCount>(view));
    action();
    int most = 0;
    for (const auto &count : counts)
        most = std::max(most, count->count());
    return most;
}

// How often a view paints for one reload, while the clock of animations runs.
void paints(benchmark::State &state)
{
    const auto stage = stageOf(state);
    stage->animations().uninstall();
    const auto watched = [](const std::function<void()> &reload) {
        reload();
        QTest::qWait(200);
    };
    for (auto _ : state) {
        state.counters["page"] =
            paintsOf(stage->page().m_chartViewList, [&] { watched([&] { stage->reloadPage(); }); });
        state.counters["floor"] =
            paintsOf(stage->floor().views(), [&] { watched([&] { stage->reloadFloor(); }); });
    }
    stage->animations().install();
}

// What a page at rest costs: nothing is painted and no event comes, with the pointer on a bar or not.
void idlePage(benchmark::State &state)
{
    const auto stage = stageOf(state);
    const bool hovered = state.range(2) != 0;
    QChartView *view = stage->page().barChartView;
    if (hovered) {
        QTest::mouseMove(view->viewport(), view->viewport()->rect().center());
        QTest::qWait(1000);
        settle();
    }
    const PaintCount paints(view);
    for (auto _ : state) {
        const std::clock_t start = std::clock();
        QTest::qWait(200);
        state.SetIterationTime(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    state.counters["paints"] = paints.count();
    state.SetLabel("processor time of 200 ms");
}

// Processor time of a reload until nothing happens any more, while the clock of animations runs, as a share
// of the same with animations that end at once.
void quietAgain(benchmark::State &state)
{
    const auto stage = stageOf(state);
    const auto processorTime = [&stage] {
        const std::clock_t start = std::clock();
        stage->page().slotSearch();
        for (int round = 0; round < 30; ++round) {
            settle();
            QThread::msleep(50);
        }
        return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    };
    double running = 0;
    double ended = 0;
    for (auto _ : state) {
        ended += processorTime();
        stage->animations().uninstall();
        const double time = processorTime();
        stage->animations().install();
        running += time;
        state.SetIterationTime(time);
    }
    state.counters["ratio"] = running / ended;
}

// What the charts of a page hold of the heap, against those of the floor; both in a form of their own.
void memory(benchmark::State &state)
{
    const auto stage = stageOf(state);
    const auto kind = static_cast<Kind>(state.range(0));
    const auto held = [](const std::function<std::unique_ptr<QWidget>()> &open) {
        open();
        settle();
        const std::size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
        const std::unique_ptr<QWidget> opened = open();
        settle();
        return static_cast<double>(mallinfo2().uordblks + mallinfo2().hblkhd - before);
    };
    for (auto _ : state) {
        const double page = held([&] { return stage->openedPage(kind); });
        const double floor = held([&] { return stage->openedFloor(); });
        state.counters["page"] = page;
        state.counters["floor"] = floor;
        state.counters["ratio"] = page / floor;
    }
}

void rows(benchmark::internal::Benchmark *measure)
{
    for (const int bars : {1, 10, 24, 100})
        measure->Args({TrafficOfOrganisations, bars})->Args({AlarmsOfOrganisations, bars});
    for (const int bars : {10, 100, 1000, 5000})
        measure->Args({TrafficOfDevices, bars});
    measure->ArgNames({"kind", "bars"})->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(newSearch)->Apply(rows);
BENCHMARK(firstLoad)->Apply(rows);
BENCHMARK(drillDown)->Apply(rows);
BENCHMARK(pageTurn)
    ->ArgsProduct({{AlarmsOfDevices}, {1, 10, 24, 100}})
    ->ArgNames({"kind", "bars"})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(sortPress)->Apply(rows);
BENCHMARK(tabChange)->Apply(rows);
BENCHMARK(paints)->Args({TrafficOfOrganisations, 24})->Iterations(1);
BENCHMARK(quietAgain)
    ->Args({TrafficOfOrganisations, 24})
    ->Args({TrafficOfOrganisations, 100})
    ->Args({TrafficOfDevices, 1000})
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(memory)
    ->Args({TrafficOfOrganisations, 24})
    ->Args({AlarmsOfOrganisations, 24})
    ->Args({TrafficOfDevices, 5000})
    ->Iterations(1);
BENCHMARK(idlePage)
    ->Args({TrafficOfOrganisations, 24, 0})
    ->Args({TrafficOfOrganisations, 24, 1})
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);

} // namespace
