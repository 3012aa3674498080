#include "system_monitor_lib/live/power/PowerSupplyText.h"

#include "system_monitor_lib/live/files/SysfsText.h"

#include <QByteArray>

#include <cmath>
#include <string>

namespace {

/// The properties of one entry.
class Properties
{
public:
    explicit Properties(std::string_view text)
        : m_text(text)
    {
    }

    [[nodiscard]] QString word(const char *key) const
    {
        return parseUevent(m_text, "POWER_SUPPLY_" + std::string(key));
    }

    [[nodiscard]] std::optional<double> number(const char *key) const
    {
        const QByteArray text = word(key).toLatin1();
        const std::optional<qint64> whole =
            parseInteger({text.constData(), static_cast<std::size_t>(text.size())});
        return whole ? std::optional(static_cast<double>(*whole)) : std::nullopt;
    }

    /// A number that counts only if it is above 0.
    [[nodiscard]] std::optional<double> positive(const char *key) const
    {
        const std::optional<double> value = number(key);
        return value && *value > 0 ? value : std::nullopt;
    }

    /// An amount in millionths, whose sign says nothing.
    [[nodiscard]] std::optional<double> amount(const char *key) const
    {
        const std::optional<double> millionths = number(key);
        return millionths ? std::optional(std::abs(*millionths) / 1e6) : std::nullopt;
    }

private:
    const std::string_view m_text;
};

std::optional<double> percentOf(std::optional<double> part, std::optional<double> whole)
{
    constexpr double highest = 200;
    if (!part || !whole || !(*part > 0) || !(*whole > 0))
        return std::nullopt;
    const double percent = 100 * *part / *whole;
    return percent <= highest ? std::optional(percent) : std::nullopt;
}

std::optional<double> chargePercent(const Properties &properties)
{
    const std::optional<double> percent = properties.number("CAPACITY");
    return percent && *percent >= 0 && *percent <= 100 ? percent : std::nullopt;
}

std::optional<double> watts(const Properties &properties)
{
    constexpr double highest = 1000;
    std::optional<double> power = properties.amount("POWER_NOW");
    const std::optional<double> amperes = properties.amount("CURRENT_NOW");
    const std::optional<double> volts = properties.amount("VOLTAGE_NOW");
    if (!power && amperes && volts)
        power = *amperes * *volts;
    if (!power || *power > highest)
        return std::nullopt;
    const QString status = properties.word("STATUS");
    if (status == QLatin1String("Charging"))
        return -*power;
    // Whatever else flows has no known direction.
    return status == QLatin1String("Discharging") || *power <= 0 ? power : std::nullopt;
}

std::optional<double> minutesLeft(const Properties &properties)
{
    constexpr double secondsPerMinute = 60;
    if (properties.word("STATUS") != QLatin1String("Discharging"))
        return std::nullopt;
    if (const auto seconds = properties.positive("TIME_TO_EMPTY_NOW"))
        return batteryMinutes(*seconds / secondsPerMinute, secondsPerMinute);
    if (const auto energy = properties.amount("ENERGY_NOW"))
        return batteryMinutes(energy, watts(properties));
    // Charge and current relate as energy and power do.
    return batteryMinutes(properties.amount("CHARGE_NOW"), properties.amount("CURRENT_NOW"));
}

BatteryState batteryState(const Properties &properties)
{
    BatteryState state;
    state.percent = chargePercent(properties);
    state.watts = watts(properties);
    state.minutesLeft = minutesLeft(properties);
    // 0 stands for "not counted".
    if (const auto cycles = properties.positive("CYCLE_COUNT"))
        state.cycles = static_cast<quint64>(*cycles);
    state.healthPercent =
        percentOf(properties.amount("ENERGY_FULL"), properties.amount("ENERGY_FULL_DESIGN"));
    if (!state.healthPercent)
        state.healthPercent =
            percentOf(properties.amount("CHARGE_FULL"), properties.amount("CHARGE_FULL_DESIGN"));
    return state;
}

} // namespace

PowerSupply parsePowerSupply(std::string_view text)
{
    const Properties properties(text);
    PowerSupply supply;
    if (properties.word("SCOPE") == QLatin1String("Device"))
        return supply;
    const QString type = properties.word("TYPE");
    if (type == QLatin1String("Battery") && properties.number("PRESENT") != 0.0) {
        supply.kind = PowerSupply::Kind::Battery;
        supply.battery = batteryState(properties);
    } else if (type == QLatin1String("Mains") || type == QLatin1String("USB")) {
        supply.kind = PowerSupply::Kind::Mains;
        supply.isOnline = properties.positive("ONLINE").has_value();
    }
    return supply;
}
