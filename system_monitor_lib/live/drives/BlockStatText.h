#pragma once

#include "system_monitor_lib/live/drives/DriveActivity.h"

#include <optional>
#include <string_view>

/// Parses /sys/block/DRIVE/stat (Documentation/block/stat.rst in the kernel): sectors are of 512
/// bytes, times in milliseconds of 32 bits. Discards and flushes do not count. Nothing when a
/// number is missing or implausible.
std::optional<DriveCounters> parseBlockStat(std::string_view text);
