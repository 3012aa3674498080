#include "sensors/readings/CpuReadings.h"

#include "sensors/readings/SensorTree.h"
#include "values/WholeNumber.h"

using namespace sensortree;
using namespace wholenumber;

namespace {

constexpr unsigned highestUsage = 100;
constexpr unsigned highestClock = 100000;

struct Mean
{
    double sum = 0.0;
    int count = 0;
    QString units;

    void add(const QJsonObject &reading)
    {
        sum += valueOf(reading);
        units = unitsOf(reading, QString());
        ++count;
    }

    double value() const { return count > 0 && sum > 0 ? sum / count : 0.0; }
    QString unitsOr(const QString &fallback) const { return units.isEmpty() ? fallback : units; }
};

bool isTotalUsage(const QString &key)
{
    return containsLabel(key, QStringLiteral("Total CPU Utility")) ||
           containsLabel(key, QStringLiteral("Total CPU Usage"));
}

bool isCoreClock(const QString &key)
{
    return containsLabel(key, QStringLiteral("Core")) &&
           containsLabel(key, QStringLiteral("Clock")) &&
           !containsLabel(key, QStringLiteral("Effective"));
}

bool isCoreVoltage(const QString &key)
{
    return containsLabel(key, QStringLiteral("Core")) && containsLabel(key, QStringLiteral("VID"));
}

} // namespace

CpuReadings cpuReadings(const QJsonObject &cpuTree)
{
    QJsonObject usage;
    Mean clock;
    Mean voltage;
    for (auto sensor = cpuTree.begin(); sensor != cpuTree.end(); ++sensor) {
        const QJsonObject reading = firstReading(sensor.value());
        if (isTotalUsage(sensor.key()))
            usage = reading;
        else if (isCoreClock(sensor.key()))
            clock.add(reading);
        else if (isCoreVoltage(sensor.key()))
            voltage.add(reading);
    }
    return {static_cast<unsigned>(capped(truncated(valueOf(usage)), highestUsage)),
            unitsOf(usage, QStringLiteral("%")),
            capped(truncated(clock.value()), highestClock),
            clock.unitsOr(QStringLiteral("MHz")),
            voltage.value(),
            voltage.unitsOr(QStringLiteral("V"))};
}
