#include "sensors/readings/CpuReadings.h"

#include "sensors/readings/Bounds.h"
#include "sensors/readings/SensorTree.h"

using namespace sensortree;

namespace {

struct Mean
{
    double sum = 0.0;
    int count = 0;
    bool isMissing = true;
    QString units;

    void add(const QJsonObject &reading)
    {
        sum += valueOf(reading);
        units = unitsOf(reading, QString());
        isMissing = isMissing && !hasValue(reading);
        ++count;
    }

    Reading<double> reading(const QString &defaultUnits) const
    {
        return {count > 0 && sum > 0 ? sum / count : 0.0, units.isEmpty() ? defaultUnits : units,
                isMissing};
    }
};

bool isTotalUsage(const QString &key)
{
    return containsLabel(key, QStringLiteral("Total CPU Utility")) ||
           containsLabel(key, QStringLiteral("Total CPU Usage"));
}

bool isCoreClock(const QString &key)
{
    // Compatibility: effective-clocks
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
    CpuReadings cpu;
    cpu.usage = shareOf(numberOf(usage, QStringLiteral("%")));
    cpu.clock = wholeNumber(clock.reading(QStringLiteral("MHz")), highestClock);
    cpu.voltage = voltage.reading(QStringLiteral("V"));
    return cpu;
}
