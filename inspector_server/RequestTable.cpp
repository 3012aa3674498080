#include "inspector_server/RequestTable.h"

#include "sensors/systemInfor.h"
#include "values/ReadingText.h"

#include <QJsonArray>
#include <QJsonValue>

#include <algorithm>
#include <iterator>

namespace {

using readingtext::general;
using readingtext::integer;

using Info = systemInfor;

/// One object per drive. Its members are read at the same index, whether the lists line up or not.
QJsonArray drives()
{
    QJsonArray drives;
    for (int index = 0; index < Info::DriveRoots.size(); ++index) {
        drives.append(
            QJsonObject{{QStringLiteral("driveName"), Info::DriveRoots.at(index)},
                        {QStringLiteral("volumeName"), Info::DriveVolumeNames.value(index)},
                        {QStringLiteral("freeSpaceGB"), Info::DriveFreeGB.value(index)},
                        {QStringLiteral("freeSpacePercent"), Info::DriveFreePercent.value(index)}});
    }
    return drives;
}

QJsonArray playbackDevices()
{
    QJsonArray devices;
    for (int index = 0; index < Info::AudioDeviceNames.size(); ++index) {
        const float volume = Info::AudioDeviceVolumes.value(index);
        devices.append(QJsonObject{{QStringLiteral("AudioNames"), Info::AudioDeviceNames.at(index)},
                                   {QStringLiteral("AudioNameszf"), static_cast<double>(volume)}});
    }
    return devices;
}

struct RequestRow
{
    const char *name;
    QJsonValue (*answer)();
};

const RequestRow requestTable[] = {
    {"Cpu Usage", [] { return QJsonValue(integer(Info::CpuUsage, Info::CpuUsageUnits)); }},
    {"Cpu Temperature",
     [] { return QJsonValue(integer(Info::CpuTemperature, Info::CpuTemperatureUnits)); }},
    {"Cpu Clock", [] { return QJsonValue(integer(Info::CpuClock, Info::CpuClockUnits)); }},
    {"Cpu Power", [] { return QJsonValue(general(Info::CpuPower, Info::CpuPowerUnits)); }},
    {"Physical Memory Usage",
     [] { return QJsonValue(integer(Info::MemoryLoad, Info::MemoryLoadUnits)); }},
    {"Network Upload Speed",
     [] { return QJsonValue(general(Info::NetUpRate, Info::NetUpRateUnits)); }},
    {"Network Download Speed",
     [] { return QJsonValue(general(Info::NetDownRate, Info::NetDownRateUnits)); }},
    {"Gpu Temperature",
     [] { return QJsonValue(integer(Info::GpuTemperature, Info::GpuTemperatureUnits)); }},
    {"Gpu Core Clock", [] { return QJsonValue(integer(Info::GpuClock, Info::GpuClockUnits)); }},
    {"Gpu Core Utility", [] { return QJsonValue(integer(Info::GpuLoad, Info::GpuLoadUnits)); }},
    {"Gpu Memory Clock",
     [] { return QJsonValue(integer(Info::GpuMemoryClock, Info::GpuMemoryClockUnits)); }},
    {"Gpu Memory Utility",
     [] { return QJsonValue(general(Info::GpuMemoryUsage, Info::GpuMemoryUsageUnits)); }},
    {"totalDisksFreeSpace", [] { return QJsonValue(integer(Info::DisksFreeGB)); }},
    {"totalDisksTotalSpace", [] { return QJsonValue(integer(Info::DisksTotalGB)); }},
    {"Memory Used MB", [] { return QJsonValue(integer(Info::MemoryUsedMB)); }},
    {"Memory Free MB", [] { return QJsonValue(integer(Info::MemoryAvailableMB)); }},
    {"Memory Total MB", [] { return QJsonValue(integer(Info::MemoryTotalMB)); }},
    {"Gpu Memory Used",
     [] { return QJsonValue(general(Info::GpuMemoryAllocated, Info::GpuMemoryAllocatedUnits)); }},
    {"Gpu Power", [] { return QJsonValue(general(Info::GpuPower, Info::GpuPowerUnits)); }},
    // Compatibility: unsigned-answers
    // Unsigned, so that a volume that cannot be read is a number that no volume is.
    {"defaultAudioEndpointVolume",
     [] { return QJsonValue(integer(static_cast<unsigned>(Info::AudioVolume))); }},
    {"Cpu Model", [] { return QJsonValue(Info::CpuModel); }},
    {"Gpu Model", [] { return QJsonValue(Info::GpuModel); }},
    {"Gpu Voltage", [] { return QJsonValue(general(Info::GpuVoltage, Info::GpuVoltageUnits)); }},
    {"Disk Temperature", [] { return QJsonValue(Info::SmartInfo); }},
    // Compatibility: memory-model
    {"Memory Model",
     [] { return QJsonValue(integer(static_cast<unsigned>(Info::MemoryTotalGBRounded))); }},
    {"Cpu Voltage", [] { return QJsonValue(general(Info::CpuVoltage, Info::CpuVoltageUnits)); }},
    {"drives", [] { return QJsonValue(drives()); }},
    {"AllAudioEndpointVolume", [] { return QJsonValue(playbackDevices()); }},
};

} // namespace

QJsonObject answerRequest(const QString &request)
{
    const auto row = std::find_if(std::begin(requestTable), std::end(requestTable),
                                  [&request](const RequestRow &candidate) {
                                      return request == QLatin1String(candidate.name);
                                  });
    // Compatibility: bare-names
    if (row == std::end(requestTable))
        return {};
    return {{QStringLiteral("event"), request}, {QStringLiteral("info"), row->answer()}};
}
