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
    /// As sensors(1) shows it, such as "nct6798-isa-0290".
    QString name;
    /// Its driver's name for it, such as "nct6798".
    QString driver = {};
    /// The rest of its name: the bus and the address.
    QString place = {};
    /// Its number in the library's list.
    std::size_t index = 0;
    /// Chips in the order of this come in the order of their buses: first what is soldered to the
    /// board, last what comes and goes.
    int busOrder = 0;
};

/// The chips of the board, read through libsensors, which applies the user's own labels and
/// corrections (sensors.conf(5)). Its state is the whole process's, so there is one of these at a
/// time. GPUs and drives are not among the chips: they must not be woken.
class BoardChips
{
public:
    BoardChips();
    ~BoardChips();
    Q_DISABLE_COPY(BoardChips)

    /// By bus, then by name.
    [[nodiscard]] const std::vector<BoardChip> &chips() const { return m_chips; }
    /// The labels that read() can give, without asking the chip.
    [[nodiscard]] QStringList labels(const BoardChip &chip) const;
    /// The fans and pumps among them.
    [[nodiscard]] FanChip fans(const BoardChip &chip) const;
    /// The present readings of a chip by label. Of sensors of one label all but the first bear the
    /// chip's own name for them as well, such as "CPU Fan (fan3)". What cannot be read, is said to
    /// be faulty or is implausible is left out.
    [[nodiscard]] QJsonObject read(const BoardChip &chip) const;

private:
    bool m_good = false;
    std::vector<BoardChip> m_chips;
};
