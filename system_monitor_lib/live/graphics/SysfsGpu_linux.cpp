#include "system_monitor_lib/live/graphics/SysfsGpu.h"

#include "system_monitor_lib/SensorTrees.h"
#include "system_monitor_lib/live/Rates.h"
#include "system_monitor_lib/live/files/SysfsText.h"
#include "system_monitor_lib/live/graphics/PciMemory.h"
#include "system_monitor_lib/live/graphics/PciNames.h"

#include <QDir>

#include <algorithm>
#include <iterator>

namespace {

constexpr double highestTemperature = 140;
constexpr double highestClock = 20'000;
constexpr double highestVoltage = 10;
constexpr double highestPower = 5'000;
constexpr double highestSpeed = 50'000;

/// Where a driver tells what. The first file that exists serves its label. "hwmon" stands for the
/// GPU's folder of that kind.
struct Row
{
    const char *driver;
    const char *label;
    const char *file;
    double divisor;
    const char *units;
    double highest;
};

// Documentation/gpu/amdgpu/thermal and the drivers' sysfs ABI files in the kernel.
constexpr Row rows[] = {
    {"amdgpu", "GPU Temperature", "hwmon/temp1_input", 1e3, "°C", highestTemperature},
    {"amdgpu", "GPU Clock", "hwmon/freq1_input", 1e6, "MHz", highestClock},
    {"amdgpu", "GPU Memory Clock", "hwmon/freq2_input", 1e6, "MHz", highestClock},
    {"amdgpu", "GPU Core Load", "device/gpu_busy_percent", 1, "%", 100},
    {"amdgpu", "GPU Core Voltage", "hwmon/in0_input", 1e3, "V", highestVoltage},
    {"amdgpu", "GPU Power", "hwmon/power1_average", 1e6, "W", highestPower},
    {"amdgpu", "GPU Power", "hwmon/power1_input", 1e6, "W", highestPower},
    {"amdgpu", "GPU Fan", "hwmon/fan1_input", 1, "RPM", highestSpeed},
    {"i915", "GPU Clock", "gt_act_freq_mhz", 1, "MHz", highestClock},
    {"i915", "GPU Clock", "gt/gt0/rps_act_freq_mhz", 1, "MHz", highestClock},
    {"i915", "GPU Temperature", "hwmon/temp1_input", 1e3, "°C", highestTemperature},
    {"i915", "GPU Core Voltage", "hwmon/in0_input", 1e3, "V", highestVoltage},
    {"i915", "GPU Fan", "hwmon/fan1_input", 1, "RPM", highestSpeed},
    {"xe", "GPU Clock", "device/tile0/gt0/freq0/act_freq", 1, "MHz", highestClock},
    {"xe", "GPU Temperature", "hwmon/temp2_input", 1e3, "°C", highestTemperature},
    {"xe", "GPU Core Voltage", "hwmon/in1_input", 1e3, "V", highestVoltage},
    {"xe", "GPU Fan", "hwmon/fan1_input", 1, "RPM", highestSpeed},
    {"nouveau", "GPU Temperature", "hwmon/temp1_input", 1e3, "°C", highestTemperature},
    {"nouveau", "GPU Fan", "hwmon/fan1_input", 1, "RPM", highestSpeed},
};

QString vendorOf(const QString &driver)
{
    if (driver == QLatin1String("amdgpu"))
        return QStringLiteral("AMD");
    return driver == QLatin1String("nouveau") ? QStringLiteral("NVIDIA") : QStringLiteral("Intel");
}

QString hwmonOf(const QString &card)
{
    const QDir chips(card + QStringLiteral("/device/hwmon"));
    const QStringList names =
        chips.entryList({QStringLiteral("hwmon*")}, QDir::Dirs | QDir::NoDotAndDotDot);
    return names.isEmpty() ? QString() : chips.filePath(names.first());
}

/// Its name as sold, or by its number.
QString nameOf(const QString &card, const QString &driver, const QString &pciId,
               const QString &pciIds)
{
    const QString product = attributeWord(card + QStringLiteral("/device/product_name"));
    const QString listed = pciDeviceName(pciIds, pciId.section(QLatin1Char(':'), 0, 0),
                                         pciId.section(QLatin1Char(':'), 1, 1));
    const QString known = product.isEmpty() ? listed : product;
    const QString vendor = vendorOf(driver);
    if (known.isEmpty())
        return QStringLiteral("%1 GPU %2").arg(vendor, pciId).trimmed();
    return known.startsWith(vendor, Qt::CaseInsensitive)
               ? known
               : QStringLiteral("%1 %2").arg(vendor, known);
}

std::optional<quint64> unsignedNumber(Attribute &attribute)
{
    const std::optional<qint64> number = attribute.integer();
    return number && *number >= 0 ? std::optional(static_cast<quint64>(*number)) : std::nullopt;
}

} // namespace

struct SysfsGpu::Sensor
{
    Sensor(const Row &source, const QString &path)
        : row(source)
        , attribute(path)
    {
    }

    const Row &row;
    Attribute attribute;
};

