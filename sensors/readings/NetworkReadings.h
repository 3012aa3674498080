#pragma once

#include "values/Reading.h"

#include <QJsonObject>

/// The rates over all adapters, as scaledRate gives them.
struct NetworkReadings
{
    Reading<double> up;
    Reading<double> down;
};

/// \a kilobytesPerSecond, raised to at least 0, in the largest units that keep it readable: "Kb/s"
/// (KB/s in fact), "MB/s" or "GB/s". Above 1024 the next units are taken.
Reading<double> scaledRate(double kilobytesPerSecond);

/// Sums "Current UP rate" and "Current DL rate" over all adapters. A reading whose units are none
/// of "KB/s", "MB/s" and "GB/s" is not added.
NetworkReadings networkReadings(const QJsonObject &adapterTrees);
