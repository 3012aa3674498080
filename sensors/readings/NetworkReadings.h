#pragma once

#include <QJsonObject>
#include <QString>

/// A rate in the largest units that keep it readable: "Kb/s" (KB/s in fact), "MB/s" or "GB/s".
struct ScaledRate
{
    double value = 0.0;
    QString units;
};

struct NetworkReadings
{
    ScaledRate up;
    ScaledRate down;
};

/// Scales \a kilobytesPerSecond, raised to at least 0: above 1024 the next units are taken.
ScaledRate scaledRate(double kilobytesPerSecond);

/// Sums "Current UP rate" and "Current DL rate" over all adapters. A reading whose units are none
/// of "KB/s", "MB/s" and "GB/s" is not added.
NetworkReadings networkReadings(const QJsonObject &adapterTrees);
