#pragma once

#include "inspector_server/TimeBudget.h"
#include "inspector_server/TokenBucket.h"

#include <QtGlobal>

/// What the requests of all clients together may cost: elapsed time on the main thread, which is
/// never less than processor time, and bytes in and out. What exceeds it waits.
class ClientBudget : public TurnBudget
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

    void takeTime(std::chrono::nanoseconds time) override;
    void takeIn(qint64 bytes);
    void takeOut(qint64 bytes);

    bool isSpent(std::chrono::nanoseconds now) override;
    std::chrono::nanoseconds wait() const override;

private:
    TimeBudget m_time{timePerSecond, timeBurst};
    TokenBucket m_in{inPerSecond, inBurst};
    TokenBucket m_out{outPerSecond, outBurst};
};
