#include "sensors/readings/GpuReadings.h"

#include "sensors/readings/Bounds.h"
#include "sensors/readings/SensorTree.h"

#include <QStringList>

#include <limits>
#include <optional>

using namespace sensortree;

namespace {

constexpr unsigned highestLoad = 100;
constexpr double highestUsage = 100.0;
constexpr double unbounded = std::numeric_limits<double>::infinity();

/// Where a metric is found: the labels in order of preference, and the label in the enhanced tree
/// (empty: none).
struct Chain
{
    QStringList labels;
    QString enhancedLabel;
    QString defaultUnits;
};

const Chain temperatureChain{{QStringLiteral("GPU Temperature"), QStringLiteral("GPU TS0 (DispIO)"),
                              QStringLiteral("GPU Core Temperature"),
                              QStringLiteral("GPU Global Temperature"),
                              QStringLiteral("GPU Memory Temperature")},
                             QStringLiteral("CPU Package"),
                             QStringLiteral("°C")};
const Chain clockChain{
    {QStringLiteral("GPU Clock")}, QStringLiteral("GPU Clock"), QStringLiteral("MHz")};
const Chain loadChain{{QStringLiteral("GPU Core Load"), QStringLiteral("GPU D3D Usage")},
                      QStringLiteral("GPU D3D Usage"),
                      QStringLiteral("%")};
const Chain memoryClockChain{{QStringLiteral("GPU Memory Clock")},
                             QStringLiteral("Imaging Unit (IMGU) Clock"),
                             QStringLiteral("MHz")};
const Chain memoryUsageChain{{QStringLiteral("GPU Memory Usage")}, QString(), QStringLiteral("%")};
const Chain memoryAllocatedChain{{QStringLiteral("GPU Memory Allocated")},
                                 QStringLiteral("GPU D3D Memory Dynamic"),
                                 QStringLiteral("MB")};
const Chain powerChain{{QStringLiteral("GPU Power (Total)"), QStringLiteral("GPU ASIC Power"),
                        QStringLiteral("GPU Power"), QStringLiteral("Total GPU Power")},
                       QStringLiteral("GT Cores Power"),
                       QStringLiteral("W")};
const Chain voltageChain{
    {QStringLiteral("GPU Core Voltage"), QStringLiteral("GPU Core Voltage (VDDCR_GFX)")},
    QStringLiteral("iGPU VID"),
    QStringLiteral("V")};
const QStringList memorySizeLabels{QStringLiteral("GPU Memory Available"),
                                   QStringLiteral("GPU Memory Total"),
                                   QStringLiteral("GPU D3D Memory Dedicated")};

/// Of the first label that \a gpuTree has, if any.
std::optional<Reading<double>> ownReading(const Chain &chain, const QJsonObject &gpuTree)
{
    for (const QString &label : chain.labels) {
        if (const auto key = findLabel(gpuTree, label))
            return numberOf(firstReading(gpuTree.value(*key)), chain.defaultUnits);
    }
    return std::nullopt;
}

Reading<double> enhancedReading(const Chain &chain, const QJsonObject &enhancedTree)
{
    const QJsonObject reading = chain.enhancedLabel.isEmpty()
                                    ? QJsonObject()
                                    : readingOf(enhancedTree, chain.enhancedLabel);
    return numberOf(reading, chain.defaultUnits);
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
    for (const QString &label : memorySizeLabels) {
        if (const auto key = findLabel(gpuTree, label))
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
