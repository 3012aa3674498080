#pragma once

#include "plugin/GaugeHistory.h"
#include "plugin/KeyGaugeState.h"
#include "render/DisplaySettings.h"
#include "render/Gauge.h"

#include <array>
#include <cstddef>
#include <optional>

class normalAction;

/// What one key shows of its source at one moment. It refers to its arguments.
class GaugeView
{
public:
    /// \a now is in milliseconds, of the clock of the record's samples.
    GaugeView(const normalAction &key, const GaugeSource &source, const GaugeRecord &record,
              qint64 now);

    /// The style in which a key of \a kind, null for one without gauges, is shown.
    static DisplaySettings::Style styleOf(const DisplaySettings &display, const GaugeKind *kind);

    /// That of the present reading, where the level was \a before. A text's level follows only
    /// thresholds that the key's settings have.
    gauge::Level level(gauge::Level before) const;

    /// All that is painted; the widest texts of \a state are brought up to date.
    gauge::Content content(KeyGaugeState &state) const;

    static gauge::Look lookOf(const normalAction &key);

private:
    std::optional<double> present(std::size_t direction) const;
    gauge::Reading reading(std::size_t direction, KeyGaugeState &state) const;
    gauge::Trace trace(std::size_t direction) const;
    QString title() const;
    ScaleRange range() const;
    Thresholds thresholds() const;
    QVector<double> thresholdShares() const;
    std::optional<double> inBaseUnits(std::optional<double> setting) const;
    NumberText textOf(double number, const Reading<double> &reading, bool isMean) const;

    const normalAction &m_key;
    const GaugeKind &m_kind;
    const GaugeRecord &m_record;
    qint64 m_now;
    std::array<Reading<double>, 2> m_readings; ///< By direction.
    DisplaySettings::Style m_style;
    ScaleRange m_range;
};
