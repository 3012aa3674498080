#include "sensors/SensorRefresh.h"

#include "sensors/CpuReadings.h"
#include "sensors/MemoryReadings.h"
#include "sensors/NetworkReadings.h"
#include "sensors/VqSystemMonitorLib.h"
#include "sensors/systemInfor.h"

namespace {

void store(const MemoryReadings &memory)
{
    systemInfor::MemoryLoad = memory.load;
    systemInfor::MemoryLoadUnits = memory.loadUnits;
    systemInfor::MemoryUsedMB = memory.usedMB;
    systemInfor::MemoryAvailableMB = memory.availableMB;
    systemInfor::MemoryTotalMB = memory.totalMB;
    systemInfor::MemoryUsedGB = memory.usedGB;
    systemInfor::MemoryAvailableGB = memory.availableGB;
    systemInfor::MemoryTotalGB = memory.totalGB;
    systemInfor::MemoryTotalGBRounded = memory.totalGBRounded;
}

void store(const CpuReadings &cpu)
{
    systemInfor::CpuUsage = cpu.usage;
    systemInfor::CpuUsageUnits = cpu.usageUnits;
    systemInfor::CpuClock = cpu.clock;
    systemInfor::CpuClockUnits = cpu.clockUnits;
    systemInfor::CpuVoltage = cpu.voltage;
    systemInfor::CpuVoltageUnits = cpu.voltageUnits;
}

void store(const NetworkReadings &network)
{
    systemInfor::NetUpRate = network.up.value;
    systemInfor::NetUpRateUnits = network.up.units;
    systemInfor::NetDownRate = network.down.value;
    systemInfor::NetDownRateUnits = network.down.units;
}

void storeAllSensors(VqSystemMonitorLib &library)
{
    const QJsonObject frameRates = library.getPresentMon();
    systemInfor::AllSensorsData = library.getAllSensorsData();
    systemInfor::AllSensorsData.insert(QStringLiteral("FPS"), frameRates);
}

} // namespace

void refreshSystemInfor(VqSystemMonitorLib &library)
{
    const MemoryReadings memory = memoryReadings(library.getSystemInfo());
    library.getMemoryTimingsInfo();
    const CpuReadings cpu = cpuReadings(library.getCPUInfo());
    const NetworkReadings network = networkReadings(library.getNetworkInfo());
    store(memory);
    store(cpu);
    store(network);
    storeAllSensors(library);
}
