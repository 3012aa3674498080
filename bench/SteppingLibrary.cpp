#include "bench/SteppingLibrary.h"
#include "sensors/VqSystemMonitorLib.h"
#include "system_monitor_lib/live/LiveSource.h"
#include "tests/support/CapturedMachine.h"

#include <QTemporaryDir>

namespace {

qint64 now = 0;

/// This machine, or the one of tests/fixtures/machines that BENCH_MACHINE names.
MachineRoots machine()
{
    const QString name = qEnvironmentVariable("BENCH_MACHINE");
    if (name.isEmpty())
        return thisMachine();
    static const QTemporaryDir folder;
    if (!unpackMachine(name, QString(), folder.path()))
        qFatal("The machine %s cannot be unpacked", qPrintable(name));
    MachineRoots roots{folder.filePath(QStringLiteral("proc")),
                       folder.filePath(QStringLiteral("sys"))};
    roots.run = folder.filePath(QStringLiteral("run"));
    return roots;
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
