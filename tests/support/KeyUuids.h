#pragma once

#include <QString>

/// The UUIDs of all kinds of keys, as hosts and settings panels know them. Spelled here once more,
/// and not taken from the product, so that a test fails when the product's spelling changes.
namespace keyuuid {

inline const QString memory = QStringLiteral("com.quellor.stream.system.memory");
inline const QString cpu = QStringLiteral("com.quellor.stream.system.cpu");
inline const QString cpuTemperature = QStringLiteral("com.quellor.stream.system.cpu.temperature");
inline const QString cpuClock = QStringLiteral("com.quellor.stream.system.Cpu_Clock");
inline const QString cpuPower = QStringLiteral("com.quellor.stream.system.Cpu_Package_Power");
inline const QString netWork = QStringLiteral("com.quellor.stream.system.NetWork");
inline const QString gpuTemperature = QStringLiteral("com.quellor.stream.system.Gpu_Temperature");
inline const QString gpuClock = QStringLiteral("com.quellor.stream.system.Gpu_Core_Clock");
inline const QString gpuLoad = QStringLiteral("com.quellor.stream.system.Gpu_Core_Utility");
inline const QString gpuMemoryClock = QStringLiteral("com.quellor.stream.system.Gpu_Memory_Clock");
inline const QString gpuMemoryUsage =
    QStringLiteral("com.quellor.stream.system.Gpu_Memory_Utility");
inline const QString memoryFreeMB = QStringLiteral("com.quellor.stream.system.Memory_Free_MB");
inline const QString memoryUsedMB = QStringLiteral("com.quellor.stream.system.Memory_Used_MB");
inline const QString memoryTotalMB = QStringLiteral("com.quellor.stream.system.Memory_Total_MB");
inline const QString memoryFreeGB = QStringLiteral("com.quellor.stream.system.Memory_Free_GB");
inline const QString memoryUsedGB = QStringLiteral("com.quellor.stream.system.Memory_Used_GB");
inline const QString memoryTotalGB = QStringLiteral("com.quellor.stream.system.Memory_Total_GB");
inline const QString gpuMemoryUsed = QStringLiteral("com.quellor.stream.system.Gpu_Memory_Used");
inline const QString gpuPower = QStringLiteral("com.quellor.stream.system.Gpu_Power");
inline const QString volume = QStringLiteral("com.quellor.stream.system.volume");
inline const QString cpuModel = QStringLiteral("com.quellor.stream.system.Cpu_Model");
inline const QString gpuModel = QStringLiteral("com.quellor.stream.system.Gpu_Model");
inline const QString gpuVoltage = QStringLiteral("com.quellor.stream.system.Gpu_Voltage");
inline const QString diskTemperature =
    QStringLiteral("com.quellor.stream.system.PhysicalDisk.Temperature");
inline const QString memoryModel = QStringLiteral("com.quellor.stream.system.Memory_Model");
inline const QString upload = QStringLiteral("com.quellor.stream.system.NetWork.Upload");
inline const QString download = QStringLiteral("com.quellor.stream.system.NetWork.Download");
inline const QString allData = QStringLiteral("com.quellor.stream.AllDATA");
inline const QString cpuVoltage = QStringLiteral("com.quellor.stream.system.Cpu_Voltage");
inline const QString physicalDisk = QStringLiteral("com.quellor.stream.system.PhysicalDisk");
inline const QString pumpSpeed = QStringLiteral("com.quellor.stream.PumpSpeed");
inline const QString cpuFan = QStringLiteral("com.quellor.stream.CPUFan");

/// The common prefix of all of them.
inline const QString prefix = QStringLiteral("com.quellor.stream.");

} // namespace keyuuid
