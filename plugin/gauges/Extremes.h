#pragma once

#include "render/Gauge.h"

#include <QtGlobal>

#include <optional>

/// The lowest and the highest of all samples, and their mean.
class Extremes
{
public:
    void add(double value);
    /// The one that \a which names; nothing when there are no samples, and for None.
    std::optional<double> valueOf(gauge::Extreme which) const;

private:
    double m_lowest = 0;
    double m_highest = 0;
    double m_sum = 0;
    qint64 m_count = 0;
};
