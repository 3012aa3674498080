#pragma once

#include "system_monitor_lib/live/files/Attribute.h"

/// The load of an Intel GPU, derived from the time for which it was switched off (RC6). The usage
/// per program cannot serve, because it is visible only to the program's own user and so
/// incomplete, whereas any work at all keeps the GPU on. The result may be higher than the load of
/// the engines, but never lower.
class GpuIdleTime
{
public:
    /// \a card is the GPU's folder in /sys/class/drm.
    GpuIdleTime(const QString &card, const QString &driver);

    /// Whether the GPU counts that time. It does not if it may not be switched off.
    [[nodiscard]] bool isCounted() const { return m_isCounted; }
    /// The load in percent since the last call; nothing after the first one.
    std::optional<double> load(qint64 nowNs);
    /// Forgets the last call.
    void reset() { m_previous.reset(); }

private:
    bool m_isCounted = false;
    Attribute m_milliseconds;
    std::optional<quint64> m_previous;
    qint64 m_previousNs = 0;
};
