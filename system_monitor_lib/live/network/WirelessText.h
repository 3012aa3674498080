#pragma once

#include "system_monitor_lib/live/network/WirelessState.h"

#include <QString>

#include <string_view>
#include <utility>
#include <vector>

/// Parses /proc/net/wireless, which has two lines of titles and a line for each wireless adapter
/// with a link: name, status, quality, level and more. A level that is not in dBm is none; so is
/// one that the driver has never measured.
std::vector<std::pair<QString, WirelessState>> parseWireless(std::string_view text);
