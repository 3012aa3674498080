#include "system_monitor_lib/live/NvidiaGpus.h"

#include "system_monitor_lib/SensorTrees.h"
#include "system_monitor_lib/live/NvidiaSleep.h"

#include <algorithm>

namespace {

void addLabel(QJsonObject &labels, const QString &label, std::optional<unsigned> value,
              unsigned highest, double divisor, const QString &units)
{
    if (value && *value <= highest)
        labels.insert(label, reading(*value / divisor, units));
}

} // namespace

GpuState nvidiaState(const QString &name, const NvidiaReadings &readings)
{
    constexpr unsigned highestTemperature = 140;
    constexpr unsigned highestClock = 20'000;
    constexpr unsigned highestMilliwatts = 5'000'000;
    const QString megahertz = QStringLiteral("MHz");
    GpuState state;
    state.name = name;
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
    : m_roots(roots)
{
}

std::vector<GpuState> NvidiaGpus::states()
{
    constexpr unsigned most = 64;
    const unsigned count = m_library->count().value_or(0);
    m_lost = count == 0;
    std::vector<GpuState> states;
    for (unsigned index = 0; index < std::min(count, most); ++index) {
        const QString name = m_library->name(index);
        const std::optional<NvidiaReadings> readings = m_library->read(index);
        if (name.isEmpty() || !readings) {
            m_lost = true;
            continue;
        }
        states.push_back(nvidiaState(name, *readings));
        states.back().place = QString::number(index);
    }
    return states;
}

std::vector<GpuState> NvidiaGpus::read(qint64 nowNs)
{
    if (m_roots.nvidiaLibrary.isEmpty())
        return {};
    const bool sleeps = allNvidiaGpusSleep(m_roots);
    if (m_slept && !sleeps)
        m_retry.expire();
    m_slept = sleeps;
    if (sleeps) {
        m_library.reset();
    } else if ((!m_library || m_lost) && m_retry.isDue(nowNs)) {
        // Only a new start finds a GPU that came back.
        m_library.reset();
        m_library = NvidiaLibrary::load(m_roots.nvidiaLibrary);
    }
    if (!m_library)
        return {};
    std::vector<GpuState> found = states();
    if (found.empty())
        m_library.reset();
    return found;
}
