#include "plugin/KeyKinds.h"

#include "SDK/Logger/Logger.h"
#include "plugin/DiskKey.h"
#include "plugin/KeyPass.h"
#include "plugin/KeySelections.h"
#include "plugin/ReplyParts.h"
#include "render/ActionUuids.h"
#include "render/normalAction.h"
#include "sensors/systemInfor.h"
#include "values/ReadingText.h"
#include "values/WholeNumber.h"

#include <algorithm>
#include <iterator>

namespace {

using Info = systemInfor;
using Key = const normalAction &;

const QString megabytes = QStringLiteral("MB");
const QString gigabytes = QStringLiteral("GB");
const QString installed = QStringLiteral("G");
const QString percent = QStringLiteral("%");
const QString degree = QStringLiteral("°");

// Formats.

QString whole(const Reading<double> &value)
{
    return readingtext::integer(wholenumber::truncated(value.value), value.units);
}

QString oneDecimal(const Reading<double> &value)
{
    return readingtext::fixed(value.value, 1, value.units);
}

QString threeDecimals(const Reading<double> &value)
{
    return readingtext::fixed(value.value, 3, value.units);
}

QString general(const Reading<double> &value)
{
    return readingtext::general(value.value, value.units);
}

// Values.

/// A number of the snapshot.
template <const auto *number, const QString *units>
Reading<double> reading(Key /*key*/)
{
    return {static_cast<double>(*number), *units};
}

int inChosenUnit(int celsius, Key key)
{
    return key.isFahrenheit() ? wholenumber::truncated(celsius * 1.8 + 32) : celsius;
}

// Compatibility: bare-degrees
/// The degree sign without a letter, in both units.
template <const int *celsius>
Reading<double> degrees(Key key)
{
    return {static_cast<double>(inChosenUnit(*celsius, key)), degree};
}

Reading<double> diskDegrees(Key key, KeyPass &pass)
{
    const auto &list = Info::DriveTemperatureList;
    const auto disk = std::find_if(list.begin(), list.end(), [&key](const auto &entry) {
        return entry.first == key.SelectPhysicalDisk;
    });
    // Compatibility: disk-temperature-carried
    const int celsius = disk != list.end() ? disk->second : pass.shownDiskTemperature;
    pass.shownDiskTemperature = inChosenUnit(celsius, key);
    return {static_cast<double>(pass.shownDiskTemperature), degree};
}

// Texts.

/// The text of the first entry named \a name, or \a fallback.
QString lookUp(const Info::SensorTexts &list, const QString &name, const QString &fallback)
{
    const auto entry = std::find_if(list.begin(), list.end(),
                                    [&name](const auto &each) { return each.first == name; });
    return entry == list.end() ? fallback : entry->second;
}

QString sensorText(Key key)
{
    if (key.SelectValue.isEmpty() && !Info::SensorList.isEmpty())
        return Info::SensorList.constFirst().second;
    return lookUp(Info::SensorList, key.SelectValue, QStringLiteral("null"));
}

QString pumpText(Key /*key*/)
{
    LogDebug(QStringLiteral("updateImages PumpSpeed"));
    return Info::AIOPump;
}

QString fanText(Key key)
{
    LogDebug(QStringLiteral("updateImages CPUFan"));
    return lookUp(Info::CpuFanList, key.SelectCPUFan, QStringLiteral("nodata"));
}

constexpr auto uploadRate = reading<&Info::NetUpRate, &Info::NetUpRateUnits>;
constexpr auto downloadRate = reading<&Info::NetDownRate, &Info::NetDownRateUnits>;

QString bothRates(Key key)
{
    return oneDecimal(uploadRate(key)) + QStringLiteral("  ") + oneDecimal(downloadRate(key));
}

// Painters.

// Compatibility: neither-layout
/// Paints one line if the key is set to it; otherwise the two-line painter, which only checks its
/// own setting.
QString paintNetwork(normalAction &key, const QString &text)
{
    return key.isOneLine()
               ? key.normalPainting(text)
               : key.paintingTwoLines(oneDecimal(uploadRate(key)), oneDecimal(downloadRate(key)));
}

namespace uuid = actionuuid;

/// In the order in which UUIDs are compared; later ones therefore take longest to find.
const KeyKind keyKinds[] = {
    {uuid::memory, reading<&Info::MemoryLoad, &Info::MemoryLoadUnits>, whole},
    {uuid::cpu, reading<&Info::CpuUsage, &Info::CpuUsageUnits>, whole},
    KeyKind(uuid::cpuTemperature, degrees<&Info::CpuTemperature>, whole)
        .replying(replypart::temperatureType),
    {uuid::cpuClock, reading<&Info::CpuClock, &Info::CpuClockUnits>, whole},
    {uuid::cpuPower, reading<&Info::CpuPower, &Info::CpuPowerUnits>, oneDecimal},
    KeyKind(uuid::netWork, bothRates).paintedBy(paintNetwork).replying(replypart::titleLines),
    KeyKind(uuid::gpuTemperature, degrees<&Info::GpuTemperature>, whole)
        .replying(replypart::temperatureType),
    {uuid::gpuClock, reading<&Info::GpuClock, &Info::GpuClockUnits>, whole},
    {uuid::gpuLoad, reading<&Info::GpuLoad, &Info::GpuLoadUnits>, whole},
    {uuid::gpuMemoryClock, reading<&Info::GpuMemoryClock, &Info::GpuMemoryClockUnits>, whole},
    {uuid::gpuMemoryUsage, reading<&Info::GpuMemoryUsage, &Info::GpuMemoryUsageUnits>, whole},
    {uuid::memoryFreeMB, reading<&Info::MemoryAvailableMB, &megabytes>, whole},
    {uuid::memoryUsedMB, reading<&Info::MemoryUsedMB, &megabytes>, whole},
    {uuid::memoryTotalMB, reading<&Info::MemoryTotalMB, &megabytes>, whole},
    {uuid::memoryFreeGB, reading<&Info::MemoryAvailableGB, &gigabytes>, oneDecimal},
    {uuid::memoryUsedGB, reading<&Info::MemoryUsedGB, &gigabytes>, oneDecimal},
    {uuid::memoryTotalGB, reading<&Info::MemoryTotalGB, &gigabytes>, oneDecimal},
    {uuid::gpuMemoryUsed, reading<&Info::GpuMemoryAllocated, &Info::GpuMemoryAllocatedUnits>,
     general},
    {uuid::gpuPower, reading<&Info::GpuPower, &Info::GpuPowerUnits>, oneDecimal},
    KeyKind(uuid::volume, reading<&Info::AudioVolume, &percent>, whole)
        .replying(replypart::playbackDevices),
    {uuid::cpuModel, [](Key) { return Info::CpuModel; }},
    {uuid::gpuModel, [](Key) { return Info::GpuModel; }},
    {uuid::gpuVoltage, reading<&Info::GpuVoltage, &Info::GpuVoltageUnits>, threeDecimals},
    KeyKind(uuid::diskTemperature, diskDegrees, whole)
        .selecting(keyselection::disk)
        .replying(replypart::driveTemperatures),
    {uuid::memoryModel, reading<&Info::MemoryTotalGBRounded, &installed>, whole},
    {uuid::upload, uploadRate, oneDecimal},
    {uuid::download, downloadRate, oneDecimal},
    KeyKind(uuid::allData, sensorText).selecting(keyselection::sensor).replying(replypart::sensors),
    {uuid::cpuVoltage, reading<&Info::CpuVoltage, &Info::CpuVoltageUnits>, threeDecimals},
    KeyKind(uuid::physicalDisk, diskkey::text).steppingThroughDrives().replying(replypart::drives),
    KeyKind(uuid::pumpSpeed, pumpText).replying(replypart::pump),
    KeyKind(uuid::cpuFan, fanText).selecting(keyselection::fan).replying(replypart::fans),
};

} // namespace

const KeyKind *findKeyKind(const QString &uuid)
{
    const auto kind = std::find_if(std::begin(keyKinds), std::end(keyKinds),
                                   [&uuid](const KeyKind &each) { return each.uuid() == uuid; });
    return kind == std::end(keyKinds) ? nullptr : kind;
}
