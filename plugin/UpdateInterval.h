#pragma once

#include <chrono>

/// The time from one pass over the keys to the next. Programs that test the passage of months
/// define it anew.
std::chrono::milliseconds updateInterval();
