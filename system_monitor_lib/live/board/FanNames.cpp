#include "system_monitor_lib/live/board/FanNames.h"

#include <QRegularExpression>

#include <functional>
#include <iterator>

namespace {

using IsMeant = std::function<bool(const FanChip &chip, const FanHeader &fan)>;

/// The fans that are meant, in the order of the chips.
std::vector<FanPlace> fansThat(const std::vector<FanChip> &chips, const IsMeant &isMeant)
{
    std::vector<FanPlace> found;
    for (std::size_t chip = 0; chip < chips.size(); ++chip) {
        for (const FanHeader &fan : chips[chip].fans) {
            if (isMeant(chips[chip], fan))
                found.push_back({chip, fan.label});
        }
    }
    return found;
}

bool has(const FanHeader &fan, const char *word)
{
    return fan.label.contains(QLatin1String(word), Qt::CaseInsensitive);
}

/// The header of the processor's fan if no fan has a label that identifies it.
struct Convention
{
    const char *drivers;
    const char *header;
};

// Nuvoton and Winbond count the system's fan first, then the processor's (their data sheets' pins
// SYSFANIN, CPUFANIN); ITE and Fintek begin with the processor's. A second chip of ITE's on a
// board, IT8792 and IT8795, has none of it. Laptops and small boards have one fan, the processor's.
constexpr Convention conventions[] = {
    {"nct6\\d{3}d?|w83627(ehf|dhg|uhg)|w83667hg", "fan2"},
    {"it8(?!792|795|7952)\\w+", "fan1"},
    {"f71\\w+|f81\\w+", "fan1"},
    {"thinkpad|pwmfan", "fan1"},
};

bool isByConvention(const FanChip &chip, const FanHeader &fan)
{
    for (const Convention &convention : conventions) {
        const QRegularExpression drivers(
            QRegularExpression::anchoredPattern(QString::fromLatin1(convention.drivers)));
        if (fan.header == QLatin1String(convention.header) && fan.label == fan.header &&
            drivers.match(chip.driver).hasMatch())
            return true;
    }
    return false;
}

bool isWaterCooler(const FanChip &chip)
{
    static const QRegularExpression drivers(QRegularExpression::anchoredPattern(
        QStringLiteral("kraken\\w*|x53|z53|rog_ryujin|waterforce")));
    return drivers.match(chip.driver).hasMatch();
}

} // namespace

std::optional<FanPlace> cpuFan(const std::vector<FanChip> &chips)
{
    const auto isTold = [](const FanChip &, const FanHeader &fan) {
        return has(fan, "CPU") && has(fan, "Fan");
    };
    if (!fansThat(chips, isTold).empty())
        return std::nullopt;
    const auto isLabelled = [](const FanChip &, const FanHeader &fan) {
        return (has(fan, "Processor") || has(fan, "CPU")) && !has(fan, "pump");
    };
    if (const auto labelled = fansThat(chips, isLabelled); !labelled.empty())
        return labelled.front();
    const std::vector<FanPlace> usual = fansThat(chips, isByConvention);
    return usual.size() == 1 ? std::optional(usual.front()) : std::nullopt;
}

std::optional<FanPlace> aioPump(const std::vector<FanChip> &chips)
{
    const auto isTold = [](const FanChip &, const FanHeader &fan) { return has(fan, "AIO Pump"); };
    if (!fansThat(chips, isTold).empty())
        return std::nullopt;
    const IsMeant ranks[] = {
        [](const FanChip &chip, const FanHeader &fan) {
            return isWaterCooler(chip) && has(fan, "pump");
        },
        [](const FanChip &, const FanHeader &fan) { return has(fan, "pump") && has(fan, "AIO"); },
        [](const FanChip &, const FanHeader &fan) { return has(fan, "pump"); },
    };
    for (const IsMeant &rank : ranks) {
        if (const auto pumps = fansThat(chips, rank); !pumps.empty())
            return pumps.front();
    }
    return std::nullopt;
}
