#include "plugin/PassClock.h"

#include <ctime>

qint64 passTime()
{
    constexpr qint64 perSecond = 1000;
    constexpr qint64 nanosecondsEach = 1'000'000;
    timespec now = {};
    // Unlike CLOCK_MONOTONIC, this clock continues during a suspend.
    clock_gettime(CLOCK_BOOTTIME, &now);
    return qint64{now.tv_sec} * perSecond + now.tv_nsec / nanosecondsEach;
}
