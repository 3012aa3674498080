#include "bench/SteppingLibrary.h"
#include "sensors/VqSystemMonitorLib.h"
#include "sensors/machine/audio.h"
#include "sensors/machine/drives.h"
#include "sensors/readings/AudioReadings.h"
#include "sensors/readings/DriveReadings.h"
#include "sensors/readings/SensorRefresh.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/PlatformCollectors.h"
#include "system_monitor_lib/live/memory/MemoryCollector.h"
#include "system_monitor_lib/live/network/NetworkCollector.h"
#include "system_monitor_lib/live/processor/CpuLoadCollector.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDir>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

#include <cxxabi.h>
#include <fcntl.h>
#include <unistd.h>

/// The live refresh of this machine, and the part of each collector.
namespace {

using Collectors = std::vector<std::unique_ptr<Collector>>;

const QString group = QStringLiteral("CPU [#0]: processor");

/// So that two runs under an instruction counter differ only in the number of passes.
void choosePasses(benchmark::internal::Benchmark *added)
{
    const int passes = qEnvironmentVariableIntValue("BENCH_PASSES");
    if (passes > 0)
        added->Iterations(passes);
}

void refresh(benchmark::State &state)
{
    VqSystemMonitorLib library(false, nullptr);
    library.initSystemMonitorLib(true);
    for (auto _ : state) {
        stepOneSecond();
        refreshSystemInfor(&library, 0);
    }
}
BENCHMARK(refresh)->Unit(benchmark::kMicrosecond)->Apply(choosePasses);

/// The part of the refresh that turns an existing sample into readings.
void mapping(benchmark::State &state)
{
    VqSystemMonitorLib library(false, nullptr);
    library.initSystemMonitorLib(true);
    for (auto _ : state)
        refreshSystemInfor(&library, 0);
}
BENCHMARK(mapping)->Unit(benchmark::kMicrosecond);

void drives(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(readDrives(machineDrives()));
}
BENCHMARK(drives)->Unit(benchmark::kMicrosecond);

void playbackDevices(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(readAudio(machineAudio(), 0));
}
BENCHMARK(playbackDevices)->Unit(benchmark::kMicrosecond);

/// The least that a refresh can take: the kernel's text of the files without which there is no
/// load, memory or rate, into nothing.
void files(benchmark::State &state)
{
    std::vector<int> opened;
    for (const char *const path : {"/proc/stat", "/proc/meminfo"})
        opened.push_back(open(path, O_RDONLY | O_CLOEXEC));
    for (const QFileInfo &adapter : QDir(QStringLiteral("/sys/class/net")).entryInfoList()) {
        for (const char *const counter : {"/statistics/rx_bytes", "/statistics/tx_bytes"})
            opened.push_back(open((adapter.filePath().toLocal8Bit() + counter).constData(),
                                  O_RDONLY | O_CLOEXEC));
    }
    std::vector<char> text(std::size_t{64} * 1024);
    for (auto _ : state) {
        for (const int file : opened)
            benchmark::DoNotOptimize(pread(file, text.data(), text.size(), 0));
    }
    for (const int file : opened)
        close(file);
}
BENCHMARK(files)->Unit(benchmark::kMicrosecond);

void collect(benchmark::State &state, Collector &collector)
{
    qint64 now = 0;
    for (auto _ : state) {
        now += 1'000'000'000;
        SensorTrees trees;
        benchmark::DoNotOptimize(collector.collect(now, trees));
    }
}

Collectors collectors()
{
    const MachineRoots roots = thisMachine();
    Collectors all = platformCollectors(roots, group, monotonicNanoseconds);
    all.push_back(std::make_unique<CpuLoadCollector>(roots, group));
    all.push_back(std::make_unique<MemoryCollector>(roots));
    all.push_back(std::make_unique<NetworkCollector>(roots));
    return all;
}

std::string className(const Collector &collector)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(typeid(collector).name(), nullptr, nullptr, &status), &std::free);
    return status == 0 ? name.get() : "collector";
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const Collectors all = collectors();
    for (const auto &collector : all) {
        benchmark::RegisterBenchmark(className(*collector).c_str(), [&collector](
                                                                        benchmark::State &state) {
            collect(state, *collector);
        })->Unit(benchmark::kMicrosecond);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
