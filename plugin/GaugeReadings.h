#pragma once

#include "plugin/gauges/ScaleRange.h"
#include "plugin/gauges/Thresholds.h"
#include "sensors/systemInfor.h"
#include "values/Reading.h"

#include <QString>

#include <optional>

class normalAction;

/// What the rows of the table of kinds (plugin/KeyKinds.cpp) tell gauges: readings of the snapshot
/// that may be missing, and their scales and thresholds.
namespace gaugereading {

/// A number of the snapshot.
template <const auto *number, const QString *units>
Reading<double> plain(const QString & /*selection*/)
{
    return {static_cast<double>(*number), *units, systemInfor::MissingNumbers.contains(number)};
}

/// In KB/s.
Reading<double> uploadRate(const QString &selection);
Reading<double> downloadRate(const QString &selection);

/// Of the drive that is named as in DriveTemperatureList, in °C.
Reading<double> driveTemperature(const QString &drive);
/// Of the first sensor of that name; of the very first for the empty name.
Reading<double> sensor(const QString &label);
Reading<double> fan(const QString &label);
Reading<double> pump(const QString &selection);
/// The used share of the drive with that root, in %, or of all drives for allDrives.
Reading<double> usedSpace(const QString &root);

/// What a key shows.
QString chosenDrive(const normalAction &key);
QString chosenSensor(const normalAction &key);
QString chosenFan(const normalAction &key);
/// The root of the drive, or allDrives.
QString shownDrive(const normalAction &key);

extern const QString allDrives;

/// Short titles that depend on the key.
QString driveTitle(const normalAction &key);
QString sensorTitle(const normalAction &key);

std::optional<ScaleRange> percent();
std::optional<ScaleRange> degrees();
std::optional<ScaleRange> driveDegrees();
std::optional<ScaleRange> memoryMB();
std::optional<ScaleRange> memoryGB();
std::optional<ScaleRange> graphicsMemory();

Thresholds hot();
Thresholds hotDrive();
Thresholds fullDrive();
Thresholds littleMemoryMB();
Thresholds littleMemoryGB();

} // namespace gaugereading