SysfsGpu::SysfsGpu(const QString &card, const QString &driver, const QString &pciIds)
    : m_card(card)
    , m_hwmon(hwmonOf(card))
    , m_runtimeStatus(card + QStringLiteral("/device/power/runtime_status"))
    , m_memoryUsed(card + QStringLiteral("/device/mem_info_vram_used"))
    , m_memoryTotal(card + (driver == QLatin1String("xe")
                                ? QStringLiteral("/device/tile0/physical_vram_size_bytes")
                                : QStringLiteral("/device/mem_info_vram_total")))
    , m_energy(resolved(QStringLiteral("hwmon/energy1_input")))
{
    constexpr std::size_t longestUevent = 4096;
    PolledFile uevent(card + QStringLiteral("/device/uevent"), longestUevent);
    m_state.place = parseUevent(uevent.read(), "PCI_SLOT_NAME");
    if (m_state.place.isEmpty())
        m_state.place = QFileInfo(card).fileName();
    m_state.name = nameOf(card, driver, parseUevent(uevent.read(), "PCI_ID"), pciIds);
    open(driver);
    // The driver knows the size by heart: this wakes nothing.
    QJsonObject memory;
    addMemory(memory);
    if (m_state.memory > 0)
        m_state.mayHave += memory.keys();
    else
        askWindow();
    if (QFileInfo::exists(resolved(QStringLiteral("hwmon/energy1_input"))))
        m_state.mayHave += QStringLiteral("GPU Power");
}

SysfsGpu::~SysfsGpu() = default;

QString SysfsGpu::placeOf(const QString &card)
{
    return card + hwmonOf(card);
}

bool SysfsGpu::isKnown(const QString &driver)
{
    return std::any_of(std::begin(rows), std::end(rows),
                       [&driver](const Row &row) { return driver == QLatin1String(row.driver); });
}

QString SysfsGpu::resolved(const QString &file) const
{
    const QString hwmon = QStringLiteral("hwmon/");
    if (!file.startsWith(hwmon))
        return m_card + QLatin1Char('/') + file;
    // A GPU without such a folder has no such file.
    return m_hwmon.isEmpty() ? QString() : m_hwmon + QLatin1Char('/') + file.mid(hwmon.size());
}

void SysfsGpu::open(const QString &driver)
{
    const char *served = "";
    for (const Row &row : rows) {
        const QString path = resolved(QString::fromLatin1(row.file));
        if (driver != QLatin1String(row.driver) || !QFileInfo::exists(path) ||
            qstrcmp(served, row.label) == 0)
            continue;
        served = row.label;
        m_state.mayHave += QString::fromLatin1(row.label);
        m_sensors.push_back(std::make_unique<Sensor>(row, path));
    }
}

bool SysfsGpu::isAwake(qint64 nowNs)
{
    const bool sleeps = meansAsleep(m_runtimeStatus.word());
    if (!sleeps && m_slept)
        m_wokeNs = nowNs;
    const bool wakes = m_wokeNs != 0 && nowNs >= m_wokeNs && nowNs - m_wokeNs < wakingTime.count();
    m_slept = sleeps;
    return !sleeps && !wakes;
}

void SysfsGpu::addMemory(QJsonObject &labels)
{
    const std::optional<quint64> total = unsignedNumber(m_memoryTotal);
    if (!total)
        return;
    const std::optional<quint64> used = unsignedNumber(m_memoryUsed);
    m_state.memory = addMemoryLabels(labels, used.value_or(*total + 1), *total);
}

void SysfsGpu::askWindow()
{
    // What is built into the processor, on the first bus, has no memory of its own.
    constexpr std::size_t longestList = 4096;
    if (m_state.place.section(QLatin1Char(':'), 1, 1) == QLatin1String("00"))
        return;
    const QString device = m_card + QStringLiteral("/device/");
    PolledFile windows(device + QStringLiteral("resource"), longestList);
    quint64 bytes = parseLargestWindow(windows.read()).value_or(0);
    // A part of the memory may have to do as a window; this says of how much. It wakes the card.
    PolledFile sizes(device + QStringLiteral("resource2_resize"), longestList);
    if (!meansAsleep(m_runtimeStatus.word()))
        bytes = std::max(bytes, parseLargestSize(sizes.read()).value_or(0));
    constexpr double bytesPerMegabyte = 1024.0 * 1024.0;
    m_state.memory = static_cast<double>(bytes) / bytesPerMegabyte;
    m_state.isMemoryOfWindow = bytes > 0;
}

void SysfsGpu::addEnergy(QJsonObject &labels, qint64 nowNs)
{
    const std::optional<quint64> energy =
        m_hwmon.isEmpty() ? std::nullopt : unsignedNumber(m_energy);
    const auto before =
        std::exchange(m_sample, energy ? std::optional(Sample{*energy, nowNs}) : std::nullopt);
    if (!energy || !before)
        return;
    const std::optional<double> microwatts =
        ratePerSecond(before->microjoules, *energy, nowNs - before->timeNs);
    if (microwatts && *microwatts <= highestPower * microjoulesPerJoule)
        labels.insert(QStringLiteral("GPU Power"),
                      reading(*microwatts / microjoulesPerJoule, QStringLiteral("W")));
}

GpuState SysfsGpu::read(qint64 nowNs)
{
    m_state.labels = {};
    if (!isAwake(nowNs)) {
        m_sample.reset();
        return m_state;
    }
    for (const auto &sensor : m_sensors) {
        const std::optional<qint64> number = sensor->attribute.integer();
        const double value = static_cast<double>(number.value_or(-1)) / sensor->row.divisor;
        if (number && value >= 0 && value <= sensor->row.highest)
            m_state.labels.insert(QString::fromLatin1(sensor->row.label),
                                  reading(value, QString::fromUtf8(sensor->row.units)));
    }
    addMemory(m_state.labels);
    addEnergy(m_state.labels, nowNs);
    return m_state;
}
