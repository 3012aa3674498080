#include "bench/BenchDeck.h"
#include "plugin/KeyGauges.h"
#include "plugin/KeyPass.h"
#include "render/Gauge.h"
#include "render/KeyPicture.h"
#include "render/normalAction.h"
#include "tests/support/SampleGauges.h"

#include <benchmark/benchmark.h>

#include <array>
#include <memory>
#include <vector>

/// What the picture of a gauge costs beside that of a text key, from content to data URL; times
/// and "bytes", the length of the data URL, are those of one key.
namespace {

std::vector<std::unique_ptr<normalAction>> textKeys()
{
    std::vector<std::unique_ptr<normalAction>> keys;
    for (const BenchKey &spec : benchDeck(largeDeck)) {
        keys.push_back(std::make_unique<normalAction>(nullptr, spec.action, spec.context));
        keys.back()->applySettings(spec.payload);
    }
    return keys;
}

/// The keys of the deck in turn.
void text(benchmark::State &state)
{
    const std::vector<std::unique_ptr<normalAction>> keys = textKeys();
    KeyGauges gauges;
    KeyPass pass(gauges, 0);
    qint64 bytes = 0;
    std::size_t number = 0;
    for (auto _ : state)
        bytes += pass.paint(*keys[number++ % keys.size()]).value_or(QString()).size();
    state.counters["bytes"] =
        benchmark::Counter(static_cast<double>(bytes), benchmark::Counter::kAvgIterations);
}
BENCHMARK(text)->Unit(benchmark::kMicrosecond);

/// Contents that differ in their values and in time, as those of successive seconds.
std::vector<gauge::Content> successive(gauge::Style style)
{
    constexpr int seconds = 32;
    std::vector<gauge::Content> contents;
    for (int second = 0; second < seconds; ++second) {
        gauge::Content content = samplegauges::contentOf(style);
        content.first.value = QString::number(10 + 2 * second);
        content.first.share = (10 + 2 * second) / 100.0;
        content.first.trace = {samplegauges::samples(60, second)};
        content.second.trace = {samplegauges::samples(60, second + 20)};
        contents.push_back(content);
    }
    return contents;
}

void gaugeKey(benchmark::State &state, gauge::Style style)
{
    const gauge::Look look = samplegauges::look(static_cast<int>(state.range(0)));
    const std::vector<gauge::Content> contents = successive(style);
    qint64 bytes = 0;
    std::size_t number = 0;
    for (auto _ : state) {
        const QImage picture = paintGauge(contents[number++ % contents.size()], look);
        bytes += pngDataUrl({picture}, "gaugeKey").size();
    }
    state.counters["bytes"] =
        benchmark::Counter(static_cast<double>(bytes), benchmark::Counter::kAvgIterations);
}
BENCHMARK_CAPTURE(gaugeKey, bar, gauge::Style::Bar)
    ->Arg(72)
    ->Arg(144)
    ->Arg(288)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(gaugeKey, ring, gauge::Style::Ring)
    ->Arg(72)
    ->Arg(144)
    ->Arg(288)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(gaugeKey, graph, gauge::Style::Graph)
    ->Arg(72)
    ->Arg(144)
    ->Arg(288)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(gaugeKey, pair, gauge::Style::Pair)
    ->Arg(72)
    ->Arg(144)
    ->Arg(288)
    ->Unit(benchmark::kMicrosecond);

} // namespace
