#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/MonotonicClock.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/board/BoardChips.h"

#include <QHash>

#include <memory>
#include <optional>

/// The voltage of the processor's cores among the readings of a chip: those under a label such as
/// "Vcore". Empty when there is none.
QJsonArray coreVoltage(const QJsonObject &chip);

/// How long a chip rests that took \a spentNs to read: so long that it costs little time in the
/// end. None for a quick one.
std::chrono::nanoseconds restAfter(qint64 spentNs);

/// The board's temperatures, voltages, fans and pumps, one group per chip, under the labels that
/// the chip or the user gives them; and the voltage of the processor's cores for the CPU query as
/// "Core VID". A fan or pump that is known to be the processor's also bears the label "CPU Fan" or
/// "AIO Pump".
class BoardCollector : public Collector
{
public:
    BoardCollector(const MachineRoots &roots,
                   const MonotonicClock &stopwatch = monotonicNanoseconds);

    bool collect(qint64 nowNs, SensorTrees &trees) override;
    /// Slow chips rest by themselves, and cost the quick ones nothing.
    [[nodiscard]] std::chrono::nanoseconds patience() const override
    {
        return std::chrono::seconds(1);
    }

private:
    struct Group
    {
        BoardChip chip;
        QStringList mayHave;
        /// The labels that some of its sensors have besides, because readers look for them.
        QHash<QString, QString> usualLabels;
        Pace pace{std::chrono::nanoseconds(0)};
        QJsonObject labels;
    };

    /// Lists the chips anew when some came or went.
    void look();
    /// Gives a fan the label by which readers know it.
    void name(const std::optional<FanPlace> &fan, const QString &usualLabel);

    const MachineRoots m_roots;
    const MonotonicClock m_stopwatch;
    Pace m_listing{listingPeriod};
    QStringList m_present;
    std::unique_ptr<BoardChips> m_chips;
    std::vector<Group> m_groups;
};
