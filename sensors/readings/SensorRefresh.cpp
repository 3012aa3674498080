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
#include "values/Reading.h"

namespace {

using Info = systemInfor;

template <typename Number>
void mark(const Number &number, bool isMissing)
{
    if (isMissing)
        Info::MissingNumbers.insert(&number);
}

/// Stores \a reading in the snapshot's members for its number and its units.
template <typename Number>
void store(const Reading<Number> &reading, Number &number, QString &units)
{
    number = reading.value;
    units = reading.units;
    mark(number, reading.isMissing);
}

/// An empty tree without a library.
QJsonObject ask(VqSystemMonitorLib *library, QJsonObject (VqSystemMonitorLib::*query)())
{
    return library ? (library->*query)() : QJsonObject();
}

void refreshDrives()
{
    const DriveReadings drives = readDrives(machineDrives());
    Info::DriveRoots = drives.roots;
    Info::DriveVolumeNames = drives.volumeNames;
    Info::DriveFreeGB = drives.freeGB;
    Info::DriveFreePercent = drives.freePercent;
    Info::DisksFreeGB = drives.allDrivesFreeGB;
    Info::DisksTotalGB = drives.allDrivesTotalGB;
}

void refreshAudio(int device)
{
    const AudioReadings audio = readAudio(machineAudio(), device);
    Info::AudioDeviceNames = audio.names;
    Info::AudioDeviceVolumes = audio.volumes;
    Info::AudioVolume = audio.selectedVolume;
    mark(Info::AudioVolume, audio.selectedVolume < 0);
}

void refreshMemory(VqSystemMonitorLib *library)
{
    const MemoryReadings memory = memoryReadings(ask(library, &VqSystemMonitorLib::getSystemInfo));
    ask(library, &VqSystemMonitorLib::getMemoryTimingsInfo);
    store(memory.load, Info::MemoryLoad, Info::MemoryLoadUnits);
    Info::MemoryUsedMB = memory.usedMB;
    Info::MemoryAvailableMB = memory.availableMB;
    Info::MemoryTotalMB = memory.totalMB;
    Info::MemoryUsedGB = memory.usedGB;
    Info::MemoryAvailableGB = memory.availableGB;
    Info::MemoryTotalGB = memory.totalGB;
    Info::MemoryTotalGBRounded = memory.totalGBRounded;
    mark(Info::MemoryUsedMB, memory.isUsedMissing);
    mark(Info::MemoryUsedGB, memory.isUsedMissing);
    mark(Info::MemoryAvailableMB, memory.isAvailableMissing);
    mark(Info::MemoryAvailableGB, memory.isAvailableMissing);
    mark(Info::MemoryTotalMB, memory.isUsedMissing || memory.isAvailableMissing);
}

void refreshCpu(VqSystemMonitorLib *library)
{
    const CpuReadings cpu = cpuReadings(ask(library, &VqSystemMonitorLib::getCPUInfo));
    store(cpu.usage, Info::CpuUsage, Info::CpuUsageUnits);
    store(cpu.clock, Info::CpuClock, Info::CpuClockUnits);
    store(cpu.voltage, Info::CpuVoltage, Info::CpuVoltageUnits);
}

/// Returns the enhanced tree, which contains integrated graphics.
QJsonObject refreshCpuHeat(VqSystemMonitorLib *library)
{
    // Compatibility: queries-twice
    const QJsonObject dtsTree = ask(library, &VqSystemMonitorLib::getCPUDTSInfo);
    const QJsonObject tctlTree =
        dtsTree.isEmpty() ? ask(library, &VqSystemMonitorLib::getCPUEnhancedInfo) : QJsonObject();
    QJsonObject enhancedTree = ask(library, &VqSystemMonitorLib::getCPUEnhancedInfo);
    const CpuHeat heat = cpuHeat(dtsTree, tctlTree, enhancedTree);
    store(heat.temperature, Info::CpuTemperature, Info::CpuTemperatureUnits);
    store(heat.power, Info::CpuPower, Info::CpuPowerUnits);
    return enhancedTree;
}

void refreshGpu(VqSystemMonitorLib *library, const QJsonObject &enhancedTree)
{
    const QJsonObject gpuTrees = ask(library, &VqSystemMonitorLib::getGPUInfo);
    const GpuReadings gpu =
        gpuReadings(gpuTrees.value(chosenGpu(gpuTrees)).toObject(), enhancedTree);
    store(gpu.temperature, Info::GpuTemperature, Info::GpuTemperatureUnits);
    store(gpu.clock, Info::GpuClock, Info::GpuClockUnits);
    store(gpu.load, Info::GpuLoad, Info::GpuLoadUnits);
    store(gpu.memoryClock, Info::GpuMemoryClock, Info::GpuMemoryClockUnits);
    store(gpu.memoryUsage, Info::GpuMemoryUsage, Info::GpuMemoryUsageUnits);
    store(gpu.memoryAllocated, Info::GpuMemoryAllocated, Info::GpuMemoryAllocatedUnits);
    Info::GpuMemorySize = gpu.memorySize;
    store(gpu.power, Info::GpuPower, Info::GpuPowerUnits);
    store(gpu.voltage, Info::GpuVoltage, Info::GpuVoltageUnits);
}

void refreshNetwork(VqSystemMonitorLib *library)
{
    const NetworkReadings network =
        networkReadings(ask(library, &VqSystemMonitorLib::getNetworkInfo));
    store(network.up, Info::NetUpRate, Info::NetUpRateUnits);
    store(network.down, Info::NetDownRate, Info::NetDownRateUnits);
}

void refreshDriveTemperatures(VqSystemMonitorLib *library)
{
    Info::SmartInfo = ask(library, &VqSystemMonitorLib::getSMARTInfo);
    const QJsonObject drives = ask(library, &VqSystemMonitorLib::getSMARTInfo);
    Info::DriveTemperatureList = driveTemperatures(drives);
    Info::DrivesWithoutTemperature = drivesWithoutTemperature(drives);
}

void refreshSensorLists(VqSystemMonitorLib *library)
{
    const QJsonObject frameRates = ask(library, &VqSystemMonitorLib::getPresentMon);
    Info::AllSensorsData = ask(library, &VqSystemMonitorLib::getAllSensorsData);
    Info::AllSensorsData.insert(QStringLiteral("FPS"), frameRates);

    SensorWalk walk;
    // Compatibility: frame-rates-twice
    walk.visit(Info::AllSensorsData);
    walk.visit(frameRates);
    Info::AIOPump = walk.pump;
    Info::CpuFanList = walk.cpuFans;
    Info::SensorList = walk.sensors;
    Info::PumpNumber = walk.pumpNumber;
    Info::CpuFanNumbers = walk.cpuFanNumbers;
    Info::AllSensorNumbers = walk.sensorNumbers;
}

} // namespace

void refreshSystemInfor(VqSystemMonitorLib *library, int audioDevice)
{
    Info::MissingNumbers.clear();
    refreshDrives();
    refreshAudio(audioDevice);
    refreshMemory(library);
    refreshCpu(library);
    const QJsonObject enhancedTree = refreshCpuHeat(library);
    refreshGpu(library, enhancedTree);
    refreshNetwork(library);
    refreshDriveTemperatures(library);
    refreshSensorLists(library);
}

void refreshModelNames(VqSystemMonitorLib *library)
{
    const ModelNames names = modelNames(ask(library, &VqSystemMonitorLib::getAllSensorsData),
                                        {Info::CpuModel, Info::GpuModel});
    Info::CpuModel = names.cpu;
    Info::GpuModel = names.gpu;
}
