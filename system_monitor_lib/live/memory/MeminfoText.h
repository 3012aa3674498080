#pragma once

#include "system_monitor_lib/live/memory/MemoryState.h"

#include <optional>
#include <string_view>

/// Parses /proc/meminfo (proc(5)). Kernels before 3.14 have no MemAvailable; there the sum of
/// MemFree, Buffers and Cached is used. Nothing when a needed line is missing or malformed, or when
/// more memory is available than exists.
std::optional<MemoryState> parseMeminfo(std::string_view text);
