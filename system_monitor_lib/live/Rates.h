#pragma once

#include "system_monitor_lib/live/processor/CpuTimes.h"

#include <QtGlobal>

#include <chrono>
#include <optional>

/// After a longer interval between two samples the machine was asleep, or the program was stopped:
/// the change of the counters says nothing about the present.
inline constexpr std::chrono::nanoseconds longestInterval = std::chrono::seconds(10);

inline constexpr double microjoulesPerJoule = 1'000'000;

/// Whether a rate can be computed over \a nanoseconds: more than 0, at most longestInterval.
bool isUsableInterval(qint64 nanoseconds);

/// The increase of a counter per second. Nothing when the counter went back (reset or wrapped) or
/// the interval is not usable.
std::optional<double> ratePerSecond(quint64 previous, quint64 current, qint64 intervalNs);

/// The busy share of the time between two samples, 0 to 100 %. Nothing when no time has passed or
/// the counters went back. Idle time alone may go back a little: the kernel documents this for
/// iowait.
std::optional<double> cpuLoadPercent(const CpuTimes &previous, const CpuTimes &current);
