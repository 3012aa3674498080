#pragma once

#include "system_monitor_lib/live/files/Attribute.h"

/// A counter of energy in microjoules, and its last value.
class EnergyCounter
{
public:
    /// \a range is the path of the number at which the counter wraps around; empty when there is
    /// none.
    explicit EnergyCounter(const QString &path, const QString &range = {});

    /// Watts since the last call. Nothing when the counter cannot be read, was reset or has never
    /// counted, and after the first call.
    std::optional<double> watts(qint64 nowNs);
    /// Forgets the last call.
    void reset() { m_previous.reset(); }

private:
    Attribute m_energy;
    Attribute m_range;
    std::optional<quint64> m_previous;
    qint64 m_previousNs = 0;
};
