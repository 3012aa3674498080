#pragma once

#include "plugin/gauges/ScaleRange.h"
#include "render/Gauge.h"

#include <QtGlobal>

#include <deque>
#include <optional>

/// The samples of one reading over the last hour. Times are milliseconds of one clock that never
/// goes back and counts sleep.
class SampleSeries
{
public:
    /// A sample at the time of the last one is dropped; a value is finite.
    void add(qint64 time, double value);

    bool isEmpty() const { return m_samples.empty(); }

    /// The mean of the last \a count samples before \a now without a gap; of as many as there are.
    /// Nothing when there are none.
    std::optional<double> mean(int count, qint64 now) const;

    /// What a graph over the last \a span seconds shows; each run may begin with one older point.
    gauge::Trace trace(double span, qint64 now, const ScaleRange &range) const;

private:
    struct Sample
    {
        qint64 time;
        double value;
    };

    void dropOldest(qint64 now);

    std::deque<Sample> m_samples;
};
