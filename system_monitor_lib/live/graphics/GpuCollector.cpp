#include "system_monitor_lib/live/graphics/GpuCollector.h"

#include "system_monitor_lib/live/DistinctName.h"

#include <algorithm>
#include <tuple>

namespace {

/// The GPU with the most memory is the one that is shown.
QJsonObject labelsForChoice(const GpuState &gpu)
{
    QJsonObject labels = gpu.labels;
    if (gpu.isMemoryOfWindow)
        labels.insert(QStringLiteral("GPU Memory Total"),
                      reading(gpu.memory, QStringLiteral("MB")));
    return labels;
}

} // namespace

GpuCollector::GpuCollector(std::vector<std::unique_ptr<GpuSource>> sources)
    : m_sources(std::move(sources))
{
}

bool GpuCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    std::vector<GpuState> gpus;
    for (const auto &source : m_sources) {
        for (GpuState &gpu : source->read(nowNs))
            gpus.push_back(std::move(gpu));
    }
    // As readers of the GPU query choose: the most memory, of equal ones the first key.
    std::sort(gpus.begin(), gpus.end(), [](const GpuState &a, const GpuState &b) {
        return std::make_tuple(-a.memory, a.name, a.place) <
               std::make_tuple(-b.memory, b.name, b.place);
    });
    const auto awake = static_cast<int>(std::count_if(
        gpus.begin(), gpus.end(), [](const GpuState &gpu) { return !gpu.labels.isEmpty(); }));
    int nextAwake = 0;
    int nextAsleep = awake;
    for (const GpuState &gpu : gpus) {
        const QString name = distinctName(gpu, gpus, &GpuState::name);
        // Otherwise a GPU without readings might be chosen over one that has some.
        if (!gpu.labels.isEmpty())
            trees.addDevice(Query::GpuInfo, name, labelsForChoice(gpu));
        const int number = gpu.labels.isEmpty() ? nextAsleep++ : nextAwake++;
        const QString group = QStringLiteral("GPU [#%1]: %2").arg(number).arg(name);
        trees.addGroup({group, gpu.name, gpu.place, gpu.mayHave}, gpu.labels);
        if (!gpu.listed.isEmpty())
            trees.addDevice(Query::AllSensorsData, group, gpu.listed);
    }
    return !gpus.empty();
}
