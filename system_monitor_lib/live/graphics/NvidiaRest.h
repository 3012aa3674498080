#pragma once

#include "system_monitor_lib/live/graphics/NvidiaDevices.h"

/// Decides when one NVIDIA device may be queried. A device that is held by the library cannot go to
/// sleep. One that has been idle for a while is therefore left alone for as long as it needs to
/// fall asleep; if it stays awake, this is tried again minutes later.
class NvidiaRest
{
public:
    /// How long a device has to be idle before it is left alone.
    static constexpr std::chrono::nanoseconds idleTime = std::chrono::seconds(10);
    /// How much longer than needed it is left alone.
    static constexpr std::chrono::nanoseconds margin = std::chrono::seconds(3);
    /// How long it is queried again if it stayed awake.
    static constexpr std::chrono::nanoseconds pause = std::chrono::minutes(5);
    /// Readings within this time after waking up are not trusted.
    static constexpr std::chrono::nanoseconds wakingTime = std::chrono::seconds(2);

    enum class Turn {
        Ask,
        LetAlone, ///< What it said last holds.
        Sleeps,   ///< Nothing holds; also while it wakes.
    };

    Turn turn(const NvidiaDevice &device, qint64 nowNs);
    /// Takes note of the device's reply.
    void setIdle(bool idle, qint64 nowNs);

private:
    std::optional<qint64> m_sleptNs; ///< When it was last seen asleep.
    std::optional<qint64> m_idleNs;  ///< Since when it has had nothing to do.
    std::optional<qint64> m_restNs;  ///< Until when it is let alone.
    std::optional<qint64> m_pauseNs; ///< Until when it is not let alone again.
};
