#include "plugin/KeyTable.h"

#include "SDK/Logger/Logger.h"
#include "plugin/DiskKey.h"
#include "render/normalAction.h"
#include "sensors/systemInfor.h"
#include "values/ReadingText.h"
#include "values/WholeNumber.h"

#include <algorithm>
#include <iterator>

namespace {

using readingtext::fixed;
using readingtext::general;
using readingtext::integer;

using Info = systemInfor;

int inChosenUnit(int celsius, const normalAction &key)
{
    return key.isFahrenheit() ? wholenumber::truncated(celsius * 1.8 + 32) : celsius;
}

/// The degree sign stands alone in both units.
QString degrees(int celsius, const normalAction &key)
{
    return integer(inChosenUnit(celsius, key), QStringLiteral("°"));
}

QString diskTemperature(const normalAction &key, KeyPass &pass)
{
    const auto &list = Info::DriveTemperatureList;
    const auto disk = std::find_if(list.begin(), list.end(), [&key](const auto &entry) {
        return entry.first == key.SelectPhysicalDisk;
    });
    if (disk != list.end())
        pass.diskTemperature = disk->second;
    pass.diskTemperature = inChosenUnit(pass.diskTemperature, key);
    return integer(pass.diskTemperature, QStringLiteral("°"));
}

/// The text of the first entry named \a name, or \a fallback.
QString lookUp(const Info::SensorTexts &list, const QString &name, const QString &fallback)
{
    const auto entry = std::find_if(list.begin(), list.end(),
                                    [&name](const auto &each) { return each.first == name; });
    return entry == list.end() ? fallback : entry->second;
}

QString sensorText(const QString &name)
{
    if (name.isEmpty() && !Info::SensorList.isEmpty())
        return Info::SensorList.constFirst().second;
    return lookUp(Info::SensorList, name, QStringLiteral("null"));
}

QString pumpText()
{
    LogDebug(QStringLiteral("updateImages PumpSpeed"));
    return Info::AIOPump;
}

QString fanText(const QString &fan)
{
    LogDebug(QStringLiteral("updateImages CPUFan"));
    return lookUp(Info::CpuFanList, fan, QStringLiteral("nodata"));
}

QString uploadRate()
{
    return fixed(Info::NetUpRate, 1, Info::NetUpRateUnits);
}

QString downloadRate()
{
    return fixed(Info::NetDownRate, 1, Info::NetDownRateUnits);
}

QString paintOneLine(normalAction &key, const QString &text)
{
    return key.normalPainting(text);
}

/// One line on request; else the two-line painter decides, which knows only its own setting.
QString paintNetwork(normalAction &key, const QString &text)
{
    return key.isOneLine() ? key.normalPainting(text)
                           : key.paintingTwoLines(uploadRate(), downloadRate());
}

using Key = const normalAction &;
using Pass = KeyPass &;

struct KeyRow
{
    const char *uuid;
    QString (*text)(Key key, Pass pass);
    QString (*paint)(normalAction &key, const QString &text);
};

const KeyRow keyTable[] = {
    {"com.quellor.stream.system.memory",
     [](Key, Pass) { return integer(Info::MemoryLoad, Info::MemoryLoadUnits); }, paintOneLine},
    {"com.quellor.stream.system.cpu",
     [](Key, Pass) { return integer(Info::CpuUsage, Info::CpuUsageUnits); }, paintOneLine},
    {"com.quellor.stream.system.cpu.temperature",
     [](Key key, Pass) { return degrees(Info::CpuTemperature, key); }, paintOneLine},
    {"com.quellor.stream.system.Cpu_Clock",
     [](Key, Pass) { return integer(Info::CpuClock, Info::CpuClockUnits); }, paintOneLine},
    {"com.quellor.stream.system.Cpu_Package_Power",
     [](Key, Pass) { return fixed(Info::CpuPower, 1, Info::CpuPowerUnits); }, paintOneLine},
    {"com.quellor.stream.system.NetWork",
     [](Key, Pass) -> QString { return uploadRate() + QStringLiteral("  ") + downloadRate(); },
     paintNetwork},
    {"com.quellor.stream.system.Gpu_Temperature",
     [](Key key, Pass) { return degrees(Info::GpuTemperature, key); }, paintOneLine},
    {"com.quellor.stream.system.Gpu_Core_Clock",
     [](Key, Pass) { return integer(Info::GpuClock, Info::GpuClockUnits); }, paintOneLine},
    {"com.quellor.stream.system.Gpu_Core_Utility",
     [](Key, Pass) { return integer(Info::GpuLoad, Info::GpuLoadUnits); }, paintOneLine},
    {"com.quellor.stream.system.Gpu_Memory_Clock",
     [](Key, Pass) { return integer(Info::GpuMemoryClock, Info::GpuMemoryClockUnits); },
     paintOneLine},
    {"com.quellor.stream.system.Gpu_Memory_Utility",
     [](Key, Pass) {
         return integer(wholenumber::truncated(Info::GpuMemoryUsage), Info::GpuMemoryUsageUnits);
     },
     paintOneLine},
    {"com.quellor.stream.system.Memory_Free_MB",
     [](Key, Pass) { return integer(Info::MemoryAvailableMB, QStringLiteral("MB")); },
     paintOneLine},
    {"com.quellor.stream.system.Memory_Used_MB",
     [](Key, Pass) { return integer(Info::MemoryUsedMB, QStringLiteral("MB")); }, paintOneLine},
    {"com.quellor.stream.system.Memory_Total_MB",
     [](Key, Pass) { return integer(Info::MemoryTotalMB, QStringLiteral("MB")); }, paintOneLine},
    {"com.quellor.stream.system.Memory_Free_GB",
     [](Key, Pass) { return fixed(Info::MemoryAvailableGB, 1, QStringLiteral("GB")); },
     paintOneLine},
    {"com.quellor.stream.system.Memory_Used_GB",
     [](Key, Pass) { return fixed(Info::MemoryUsedGB, 1, QStringLiteral("GB")); }, paintOneLine},
    {"com.quellor.stream.system.Memory_Total_GB",
     [](Key, Pass) { return fixed(Info::MemoryTotalGB, 1, QStringLiteral("GB")); }, paintOneLine},
    {"com.quellor.stream.system.Gpu_Memory_Used",
     [](Key, Pass) { return general(Info::GpuMemoryAllocated, Info::GpuMemoryAllocatedUnits); },
     paintOneLine},
    {"com.quellor.stream.system.Gpu_Power",
     [](Key, Pass) { return fixed(Info::GpuPower, 1, Info::GpuPowerUnits); }, paintOneLine},
    {"com.quellor.stream.system.volume",
     [](Key, Pass) { return integer(Info::AudioVolume, QStringLiteral("%")); }, paintOneLine},
    {"com.quellor.stream.system.Cpu_Model", [](Key, Pass) { return Info::CpuModel; }, paintOneLine},
    {"com.quellor.stream.system.Gpu_Model", [](Key, Pass) { return Info::GpuModel; }, paintOneLine},
    {"com.quellor.stream.system.Gpu_Voltage",
     [](Key, Pass) { return fixed(Info::GpuVoltage, 3, Info::GpuVoltageUnits); }, paintOneLine},
    {"com.quellor.stream.system.PhysicalDisk.Temperature",
     [](Key key, Pass pass) { return diskTemperature(key, pass); }, paintOneLine},
    {"com.quellor.stream.system.Memory_Model",
     [](Key, Pass) { return integer(Info::MemoryTotalGBRounded, QStringLiteral("G")); },
     paintOneLine},
    {"com.quellor.stream.system.NetWork.Upload", [](Key, Pass) { return uploadRate(); },
     paintOneLine},
    {"com.quellor.stream.system.NetWork.Download", [](Key, Pass) { return downloadRate(); },
     paintOneLine},
    {"com.quellor.stream.AllDATA", [](Key key, Pass) { return sensorText(key.SelectValue); },
     paintOneLine},
    {"com.quellor.stream.system.Cpu_Voltage",
     [](Key, Pass) { return fixed(Info::CpuVoltage, 3, Info::CpuVoltageUnits); }, paintOneLine},
    {"com.quellor.stream.system.PhysicalDisk", [](Key key, Pass) { return diskkey::text(key); },
     paintOneLine},
    {"com.quellor.stream.PumpSpeed", [](Key, Pass) { return pumpText(); }, paintOneLine},
    {"com.quellor.stream.CPUFan", [](Key key, Pass) { return fanText(key.SelectCPUFan); },
     paintOneLine},
};

} // namespace

std::optional<QString> paintKey(normalAction &key, KeyPass &pass)
{
    const QString uuid = key.GetAction();
    const auto row =
        std::find_if(std::begin(keyTable), std::end(keyTable), [&uuid](const KeyRow &candidate) {
            return uuid == QLatin1String(candidate.uuid);
        });
    if (row == std::end(keyTable))
        return std::nullopt;
    return row->paint(key, row->text(key, pass));
}
