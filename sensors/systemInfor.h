#pragma once

#include "sensors/FontRecord.h"

#include <QJsonObject>
#include <QList>
#include <QString>

/// The process-wide snapshot of readings: one number and one units text per metric. Written by the
/// refresh and the font registry, read by everyone else, all on the main thread. A reading that is
/// missing is 0 with its default units.
struct systemInfor
{
    static inline unsigned CpuUsage = 0; ///< 0 to 100.
    static inline QString CpuUsageUnits;
    static inline int CpuClock = 0; ///< Mean over the cores, at most 100000.
    static inline QString CpuClockUnits;
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

    static inline QJsonObject AllSensorsData; ///< The last full sensor tree, frame rates as "FPS".

    static inline QList<FontRecord> fontlist_one; ///< In the order of registration.
};
