#pragma once

#include "inspector_server/TokenBucket.h"

#include <QtGlobal>

#include <chrono>

/// What the requests of all clients together may cost: elapsed time on the main thread, which is
/// never less than processor time, and bytes in and out. What exceeds it waits. Times are from any
/// clock that never goes back.
class ClientBudget
{
public:
    /// Per second. Connections have another 15 ms (Acceptor), and the system's calls around them
    /// take the rest of a tenth of a core.
    static constexpr std::chrono::milliseconds timePerSecond{65};
    static constexpr std::chrono::milliseconds timeBurst{100};

    /// Bytes of frames. Every request is logged, so this limits the log as well; the burst allows
    /// four requests of maximum length.
    static constexpr qint64 inPerSecond = 128LL * 1024;
    static constexpr qint64 inBurst = 256LL * 1024;

    static constexpr qint64 outPerSecond = 4LL * 1024 * 1024;
    static constexpr qint64 outBurst = 4LL * 1024 * 1024;

    void takeTime(std::chrono::nanoseconds time);
    void takeIn(qint64 bytes);
    void takeOut(qint64 bytes);

    /// Whether all requests have to wait.
    bool isSpent(std::chrono::nanoseconds now);

    /// The time until the budget is available again, as of the last call of isSpent(); 0 when it
    /// is.
    std::chrono::nanoseconds wait() const;

private:
    TokenBucket m_time{std::chrono::nanoseconds(timePerSecond).count(),
                       std::chrono::nanoseconds(timeBurst).count()};
    TokenBucket m_in{inPerSecond, inBurst};
    TokenBucket m_out{outPerSecond, outBurst};
};
