#pragma once

#include "values/Reading.h"

#include <QJsonObject>

/// The rates over all adapters, as scaledRate gives them.
struct NetworkReadings
{
    Reading<double> up;
    Reading<double> down;
};

/// \a kilobytesPerSecond, at least 0, in the largest suitable units: "Kb/s" (actually KB/s), "MB/s"
/// or "GB/s". Above 1024 the next units are used.
Reading<double> scaledRate(double kilobytesPerSecond);

/// The KB/s that scaledRate has scaled.
double unscaledRate(const Reading<double> &scaled);

/// Sums "Current UP rate" and "Current DL rate" over all adapters. A reading whose units are not
/// "KB/s", "MB/s" or "GB/s" is ignored.
NetworkReadings networkReadings(const QJsonObject &adapterTrees);
