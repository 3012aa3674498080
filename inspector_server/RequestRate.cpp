#include "inspector_server/RequestRate.h"

bool RequestRate::admits(qint64 nowMs)
{
    constexpr qint64 second = 1000;
    if (nowMs - m_secondStart >= second) {
        m_secondStart = nowMs;
        m_count = 0;
    }
    return ++m_count <= most;
}
