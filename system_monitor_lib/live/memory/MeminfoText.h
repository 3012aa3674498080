#pragma once

#include "system_monitor_lib/live/memory/MemoryDetails.h"
#include "system_monitor_lib/live/memory/MemoryState.h"

#include <optional>
#include <string_view>

/// Parses /proc/meminfo (proc(5)). Kernels before 3.14 have no MemAvailable; there the sum of
/// MemFree, Buffers and Cached is used. Nothing when a needed line is missing or malformed, or when
/// more memory is available than exists.
std::optional<MemoryState> parseMeminfo(std::string_view text);

/// Parses the same file in detail. What is kept compressed is what zswap holds (from Linux 5.19
/// on). A machine without swap has none of its amounts.
MemoryDetails parseMeminfoDetails(std::string_view text);

/// Parses /sys/block/zramN/mm_stat and returns the size of the data without compression, in bytes.
std::optional<quint64> parseZramStat(std::string_view text);
