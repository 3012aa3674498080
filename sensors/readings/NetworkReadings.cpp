#include "sensors/readings/NetworkReadings.h"

#include "sensors/readings/SensorTree.h"

using namespace sensortree;

namespace {

constexpr double step = 1024.0;

double kilobytesPerSecond(const QJsonObject &reading)
{
    const QString units = unitsOf(reading, QString());
    const double value = valueOf(reading);
    if (units == QLatin1String("KB/s"))
        return value;
    if (units == QLatin1String("MB/s"))
        return value * step;
    if (units == QLatin1String("GB/s"))
        return value * step * step;
    return 0.0;
}

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

NetworkReadings networkReadings(const QJsonObject &adapterTrees)
{
    double up = 0.0;
    double down = 0.0;
    for (const QJsonValue adapter : adapterTrees) {
        const QJsonObject sensors = adapter.toObject();
        up += kilobytesPerSecond(readingOf(sensors, QStringLiteral("Current UP rate")));
        down += kilobytesPerSecond(readingOf(sensors, QStringLiteral("Current DL rate")));
    }
    return {scaledRate(up), scaledRate(down)};
}
