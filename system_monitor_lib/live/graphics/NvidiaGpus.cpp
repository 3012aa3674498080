#include "system_monitor_lib/live/graphics/NvidiaGpus.h"

#include "system_monitor_lib/SensorTrees.h"
#include "system_monitor_lib/live/graphics/GraphicsDetails.h"
#include "system_monitor_lib/live/graphics/PciNames.h"

#include <algorithm>
#include <utility>

namespace {

void addLabel(QJsonObject &labels, const QString &label, std::optional<unsigned> value,
              unsigned highest, double divisor, const QString &units)
{
    if (value && *value <= highest)
        labels.insert(label, reading(*value / divisor, units));
}

QStringList nvidiaLabels()
{
    static const QStringList labels =
        QStringList{QStringLiteral("GPU Temperature"), QStringLiteral("GPU Clock"),
                    QStringLiteral("GPU Memory Clock"), QStringLiteral("GPU Core Load"),
                    QStringLiteral("GPU Power")} +
        memoryLabelNames() + graphicsDetailLabelNames();
    return labels;
}

std::optional<double> upTo(std::optional<unsigned> value, unsigned highest)
{
    return value && *value <= highest ? std::optional<double>(*value) : std::nullopt;
}

/// What the list of all sensors has besides.
QJsonObject listedLabels(const NvidiaReadings &readings)
{
    constexpr unsigned mostLanes = 32;
    constexpr unsigned latestGeneration = 10;
    GraphicsDetails details;
    details.decodePercent = upTo(readings.decodePercent, 100);
    details.encodePercent = upTo(readings.encodePercent, 100);
    details.memoryPercent = upTo(readings.memoryPercent, 100);
    details.fanPercent = upTo(readings.fanPercent, 100);
    if (readings.linkLanes != 0U)
        details.linkLanes = upTo(readings.linkLanes, mostLanes);
    if (readings.linkGeneration != 0U)
        details.linkGeneration = upTo(readings.linkGeneration, latestGeneration);
    return graphicsDetailLabels(details);
}

} // namespace

GpuState nvidiaState(const NvidiaReadings &readings)
{
    constexpr unsigned highestTemperature = 140;
    constexpr unsigned highestClock = 20'000;
    constexpr unsigned highestMilliwatts = 5'000'000;
    const QString megahertz = QStringLiteral("MHz");
    GpuState state;
    state.name = readings.name;
    state.place = readings.place;
    state.mayHave = nvidiaLabels();
    state.listed = listedLabels(readings);
    QJsonObject &labels = state.labels;
    addLabel(labels, QStringLiteral("GPU Temperature"), readings.celsius, highestTemperature, 1,
             QStringLiteral("°C"));
    addLabel(labels, QStringLiteral("GPU Clock"), readings.clockMhz, highestClock, 1, megahertz);
    addLabel(labels, QStringLiteral("GPU Memory Clock"), readings.memoryClockMhz, highestClock, 1,
             megahertz);
    addLabel(labels, QStringLiteral("GPU Core Load"), readings.loadPercent, 100, 1,
             QStringLiteral("%"));
    addLabel(labels, QStringLiteral("GPU Power"), readings.milliwatts, highestMilliwatts, 1000,
             QStringLiteral("W"));
    if (readings.memory)
        state.memory =
            addMemoryLabels(labels, readings.memory->usedBytes, readings.memory->totalBytes);
    return state;
}

NvidiaGpus::NvidiaGpus(const MachineRoots &roots)
    : NvidiaGpus(roots, nvidiaDevices(roots))
{
}

NvidiaGpus::NvidiaGpus(const MachineRoots &roots, std::unique_ptr<NvidiaDevices> devices)
    : m_fileName(roots.nvidiaLibrary)
    , m_pciIds(roots.pciIds)
    , m_devices(std::move(devices))
{
}

