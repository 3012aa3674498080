#pragma once

#include "sensors/FontRecord.h"
#include "values/Reading.h"

#include <QJsonObject>
#include <QList>
#include <QPair>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

/// The process-wide snapshot of readings: one number and one units text per metric. Written by the
/// refresh and the font registry, read by everyone else, all on the main thread. A reading that is
/// missing is 0 with its default units, and MissingNumbers has the address of its number.
struct systemInfor
{
    /// Sensors by label, each with its value and units as one text.
    using SensorTexts = QList<QPair<QString, QString>>;
    /// The readings of SensorTexts, in their order.
    using SensorNumbers = QVector<Reading<double>>;

    static inline QSet<const void *> MissingNumbers; ///< Addresses of members below.

    static inline unsigned CpuUsage = 0; ///< 0 to 100.
    static inline QString CpuUsageUnits;
    static inline int CpuTemperature = 0; ///< At most 150.
    static inline QString CpuTemperatureUnits;
    static inline int CpuClock = 0; ///< Mean over the cores, at most 100000.
    static inline QString CpuClockUnits;
    static inline double CpuPower = 0.0;   ///< 0 to 100000.
    static inline QString CpuPowerUnits;   ///< The sensor's own, even when empty.
    static inline double CpuVoltage = 0.0; ///< Mean over the cores.
    static inline QString CpuVoltageUnits;

    static inline unsigned MemoryLoad = 0; ///< 0 to 100.
    static inline QString MemoryLoadUnits;
    static inline int MemoryUsedMB = 0;
    static inline int MemoryAvailableMB = 0;
    static inline int MemoryTotalMB = 0; ///< Used and available together.
    static inline double MemoryUsedGB = 0.0;
    static inline double MemoryAvailableGB = 0.0;
    static inline double MemoryTotalGB = 0.0;
    static inline int MemoryTotalGBRounded = 0; ///< Half up.

    static inline double NetUpRate = 0.0; ///< Over all adapters, scaled to its units.
    static inline QString NetUpRateUnits; ///< "Kb/s", "MB/s" or "GB/s".
    static inline double NetDownRate = 0.0;
    static inline QString NetDownRateUnits;

    // Of the GPU with the most memory.
    static inline int GpuTemperature = 0; ///< At most 150.
    static inline QString GpuTemperatureUnits;
    static inline int GpuClock = 0; ///< At most 100000.
    static inline QString GpuClockUnits;
    static inline int GpuLoad = 0; ///< At most 100.
    static inline QString GpuLoadUnits;
    static inline int GpuMemoryClock = 0; ///< At most 100000.
    static inline QString GpuMemoryClockUnits;
    static inline double GpuMemoryUsage = 0.0; ///< 0 to 100.
    static inline QString GpuMemoryUsageUnits;
    static inline double GpuMemoryAllocated = 0.0; ///< At least 0.
    static inline QString GpuMemoryAllocatedUnits;
    static inline double GpuMemorySize = 0.0; ///< MB; 0 where it is unknown.
    static inline double GpuPower = 0.0;      ///< 0 to 100000.
    static inline QString GpuPowerUnits;
    static inline double GpuVoltage = 0.0;
    static inline QString GpuVoltageUnits;

    static inline QString AIOPump;            ///< The pump's speed, or "nodata".
    static inline SensorTexts CpuFanList;     ///< CPU fans.
    static inline SensorTexts SensorList;     ///< Every sensor.
    static inline Reading<double> PumpNumber; ///< That of AIOPump.
    static inline SensorNumbers CpuFanNumbers;
    static inline SensorNumbers AllSensorNumbers; ///< Those of SensorList.
    static inline QJsonObject AllSensorsData; ///< The last full sensor tree, frame rates as "FPS".
    static inline QJsonObject SmartInfo;      ///< The last drive trees.
    static inline QList<QPair<QString, int>> DriveTemperatureList; ///< By drive, °C.
    static inline QStringList DrivesWithoutTemperature;            ///< There it is 0.

    // The entries of the four lists of drives need not correspond: only DriveRoots includes the
    // drives that do not answer.
    static inline QStringList DriveRoots; ///< Of every fixed drive.
    static inline QStringList DriveVolumeNames;
    static inline QList<int> DriveFreeGB;      ///< Whole GiB, rounded down.
    static inline QList<int> DriveFreePercent; ///< 0 to 100.
    static inline unsigned DisksFreeGB = 0;    ///< Over all drives that answer.
    static inline unsigned DisksTotalGB = 0;

    static inline QStringList AudioDeviceNames;
    static inline QList<float> AudioDeviceVolumes; ///< 0 to 100, -1 where it cannot be read.
    static inline int AudioVolume = 0;             ///< Of the selected device, truncated, or -1.

    static inline QString CpuModel;
    static inline QString GpuModel;

    static inline QList<FontRecord> fontlist_one; ///< In the order of registration.
};
