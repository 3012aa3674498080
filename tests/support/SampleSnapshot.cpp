#include "tests/support/SampleSnapshot.h"

#include "sensors/systemInfor.h"

namespace {

using Info = systemInfor;

void fillCpuAndMemory()
{
    Info::CpuUsage = 37;
    Info::CpuUsageUnits = QStringLiteral("%");
    Info::CpuTemperature = 45;
    Info::CpuTemperatureUnits = QStringLiteral("°C");
    Info::CpuClock = 4200;
    Info::CpuClockUnits = QStringLiteral("MHz");
    Info::CpuPower = 65.26;
    Info::CpuPowerUnits = QStringLiteral("W");
    Info::CpuVoltage = 1.25;
    Info::CpuVoltageUnits = QStringLiteral("V");
    Info::CpuModel = QStringLiteral("Ryzen 9 %1");
    Info::MemoryLoad = 61;
    Info::MemoryLoadUnits = QStringLiteral("%");
    Info::MemoryUsedMB = 14592;
    Info::MemoryAvailableMB = 1536;
    Info::MemoryTotalMB = 16128;
    Info::MemoryUsedGB = 14.25;
    Info::MemoryAvailableGB = 1.5;
    Info::MemoryTotalGB = 15.75;
    Info::MemoryTotalGBRounded = 16;
}

void fillGpu()
{
    Info::GpuModel = QStringLiteral("integrated GPU");
    Info::GpuTemperature = 51;
    Info::GpuTemperatureUnits = QStringLiteral("°C");
    Info::GpuClock = 1905;
    Info::GpuClockUnits = QStringLiteral("MHz");
    Info::GpuLoad = 99;
    Info::GpuLoadUnits = QStringLiteral("%");
    Info::GpuMemoryClock = 9501;
    Info::GpuMemoryClockUnits = QStringLiteral("MHz");
    Info::GpuMemoryUsage = 49.9;
    Info::GpuMemoryUsageUnits = QStringLiteral("%");
    Info::GpuMemoryAllocated = 2048.0;
    Info::GpuMemoryAllocatedUnits = QStringLiteral("MB");
    Info::GpuMemorySize = 8192.0;
    Info::GpuPower = 3.0;
    Info::GpuPowerUnits = QStringLiteral("W");
    Info::GpuVoltage = 0.9127;
    Info::GpuVoltageUnits = QStringLiteral("V");
}

void fillLists()
{
    Info::AIOPump = QStringLiteral("1850RPM");
    Info::PumpNumber = {1850, QStringLiteral("RPM")};
    Info::CpuFanList.clear();
    Info::CpuFanNumbers.clear();
    Info::SensorList = {{QStringLiteral("Vcore"), QStringLiteral("0.5V")},
                        {QStringLiteral("CPU Package"), QStringLiteral("45°C")},
                        {QStringLiteral("CPU Package"), QStringLiteral("46°C")}};
    Info::AllSensorNumbers = {
        {0.5, QStringLiteral("V")}, {45, QStringLiteral("°C")}, {46, QStringLiteral("°C")}};
    Info::SmartInfo = {{QStringLiteral("sda"), QJsonObject()}};
    Info::DrivesWithoutTemperature.clear();
    Info::DriveTemperatureList = {{QStringLiteral("sda"), 40}, {QStringLiteral("sdb"), 50}};
}

void fillDrivesAndAudio()
{
    Info::DriveRoots = QStringList{QStringLiteral("C:\\"), QStringLiteral("D:\\")};
    Info::DriveVolumeNames = QStringList{QStringLiteral("System")};
    Info::DriveFreeGB = {120};
    Info::DriveFreePercent = {25};
    Info::DisksFreeGB = 120;
    Info::DisksTotalGB = 480;
    Info::AudioDeviceNames = QStringList{QStringLiteral("Speakers"), QStringLiteral("Headset")};
    Info::AudioDeviceVolumes = {35.5F, -1.0F};
    Info::AudioVolume = 35;
}

} // namespace

void fillSnapshot()
{
    Info::MissingNumbers.clear();
    fillCpuAndMemory();
    fillGpu();
    fillLists();
    fillDrivesAndAudio();
    Info::NetUpRate = 1.24;
    Info::NetUpRateUnits = QStringLiteral("Kb/s");
    Info::NetDownRate = 3;
    Info::NetDownRateUnits = QStringLiteral("MB/s");
}
