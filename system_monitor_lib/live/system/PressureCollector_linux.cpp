#include "system_monitor_lib/live/system/PressureCollector.h"

#include "system_monitor_lib/live/system/SystemText.h"

PressureCollector::PressureCollector(const MachineRoots &roots)
    : m_processor(roots.proc + QStringLiteral("/pressure/cpu"))
    , m_memory(roots.proc + QStringLiteral("/pressure/memory"))
    , m_disk(roots.proc + QStringLiteral("/pressure/io"))
{
}

bool PressureCollector::collect(qint64 /*nowNs*/, SensorTrees &trees)
{
    const QString percent = QStringLiteral("%");
    QJsonObject labels;
    addReading(labels, QStringLiteral("Processor Pressure"), parsePressure(m_processor.read()),
               percent);
    addReading(labels, QStringLiteral("Memory Pressure"), parsePressure(m_memory.read()), percent);
    addReading(labels, QStringLiteral("Disk Pressure"), parsePressure(m_disk.read()), percent);
    if (!labels.isEmpty())
        trees.addDevice(Query::AllSensorsData, QStringLiteral("Pressure"), labels);
    return !labels.isEmpty();
}
