#pragma once

#include "system_monitor_lib/live/processor/CoreLoads.h"

#include <QByteArray>

#include <optional>
#include <vector>

/// Sums up the answers of Windows' groups of processors, each an array of
/// SYSTEM_PROCESSOR_PERFORMANCE_INFORMATION (winternl.h), in units of 100 ns. Nothing when a group
/// did not answer, because the sum would then jump.
std::optional<CpuTimes> sumOfProcessorTimes(const std::vector<QByteArray> &groups);

/// The same answers in detail, with the processors numbered through the groups. Empty when a group
/// did not answer, because the processors of those that follow would then have other numbers.
CpuDetails detailsOfProcessorTimes(const std::vector<QByteArray> &groups);
