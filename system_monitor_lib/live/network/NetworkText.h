#pragma once

#include <QtGlobal>

#include <optional>
#include <string_view>

/// Parses a file of /sys/class/net/ADAPTER/statistics: one number and a newline.
std::optional<quint64> parseCounter(std::string_view text);

/// Parses /sys/class/net/ADAPTER/speed (Mbit/s) and returns bytes per second; 0 when the speed is
/// unknown, which drivers report as -1, as -1 converted to unsigned, as 0 or as an error.
double parseLinkSpeed(std::string_view text);
