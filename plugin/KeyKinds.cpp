#include "plugin/KeyKinds.h"

#include "SDK/Logger/Logger.h"
#include "plugin/DiskKey.h"
#include "plugin/GaugeReadings.h"
#include "plugin/KeyPass.h"
#include "plugin/KeySelections.h"
#include "plugin/NamedEntries.h"
#include "plugin/ReplyParts.h"
#include "plugin/gauges/NumberText.h"
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
    return key.isFahrenheit() ? wholenumber::truncated(fahrenheit(celsius)) : celsius;
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
    const int place = placeOf(list, key.SelectPhysicalDisk);
    // Compatibility: disk-temperature-carried
    const int celsius = place >= 0 ? list.at(place).second : pass.shownDiskTemperature;
    pass.shownDiskTemperature = inChosenUnit(celsius, key);
    return {static_cast<double>(pass.shownDiskTemperature), degree};
}

// Texts.

/// The text of the first entry named \a name, or \a fallback.
QString lookUp(const Info::SensorTexts &list, const QString &name, const QString &fallback)
{
    const int place = placeOf(list, name);
    return place >= 0 ? list.at(place).second : fallback;
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

void composeNetwork(normalAction &key, const QString &text)
{
    if (key.isOneLine())
        key.composeLine(text);
    else
        key.composeTwoLines(oneDecimal(uploadRate(key)), oneDecimal(downloadRate(key)));
}

// Gauges.

namespace gr = gaugereading;

/// A number of the snapshot on a scale that follows it.
template <const auto *number, const QString *units>
GaugeKind steady(Digits digits)
{
    return gaugeOf(gr::plain<number, units>).with(digits);
}

template <const auto *number, const QString *units>
GaugeKind share()
{
    return gaugeOf(gr::plain<number, units>).on(gr::percent);
}

template <const int *celsius>
GaugeKind temperature()
{
    return gaugeOf(gr::plain<celsius, &degree>)
        .in(Quantity::Temperature)
        .on(gr::degrees)
        .limitedBy(gr::hot);
}

GaugeKind rate(GaugeKind::Value value)
{
    return gaugeOf(value).in(Quantity::Rate).with(Digits::One);
}

namespace uuid = actionuuid;

/// In the order in which UUIDs are compared; later ones therefore take longest to find.
const KeyKind keyKinds[] = {
    KeyKind(uuid::memory, reading<&Info::MemoryLoad, &Info::MemoryLoadUnits>, whole)
        .gauging(share<&Info::MemoryLoad, &Info::MemoryLoadUnits>().titled(
            QStringLiteral("内存"), QStringLiteral("Memory"))),
    KeyKind(uuid::cpu, reading<&Info::CpuUsage, &Info::CpuUsageUnits>, whole)
        .gauging(share<&Info::CpuUsage, &Info::CpuUsageUnits>().titled(QStringLiteral("CPU"),
                                                                       QStringLiteral("CPU"))),
    KeyKind(uuid::cpuTemperature, degrees<&Info::CpuTemperature>, whole)
        .gauging(temperature<&Info::CpuTemperature>().titled(QStringLiteral("CPU温度"),
                                                             QStringLiteral("CPU temp")))
        .replying(replypart::temperatureType),
    KeyKind(uuid::cpuClock, reading<&Info::CpuClock, &Info::CpuClockUnits>, whole)
        .gauging(steady<&Info::CpuClock, &Info::CpuClockUnits>(Digits::Whole)
                     .titled(QStringLiteral("CPU频率"), QStringLiteral("CPU clock"))),
    KeyKind(uuid::cpuPower, reading<&Info::CpuPower, &Info::CpuPowerUnits>, oneDecimal)
        .gauging(steady<&Info::CpuPower, &Info::CpuPowerUnits>(Digits::One)
                     .titled(QStringLiteral("CPU功率"), QStringLiteral("CPU power"))),
    KeyKind(uuid::netWork, bothRates)
        .paintedBy(paintNetwork, composeNetwork)
        .gauging(rate(gr::uploadRate)
                     .pairedWith(gr::downloadRate)
                     .titled(QStringLiteral("网速"), QStringLiteral("Network")))
        .replying(replypart::titleLines),
    KeyKind(uuid::gpuTemperature, degrees<&Info::GpuTemperature>, whole)
        .gauging(temperature<&Info::GpuTemperature>().titled(QStringLiteral("GPU温度"),
                                                             QStringLiteral("GPU temp")))
        .replying(replypart::temperatureType),
    KeyKind(uuid::gpuClock, reading<&Info::GpuClock, &Info::GpuClockUnits>, whole)
        .gauging(steady<&Info::GpuClock, &Info::GpuClockUnits>(Digits::Whole)
                     .titled(QStringLiteral("GPU频率"), QStringLiteral("GPU clock"))),
    KeyKind(uuid::gpuLoad, reading<&Info::GpuLoad, &Info::GpuLoadUnits>, whole)
        .gauging(share<&Info::GpuLoad, &Info::GpuLoadUnits>().titled(QStringLiteral("GPU"),
                                                                     QStringLiteral("GPU"))),
    KeyKind(uuid::gpuMemoryClock, reading<&Info::GpuMemoryClock, &Info::GpuMemoryClockUnits>, whole)
        .gauging(steady<&Info::GpuMemoryClock, &Info::GpuMemoryClockUnits>(Digits::Whole)
                     .titled(QStringLiteral("显存频率"), QStringLiteral("Mem clock"))),
    KeyKind(uuid::gpuMemoryUsage, reading<&Info::GpuMemoryUsage, &Info::GpuMemoryUsageUnits>, whole)
        .gauging(share<&Info::GpuMemoryUsage, &Info::GpuMemoryUsageUnits>().titled(
            QStringLiteral("显存"), QStringLiteral("GPU mem"))),
    KeyKind(uuid::memoryFreeMB, reading<&Info::MemoryAvailableMB, &megabytes>, whole)
        .gauging(steady<&Info::MemoryAvailableMB, &megabytes>(Digits::Whole)
                     .on(gr::memoryMB)
                     .limitedBy(gr::littleMemoryMB)
                     .titled(QStringLiteral("可用内存"), QStringLiteral("Free"))),
    KeyKind(uuid::memoryUsedMB, reading<&Info::MemoryUsedMB, &megabytes>, whole)
        .gauging(steady<&Info::MemoryUsedMB, &megabytes>(Digits::Whole)
                     .on(gr::memoryMB)
                     .titled(QStringLiteral("已用内存"), QStringLiteral("Used"))),
    {uuid::memoryTotalMB, reading<&Info::MemoryTotalMB, &megabytes>, whole},
    KeyKind(uuid::memoryFreeGB, reading<&Info::MemoryAvailableGB, &gigabytes>, oneDecimal)
        .gauging(steady<&Info::MemoryAvailableGB, &gigabytes>(Digits::One)
                     .on(gr::memoryGB)
                     .limitedBy(gr::littleMemoryGB)
                     .titled(QStringLiteral("可用内存"), QStringLiteral("Free"))),
    KeyKind(uuid::memoryUsedGB, reading<&Info::MemoryUsedGB, &gigabytes>, oneDecimal)
        .gauging(steady<&Info::MemoryUsedGB, &gigabytes>(Digits::One)
                     .on(gr::memoryGB)
                     .titled(QStringLiteral("已用内存"), QStringLiteral("Used"))),
    {uuid::memoryTotalGB, reading<&Info::MemoryTotalGB, &gigabytes>, oneDecimal},
    KeyKind(uuid::gpuMemoryUsed, reading<&Info::GpuMemoryAllocated, &Info::GpuMemoryAllocatedUnits>,
            general)
        .gauging(steady<&Info::GpuMemoryAllocated, &Info::GpuMemoryAllocatedUnits>(Digits::General)
                     .on(gr::graphicsMemory)
                     .titled(QStringLiteral("已用显存"), QStringLiteral("VRAM"))),
    KeyKind(uuid::gpuPower, reading<&Info::GpuPower, &Info::GpuPowerUnits>, oneDecimal)
        .gauging(steady<&Info::GpuPower, &Info::GpuPowerUnits>(Digits::One)
                     .titled(QStringLiteral("GPU功耗"), QStringLiteral("GPU power"))),
    KeyKind(uuid::volume, reading<&Info::AudioVolume, &percent>, whole)
        .gauging(share<&Info::AudioVolume, &percent>().titled(QStringLiteral("音量"),
                                                              QStringLiteral("Volume")))
        .replying(replypart::playbackDevices),
    {uuid::cpuModel, [](Key) { return Info::CpuModel; }},
    {uuid::gpuModel, [](Key) { return Info::GpuModel; }},
    KeyKind(uuid::gpuVoltage, reading<&Info::GpuVoltage, &Info::GpuVoltageUnits>, threeDecimals)
        .gauging(steady<&Info::GpuVoltage, &Info::GpuVoltageUnits>(Digits::Three)
                     .titled(QStringLiteral("GPU电压"), QStringLiteral("GPU volts"))),
    KeyKind(uuid::diskTemperature, diskDegrees, whole)
        .gauging(gaugeOf(gr::driveTemperature)
                     .in(Quantity::Temperature)
                     .selecting(gr::chosenDrive)
                     .on(gr::driveDegrees)
                     .limitedBy(gr::hotDrive)
                     .titled(QStringLiteral("硬盘温度"), QStringLiteral("Disk temp")))
        .selecting(keyselection::disk)
        .replying(replypart::driveTemperatures),
    {uuid::memoryModel, reading<&Info::MemoryTotalGBRounded, &installed>, whole},
    KeyKind(uuid::upload, uploadRate, oneDecimal)
        .gauging(rate(gr::uploadRate).titled(QStringLiteral("上传"), QStringLiteral("Up"))),
    KeyKind(uuid::download, downloadRate, oneDecimal)
        .gauging(rate(gr::downloadRate).titled(QStringLiteral("下载"), QStringLiteral("Down"))),
    KeyKind(uuid::allData, sensorText)
        .gauging(gaugeOf(gr::sensor)
                     .with(Digits::General)
                     .selecting(gr::chosenSensor)
                     .titledBy(gr::sensorTitle))
        .selecting(keyselection::sensor)
        .replying(replypart::sensors),
    KeyKind(uuid::cpuVoltage, reading<&Info::CpuVoltage, &Info::CpuVoltageUnits>, threeDecimals)
        .gauging(steady<&Info::CpuVoltage, &Info::CpuVoltageUnits>(Digits::Three)
                     .titled(QStringLiteral("CPU电压"), QStringLiteral("CPU volts"))),
    KeyKind(uuid::physicalDisk, diskkey::text)
        .gauging(gaugeOf(gr::usedSpace)
                     .selecting(gr::shownDrive)
                     .on(gr::percent)
                     .limitedBy(gr::fullDrive)
                     .titledBy(gr::driveTitle))
        .steppingThroughDrives()
        .replying(replypart::drives),
    KeyKind(uuid::pumpSpeed, pumpText)
        .gauging(gaugeOf(gr::pump)
                     .with(Digits::General)
                     .titled(QStringLiteral("水泵"), QStringLiteral("Pump")))
        .replying(replypart::pump),
    KeyKind(uuid::cpuFan, fanText)
        .gauging(gaugeOf(gr::fan)
                     .with(Digits::General)
                     .selecting(gr::chosenFan)
                     .titled(QStringLiteral("风扇"), QStringLiteral("Fan")))
        .selecting(keyselection::fan)
        .replying(replypart::fans),
};

} // namespace

const KeyKind *findKeyKind(const QString &uuid)
{
    const auto kind = std::find_if(std::begin(keyKinds), std::end(keyKinds),
                                   [&uuid](const KeyKind &each) { return each.uuid() == uuid; });
    return kind == std::end(keyKinds) ? nullptr : kind;
}
