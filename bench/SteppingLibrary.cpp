#include "bench/SteppingLibrary.h"
#include "sensors/VqSystemMonitorLib.h"
#include "system_monitor_lib/live/LiveSource.h"

namespace {

qint64 now = 0;

/// This machine, or the captured one whose folder BENCH_MACHINE names.
MachineRoots machine()
{
    const QString folder = qEnvironmentVariable("BENCH_MACHINE");
    if (folder.isEmpty())
        return thisMachine();
    return {folder + QStringLiteral("/proc"), folder + QStringLiteral("/sys")};
}

} // namespace

void stepOneSecond()
{
    now += 1'000'000'000;
}

class VqSystemMonitorLib::Private
{
public:
    LiveSource source{machine(), [] { return now; }};
};

VqSystemMonitorLib::VqSystemMonitorLib(bool /*flag*/, QObject * /*parent*/)
    : d(std::make_unique<Private>())
{
}

VqSystemMonitorLib::~VqSystemMonitorLib() = default;

bool VqSystemMonitorLib::initSystemMonitorLib(bool /*newerThanWindows7*/)
{
    return d->source.open();
}

void VqSystemMonitorLib::getNumberOfDetectedSensors() {}

void VqSystemMonitorLib::deinitSystemMonitorLib() {}

QJsonObject VqSystemMonitorLib::getSystemInfo()
{
    return d->source.tree(Query::SystemInfo);
}

QJsonObject VqSystemMonitorLib::getMemoryTimingsInfo()
{
    return d->source.tree(Query::MemoryTimingsInfo);
}

QJsonObject VqSystemMonitorLib::getCPUInfo()
{
    return d->source.tree(Query::CpuInfo);
}

QJsonObject VqSystemMonitorLib::getCPUDTSInfo()
{
    return d->source.tree(Query::CpuDtsInfo);
}

QJsonObject VqSystemMonitorLib::getCPUEnhancedInfo()
{
    return d->source.tree(Query::CpuEnhancedInfo);
}

QJsonObject VqSystemMonitorLib::getGPUInfo()
{
    return d->source.tree(Query::GpuInfo);
}

QJsonObject VqSystemMonitorLib::getNetworkInfo()
{
    return d->source.tree(Query::NetworkInfo);
}

QJsonObject VqSystemMonitorLib::getSMARTInfo()
{
    return d->source.tree(Query::SmartInfo);
}

QJsonObject VqSystemMonitorLib::getPresentMon()
{
    return d->source.tree(Query::PresentMon);
}

QJsonObject VqSystemMonitorLib::getAllSensorsData()
{
    return d->source.tree(Query::AllSensorsData);
}
