#pragma once

#include <QtGlobal>

#include <functional>
#include <optional>

/// The load of all processors as the system itself shows it, in percent; it may exceed 100. Nothing
/// when there is none at the moment.
using CpuLoadFigure = std::function<std::optional<double>(qint64 nowNs)>;

/// Null on a system without such a figure, where the load is computed from the processors' times.
CpuLoadFigure systemCpuLoadFigure();
