#pragma once

#include "system_monitor_lib/live/processor/CpuTimes.h"

#include <QtGlobal>

#include <chrono>
#include <optional>

/// After a longer pause between two samples the machine has slept, or the program has hung: what
/// the counters did meanwhile says nothing about now.
inline constexpr std::chrono::nanoseconds longestInterval = std::chrono::seconds(10);

inline constexpr double microjoulesPerJoule = 1'000'000;

/// Whether a rate may be computed over \a nanoseconds: more than none, at most longestInterval.
bool isUsableInterval(qint64 nanoseconds);

/// What a counter gained per second. Nothing when the counter went back (reset or wrapped) or the
/// interval is not usable.
std::optional<double> ratePerSecond(quint64 previous, quint64 current, qint64 intervalNs);

/// The busy share of the time between two samples, 0 to 100 %. Nothing when no time was spent or
/// the counters went back. Idle time alone may go back a little: the kernel says so of its iowait.
std::optional<double> cpuLoadPercent(const CpuTimes &previous, const CpuTimes &current);
