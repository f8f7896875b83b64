#include "PreparedRows.h"

#include <page/LabelledValues.h>

#include <tests/support/ProbePage.h>
#include <tests/support/TestMain.h>

#include <benchmark/benchmark.h>

#include <QtCore/QHash>

#include <malloc.h>

namespace {

QStringList labelsOf(int count)
{
    QStringList labels;
    for (int i = 0; i < count; ++i)
        labels.append(QStringLiteral("2024-05-03 label %1").arg(i));
    return labels;
}

// Rows with labels, folded into a list: what every answer over time goes through.
void foldRows(benchmark::State &state)
{
    const qint64 rows = state.range(0);
    const QStringList labels = labelsOf(static_cast<int>(state.range(1)));
    for (auto _ : state) {
        LabelledValues list;
        ListIndex<int> index;
        for (qint64 row = 0; row < rows; ++row)
            index.fold(list, labels.at(row % labels.size()), 1);
        benchmark::DoNotOptimize(list.constData());
    }
    state.SetItemsProcessed(state.iterations() * rows);
}

// The floor: the same rows into a bare hash.
void hashRows(benchmark::State &state)
{
    const qint64 rows = state.range(0);
    const QStringList labels = labelsOf(static_cast<int>(state.range(1)));
    for (auto _ : state) {
        QHash<QString, int> sums;
        for (qint64 row = 0; row < rows; ++row)
            sums[labels.at(row % labels.size())] += 1;
        benchmark::DoNotOptimize(sums.size());
    }
    state.SetItemsProcessed(state.iterations() * rows);
}

// Alarm rows of one bar, through the page's own operation: hours and alarm types each as many as asked for.
class Rows
{
public:
    Rows(qint64 rows, int labels, int types)
    {
        for (int type = 0; type < types; ++type)
            m_client.addAlarmType(type, "Alarm " + std::to_string(type));
        m_records.resize(static_cast<std::size_t>(rows));
        for (std::size_t i = 0; i < m_records.size(); ++i) {
            m_records[i].timeLabel = "period " + std::to_string(i % static_cast<std::size_t>(labels));
            m_records[i].alarmType = static_cast<int>(i % static_cast<std::size_t>(types));
            m_records[i].count = 1;
        }
    }

    void fill() { m_page.setPieAndLineList(m_records); }
    ProbePage &page() { return m_page; }

private:
    FakeKrxClient m_client;
    ScriptedStatisticsManager m_manager;
    ProbePage m_page;
    std::vector<AlarmStatisticsRecord> m_records;
};

void fillLineAndPie(benchmark::State &state)
{
    Rows rows(state.range(0), static_cast<int>(state.range(1)), static_cast<int>(state.range(2)));
    for (auto _ : state)
        rows.fill();
    state.SetItemsProcessed(state.iterations() * state.range(0));
    rows.page().clearPieAndLineChartData();
    const auto before = mallinfo2().uordblks;
    rows.fill();
    state.counters["bytes/label"] = static_cast<double>(mallinfo2().uordblks - before)
        / static_cast<double>(state.range(1) + state.range(2));
    state.counters["bytes/row"] =
        static_cast<double>(mallinfo2().uordblks - before) / static_cast<double>(state.range(0));
}

// Bars of traffic, through the page's own operation.
void fillChannels(benchmark::State &state)
{
    const int channels = static_cast<int>(state.range(0));
    FakeKrxClient client;
    ScriptedStatisticsManager manager;
    fillWorld(client, TrafficOfDevices, channels);
    answerRows(manager, TrafficOfDevices, channels);
    ProbePage page(TrafficOfDevices);
    for (auto _ : state)
        page.getTrafficsStatisticsOfDevice();
    state.SetItemsProcessed(state.iterations() * channels);
}

void sortBars(benchmark::State &state)
{
    LabelledValues bars;
    for (int i = 0; i < state.range(0); ++i)
        bars.append({QStringLiteral("Camera %1").arg(i), i * 7919 % 10007});
    for (auto _ : state)
        benchmark::DoNotOptimize(sortBarList(bars));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(foldRows)->Args({1000, 24})->Args({10000, 24})->Args({100000, 24})->Args({1000000, 24});
BENCHMARK(hashRows)->Args({1000, 24})->Args({10000, 24})->Args({100000, 24})->Args({1000000, 24});
BENCHMARK(foldRows)->Args({1000000, 100})->Args({1000000, 1000})->Args({1000000, 10000});
BENCHMARK(hashRows)->Args({1000000, 100})->Args({1000000, 1000})->Args({1000000, 10000});
BENCHMARK(fillLineAndPie)
    ->Args({1000, 24, 6})
    ->Args({10000, 24, 6})
    ->Args({100000, 24, 6})
    ->Args({1000000, 24, 6})
    ->Args({100000, 240, 6})
    ->Args({100000, 2400, 6})
    ->Args({100000, 24, 60})
    ->Args({100000, 24, 600});
BENCHMARK(fillChannels)->Arg(100)->Arg(1000)->Arg(10000);
BENCHMARK(sortBars)->Arg(1000)->Arg(10000)->Arg(100000);

} // namespace
