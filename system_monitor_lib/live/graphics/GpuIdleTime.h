#pragma once

#include "system_monitor_lib/live/files/Attribute.h"

/// The load of an Intel GPU by the time for which it was switched off (RC6): what programs use of
/// it is told to their own user alone, and so says too little, while any work at all keeps it on.
/// Above what the engines themselves would say, but never below.
class GpuIdleTime
{
public:
    /// \a card is the GPU's folder in /sys/class/drm.
    GpuIdleTime(const QString &card, const QString &driver);

    /// Whether the GPU counts that time. One that may not be switched off does not.
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