void NvidiaGpus::look(qint64 nowNs)
{
    std::vector<Unit> units;
    for (const NvidiaDevice &device : m_devices->look(nowNs)) {
        const auto known =
            std::find_if(m_units.begin(), m_units.end(), [&device](const Unit &unit) {
                return unit.device.address == device.address;
            });
        units.push_back(known == m_units.end() ? Unit() : std::move(*known));
        units.back().device = device;
    }
    m_units = std::move(units);
}

void NvidiaGpus::letGo()
{
    m_library.reset();
    for (Unit &unit : m_units)
        unit.isHeld = false;
}

void NvidiaGpus::prepare(qint64 nowNs)
{
    bool asks = false;
    for (Unit &unit : m_units) {
        const GpuRest::Turn before = std::exchange(
            unit.turn, unit.rest.turn(unit.device.sleeps, unit.device.sleepsAfter, nowNs));
        const bool isAsked = unit.turn == GpuRest::Turn::Ask;
        asks = asks || isAsked;
        if (isAsked == (before == GpuRest::Turn::Ask))
            continue;
        // The others continue at once.
        m_retry.expire();
        if (unit.isHeld)
            letGo();
    }
    if (!asks)
        letGo();
    else if ((!m_library || m_lost) && m_retry.isDue(nowNs)) {
        // Only a restart of the library finds a GPU that came back.
        letGo();
        m_library = NvidiaLibrary::load(m_fileName);
    }
}

std::vector<NvidiaReadings> NvidiaGpus::readings(const QString &address)
{
    constexpr unsigned most = 64;
    const unsigned counted = address.isEmpty() ? m_library->count().value_or(0) : 1;
    std::vector<NvidiaReadings> all;
    for (unsigned index = 0; index < std::min(counted, most); ++index) {
        if (auto one = address.isEmpty() ? m_library->read(index) : m_library->read(address)) {
            one->place = address.isEmpty() ? QString::number(index) : address;
            all.push_back(std::move(*one));
        }
    }
    m_lost = m_lost || all.empty() || all.size() < counted;
    return all;
}

void NvidiaGpus::ask(Unit &unit, qint64 nowNs)
{
    unit.isHeld = true;
    unit.states.clear();
    bool isIdle = true;
    for (const NvidiaReadings &each : readings(unit.device.address)) {
        unit.states.push_back(nvidiaState(each));
        isIdle = isIdle && each.loadPercent == 0U;
    }
    unit.rest.setIdle(isIdle && !unit.states.empty(), nowNs);
}

void NvidiaGpus::nameSleeper(Unit &unit) const
{
    if (!unit.states.empty() || unit.device.pciId.isEmpty())
        return;
    const QString listed =
        pciDeviceName(m_pciIds, unit.device.pciId.section(QLatin1Char(':'), 0, 0),
                      unit.device.pciId.section(QLatin1Char(':'), 1, 1));
    GpuState state;
    if (!unit.device.name.isEmpty())
        state.name = unit.device.name;
    else
        state.name = listed.isEmpty()
                         ? QStringLiteral("NVIDIA GPU %1").arg(unit.device.pciId.toUpper())
                         : QStringLiteral("NVIDIA %1").arg(listed);
    state.place = unit.device.address;
    state.mayHave = nvidiaLabels();
    unit.states.push_back(state);
}

std::vector<GpuState> NvidiaGpus::read(qint64 nowNs)
{
    if (m_fileName.isEmpty())
        return {};
    look(nowNs);
    prepare(nowNs);
    m_lost = false;
    bool answered = false;
    std::vector<GpuState> found;
    for (Unit &unit : m_units) {
        if (unit.turn == GpuRest::Turn::Sleeps) {
            nameSleeper(unit);
            for (GpuState &state : unit.states)
                state.labels = state.listed = {};
        } else if (unit.turn == GpuRest::Turn::Ask) {
            if (m_library)
                ask(unit, nowNs);
            else
                unit.states.clear();
            answered = answered || !unit.states.empty();
        }
        for (GpuState &state : unit.states)
            state.isLeftAlone = unit.turn != GpuRest::Turn::Ask;
        found.insert(found.end(), unit.states.begin(), unit.states.end());
    }
    if (!answered)
        letGo();
    return found;
}
