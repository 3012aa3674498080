#pragma once

#include "values/Reading.h"

#include <QJsonObject>

/// What the system tree holds about physical memory. Total is used and available together.
struct MemoryReadings
{
    Reading<unsigned> load; ///< 0 to 100.
    int usedMB = 0;
    int availableMB = 0;
    bool isUsedMissing = true; ///< Then usedMB is 0; likewise for availableMB.
    bool isAvailableMissing = true;
    int totalMB = 0;
    double usedGB = 0.0;
    double availableGB = 0.0;
    double totalGB = 0.0;
    int totalGBRounded = 0; ///< Half up.
};

/// Reads "Physical Memory Load", "Physical Memory Used" and "Physical Memory Available". The
/// megabytes are whole numbers: one that is not whole counts as 0.
MemoryReadings memoryReadings(const QJsonObject &systemTree);
