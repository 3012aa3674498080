#include "plugin/gauges/SampleSeries.h"

#include <algorithm>

namespace {

/// Between samples that a line joins, in milliseconds.
constexpr qint64 longestStep = 2500;

constexpr double perSecond = 1000;
constexpr qint64 longestSpan = 3'600'000;

/// One a second, and one before the beginning of the longest graph.
constexpr std::size_t mostSamples = 3602;

} // namespace

void SampleSeries::add(qint64 time, double value)
{
    if (!m_samples.empty() && time <= m_samples.back().time)
        return;
    m_samples.push_back({time, value});
    dropOldest(time);
}

void SampleSeries::dropOldest(qint64 now)
{
    while (m_samples.size() > mostSamples ||
           (m_samples.size() > 1 && m_samples[1].time < now - longestSpan))
        m_samples.pop_front();
}

std::optional<double> SampleSeries::mean(int count, qint64 now) const
{
    double sum = 0;
    int taken = 0;
    qint64 next = now;
    for (auto sample = m_samples.rbegin(); sample != m_samples.rend() && taken < count; ++sample) {
        if (next - sample->time > longestStep)
            break;
        next = sample->time;
        sum += sample->value;
        ++taken;
    }
    return taken > 0 ? std::optional(sum / taken) : std::nullopt;
}

gauge::Trace SampleSeries::trace(double span, qint64 now, const ScaleRange &range) const
{
    const qint64 begin = now - static_cast<qint64>(span * perSecond);
    auto sample =
        std::lower_bound(m_samples.begin(), m_samples.end(), begin,
                         [](const Sample &each, qint64 time) { return each.time < time; });
    if (sample != m_samples.begin() && sample != m_samples.end() &&
        sample->time - std::prev(sample)->time <= longestStep)
        --sample;
    gauge::Trace trace;
    qint64 last = 0;
    for (; sample != m_samples.end() && sample->time <= now; ++sample) {
        if (trace.isEmpty() || sample->time - last > longestStep)
            trace.append(QVector<gauge::Point>());
        trace.last().append(
            {static_cast<double>(now - sample->time) / perSecond, range.shareOf(sample->value)});
        last = sample->time;
    }
    return trace;
}
