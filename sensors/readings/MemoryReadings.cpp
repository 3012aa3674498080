#include "sensors/readings/MemoryReadings.h"

#include "sensors/readings/SensorTree.h"
#include "values/WholeNumber.h"

#include <cmath>

using namespace sensortree;
using namespace wholenumber;

namespace {

constexpr double gigabytesPerMegabyte = 0.0009765625;

int roundedHalfUp(double value)
{
    const double whole = std::trunc(value);
    return truncated(value - whole >= 0.5 ? whole + 1 : whole);
}

} // namespace

MemoryReadings memoryReadings(const QJsonObject &systemTree)
{
    const QJsonObject load = readingOf(systemTree, QStringLiteral("Physical Memory Load"));
    const QJsonObject used = readingOf(systemTree, QStringLiteral("Physical Memory Used"));
    const QJsonObject available =
        readingOf(systemTree, QStringLiteral("Physical Memory Available"));
    MemoryReadings memory;
    memory.load = shareOf(numberOf(load, QStringLiteral("%")));
    memory.usedMB = wholeValueOf(used);
    memory.availableMB = wholeValueOf(available);
    memory.isUsedMissing = !hasWholeValue(used);
    memory.isAvailableMissing = !hasWholeValue(available);
    memory.totalMB = truncated(static_cast<double>(memory.usedMB) + memory.availableMB);
    memory.usedGB = memory.usedMB * gigabytesPerMegabyte;
    memory.availableGB = memory.availableMB * gigabytesPerMegabyte;
    memory.totalGB = memory.totalMB * gigabytesPerMegabyte;
    memory.totalGBRounded = roundedHalfUp(memory.totalGB);
    return memory;
}
