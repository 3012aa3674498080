#include "system_monitor_lib/live/processor/RaplCollector.h"

#include "system_monitor_lib/live/Rates.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>

namespace {

/// More than any package can draw; a counter that was set anew can look like it.
constexpr double highestPower = 5000;

/// The folders of the packages' zones. Their numbers say nothing; what the memory-mapped interface
/// counts is counted by the other one too.
QStringList packageZones(const MachineRoots &roots)
{
    static const QRegularExpression package(QStringLiteral("^package-\\d+(-die-\\d+)?$"));
    const QDir root(roots.sys + QStringLiteral("/class/powercap"));
    QStringList zones;
    for (const QFileInfo &entry : root.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (entry.fileName().startsWith(QLatin1String("intel-rapl-mmio")))
            continue;
        const QString directory = entry.canonicalFilePath();
        if (package.match(attributeWord(directory + QStringLiteral("/name"))).hasMatch())
            zones += directory;
    }
    return zones;
}

std::optional<quint64> counter(Attribute &attribute)
{
    const std::optional<qint64> number = attribute.integer();
    if (!number || *number < 0)
        return std::nullopt;
    return static_cast<quint64>(*number);
}

} // namespace

RaplCollector::Zone::Zone(const QString &path)
    : directory(path)
    , energy(path + QStringLiteral("/energy_uj"))
    , range(path + QStringLiteral("/max_energy_range_uj"))
{
}

std::optional<double> RaplCollector::Zone::power(qint64 nowNs)
{
    const std::optional<quint64> current = counter(energy);
    const std::optional<quint64> before = std::exchange(previous, current);
    const qint64 intervalNs = nowNs - std::exchange(previousNs, nowNs);
    if (!current || !before)
        return std::nullopt;
    const quint64 wrap = *current < *before ? counter(range).value_or(0) : 0;
    const std::optional<double> microwatts = ratePerSecond(*before, *current + wrap, intervalNs);
    if (!microwatts || *microwatts > highestPower * microjoulesPerJoule)
        return std::nullopt;
    return *microwatts / microjoulesPerJoule;
}

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
                   [](const QString &path, const auto &zone) { return path == zone->directory; });
    if (same)
        return;
    m_zones.clear();
    for (const QString &path : found)
        m_zones.push_back(std::make_unique<Zone>(path));
}

bool RaplCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_listing.isDue(nowNs))
        look();
    double sum = 0;
    std::size_t known = 0;
    for (const auto &zone : m_zones) {
        if (const std::optional<double> power = zone->power(nowNs)) {
            sum += *power;
            ++known;
        }
    }
    // Some of several packages would pass for all of them.
    if (known == 0 || known < m_zones.size())
        return false;
    const QJsonObject tree{
        {QStringLiteral("CPU Package Power"), reading(sum, QStringLiteral("W"))}};
    trees.add(Query::CpuEnhancedInfo, tree);
    const QString temperature = QStringLiteral("CPU Package");
    if (!trees.tree(Query::CpuEnhancedInfo).contains(temperature))
        trees.add(Query::CpuEnhancedInfo, {{temperature, QJsonArray()}});
    trees.addDevice(Query::AllSensorsData, m_group, tree);
    return true;
}
