#pragma once

#include <chrono>

/// The time from one pass over the keys to the next. Programs that simulate months of running
/// define it differently.
std::chrono::milliseconds updateInterval();
