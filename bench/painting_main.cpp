#include "bench/BenchDeck.h"
#include "bench/BenchReadings.h"
#include "sensors/VqSystemMonitorLib.h"
#include "sensors/readings/SensorRefresh.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

#include <cstdlib>

/// The start of each program that paints keys from readings of its own.
int main(int argc, char **argv)
{
    prepareEnvironment();
    const QGuiApplication application(argc, argv);
    if (!registerDeckFont())
        return EXIT_FAILURE;
    writeReadings(1);
    VqSystemMonitorLib library(false, nullptr);
    refreshSystemInfor(&library, 0);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
