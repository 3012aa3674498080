#pragma once

#include <QtGlobal>

#include <optional>
#include <string_view>

/// Parses a file of /sys/class/net/ADAPTER/statistics: one number and a newline.
std::optional<quint64> parseCounter(std::string_view text);

/// Parses /sys/class/net/ADAPTER/speed (Mbit/s) and gives bytes per second; 0 when the speed is not
/// known, which drivers say with -1, with that number as an unsigned one, with 0 or with an error.
double parseLinkSpeed(std::string_view text);
