#pragma once

#include <QtGlobal>

/// Counts one client's requests, so that none can keep the program busy.
class RequestRate
{
public:
    /// Per second; a settings panel asks some dozens.
    static constexpr int most = 1000;

    /// Counts a request that came \a nowMs milliseconds after any fixed time. False when it is one
    /// too many in its second.
    bool admits(qint64 nowMs);

private:
    qint64 m_secondStart = 0;
    int m_count = 0;
};
