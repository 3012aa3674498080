#include "sensors/readings/SensorRefresh.h"

#include "sensors/VqSystemMonitorLib.h"
#include "sensors/machine/audio.h"
#include "sensors/machine/drives.h"
#include "sensors/readings/AudioReadings.h"
#include "sensors/readings/CpuHeat.h"
#include "sensors/readings/CpuReadings.h"
#include "sensors/readings/DriveReadings.h"
#include "sensors/readings/DriveTemperatures.h"
#include "sensors/readings/GpuReadings.h"
#include "sensors/readings/MemoryReadings.h"
#include "sensors/readings/ModelNames.h"
#include "sensors/readings/NetworkReadings.h"
#include "sensors/readings/SensorWalk.h"
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

void store(const CpuHeat &heat)
{
    systemInfor::CpuTemperature = heat.temperature;
    systemInfor::CpuTemperatureUnits = heat.temperatureUnits;
    systemInfor::CpuPower = heat.power;
    systemInfor::CpuPowerUnits = heat.powerUnits;
}

void store(const GpuReadings &gpu)
{
    systemInfor::GpuTemperature = gpu.temperature;
    systemInfor::GpuTemperatureUnits = gpu.temperatureUnits;
    systemInfor::GpuClock = gpu.clock;
    systemInfor::GpuClockUnits = gpu.clockUnits;
    systemInfor::GpuLoad = gpu.load;
    systemInfor::GpuLoadUnits = gpu.loadUnits;
    systemInfor::GpuMemoryClock = gpu.memoryClock;
    systemInfor::GpuMemoryClockUnits = gpu.memoryClockUnits;
    systemInfor::GpuMemoryUsage = gpu.memoryUsage;
    systemInfor::GpuMemoryUsageUnits = gpu.memoryUsageUnits;
    systemInfor::GpuMemoryAllocated = gpu.memoryAllocated;
    systemInfor::GpuMemoryAllocatedUnits = gpu.memoryAllocatedUnits;
    systemInfor::GpuPower = gpu.power;
    systemInfor::GpuPowerUnits = gpu.powerUnits;
    systemInfor::GpuVoltage = gpu.voltage;
    systemInfor::GpuVoltageUnits = gpu.voltageUnits;
}

void store(const NetworkReadings &network)
{
    systemInfor::NetUpRate = network.up.value;
    systemInfor::NetUpRateUnits = network.up.units;
    systemInfor::NetDownRate = network.down.value;
    systemInfor::NetDownRateUnits = network.down.units;
}

void store(const DriveReadings &drives)
{
    systemInfor::DriveRoots = drives.roots;
    systemInfor::DriveVolumeNames = drives.volumeNames;
    systemInfor::DriveFreeGB = drives.freeGB;
    systemInfor::DriveFreePercent = drives.freePercent;
    systemInfor::DisksFreeGB = drives.allDrivesFreeGB;
    systemInfor::DisksTotalGB = drives.allDrivesTotalGB;
}

void store(const AudioReadings &audio)
{
    systemInfor::AudioDeviceNames = audio.names;
    systemInfor::AudioDeviceVolumes = audio.volumes;
    systemInfor::AudioVolume = audio.selectedVolume;
}

/// An empty tree without a library.
QJsonObject ask(VqSystemMonitorLib *library, QJsonObject (VqSystemMonitorLib::*query)())
{
    return library ? (library->*query)() : QJsonObject();
}

void refreshCpuAndGpu(VqSystemMonitorLib *library)
{
    store(cpuReadings(ask(library, &VqSystemMonitorLib::getCPUInfo)));
    const QJsonObject dtsTree = ask(library, &VqSystemMonitorLib::getCPUDTSInfo);
    const QJsonObject tctlTree =
        dtsTree.isEmpty() ? ask(library, &VqSystemMonitorLib::getCPUEnhancedInfo) : QJsonObject();
    const QJsonObject enhancedTree = ask(library, &VqSystemMonitorLib::getCPUEnhancedInfo);
    store(cpuHeat(dtsTree, tctlTree, enhancedTree));
    const QJsonObject gpuTrees = ask(library, &VqSystemMonitorLib::getGPUInfo);
    store(gpuReadings(gpuTrees.value(chosenGpu(gpuTrees)).toObject(), enhancedTree));
}

void refreshDriveTemperatures(VqSystemMonitorLib *library)
{
    systemInfor::SmartInfo = ask(library, &VqSystemMonitorLib::getSMARTInfo);
    systemInfor::DriveTemperatureList =
        driveTemperatures(ask(library, &VqSystemMonitorLib::getSMARTInfo));
}

void refreshSensorLists(VqSystemMonitorLib *library)
{
    const QJsonObject frameRates = ask(library, &VqSystemMonitorLib::getPresentMon);
    systemInfor::AllSensorsData = ask(library, &VqSystemMonitorLib::getAllSensorsData);
    systemInfor::AllSensorsData.insert(QStringLiteral("FPS"), frameRates);

    SensorWalk walk;
    walk.visit(systemInfor::AllSensorsData);
    walk.visit(frameRates);
    systemInfor::AIOPump = walk.pump;
    systemInfor::CpuFanList = walk.cpuFans;
    systemInfor::SensorList = walk.sensors;
}

} // namespace

void refreshSystemInfor(VqSystemMonitorLib *library, int audioDevice)
{
    store(readDrives(machineDrives()));
    store(readAudio(machineAudio(), audioDevice));
    store(memoryReadings(ask(library, &VqSystemMonitorLib::getSystemInfo)));
    ask(library, &VqSystemMonitorLib::getMemoryTimingsInfo);
    refreshCpuAndGpu(library);
    store(networkReadings(ask(library, &VqSystemMonitorLib::getNetworkInfo)));
    refreshDriveTemperatures(library);
    refreshSensorLists(library);
}

void refreshModelNames(VqSystemMonitorLib *library)
{
    const ModelNames names = modelNames(ask(library, &VqSystemMonitorLib::getAllSensorsData),
                                        {systemInfor::CpuModel, systemInfor::GpuModel});
    systemInfor::CpuModel = names.cpu;
    systemInfor::GpuModel = names.gpu;
}
