#include "system_monitor_lib/live/power/BatteryAnswers.h"

#include "system_monitor_lib/live/BinaryAnswer.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr quint32 unknown = 0xffff'ffff;

/// A number that is neither unknown nor 0, which drivers report for what they do not count.
std::optional<quint32> countedAt(const QByteArray &answer, int offset)
{
    const std::optional<quint32> number = numberAt<quint32>(answer, offset);
    return number.value_or(0) == 0 || number == unknown ? std::nullopt : number;
}

struct Information
{
    explicit Information(const QByteArray &answer)
    {
        constexpr quint32 relative = 0x4000'0000;
        constexpr int designedOffset = 12;
        constexpr int fullOffset = 16;
        constexpr int cyclesOffset = 32;
        isRelative = (numberAt<quint32>(answer, 0).value_or(relative) & relative) != 0;
        designed = countedAt(answer, designedOffset);
        full = countedAt(answer, fullOffset);
        cycles = countedAt(answer, cyclesOffset);
    }

    bool isRelative;
    /// In mWh, if it is not relative.
    std::optional<quint32> designed;
    std::optional<quint32> full;
    std::optional<quint32> cycles;
};

struct Status
{
    explicit Status(const QByteArray &answer)
    {
        constexpr quint32 discharging = 2;
        constexpr int capacityOffset = 4;
        constexpr int rateOffset = 12;
        constexpr qint32 unknownRate = std::numeric_limits<qint32>::min();
        isDischarged = (numberAt<quint32>(answer, 0).value_or(0) & discharging) != 0;
        capacity = numberAt<quint32>(answer, capacityOffset);
        if (capacity == unknown)
            capacity.reset();
        rate = numberAt<qint32>(answer, rateOffset);
        if (rate == unknownRate)
            rate.reset();
    }

    bool isDischarged;
    std::optional<quint32> capacity;
    /// In mW, if it is not relative; negative while it is discharged.
    std::optional<qint32> rate;
};

std::optional<double> percentOf(std::optional<quint32> part, std::optional<quint32> whole,
                                double highest)
{
    if (!part || !whole)
        return std::nullopt;
    return std::min(100.0 * *part / *whole, highest);
}

std::optional<double> wattsOf(const Information &information, const Status &status)
{
    constexpr double milliwattsPerWatt = 1000;
    constexpr double highest = 10'000;
    if (information.isRelative || !status.rate)
        return std::nullopt;
    // Not -0.
    const double watts = 0 - *status.rate / milliwattsPerWatt;
    return std::abs(watts) <= highest ? std::optional(watts) : std::nullopt;
}

std::optional<double> minutesOf(const BatteryAnswers &answers, const Information &information,
                                const Status &status, std::optional<double> watts)
{
    constexpr double secondsPerHour = 3600;
    constexpr double milliwattHoursPerWattHour = 1000;
    if (!status.isDischarged)
        return std::nullopt;
    if (const std::optional<quint32> seconds = countedAt(answers.time, 0))
        return batteryMinutes(*seconds / secondsPerHour, 1);
    if (information.isRelative || !status.capacity)
        return std::nullopt;
    return batteryMinutes(*status.capacity / milliwattHoursPerWattHour, watts);
}

} // namespace

QString parseBatteryName(const BatteryAnswers &answers)
{
    constexpr int longest = 128;
    QString name;
    for (int at = 0; at < answers.name.size() && name.size() < longest; at += 2) {
        const quint16 letter = numberAt<quint16>(answers.name, at).value_or(0);
        if (letter == 0)
            break;
        name += QChar(letter);
    }
    return name.simplified();
}

BatteryState parseBattery(const BatteryAnswers &answers)
{
    constexpr double highestCharge = 100;
    constexpr double highestHealth = 200;
    const Information information(answers.information);
    const Status status(answers.status);
    BatteryState state;
    state.percent = percentOf(status.capacity, information.full, highestCharge);
    state.watts = wattsOf(information, status);
    state.minutesLeft = minutesOf(answers, information, status, state.watts);
    if (information.cycles)
        state.cycles = *information.cycles;
    state.healthPercent = percentOf(information.full, information.designed, highestHealth);
    return state;
}

std::optional<bool> parseMains(const QByteArray &answer)
{
    constexpr quint8 noBattery = 128; // Also set where nothing is known.
    const auto line = numberAt<quint8>(answer, 0);
    const auto flags = numberAt<quint8>(answer, 1);
    if (!line || !flags || *line > 1 || (*flags & noBattery) != 0)
        return std::nullopt;
    return *line == 1;
}
