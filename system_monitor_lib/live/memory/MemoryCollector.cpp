#include "system_monitor_lib/live/memory/MemoryCollector.h"

namespace {

double wholeMegabytes(quint64 kibibytes)
{
    const quint64 rounded = (kibibytes + 512) / 1024;
    return static_cast<double>(rounded);
}

} // namespace

QJsonObject memoryLabels(const MemoryState &state)
{
    const QString megabytes = QStringLiteral("MB");
    const double available = wholeMegabytes(state.available);
    const double used = wholeMegabytes(state.total) - available;
    const double load = 100.0 * static_cast<double>(state.total - state.available) /
                        static_cast<double>(state.total);
    return {{QStringLiteral("Physical Memory Load"), reading(load, QStringLiteral("%"))},
            {QStringLiteral("Physical Memory Used"), reading(used, megabytes)},
            {QStringLiteral("Physical Memory Available"), reading(available, megabytes)}};
}

MemoryCollector::MemoryCollector(const MachineRoots &roots)
    : m_reader(roots)
{
}

bool MemoryCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    const std::optional<MemoryState> state = m_reader.read();
    if (!state)
        return false;
    const QJsonObject tree = memoryLabels(*state);
    trees.add(Query::SystemInfo, tree);
    trees.addDevice(Query::AllSensorsData, QStringLiteral("System: memory"), tree);
    if (m_reading.isDue(nowNs))
        m_details = memoryDetailLabels(m_reader.details(nowNs));
    if (!m_details.isEmpty())
        trees.addDevice(Query::AllSensorsData, memoryDetailsGroup(), m_details);
    return true;
}
