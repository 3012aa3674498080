#pragma once

#include <QVector>
#include <QtGlobal>

namespace deck {

/// Frames and bytes per second over the last few seconds, from running totals.
class TrafficMeter
{
public:
    /// Samples older than this do not count, milliseconds.
    static constexpr qint64 window = 3000;

    /// \a now is in milliseconds. A sample that is not later than the previous one is ignored;
    /// decreasing totals start a new series.
    void add(qint64 now, quint64 frames, quint64 bytes);

    /// 0 before the second sample.
    [[nodiscard]] double framesPerSecond() const;
    [[nodiscard]] double bytesPerSecond() const;

private:
    struct Sample
    {
        qint64 time;
        quint64 frames;
        quint64 bytes;
    };
    [[nodiscard]] double perSecond(quint64 Sample::*total) const;

    QVector<Sample> m_samples;
};

} // namespace deck
