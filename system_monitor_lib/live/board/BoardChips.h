#pragma once

#include <QJsonObject>
#include <QString>
#include <QtGlobal>

#include <vector>

/// One chip that libsensors found.
struct BoardChip
{
    /// As sensors(1) shows it, such as "nct6798-isa-0290".
    QString name;
    /// Its number in the library's list.
    std::size_t index = 0;
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

    [[nodiscard]] const std::vector<BoardChip> &chips() const { return m_chips; }
    /// The present readings of a chip by label; two sensors of one label share it. What cannot be
    /// read, is said to be faulty or is implausible is left out.
    [[nodiscard]] QJsonObject read(const BoardChip &chip) const;

private:
    bool m_good = false;
    std::vector<BoardChip> m_chips;
};
