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

/// Which fan is whose.
struct FanPlace
{
    std::size_t chip = 0;
    QString label;
};

/// The fan that is to be called "CPU Fan" besides, because readers look for that label: one whose
/// own label says that it is the processor's, else the header at which the chip's maker or the
/// board's kind puts it. Nothing where a label says so already, and where several chips would have
/// one.
std::optional<FanPlace> cpuFan(const std::vector<FanChip> &chips);

/// The same for "AIO Pump": a pump by its label, those of drivers for water coolers first.
std::optional<FanPlace> aioPump(const std::vector<FanChip> &chips);
