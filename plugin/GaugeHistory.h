#pragma once

#include "plugin/GaugeKind.h"
#include "plugin/gauges/Extremes.h"
#include "plugin/gauges/SampleSeries.h"
#include "plugin/gauges/SteadyScale.h"
#include "qt/QtVersions.h"

#include <QHash>
#include <QPair>
#include <QString>

#include <array>

/// What a gauge key shows: something that its kind has to offer.
struct GaugeSource
{
    const GaugeKind *kind; ///< Never null; lives as long as the program.
    QString selection;
};

inline bool operator==(const GaugeSource &one, const GaugeSource &other)
{
    return one.kind == other.kind && one.selection == other.selection;
}

inline HashValue qHash(const GaugeSource &source, HashValue seed = 0)
{
    return qHash(qMakePair(source.kind, source.selection), seed);
}

/// The samples of one source.
struct GaugeRecord
{
    /// One of a reading's two directions; all others have but the first.
    struct Direction
    {
        SampleSeries series;
        Extremes extremes;
    };

    std::array<Direction, 2> directions;
    // Both directions of a pair together.
    SteadyScale scale;
    SteadyScale scaleInBits;
    qint64 sampled = -1; ///< When, in milliseconds; likewise the next.
    qint64 shown = 0;
};

/// The samples of what keys show and have shown of late, one a pass. Times are milliseconds of one
/// clock that never goes back and counts sleep.
class GaugeHistory
{
public:
    static constexpr int mostSources = 64;

    /// Begins a pass: samples all sources, and forgets those that no key has shown for ten minutes.
    void beginPass(qint64 now);

    /// The record of \a source, which a key shows at \a now; it is created where there is none.
    /// Null when there is no room for another. The pointer holds until the next call.
    GaugeRecord *show(const GaugeSource &source, qint64 now);

    /// The extremes of \a source begin anew.
    void resetExtremes(const GaugeSource &source);

    static GaugeRecord newRecord(const GaugeKind &kind);

    /// Samples \a source unless this pass has done so.
    static void sample(const GaugeSource &source, GaugeRecord &record, qint64 now);

    int size() const { return static_cast<int>(m_records.size()); }

private:
    bool makeRoom(qint64 now);

    QHash<GaugeSource, GaugeRecord> m_records;
};
