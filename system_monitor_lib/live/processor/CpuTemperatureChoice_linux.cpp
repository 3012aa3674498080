#include "system_monitor_lib/live/processor/CpuTemperatureChoice.h"

#include "system_monitor_lib/live/files/Attribute.h"
#include "system_monitor_lib/live/files/FolderNames.h"
#include "system_monitor_lib/live/files/HwmonChip.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace {

using Chips = std::vector<HwmonChip>;

Chips named(const Chips &chips, const char *name)
{
    Chips found;
    for (const HwmonChip &chip : chips) {
        if (chip.name == QLatin1String(name))
            found.push_back(chip);
    }
    return found;
}

/// The first of \a labels that one of \a chips has; empty when none has any.
QStringList firstLabelled(const Chips &chips, const QStringList &labels)
{
    for (const QString &label : labels) {
        for (const HwmonChip &chip : chips) {
            const QString input = temperatureInput(chip, label);
            if (!input.isEmpty())
                return {input};
        }
    }
    return {};
}

/// On a machine with several packages the lowest one is used. Old kernels call it physical.
QStringList intelPackage(const Chips &chips)
{
    constexpr int mostPackages = 16;
    for (int package = 0; package < mostPackages && !chips.empty(); ++package) {
        QStringList input = firstLabelled(chips, {QStringLiteral("Package id %1").arg(package),
                                                  QStringLiteral("Physical id %1").arg(package)});
        if (!input.isEmpty())
            return input;
    }
    return {};
}

/// Processors before 2011 have a sensor in each core only.
QStringList intelCores(const Chips &chips)
{
    QStringList inputs;
    for (const HwmonChip &chip : chips)
        inputs += temperatureInputs(chip, QRegularExpression(QStringLiteral("^Core \\d+$")));
    return inputs;
}

/// Processors before Zen have one sensor, without a label.
QStringList withoutLabel(const Chips &chips)
{
    for (const HwmonChip &chip : chips) {
        const QString input = chip.directory + QStringLiteral("/temp1_input");
        if (temperatureInputs(chip, QRegularExpression(QStringLiteral("."))).isEmpty() &&
            QFileInfo::exists(input))
            return {input};
    }
    return {};
}

/// A sensor that is known by the name of what it measures.
struct Zone
{
    QString name;
    QString input;
};

/// The thermal zones, which some kernels represent by chips with the same names.
std::vector<Zone> thermalZones(const MachineRoots &roots, const Chips &chips)
{
    std::vector<Zone> zones;
    for (const HwmonChip &chip : chips)
        zones.push_back({chip.name, chip.directory + QStringLiteral("/temp1_input")});
    const QString root = roots.sys + QStringLiteral("/class/thermal/");
    for (const QString &name : folderNames(root)) {
        if (!name.startsWith(QLatin1String("thermal_zone")))
            continue;
        const QString zone = root + name;
        zones.push_back(
            {attributeWord(zone + QStringLiteral("/type")), zone + QStringLiteral("/temp")});
    }
    for (Zone &zone : zones) {
        zone.name = zone.name.toLower().replace(QLatin1Char('-'), QLatin1Char('_'));
        zone.name.remove(QRegularExpression(QStringLiteral("_thermal$")));
    }
    return zones;
}

QStringList zoneInputs(const std::vector<Zone> &zones)
{
    // A name with a star stands for a group of cores, of which all count.
    const char *const names[] = {"x86_pkg_temp", "cpu", "cpu*", "bigcore*", "soc", "pvt", "acpitz"};
    for (const char *const name : names) {
        const QString start = QString::fromLatin1(name);
        const bool isGroup = start.endsWith(QLatin1Char('*'));
        const QRegularExpression isMeant(isGroup ? QStringLiteral("^%1_?\\d").arg(start.chopped(1))
                                                 : QStringLiteral("^%1$").arg(start));
        QStringList inputs;
        for (const Zone &zone : zones) {
            if (isMeant.match(zone.name).hasMatch() && QFileInfo::exists(zone.input) &&
                (isGroup || inputs.isEmpty()))
                inputs += zone.input;
        }
        if (!inputs.isEmpty())
            return inputs;
    }
    return {};
}

} // namespace

CpuTemperatureChoice chooseCpuTemperature(const MachineRoots &roots)
{
    const Chips chips = hwmonChips(roots);
    const Chips intel = named(chips, "coretemp");
    if (const QStringList package = intelPackage(intel); !package.isEmpty())
        return {package, false};
    if (const QStringList cores = intelCores(intel); !cores.isEmpty())
        return {cores, false};
    for (const char *const driver : {"k10temp", "zenpower"}) {
        const QStringList input =
            firstLabelled(named(chips, driver), {QStringLiteral("Tdie"), QStringLiteral("Tctl")});
        if (!input.isEmpty())
            return {input, true};
    }
    if (const QStringList input = withoutLabel(named(chips, "k10temp")); !input.isEmpty())
        return {input, false};
    return {zoneInputs(thermalZones(roots, chips)), false};
}
