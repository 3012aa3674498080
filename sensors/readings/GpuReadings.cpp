#include "sensors/readings/GpuReadings.h"

#include "sensors/readings/SensorTree.h"
#include "values/WholeNumber.h"

#include <QStringList>

#include <algorithm>
#include <initializer_list>

using namespace sensortree;
using namespace wholenumber;

namespace {

constexpr unsigned highestTemperature = 150;
constexpr unsigned highestClock = 100000;
constexpr unsigned highestLoad = 100;
constexpr double highestUsage = 100.0;
constexpr double highestPower = 100000.0;

/// Where a metric is found: the labels in order of preference, and the label in the enhanced tree
/// (null: none).
struct Chain
{
    std::initializer_list<const char *> labels;
    const char *enhancedLabel = nullptr;
    const char *defaultUnits = "";
};

const Chain temperatureChain{{"GPU Temperature", "GPU TS0 (DispIO)", "GPU Core Temperature",
                              "GPU Global Temperature", "GPU Memory Temperature"},
                             "CPU Package",
                             "°C"};
const Chain clockChain{{"GPU Clock"}, "GPU Clock", "MHz"};
const Chain loadChain{{"GPU Core Load", "GPU D3D Usage"}, "GPU D3D Usage", "%"};
const Chain memoryClockChain{{"GPU Memory Clock"}, "Imaging Unit (IMGU) Clock", "MHz"};
const Chain memoryUsageChain{{"GPU Memory Usage"}, nullptr, "%"};
const Chain memoryAllocatedChain{{"GPU Memory Allocated"}, "GPU D3D Memory Dynamic", "MB"};
const Chain powerChain{
    {"GPU Power (Total)", "GPU ASIC Power", "GPU Power", "Total GPU Power"}, "GT Cores Power", "W"};
const Chain voltageChain{{"GPU Core Voltage", "GPU Core Voltage (VDDCR_GFX)"}, "iGPU VID", "V"};

struct Reading
{
    double value;
    QString units;
    bool enhanced; ///< Whether it comes from the enhanced tree.
};

Reading readingFrom(const QJsonObject &reading, const Chain &chain, bool enhanced)
{
    return {valueOf(reading), unitsOf(reading, QString::fromUtf8(chain.defaultUnits)), enhanced};
}

Reading readChain(const Chain &chain, const QJsonObject &gpuTree, const QJsonObject &enhancedTree)
{
    for (const char *const label : chain.labels) {
        if (const auto key = findLabel(gpuTree, QString::fromUtf8(label)))
            return readingFrom(firstReading(gpuTree.value(*key)), chain, false);
    }
    const QJsonObject fallback =
        chain.enhancedLabel ? readingOf(enhancedTree, QString::fromUtf8(chain.enhancedLabel))
                            : QJsonObject();
    return readingFrom(fallback, chain, true);
}

double memorySize(const QJsonObject &gpuTree)
{
    for (const char *const label :
         {"GPU Memory Available", "GPU Memory Total", "GPU D3D Memory Dedicated"}) {
        if (const auto key = findLabel(gpuTree, QString::fromUtf8(label)))
            return valueOf(firstReading(gpuTree.value(*key)));
    }
    return 0.0;
}

} // namespace

QString chosenGpu(const QJsonObject &gpuTrees)
{
    const QStringList names = gpuTrees.keys() << QStringLiteral("NustIN");
    QString chosen;
    double bestSize = -1.0;
    for (const QString &name : names) {
        const double size = memorySize(gpuTrees.value(name).toObject());
        if (size > bestSize) {
            bestSize = size;
            chosen = name;
        }
    }
    return chosen;
}

GpuReadings gpuReadings(const QJsonObject &gpuTree, const QJsonObject &enhancedTree)
{
    const auto read = [&](const Chain &chain) { return readChain(chain, gpuTree, enhancedTree); };
    const auto integer = [](const Reading &reading, unsigned cap) {
        return capped(truncated(reading.value), cap);
    };
    const Reading temperature = read(temperatureChain);
    const Reading clock = read(clockChain);
    const Reading load = read(loadChain);
    const Reading memoryClock = read(memoryClockChain);
    const Reading memoryUsage = read(memoryUsageChain);
    const Reading memoryAllocated = read(memoryAllocatedChain);
    const Reading power = read(powerChain);
    const Reading voltage = read(voltageChain);
    return {integer(temperature, highestTemperature),
            // The CPU's sensor names its units by the letter alone.
            temperature.enhanced ? withDegreeSign(temperature.units) : temperature.units,
            integer(clock, highestClock), clock.units, integer(load, highestLoad), load.units,
            integer(memoryClock, highestClock), memoryClock.units,
            std::clamp(memoryUsage.value, 0.0, highestUsage), memoryUsage.units,
            std::max(memoryAllocated.value, 0.0), memoryAllocated.units,
            std::clamp(power.value, 0.0, highestPower), power.units, voltage.value, voltage.units};
}
