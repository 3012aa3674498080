#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/MonotonicClock.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/board/BoardChips.h"

#include <QHash>

#include <memory>
#include <optional>

/// The core voltage of the processor among the readings of a chip: those under a label such as
/// "Vcore". Empty when there is none.
QJsonArray coreVoltage(const QJsonObject &chip);

/// How long to pause a chip that took \a spentNs to read, so that it costs little time on average.
/// 0 for a fast chip.
std::chrono::nanoseconds restAfter(qint64 spentNs);

/// The board's temperatures, voltages, fans and pumps, one group per chip, under the labels given
/// by the chip or the user; and the processor's core voltage for the CPU query as "Core VID". A fan
/// or pump that is known to be the processor's also gets the label "CPU Fan" or "AIO Pump".
class BoardCollector : public Collector
{
public:
    BoardCollector(const MachineRoots &roots,
                   const MonotonicClock &stopwatch = monotonicNanoseconds);

    bool collect(qint64 nowNs, SensorTrees &trees) override;
    /// Slow chips are paused individually and do not delay the fast ones.
    [[nodiscard]] std::chrono::nanoseconds patience() const override
    {
        return std::chrono::seconds(1);
    }

private:
    struct Group
    {
        BoardChip chip;
        QStringList mayHave;
        /// Additional labels of some of its sensors, by which they are looked up.
        QHash<QString, QString> usualLabels;
        Pace pace{std::chrono::nanoseconds(0)};
        QJsonObject labels;
    };

    /// Refreshes the list of chips when some were added or removed.
    void look();
    /// Gives a fan the label by which it is looked up.
    void name(const std::optional<FanPlace> &fan, const QString &usualLabel);

    const MachineRoots m_roots;
    const MonotonicClock m_stopwatch;
    Pace m_listing{listingPeriod};
    QStringList m_present;
    std::unique_ptr<BoardChips> m_chips;
    std::vector<Group> m_groups;
};
