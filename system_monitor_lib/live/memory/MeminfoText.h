#pragma once

#include "system_monitor_lib/live/memory/MemoryState.h"

#include <optional>
#include <string_view>

/// Parses /proc/meminfo (proc(5)). Kernels before 3.14 have no MemAvailable; there the sum of
/// MemFree, Buffers and Cached takes its place. Nothing when a needed line is missing or malformed,
/// or when more were available than there is.
std::optional<MemoryState> parseMeminfo(std::string_view text);
