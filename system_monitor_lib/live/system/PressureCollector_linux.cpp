#include "system_monitor_lib/live/system/PressureCollector.h"

#include "system_monitor_lib/live/system/SystemText.h"

PressureCollector::PressureCollector(const MachineRoots &roots)
    : m_processor(roots.proc + QStringLiteral("/pressure/cpu"))
    , m_memory(roots.proc + QStringLiteral("/pressure/memory"))
    , m_disk(roots.proc + QStringLiteral("/pressure/io"))
{
}

void PressureCollector::read()
{
    const QString percent = QStringLiteral("%");
    m_labels = {};
    addReading(m_labels, QStringLiteral("Processor Pressure"), parsePressure(m_processor.read()),
               percent);
    addReading(m_labels, QStringLiteral("Memory Pressure"), parsePressure(m_memory.read()),
               percent);
    addReading(m_labels, QStringLiteral("Disk Pressure"), parsePressure(m_disk.read()), percent);
}

bool PressureCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_reading.isDue(nowNs))
        read();
    if (!m_labels.isEmpty())
        trees.addDevice(Query::AllSensorsData, QStringLiteral("Pressure"), m_labels);
    return !m_labels.isEmpty();
}
