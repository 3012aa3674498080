#include "sensors/readings/CpuHeat.h"

#include "sensors/readings/SensorTree.h"
#include "values/WholeNumber.h"

#include <algorithm>

using namespace sensortree;
using namespace wholenumber;

namespace {

constexpr unsigned highestTemperature = 150;
constexpr double highestPower = 100000.0;

} // namespace

CpuHeat cpuHeat(const QJsonObject &dtsTree, const QJsonObject &tctlTree,
                const QJsonObject &enhancedTree)
{
    const QJsonObject temperature = dtsTree.isEmpty()
                                        ? readingOf(tctlTree, QStringLiteral("CPU (Tctl/Tdie)"))
                                        : readingOf(dtsTree, QStringLiteral("CPU Package"));
    const QJsonObject power = readingOf(enhancedTree, QStringLiteral("CPU Package Power"));
    return {capped(truncated(valueOf(temperature)), highestTemperature),
            withDegreeSign(unitsOf(temperature, QStringLiteral("°C"))),
            std::clamp(valueOf(power), 0.0, highestPower), unitsOf(power, QString())};
}
