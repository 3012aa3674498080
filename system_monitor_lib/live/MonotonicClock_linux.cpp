#include "system_monitor_lib/live/MonotonicClock.h"

#include <ctime>

qint64 monotonicNanoseconds()
{
    constexpr qint64 perSecond = 1'000'000'000;
    timespec now = {};
    // Unlike CLOCK_MONOTONIC, this clock continues during a suspend.
    clock_gettime(CLOCK_BOOTTIME, &now);
    return qint64{now.tv_sec} * perSecond + now.tv_nsec;
}
