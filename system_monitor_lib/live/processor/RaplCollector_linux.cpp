#include "system_monitor_lib/live/processor/RaplCollector.h"

#include "system_monitor_lib/live/files/Attribute.h"
#include "system_monitor_lib/live/files/FolderNames.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

/// The folders of the packages' zones. Their numbers have no meaning; the memory-mapped interface
/// counts the same energy as the other one.
QStringList packageZones(const MachineRoots &roots)
{
    static const QRegularExpression package(QStringLiteral("^package-\\d+(-die-\\d+)?$"));
    const QString root = roots.sys + QStringLiteral("/class/powercap/");
    QStringList zones;
    for (const QString &name : folderNames(root)) {
        if (name.startsWith(QLatin1String("intel-rapl-mmio")))
            continue;
        const QString directory = QFileInfo(root + name).canonicalFilePath();
        if (package.match(attributeWord(directory + QStringLiteral("/name"))).hasMatch())
            zones += directory;
    }
    return zones;
}

} // namespace

RaplCollector::RaplCollector(const MachineRoots &roots, const QString &group)
    : m_roots(roots)
    , m_group(group)
{
}

void RaplCollector::look()
{
    const QStringList found = packageZones(m_roots);
    const bool same =
        std::equal(found.begin(), found.end(), m_zones.begin(), m_zones.end(),
                   [](const QString &path, const Zone &zone) { return path == zone.directory; });
    if (same)
        return;
    m_zones.clear();
    for (const QString &path : found)
        m_zones.push_back(
            {path, std::make_unique<EnergyCounter>(path + QStringLiteral("/energy_uj"),
                                                   path + QStringLiteral("/max_energy_range_uj"))});
}

bool RaplCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_listing.isDue(nowNs))
        look();
    double sum = 0;
    std::size_t known = 0;
    for (const Zone &zone : m_zones) {
        if (const std::optional<double> power = zone.counter->watts(nowNs)) {
            sum += *power;
            ++known;
        }
    }
    // The sum over only some of the packages would be taken for the total.
    if (known == 0 || known < m_zones.size())
        return false;
    const QJsonObject tree{
        {QStringLiteral("CPU Package Power"), reading(sum, QStringLiteral("W"))}};
    trees.add(Query::CpuEnhancedInfo, tree);
    trees.add(Query::CpuEnhancedInfo, {{QStringLiteral("CPU Package"), QJsonArray()}});
    trees.addDevice(Query::AllSensorsData, m_group, tree);
    return true;
}
