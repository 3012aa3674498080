#include "plugin/GaugeReadings.h"

#include "SDK/LanguageUtilities.h"
#include "plugin/NamedEntries.h"
#include "render/normalAction.h"
#include "sensors/readings/NetworkReadings.h"

namespace {

using Info = systemInfor;

const Reading<double> missing{0, QString(), true};

Reading<double> rate(const double &scaled, const QString &units)
{
    return {unscaledRate({scaled, units}), units, Info::MissingNumbers.contains(&scaled)};
}

/// From 0 to \a total, where that is known.
std::optional<ScaleRange> upTo(double total)
{
    return total > 0 ? std::optional(ScaleRange{0, total}) : std::nullopt;
}

double totalMB()
{
    return Info::MissingNumbers.contains(&Info::MemoryTotalMB) ? 0.0 : Info::MemoryTotalMB;
}

double totalGB()
{
    constexpr double megabytesPerGigabyte = 1024;
    return totalMB() / megabytesPerGigabyte;
}

Thresholds littleOf(double total)
{
    constexpr double little = 0.10;
    constexpr double veryLittle = 0.05;
    Thresholds thresholds;
    thresholds.isWorseAbove = false;
    if (total > 0) {
        thresholds.warning = little * total;
        thresholds.critical = veryLittle * total;
    }
    return thresholds;
}

QString translated(const QString &chinese, const QString &english)
{
    return LanguageUtilities::instance()->Translate(english, chinese);
}

} // namespace

namespace gaugereading {

const QString allDrives = QStringLiteral("Total_Disks");

Reading<double> uploadRate(const QString & /*selection*/)
{
    return rate(Info::NetUpRate, Info::NetUpRateUnits);
}

Reading<double> downloadRate(const QString & /*selection*/)
{
    return rate(Info::NetDownRate, Info::NetDownRateUnits);
}

Reading<double> driveTemperature(const QString &drive)
{
    const auto &list = Info::DriveTemperatureList;
    const int place = placeOf(list, drive);
    if (place < 0 || Info::DrivesWithoutTemperature.contains(drive))
        return missing;
    return {static_cast<double>(list.at(place).second), QString()};
}

Reading<double> sensor(const QString &label)
{
    const int place = label.isEmpty() ? 0 : placeOf(Info::SensorList, label);
    return Info::AllSensorNumbers.value(place, missing);
}

Reading<double> fan(const QString &label)
{
    return Info::CpuFanNumbers.value(placeOf(Info::CpuFanList, label), missing);
}

Reading<double> pump(const QString & /*selection*/)
{
    return Info::PumpNumber;
}

Reading<double> usedSpace(const QString &root)
{
    constexpr double whole = 100;
    const QString percentSign = QStringLiteral("%");
    if (root == allDrives) {
        const qint64 total = Info::DisksTotalGB;
        return total == 0 ? missing
                          : Reading<double>{whole * static_cast<double>(total - Info::DisksFreeGB) /
                                                static_cast<double>(total),
                                            percentSign};
    }
    // By the place of its root, as the text.
    const auto index = Info::DriveRoots.indexOf(root);
    if (index < 0 || index >= Info::DriveFreePercent.size())
        return missing;
    return {whole - Info::DriveFreePercent.at(index), percentSign};
}

QString chosenDrive(const normalAction &key)
{
    return key.SelectPhysicalDisk;
}

QString chosenSensor(const normalAction &key)
{
    return key.SelectValue;
}

QString chosenFan(const normalAction &key)
{
    return key.SelectCPUFan;
}

QString shownDrive(const normalAction &key)
{
    return key.showsAllDrives() ? allDrives : Info::DriveRoots.value(key.driveIndex);
}

QString driveTitle(const normalAction &key)
{
    if (!key.showVolumeName)
        return translated(QStringLiteral("硬盘"), QStringLiteral("Disk"));
    if (key.showsAllDrives())
        return translated(QStringLiteral("所有硬盘"), QStringLiteral("All disks"));
    QString root = shownDrive(key);
    if (root.endsWith(QLatin1Char('\\')))
        root.chop(1);
    return root;
}

QString sensorTitle(const normalAction &key)
{
    return key.SelectValue.isEmpty() && !Info::SensorList.isEmpty()
               ? Info::SensorList.constFirst().first
               : key.SelectValue;
}

std::optional<ScaleRange> percent()
{
    return ScaleRange{0, 100};
}

std::optional<ScaleRange> degrees()
{
    return ScaleRange{20, 100};
}

std::optional<ScaleRange> driveDegrees()
{
    return ScaleRange{20, 80};
}

std::optional<ScaleRange> memoryMB()
{
    return upTo(totalMB());
}

std::optional<ScaleRange> memoryGB()
{
    return upTo(totalGB());
}

std::optional<ScaleRange> graphicsMemory()
{
    return upTo(Info::GpuMemorySize);
}

Thresholds hot()
{
    return {80, 95};
}

Thresholds hotDrive()
{
    return {50, 65};
}

Thresholds fullDrive()
{
    return {85, 95};
}

Thresholds littleMemoryMB()
{
    return littleOf(totalMB());
}

Thresholds littleMemoryGB()
{
    return littleOf(totalGB());
}

} // namespace gaugereading
