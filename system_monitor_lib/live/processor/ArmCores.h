#pragma once

#include <QString>

#include <string_view>

/// The kinds of cores of an ARM processor from /proc/cpuinfo, which identifies them by the numbers
/// of maker and part, such as "ARM Cortex-A76 / Cortex-A55". Later cores come first, because they
/// are the big ones on processors with two kinds. Empty when there are none or one is unknown.
QString armCores(std::string_view cpuInfo);
