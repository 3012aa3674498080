#include "SDK/ConnectionManager.h"
#include "bench/BenchDeck.h"
#include "bench/BenchReadings.h"
#include "bench/CountingHost.h"
#include "bench/PlainPass.h"
#include "plugin/SystemMonitorPlugin.h"
#include "render/normalAction.h"
#include "sensors/VqSystemMonitorLib.h"
#include "tests/support/FakeHardwareService.h"
#include "tests/support/InMemoryLibrary.h"

#include <QAbstractEventDispatcher>
#include <QGuiApplication>
#include <QTimer>
#include <QUrl>
#include <QWebSocket>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

/// The whole pass, from the refresh to the socket, with all texts changing; "plain" is the same in
/// plain Qt, "bar", "ring" and "graph" have gauges on all keys that can show them. Only the time of
/// the working thread counts, not that of the host.
namespace {

constexpr int steps = 10;

/// The plugin at work with a host, and a second link for the plain pass.
class Bench
{
public:
    Bench()
        : m_connection(m_host.port(), QStringLiteral("uuid"), QStringLiteral("register"), QString(),
                       &m_plugin)
    {
        // The benchmark itself starts the passes.
        m_plugin.findChild<QTimer *>()->stop();
        m_connection.Run();
        m_plainLink.open(QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(m_host.port())));
        waitFor([this] {
            return m_host.messages() == 1 && m_plainLink.state() == QAbstractSocket::ConnectedState;
        });
        for (int step = 0; step < steps; ++step)
            m_trees.push_back(treesOf(step));
    }

    /// Replaces the deck of the plugin with this one, whose keys have the style \a style.
    void setDeck(int keys, const QString &style = {})
    {
        for (const BenchKey &key : qAsConst(m_deck))
            m_plugin.WillDisappearForAction(key.action, key.context, {}, {});
        m_deck = benchDeck(keys, style);
        for (const BenchKey &key : qAsConst(m_deck))
            m_plugin.WillAppearForAction(key.action, key.context, key.payload, {});
        settle();
    }

    PlainPass makePlainPass()
    {
        QVector<PlainPass::TextsOfKey> keys;
        for (const BenchKey &spec : qAsConst(m_deck)) {
            const normalAction &key = *m_plugin.FindAction(spec.action, spec.context);
            const plainqt::Key plain{spec.action, spec.context, key.font, key.color, key.opacity};
            keys.append(PlainPass::TextsOfKey{plain, {}});
        }
        for (int step = 0; step < steps; ++step) {
            ownPass(step);
            for (int number = 0; number < keys.size(); ++number) {
                const BenchKey &spec = m_deck.at(number);
                keys[number].texts.append(
                    m_plugin.FindAction(spec.action, spec.context)->displayedText);
            }
        }
        settle();
        return PlainPass(m_plugin.systemMonitorLib(), &m_plainLink, keys);
    }

    void ownPass(int step)
    {
        setTrees(step);
        m_plugin.updateImages();
        drain();
    }

    void plainPass(PlainPass &pass, int step)
    {
        setTrees(step);
        pass.run(step);
        drain();
    }

    /// Waits until the host has received everything.
    void settle()
    {
        constexpr unsigned long pause = 20;
        quint64 last = 0;
        do {
            last = m_host.bytes();
            drain();
            QThread::msleep(pause);
        } while (last != m_host.bytes());
    }

    [[nodiscard]] quint64 bytes() const { return m_host.bytes(); }

private:
    struct Trees
    {
        QJsonObject systemInfo, cpuInfo, cpuDtsInfo, cpuEnhancedInfo, gpuInfo, networkInfo,
            smartInfo, allSensors;
    };

    static Trees treesOf(int step)
    {
        using Library = InMemoryLibrary;
        writeReadings(step);
        return {Library::systemInfo,      Library::cpuInfo,   Library::cpuDtsInfo,
                Library::cpuEnhancedInfo, Library::gpuInfo,   Library::networkInfo,
                Library::smartInfo,       Library::allSensors};
    }

