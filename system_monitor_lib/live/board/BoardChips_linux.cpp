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

#include <sensors/error.h>
#include <sensors/sensors.h>

namespace {

/// Puts the process's locale back, which libsensors changes while it reads its configuration.
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
    constexpr std::array<const char *, 6> drivers{"amdgpu",  "i915",      "xe",
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

QString labelOf(const sensors_chip_name &chip, const sensors_feature &feature)
{
    const std::unique_ptr<char, Freer> label(sensors_get_label(&chip, &feature));
    return QString::fromUtf8(label ? label.get() : feature.name);
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
        if (!mayBeAsleep(*chip) && sensors_snprintf_chip_name(name.data(), name.size(), chip) > 0)
            m_chips.push_back({QString::fromUtf8(name.data()), static_cast<std::size_t>(next - 1)});
    }
}

BoardChips::~BoardChips()
{
    if (m_good)
        sensors_cleanup();
}

QJsonObject BoardChips::read(const BoardChip &chip) const
{
    QJsonObject labels;
    int number = static_cast<int>(chip.index);
    const sensors_chip_name *const found = sensors_get_detected_chips(nullptr, &number);
    if (!found)
        return labels;
    int next = 0;
    while (const sensors_feature *const feature = sensors_get_features(found, &next)) {
        for (const Kind &kind : kinds) {
            if (kind.feature != feature->type)
                continue;
            if (const std::optional<double> value = valueOf(*found, *feature, kind)) {
                const QString label = labelOf(*found, *feature);
                QJsonArray readings = labels.value(label).toArray();
                readings.append(reading(*value, QString::fromUtf8(kind.units)).at(0));
                labels.insert(label, readings);
            }
        }
    }
    return labels;
}
