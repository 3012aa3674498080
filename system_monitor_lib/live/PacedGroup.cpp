#include "system_monitor_lib/live/PacedGroup.h"

PacedGroup::PacedGroup(const QString &group, Labels labels)
    : m_group(group)
    , m_read(std::move(labels))
{
}

bool PacedGroup::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_reading.isDue(nowNs))
        m_labels = m_read(nowNs);
    if (!m_labels.isEmpty())
        trees.addDevice(Query::AllSensorsData, m_group, m_labels);
    return !m_labels.isEmpty();
}
