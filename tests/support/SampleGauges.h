#pragma once

#include "render/Gauge.h"

/// Gauges as keys show them, for tests and benchmarks.
namespace samplegauges {

struct StyleName
{
    const char *name;
    gauge::Style style;
};

inline constexpr StyleName styles[] = {
    {"bar", gauge::Style::Bar},
    {"ring", gauge::Style::Ring},
    {"graph", gauge::Style::Graph},
    {"pair", gauge::Style::Pair},
};

/// A load of 37 %, of a pair 1.2 and 12.4 MB/s, with a sample for each second of the span.
gauge::Content contentOf(gauge::Style style);

/// White Roboto and the usual colours on a picture with \a side, square.
gauge::Look look(int side);

/// A sample for each of the last \a seconds, the newest of age 0: a curve between 0 and 1 that
/// begins at \a phase.
QVector<gauge::Point> samples(int seconds, double phase);

} // namespace samplegauges
