#include "sensors/readings/NetworkReadings.h"

#include "sensors/readings/SensorTree.h"

#include <optional>

using namespace sensortree;

namespace {

constexpr double step = 1024.0;

/// In KB/s; nothing where the units are others.
std::optional<double> kilobytesPerSecond(const QJsonObject &reading)
{
    const QString units = unitsOf(reading, QString());
    const double value = valueOf(reading);
    if (units == QLatin1String("KB/s"))
        return value;
    if (units == QLatin1String("MB/s"))
        return value * step;
    if (units == QLatin1String("GB/s"))
        return value * step * step;
    return std::nullopt;
}

struct Sum
{
    double rate = 0.0;
    bool isMissing = true;

    void add(const QJsonObject &reading)
    {
        const std::optional<double> kilobytes = kilobytesPerSecond(reading);
        rate += kilobytes.value_or(0.0);
        isMissing = isMissing && !(kilobytes && hasValue(reading));
    }

    Reading<double> scaled() const
    {
        Reading<double> reading = scaledRate(rate);
        reading.isMissing = isMissing;
        return reading;
    }
};

} // namespace

Reading<double> scaledRate(double kilobytesPerSecond)
{
    if (!(kilobytesPerSecond > 0))
        return {0.0, QStringLiteral("Kb/s")};
    // Compatibility: kilobits-for-kilobytes
    if (kilobytesPerSecond <= step)
        return {kilobytesPerSecond, QStringLiteral("Kb/s")};
    const double megabytes = kilobytesPerSecond / step;
    if (megabytes <= step)
        return {megabytes, QStringLiteral("MB/s")};
    return {megabytes / step, QStringLiteral("GB/s")};
}

double unscaledRate(const Reading<double> &scaled)
{
    if (scaled.units == QLatin1String("MB/s"))
        return scaled.value * step;
    if (scaled.units == QLatin1String("GB/s"))
        return scaled.value * step * step;
    return scaled.value;
}

NetworkReadings networkReadings(const QJsonObject &adapterTrees)
{
    Sum up;
    Sum down;
    for (const QJsonValue adapter : adapterTrees) {
        const QJsonObject sensors = adapter.toObject();
        up.add(readingOf(sensors, QStringLiteral("Current UP rate")));
        down.add(readingOf(sensors, QStringLiteral("Current DL rate")));
    }
    return {up.scaled(), down.scaled()};
}
