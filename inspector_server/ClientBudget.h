#pragma once

#include "inspector_server/TokenBucket.h"

#include <QtGlobal>

#include <chrono>

/// What the requests of all clients together may cost: time of the one thread, which is no less
/// than processor time, and bytes in and out. What exceeds it waits. Times are those of any clock
/// that does not go back.
class ClientBudget
{
public:
    /// Of each second. Connections have 15 ms more (Acceptor), and the system's calls around them
    /// the rest of a tenth of a core.
    static constexpr std::chrono::milliseconds timePerSecond{65};
    static constexpr std::chrono::milliseconds timeBurst{100};

    /// Bytes of frames. Every request is logged, so that this bounds the log as well; the burst has
    /// room for four of the longest requests.
    static constexpr qint64 inPerSecond = 128LL * 1024;
    static constexpr qint64 inBurst = 256LL * 1024;

    static constexpr qint64 outPerSecond = 4LL * 1024 * 1024;
    static constexpr qint64 outBurst = 4LL * 1024 * 1024;

    void takeTime(std::chrono::nanoseconds time);
    void takeIn(qint64 bytes);
    void takeOut(qint64 bytes);

    /// Whether everything waits.
    bool isSpent(std::chrono::nanoseconds now);

    /// Until it is not spent, as of the last call of isSpent(); 0 when it is not.
    std::chrono::nanoseconds wait() const;

private:
    TokenBucket m_time{std::chrono::nanoseconds(timePerSecond).count(),
                       std::chrono::nanoseconds(timeBurst).count()};
    TokenBucket m_in{inPerSecond, inBurst};
    TokenBucket m_out{outPerSecond, outBurst};
};
