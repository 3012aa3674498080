#pragma once

#include <QString>

#include <optional>
#include <vector>

/// A fan or pump of a chip.
struct FanHeader
{
    QString label;  ///< As the list of all sensors calls it.
    QString header; ///< As the chip's driver calls it, such as "fan2".
};

/// The fans of one chip.
struct FanChip
{
    QString driver;
    std::vector<FanHeader> fans;
};

/// A fan or pump and the chip that it belongs to.
struct FanPlace
{
    std::size_t chip = 0;
    QString label;
};

/// The fan that also gets the label "CPU Fan", by which it is looked up: one whose own label
/// identifies it as the processor's, else the fan at the header that the chip's maker or this kind
/// of board uses for it. Nothing when a fan has that label already, or when the rule applies to
/// several chips.
std::optional<FanPlace> cpuFan(const std::vector<FanChip> &chips);

/// The same for "AIO Pump": a pump by its label, those of drivers for water coolers first.
std::optional<FanPlace> aioPump(const std::vector<FanChip> &chips);
