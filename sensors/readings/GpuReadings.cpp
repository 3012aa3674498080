#include "sensors/readings/GpuReadings.h"

#include "sensors/readings/Bounds.h"
#include "sensors/readings/SensorTree.h"

#include <QStringList>

#include <initializer_list>
#include <limits>
#include <optional>

using namespace sensortree;

namespace {

constexpr unsigned highestLoad = 100;
constexpr double highestUsage = 100.0;
constexpr double unbounded = std::numeric_limits<double>::infinity();

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

/// Of the first label that \a gpuTree has, if any.
std::optional<Reading<double>> ownReading(const Chain &chain, const QJsonObject &gpuTree)
{
    for (const char *const label : chain.labels) {
        if (const auto key = findLabel(gpuTree, QString::fromUtf8(label)))
            return numberOf(firstReading(gpuTree.value(*key)),
                            QString::fromUtf8(chain.defaultUnits));
    }
    return std::nullopt;
}

Reading<double> enhancedReading(const Chain &chain, const QJsonObject &enhancedTree)
{
    const QJsonObject reading =
        chain.enhancedLabel ? readingOf(enhancedTree, QString::fromUtf8(chain.enhancedLabel))
                            : QJsonObject();
    return numberOf(reading, QString::fromUtf8(chain.defaultUnits));
}

Reading<double> temperatureReading(const QJsonObject &gpuTree, const QJsonObject &enhancedTree)
{
    if (const auto own = ownReading(temperatureChain, gpuTree))
        return *own;
    // The CPU's sensor gives its units as the letter only.
    const Reading<double> enhanced = enhancedReading(temperatureChain, enhancedTree);
    return {enhanced.value, withDegreeSign(enhanced.units), enhanced.isMissing};
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
    // Compatibility: no-gpu-name
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
    const auto read = [&](const Chain &chain) {
        const auto own = ownReading(chain, gpuTree);
        return own ? *own : enhancedReading(chain, enhancedTree);
    };
    GpuReadings gpu;
    gpu.temperature = wholeNumber(temperatureReading(gpuTree, enhancedTree), highestTemperature);
    gpu.clock = wholeNumber(read(clockChain), highestClock);
    gpu.load = wholeNumber(read(loadChain), highestLoad);
    gpu.memoryClock = wholeNumber(read(memoryClockChain), highestClock);
    gpu.memoryUsage = heldTo(read(memoryUsageChain), 0.0, highestUsage);
    gpu.memoryAllocated = heldTo(read(memoryAllocatedChain), 0.0, unbounded);
    gpu.memorySize = memorySize(gpuTree);
    gpu.power = heldTo(read(powerChain), 0.0, highestPower);
    gpu.voltage = read(voltageChain);
    return gpu;
}
