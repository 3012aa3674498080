#pragma once

#include "system_monitor_lib/live/graphics/NvidiaDevices.h"

/// When one NVIDIA device may be asked. One that is held cannot go to sleep: one that has had
/// nothing to do for a while is let alone for as long as it needs for that, and again minutes later
/// where it stayed awake.
class NvidiaRest
{
public:
    /// How long a device has had nothing to do before it is let alone.
    static constexpr std::chrono::nanoseconds idleTime = std::chrono::seconds(10);
    /// How much longer than it needs.
    static constexpr std::chrono::nanoseconds margin = std::chrono::seconds(3);
    /// How long it is asked again when it stayed awake all the same.
    static constexpr std::chrono::nanoseconds pause = std::chrono::minutes(5);
    /// What a device says sooner after it woke is not trusted.
    static constexpr std::chrono::nanoseconds wakingTime = std::chrono::seconds(2);

    enum class Turn {
        Ask,
        LetAlone, ///< What it said last holds.
        Sleeps,   ///< Nothing holds; also while it wakes.
    };

    Turn turn(const NvidiaDevice &device, qint64 nowNs);
    /// Takes note of what the device answered.
    void setIdle(bool idle, qint64 nowNs);

private:
    std::optional<qint64> m_sleptNs; ///< When it was last seen asleep.
    std::optional<qint64> m_idleNs;  ///< Since when it has had nothing to do.
    std::optional<qint64> m_restNs;  ///< Until when it is let alone.
    std::optional<qint64> m_pauseNs; ///< Until when it is not let alone again.
};
