#include "sensors/VqSystemMonitorLib.h"
#include "sensors/readings/SensorRefresh.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <thread>

/// The refresh with a recording of 2000 sensors.
namespace {

constexpr int sensors = 2000;
constexpr int sensorsOfADevice = 50;

/// Longer than a file's time stamp is doubted.
constexpr std::chrono::milliseconds settling{100};

QByteArray recording(int step)
{
    QJsonObject groups;
    for (int device = 0; device < sensors / sensorsOfADevice; ++device) {
        QJsonObject group;
        for (int sensor = 0; sensor < sensorsOfADevice; ++sensor) {
            const double value = 30 + 0.1 * ((sensor + device + step) % 500);
            const QJsonObject reading{{QStringLiteral("value"), value},
                                      {QStringLiteral("units"), QStringLiteral("°C")}};
            group.insert(QStringLiteral("Device %1 Temperature %2").arg(device).arg(sensor),
                         QJsonArray{reading});
        }
        groups.insert(QStringLiteral("Board: Device %1").arg(device), group);
    }
    return QJsonDocument(QJsonObject{{QStringLiteral("getAllSensorsData"), groups}}).toJson();
}

void write(const QString &path, int step)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(recording(step)) < 0)
        qFatal("The recording cannot be written");
    file.close();
    std::this_thread::sleep_for(settling);
}

/// The time of a refresh when the file is new in each pass, or stays as it is.
void refresh(benchmark::State &state, bool isRewritten)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("recording.json"));
    qputenv("SYSTEM_MONITOR_RECORDING", path.toLocal8Bit());
    int step = 0;
    write(path, step);
    VqSystemMonitorLib library(false, nullptr);
    library.initSystemMonitorLib(true);
    for (auto _ : state) {
        if (isRewritten) {
            state.PauseTiming();
            write(path, ++step);
            state.ResumeTiming();
        }
        refreshSystemInfor(&library, 0);
    }
}
BENCHMARK_CAPTURE(refresh, unchanged, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(refresh, rewritten, true)->Unit(benchmark::kMicrosecond)->Iterations(20);

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
