#include "system_monitor_lib/live/graphics/SysfsGpu.h"

#include "system_monitor_lib/SensorTrees.h"
#include "system_monitor_lib/live/files/FolderNames.h"
#include "system_monitor_lib/live/files/SysfsText.h"
#include "system_monitor_lib/live/graphics/AmdNames.h"
#include "system_monitor_lib/live/graphics/GraphicsDetails.h"
#include "system_monitor_lib/live/graphics/PciMemory.h"
#include "system_monitor_lib/live/graphics/PciNames.h"
#include "system_monitor_lib/live/graphics/SysfsGpuTable.h"

#include <QFileInfo>

#include <algorithm>

namespace {

const QString powerLabel = QStringLiteral("GPU Power");
const QString loadLabel = QStringLiteral("GPU Core Load");

/// The folder of the energy counter of the processor's graphics; empty when there is none, or when
/// there are several, which cannot be assigned.
QString uncoreZone(const MachineRoots &roots)
{
    QStringList zones;
    const QString root = roots.sys + QStringLiteral("/class/powercap/");
    for (const QString &name : folderNames(root)) {
        const QString directory = QFileInfo(root + name).canonicalFilePath();
        if (!name.startsWith(QLatin1String("intel-rapl-mmio")) &&
            attributeWord(directory + QStringLiteral("/name")) == QLatin1String("uncore"))
            zones += directory;
    }
    return zones.size() == 1 ? zones.first() : QString();
}

QString hwmonOf(const QString &card)
{
    const QString chips = card + QStringLiteral("/device/hwmon/");
    const QStringList names = folderNames(chips).filter(QStringLiteral("hwmon"));
    return names.isEmpty() ? QString() : chips + names.first();
}

/// Its retail name, or a name made from its number.
QString nameOf(const QString &card, const QString &driver, const QString &pciId,
               const MachineRoots &roots)
{
    const QString vendor = vendorOfDriver(driver);
    const QString maker = pciId.section(QLatin1Char(':'), 0, 0);
    const QString device = pciId.section(QLatin1Char(':'), 1, 1);
    QString known = attributeWord(card + QStringLiteral("/device/product_name"));
    if (known.isEmpty() && vendor == QLatin1String("AMD"))
        known = amdCardName(roots.amdIds, device,
                            attributeWord(card + QStringLiteral("/device/revision")));
    if (known.isEmpty())
        known = pciDeviceName(roots.pciIds, maker, device);
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
    Sensor(const SysfsGpuRow &source, const QString &path)
        : row(source)
        , attribute(path)
    {
    }

    const SysfsGpuRow row;
    Attribute attribute;
};

SysfsGpu::SysfsGpu(const QString &card, const QString &driver, const MachineRoots &roots)
    : m_card(card)
    , m_hwmon(hwmonOf(card))
    , m_runtimeStatus(card + QStringLiteral("/device/power/runtime_status"))
    , m_memoryUsed(card + QStringLiteral("/device/mem_info_vram_used"))
    , m_memoryTotal(card + (driver == QLatin1String("xe")
                                ? QStringLiteral("/device/tile0/physical_vram_size_bytes")
                                : QStringLiteral("/device/mem_info_vram_total")))
    , m_idleTime(card, driver)
    , m_linkWidth(card + QStringLiteral("/device/current_link_width"))
    , m_linkSpeed(card + QStringLiteral("/device/current_link_speed"))
{
    constexpr std::size_t longestUevent = 4096;
    PolledFile uevent(card + QStringLiteral("/device/uevent"), longestUevent);
    m_state.place = parseUevent(uevent.read(), "PCI_SLOT_NAME");
    if (m_state.place.isEmpty())
        m_state.place = QFileInfo(card).fileName();
    m_state.name = nameOf(card, driver, parseUevent(uevent.read(), "PCI_ID"), roots);
    open(driver);
    openEnergy(driver, roots);
    // The driver has cached the size: this wakes nothing.
    QJsonObject memory;
    addMemory(memory);
    if (m_state.memory > 0)
        m_state.mayHave += memory.keys();
    else
        askWindow();
    if (m_idleTime.isCounted())
        m_state.mayHave += loadLabel;
    m_state.mayHave += graphicsDetailLabelNames();
}

SysfsGpu::~SysfsGpu() = default;

QString SysfsGpu::placeOf(const QString &card)
{
    return card + hwmonOf(card);
}

bool SysfsGpu::isKnown(const QString &driver)
{
    return !sysfsGpuRows(driver).empty();
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
    for (const SysfsGpuRow &row : sysfsGpuRows(driver)) {
        const QString path = resolved(QString::fromLatin1(row.file));
        if (!QFileInfo::exists(path) || qstrcmp(served, row.label) == 0)
            continue;
        served = row.label;
        m_state.mayHave += QString::fromLatin1(row.label);
        m_sensors.push_back(std::make_unique<Sensor>(row, path));
    }
}

void SysfsGpu::openEnergy(const QString &driver, const MachineRoots &roots)
{
    for (const char *const file : {"hwmon/energy1_input", "hwmon/energy2_input"}) {
        const QString path = resolved(QString::fromLatin1(file));
        if (QFileInfo::exists(path))
            m_energies.push_back(std::make_unique<EnergyCounter>(path));
    }
    const bool isIntel = driver == QLatin1String("i915") || driver == QLatin1String("xe");
    if (isIntel && m_energies.empty() && isBuiltIn()) {
        const QString zone = uncoreZone(roots);
        m_isPowerOfZone = !zone.isEmpty();
        if (m_isPowerOfZone)
            m_energies.push_back(
                std::make_unique<EnergyCounter>(zone + QStringLiteral("/energy_uj"),
                                                zone + QStringLiteral("/max_energy_range_uj")));
    }
    if (!m_energies.empty())
        m_state.mayHave += powerLabel;
}

bool SysfsGpu::isBuiltIn() const
{
    return m_state.place.section(QLatin1Char(':'), 1, 1) == QLatin1String("00");
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
    constexpr std::size_t longestList = 4096;
    // Graphics built into the processor have no memory of their own.
    if (isBuiltIn())
        return;
    const QString device = m_card + QStringLiteral("/device/");
    PolledFile windows(device + QStringLiteral("resource"), longestList);
    quint64 bytes = parseLargestWindow(windows.read()).value_or(0);
    // The window may cover only a part of the memory; this gives the full size. It wakes the card.
    PolledFile sizes(device + QStringLiteral("resource2_resize"), longestList);
    if (!meansAsleep(m_runtimeStatus.word()))
        bytes = std::max(bytes, parseLargestSize(sizes.read()).value_or(0));
    constexpr double bytesPerMegabyte = 1024.0 * 1024.0;
    m_state.memory = static_cast<double>(bytes) / bytesPerMegabyte;
    m_state.isMemoryOfWindow = bytes > 0;
}

void SysfsGpu::addPower(qint64 nowNs)
{
    std::optional<double> power;
    for (const auto &energy : m_energies) {
        // The first one never changes on some cards.
        const std::optional<double> watts = energy->watts(nowNs);
        if (watts && power.value_or(0) <= 0)
            power = watts;
    }
    // On many processors the counter of the graphics zone never changes.
    if (power && (*power > 0 || !m_isPowerOfZone))
        m_state.labels.insert(powerLabel, reading(*power, QStringLiteral("W")));
}

void SysfsGpu::addLoad(qint64 nowNs)
{
    const std::optional<double> load =
        m_idleTime.isCounted() ? m_idleTime.load(nowNs) : std::nullopt;
    if (load)
        m_state.labels.insert(loadLabel, reading(*load, QStringLiteral("%")));
}

void SysfsGpu::addLink(qint64 nowNs)
{
    constexpr qint64 mostLanes = 32;
    if (m_linkReading.isDue(nowNs)) {
        GraphicsDetails details;
        const std::optional<qint64> lanes = m_linkWidth.integer();
        if (lanes && *lanes > 0 && *lanes <= mostLanes) {
            details.linkLanes = static_cast<double>(*lanes);
            details.linkGeneration = linkGeneration(m_linkSpeed.word());
        }
        m_link = graphicsDetailLabels(details);
    }
    for (auto label = m_link.constBegin(); label != m_link.constEnd(); ++label)
        m_state.listed.insert(label.key(), label.value());
}

GpuState SysfsGpu::read(qint64 nowNs)
{
    m_state.labels = {};
    m_state.listed = {};
    if (!isAwake(nowNs)) {
        m_idleTime.reset();
        m_linkReading.expire();
        for (const auto &energy : m_energies)
            energy->reset();
        return m_state;
    }
    for (const auto &sensor : m_sensors) {
        const std::optional<qint64> number = sensor->attribute.integer();
        const double value = static_cast<double>(number.value_or(-1)) / sensor->row.divisor;
        QJsonObject &labels = sensor->row.isForListOnly ? m_state.listed : m_state.labels;
        if (number && value >= 0 && value <= sensor->row.highest)
            labels.insert(QString::fromLatin1(sensor->row.label),
                          reading(value, QString::fromUtf8(sensor->row.units)));
    }
    addMemory(m_state.labels);
    addPower(nowNs);
    addLoad(nowNs);
    addLink(nowNs);
    return m_state;
}
