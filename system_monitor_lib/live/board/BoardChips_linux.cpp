#include "system_monitor_lib/live/board/BoardChips.h"

#include "system_monitor_lib/SensorTrees.h"
#include "system_monitor_lib/live/files/SysfsText.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <tuple>

#include <sensors/error.h>
#include <sensors/sensors.h>

namespace {

/// Restores the process's locale, which libsensors changes while it reads its configuration.
class LocaleKeeper
{
public:
    LocaleKeeper()
    {
        if (const char *const locale = std::setlocale(LC_ALL, nullptr)) // NOLINT(concurrency-*)
            m_locale = locale;
    }
    ~LocaleKeeper()
    {
        std::setlocale(LC_ALL, m_locale.c_str()); // NOLINT(concurrency-*)
    }
    Q_DISABLE_COPY(LocaleKeeper)

private:
    std::string m_locale = "C";
};

struct Freer
{
    void operator()(char *text) const
    {
        std::free(text); // NOLINT(cppcoreguidelines-no-malloc)
    }
};

struct Kind
{
    sensors_feature_type feature;
    std::array<sensors_subfeature_type, 2> values;
    std::optional<sensors_subfeature_type> fault;
    const char *units;
    double lowest;
    double highest;
};

const std::array<Kind, 6> kinds{{
    {SENSORS_FEATURE_TEMP,
     {SENSORS_SUBFEATURE_TEMP_INPUT, SENSORS_SUBFEATURE_TEMP_INPUT},
     SENSORS_SUBFEATURE_TEMP_FAULT,
     "°C",
     0,
     140},
    {SENSORS_FEATURE_FAN,
     {SENSORS_SUBFEATURE_FAN_INPUT, SENSORS_SUBFEATURE_FAN_INPUT},
     SENSORS_SUBFEATURE_FAN_FAULT,
     "RPM",
     0,
     50'000},
    {SENSORS_FEATURE_IN,
     {SENSORS_SUBFEATURE_IN_INPUT, SENSORS_SUBFEATURE_IN_AVERAGE},
     std::nullopt,
     "V",
     -1'000,
     1'000},
    {SENSORS_FEATURE_POWER,
     {SENSORS_SUBFEATURE_POWER_INPUT, SENSORS_SUBFEATURE_POWER_AVERAGE},
     std::nullopt,
     "W",
     -10'000,
     10'000},
    {SENSORS_FEATURE_CURR,
     {SENSORS_SUBFEATURE_CURR_INPUT, SENSORS_SUBFEATURE_CURR_AVERAGE},
     std::nullopt,
     "A",
     -1'000,
     1'000},
    {SENSORS_FEATURE_HUMIDITY,
     {SENSORS_SUBFEATURE_HUMIDITY_INPUT, SENSORS_SUBFEATURE_HUMIDITY_INPUT},
     std::nullopt,
     "%",
     0,
     100},
}};

/// Read elsewhere, and only while they are awake.
bool mayBeAsleep(const sensors_chip_name &chip)
{
    constexpr std::array<const char *, 7> drivers{"amdgpu",  "radeon",    "i915", "xe",
                                                  "nouveau", "drivetemp", "nvme"};
    return std::any_of(drivers.begin(), drivers.end(),
                       [&chip](const char *driver) { return qstrcmp(chip.prefix, driver) == 0; });
}

std::optional<double> valueOf(const sensors_chip_name &chip, const sensors_feature &feature,
                              sensors_subfeature_type type)
{
    const sensors_subfeature *const part = sensors_get_subfeature(&chip, &feature, type);
    double value = 0;
    if (!part || sensors_get_value(&chip, part->number, &value) != 0 || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<double> valueOf(const sensors_chip_name &chip, const sensors_feature &feature,
                              const Kind &kind)
{
    if (kind.fault && valueOf(chip, feature, *kind.fault).value_or(0) != 0)
        return std::nullopt;
    for (const sensors_subfeature_type type : kind.values) {
        const std::optional<double> value = valueOf(chip, feature, type);
        if (value && *value >= kind.lowest && *value <= kind.highest)
            return value;
    }
    return std::nullopt;
}

const Kind *kindOf(const sensors_feature &feature)
{
    const auto *const kind = std::find_if(kinds.begin(), kinds.end(), [&feature](const Kind &each) {
        return each.feature == feature.type;
    });
    return kind == kinds.end() ? nullptr : kind;
}

/// The sensors of a chip by label, in the chip's order.
std::vector<std::pair<QString, const sensors_feature *>> sensorsOf(const sensors_chip_name &chip)
{
    std::vector<std::pair<QString, const sensors_feature *>> sensors;
    QStringList taken;
    int next = 0;
    while (const sensors_feature *const feature = sensors_get_features(&chip, &next)) {
        if (!kindOf(*feature))
            continue;
        const std::unique_ptr<char, Freer> text(sensors_get_label(&chip, feature));
        const QString name = QString::fromUtf8(feature->name);
        QString label = text ? QString::fromUtf8(text.get()) : name;
        if (taken.contains(label))
            label = QStringLiteral("%1 (%2)").arg(label, name);
        taken += label;
        sensors.emplace_back(label, feature);
    }
    return sensors;
}

const sensors_chip_name *found(const BoardChip &chip)
{
    int number = static_cast<int>(chip.index);
    return sensors_get_detected_chips(nullptr, &number);
}

int busOrder(const sensors_chip_name &chip)
{
    constexpr std::array<short, 7> buses{
        SENSORS_BUS_TYPE_ISA,     SENSORS_BUS_TYPE_PCI,  SENSORS_BUS_TYPE_I2C, SENSORS_BUS_TYPE_SPI,
        SENSORS_BUS_TYPE_VIRTUAL, SENSORS_BUS_TYPE_ACPI, SENSORS_BUS_TYPE_MDIO};
    // Unknown ones are those that are plugged in.
    return static_cast<int>(std::find(buses.begin(), buses.end(), chip.bus.type) - buses.begin());
}

void complainAboutConfiguration(const char *error, const char *file, int line)
{
    qWarning("The configuration of the sensors has an error in line %d of %s: %s", line,
             file ? file : "its file", error);
}

} // namespace

BoardChips::BoardChips()
{
    sensors_parse_error_wfn = [](const char *error, const char *file, int line) {
        complainAboutConfiguration(error, file, line);
    };
    const LocaleKeeper keeper;
    m_good = sensors_init(nullptr) == 0;
    int next = 0;
    while (const sensors_chip_name *const chip =
               m_good ? sensors_get_detected_chips(nullptr, &next) : nullptr) {
        std::array<char, 256> name{};
        if (mayBeAsleep(*chip) || sensors_snprintf_chip_name(name.data(), name.size(), chip) <= 0)
            continue;
        const QString driver = QString::fromUtf8(chip->prefix);
        const QString whole = QString::fromUtf8(name.data());
        m_chips.push_back({whole, driver, whole.mid(driver.size() + 1),
                           static_cast<std::size_t>(next - 1), busOrder(*chip)});
    }
    std::sort(m_chips.begin(), m_chips.end(), [](const BoardChip &a, const BoardChip &b) {
        return std::tie(a.busOrder, a.name) < std::tie(b.busOrder, b.name);
    });
}

BoardChips::~BoardChips()
{
    if (m_good)
        sensors_cleanup();
}

QStringList BoardChips::labels(const BoardChip &chip) const
{
    QStringList labels;
    if (const sensors_chip_name *const known = found(chip)) {
        for (const auto &[label, feature] : sensorsOf(*known))
            labels += label;
    }
    return labels;
}

FanChip BoardChips::fans(const BoardChip &chip) const
{
    FanChip fans{chip.driver, {}};
    if (const sensors_chip_name *const known = found(chip)) {
        for (const auto &[label, feature] : sensorsOf(*known)) {
            if (feature->type == SENSORS_FEATURE_FAN)
                fans.fans.push_back({label, QString::fromUtf8(feature->name)});
        }
    }
    return fans;
}

QJsonObject BoardChips::read(const BoardChip &chip) const
{
    QJsonObject labels;
    const sensors_chip_name *const known = found(chip);
    if (!known)
        return labels;
    for (const auto &[label, feature] : sensorsOf(*known)) {
        const Kind &kind = *kindOf(*feature);
        if (const std::optional<double> value = valueOf(*known, *feature, kind))
            labels.insert(label, reading(*value, QString::fromUtf8(kind.units)));
    }
    return labels;
}