    void setTrees(int step) const
    {
        using Library = InMemoryLibrary;
        const Trees &trees = m_trees.at(static_cast<std::size_t>(step % steps));
        Library::systemInfo = trees.systemInfo;
        Library::cpuInfo = trees.cpuInfo;
        Library::cpuDtsInfo = trees.cpuDtsInfo;
        Library::cpuEnhancedInfo = trees.cpuEnhancedInfo;
        Library::gpuInfo = trees.gpuInfo;
        Library::networkInfo = trees.networkInfo;
        Library::smartInfo = trees.smartInfo;
        Library::allSensors = trees.allSensors;
    }

    /// Writes the pending data of the links, as far as the host takes it.
    static void drain()
    {
        while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
        }
    }

    static void waitFor(const std::function<bool()> &condition)
    {
        while (!condition())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }

    FakeHardwareService m_service;
    CountingHost m_host;
    SystemMonitorPlugin m_plugin;
    ConnectionManager m_connection;
    QWebSocket m_plainLink;
    QVector<BenchKey> m_deck;
    std::vector<Trees> m_trees;
};

Bench *bench = nullptr;

void report(benchmark::State &state, quint64 bytes)
{
    const auto keys = static_cast<double>(state.iterations() * state.range(0));
    state.counters["bytes_per_key"] = static_cast<double>(bytes) / keys;
    state.counters["cpu_per_key"] =
        benchmark::Counter(keys, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void ownPass(benchmark::State &state, const char *style)
{
    bench->setDeck(static_cast<int>(state.range(0)), QString::fromLatin1(style));
    const quint64 before = bench->bytes();
    int step = 0;
    for (auto _ : state)
        bench->ownPass(++step);
    bench->settle();
    report(state, bench->bytes() - before);
}

/// Passes that are a second apart: what the caches of the processor forget meanwhile costs time.
void pacedPass(benchmark::State &state, const char *style)
{
    constexpr unsigned long pause = 1000;
    bench->setDeck(static_cast<int>(state.range(0)), QString::fromLatin1(style));
    int step = 0;
    for (auto _ : state) {
        QThread::msleep(pause);
        const std::clock_t start = std::clock();
        bench->ownPass(++step);
        state.SetIterationTime(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
}

void plainPass(benchmark::State &state)
{
    bench->setDeck(static_cast<int>(state.range(0)));
    PlainPass pass = bench->makePlainPass();
    const quint64 before = bench->bytes();
    int step = 0;
    for (auto _ : state)
        bench->plainPass(pass, ++step);
    bench->settle();
    report(state, bench->bytes() - before);
}

void add(const char *name, const std::function<void(benchmark::State &)> &function)
{
    auto *const added = benchmark::RegisterBenchmark(name, function);
    added->Arg(1)->Arg(largeDeck)->Arg(1000)->Unit(benchmark::kMicrosecond);
    // So that two runs under an instruction counter differ only in the number of passes.
    const int passes = qEnvironmentVariableIntValue("BENCH_PASSES");
    if (passes > 0)
        added->Iterations(passes);
}

} // namespace

int main(int argc, char **argv)
{
    prepareEnvironment();
    QGuiApplication application(argc, argv);
    if (!registerDeckFont())
        return EXIT_FAILURE;
    Bench running;
    bench = &running;
    benchmark::Initialize(&argc, argv);
    const auto passOf = [](const char *style) {
        return [style](benchmark::State &state) { ownPass(state, style); };
    };
    add("pass", passOf(""));
    add("pass/bar", passOf("bar"));
    add("pass/ring", passOf("ring"));
    add("pass/graph", passOf("graph"));
    add("pass/plain", plainPass);
    for (const std::string style : {"", "bar", "ring", "graph"}) {
        constexpr int seconds = 10;
        benchmark::RegisterBenchmark(
            ("paced/" + (style.empty() ? "text" : style)).c_str(),
            [style](benchmark::State &state) { pacedPass(state, style.c_str()); })
            ->Arg(largeDeck)
            ->Iterations(seconds)
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond);
    }
    benchmark::RunSpecifiedBenchmarks();
    // Losing the host would end the process anyway.
    std::fflush(stdout);
    std::_Exit(EXIT_SUCCESS);
}
