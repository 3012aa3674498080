#pragma once

#include "system_monitor_lib/live/PerformanceCounter.h"

#include <QByteArray>

/// A graphics adapter as DXGI describes it.
struct DisplayAdapter
{
    /// Its number until it is removed or the system restarts (LUID).
    quint64 luid = 0;
    QString name;
    /// The number of its maker on the PCI bus; 0 when it is not hardware.
    quint32 vendor = 0;
    /// Its own memory.
    quint64 memoryBytes = 0;
    bool isSoftware = false;
};

/// The graphics adapters as Windows knows them. Whatever Windows does not tell is empty.
class GraphicsSystem
{
public:
    GraphicsSystem() = default;
    virtual ~GraphicsSystem() = default;
    Q_DISABLE_COPY(GraphicsSystem)

    virtual std::vector<DisplayAdapter> adapters() = 0;
    /// Puts \a question on \a topic (see AdapterAnswers.h) to the driver of an adapter, which may
    /// wake the adapter. Empty when there is no answer.
    virtual QByteArray ask(quint64 luid, quint32 topic, const QByteArray &question) = 0;
    /// The instances of the counter "GPU Engine(*)\Utilization Percentage". Wakes nothing.
    virtual std::vector<CounterValue> engineLoads(qint64 nowNs) = 0;
    /// The instances of the counter "GPU Adapter Memory(*)\Dedicated Usage". Wakes nothing.
    virtual std::vector<CounterValue> memoryInUse(qint64 nowNs) = 0;
};

/// DXGI, the graphics kernel and the performance counters of this machine. Their libraries are
/// loaded when they are first needed.
std::unique_ptr<GraphicsSystem> graphicsSystem();
