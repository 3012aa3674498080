#include "system_monitor_lib/live/MonotonicClock.h"

#include <windows.h>

namespace {

qint64 ticksPerSecond()
{
    LARGE_INTEGER frequency = {};
    QueryPerformanceFrequency(&frequency);
    return frequency.QuadPart;
}

} // namespace

qint64 monotonicNanoseconds()
{
    constexpr qint64 perSecond = 1'000'000'000;
    static const qint64 frequency = ticksPerSecond();
    LARGE_INTEGER ticks = {};
    QueryPerformanceCounter(&ticks);
    // In two steps, because ticks times 10^9 overflows after some minutes.
    return ticks.QuadPart / frequency * perSecond +
           ticks.QuadPart % frequency * perSecond / frequency;
}
