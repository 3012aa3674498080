#pragma once

#include <QString>

#include <string_view>

/// The name of the processor out of /proc/cpuinfo: "model name", or on boards that lack it
/// "Hardware" or "Model", blanks run together. Empty when there is none.
QString parseCpuModel(std::string_view text);
