#pragma once

#include "system_monitor_lib/live/board/FanNames.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <vector>

/// One chip that libsensors found.
struct BoardChip
{
    /// Its name as sensors(1) shows it, such as "nct6798-isa-0290".
    QString name;
    /// The driver's name for it, such as "nct6798".
    QString driver = {};
    /// The rest of its name: the bus and the address.
    QString place = {};
    /// Its number in the library's list.
    std::size_t index = 0;
    /// Sorting by this sorts chips by their buses: first those on the board, last those that can be
    /// plugged in.
    int busOrder = 0;
};

/// The chips of the board, read through libsensors, which applies the user's own labels and
/// corrections (sensors.conf(5)). libsensors has process-wide state, so only one of these objects
/// may exist at a time. GPUs and drives are excluded, because they must not be woken.
class BoardChips
{
public:
    BoardChips();
    ~BoardChips();
    Q_DISABLE_COPY(BoardChips)

    /// By bus, then by name.
    [[nodiscard]] const std::vector<BoardChip> &chips() const { return m_chips; }
    /// The labels that read() can return, without accessing the chip.
    [[nodiscard]] QStringList labels(const BoardChip &chip) const;
    /// The fans and pumps among them.
    [[nodiscard]] FanChip fans(const BoardChip &chip) const;
    /// The current readings of a chip by label. If several sensors have the same label, all but the
    /// first also include the chip's own name for the sensor, such as "CPU Fan (fan3)". Sensors
    /// that cannot be read, report a fault or have implausible values are left out.
    [[nodiscard]] QJsonObject read(const BoardChip &chip) const;

private:
    bool m_good = false;
    std::vector<BoardChip> m_chips;
};
