#include "system_monitor_lib/live/processor/CpuTemperatureCollector.h"

#include "system_monitor_lib/live/files/HwmonChip.h"

#include <initializer_list>

namespace {

/// The first of \a labels that \a chip has; empty when it has none.
QString firstInput(const HwmonChip &chip, std::initializer_list<const char *> labels)
{
    for (const char *const label : labels) {
        QString input = temperatureInput(chip, QString::fromLatin1(label));
        if (!input.isEmpty())
            return input;
    }
    return {};
}

/// Of a machine with several packages the lowest is meant. Old kernels call it physical.
QString packageInput(const HwmonChip &chip, int package)
{
    for (const char *const kind : {"Package id %1", "Physical id %1"}) {
        QString input = temperatureInput(chip, QString::fromLatin1(kind).arg(package));
        if (!input.isEmpty())
            return input;
    }
    return {};
}

} // namespace

CpuTemperatureCollector::CpuTemperatureCollector(const MachineRoots &roots, const QString &group)
    : m_roots(roots)
    , m_group(group)
{
}

CpuTemperatureCollector::Choice CpuTemperatureCollector::choose() const
{
    constexpr int mostPackages = 16;
    const std::vector<HwmonChip> chips = hwmonChips(m_roots);
    const auto named = [&chips](const char *name) {
        std::vector<HwmonChip> found;
        for (const HwmonChip &chip : chips) {
            if (chip.name == QLatin1String(name))
                found.push_back(chip);
        }
        return found;
    };
    const std::vector<HwmonChip> intel = named("coretemp");
    for (int package = 0; package < mostPackages && !intel.empty(); ++package) {
        for (const HwmonChip &chip : intel) {
            if (const QString input = packageInput(chip, package); !input.isEmpty())
                return {input, false};
        }
    }
    for (const char *const driver : {"k10temp", "zenpower"}) {
        for (const HwmonChip &chip : named(driver)) {
            if (const QString input = firstInput(chip, {"Tdie", "Tctl"}); !input.isEmpty())
                return {input, true};
        }
    }
    const std::vector<HwmonChip> zones = named("cpu_thermal");
    if (zones.empty())
        return {};
    return {zones.front().directory + QStringLiteral("/temp1_input"), false};
}

void CpuTemperatureCollector::look()
{
    const Choice choice = choose();
    if (choice.input == m_choice.input)
        return;
    m_choice = choice;
    m_temperature = choice.input.isEmpty() ? nullptr : std::make_unique<Attribute>(choice.input);
}

bool CpuTemperatureCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_listing.isDue(nowNs))
        look();
    const std::optional<double> celsius = m_temperature ? m_temperature->celsius() : std::nullopt;
    if (!celsius)
        return false;
    const QJsonArray degrees = reading(*celsius, QStringLiteral("°C"));
    const QJsonObject package{{QStringLiteral("CPU Package"), degrees}};
    trees.add(Query::CpuDtsInfo, package);
    trees.add(Query::CpuEnhancedInfo, package);
    if (m_choice.isTctlOrTdie)
        trees.add(Query::CpuEnhancedInfo, {{QStringLiteral("CPU (Tctl/Tdie)"), degrees}});
    trees.addDevice(Query::AllSensorsData, m_group, package);
    return true;
}
