#include "sensors/readings/CpuHeat.h"

#include "sensors/readings/Bounds.h"
#include "sensors/readings/SensorTree.h"

using namespace sensortree;

CpuHeat cpuHeat(const QJsonObject &dtsTree, const QJsonObject &tctlTree,
                const QJsonObject &enhancedTree)
{
    const QJsonObject package = dtsTree.isEmpty()
                                    ? readingOf(tctlTree, QStringLiteral("CPU (Tctl/Tdie)"))
                                    : readingOf(dtsTree, QStringLiteral("CPU Package"));
    const QJsonObject power = readingOf(enhancedTree, QStringLiteral("CPU Package Power"));
    CpuHeat heat;
    heat.temperature = wholeNumber(numberOf(package, QStringLiteral("°C")), highestTemperature);
    heat.temperature.units = withDegreeSign(heat.temperature.units);
    heat.power = heldTo(numberOf(power, QString()), 0.0, highestPower);
    return heat;
}
