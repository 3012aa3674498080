#pragma once

#include <QtGlobal>

#include <chrono>
#include <optional>

/// Decides when one GPU may be queried. A GPU that is queried may not be able to go to sleep. One
/// that has been idle for a while is therefore left alone for as long as it needs to fall asleep;
/// if it stays awake, this is tried again minutes later.
class GpuRest
{
public:
    /// How long a GPU has to be idle before it is left alone.
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

    /// \a sleepsAfter is how long after its last use it goes to sleep; nothing when it stays awake.
    Turn turn(bool sleeps, std::optional<std::chrono::nanoseconds> sleepsAfter, qint64 nowNs);
    /// Takes note of the GPU's load.
    void setIdle(bool idle, qint64 nowNs);

private:
    std::optional<qint64> m_sleptNs; ///< When it was last seen asleep.
    std::optional<qint64> m_idleNs;  ///< Since when it has had nothing to do.
    std::optional<qint64> m_restNs;  ///< Until when it is let alone.
    std::optional<qint64> m_pauseNs; ///< Until when it is not let alone again.
};
