#pragma once

#include <QString>

#include <string_view>

/// The kinds of cores of an ARM processor out of /proc/cpuinfo, which tells them by the numbers of
/// maker and part, such as "ARM Cortex-A76 / Cortex-A55": the later ones first, which are the big
/// ones on processors of two kinds. Empty when there are none or one is unknown.
QString armCores(std::string_view cpuInfo);
