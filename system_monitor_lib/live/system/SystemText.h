#pragma once

#include "system_monitor_lib/live/system/SystemState.h"

#include <optional>
#include <string_view>

/// Parses /proc/uptime: the seconds since the start. Nothing when malformed.
std::optional<double> parseUptime(std::string_view text);

/// Parses the first three numbers of /proc/loadavg into \a state; a malformed one is absent, as are
/// those after it.
void parseLoadAverages(std::string_view text, SystemState &state);

/// Parses a file of /proc/pressure (Documentation/accounting/psi.rst in the kernel): the share of
/// the last ten seconds, in percent, during which some program had to wait. Nothing when malformed.
std::optional<double> parsePressure(std::string_view text);

/// Whether a file of /run/systemd/sessions is about the session of a user who is logged in.
bool isUserSession(std::string_view text);
