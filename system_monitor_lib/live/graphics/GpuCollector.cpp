#include "system_monitor_lib/live/graphics/GpuCollector.h"

#include "system_monitor_lib/live/DistinctName.h"

#include <algorithm>

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
    std::stable_sort(gpus.begin(), gpus.end(), [](const GpuState &a, const GpuState &b) {
        return std::make_pair(!a.labels.isEmpty(), a.memory) >
               std::make_pair(!b.labels.isEmpty(), b.memory);
    });
    int number = 0;
    for (const GpuState &gpu : gpus) {
        const QString name = distinctName(gpu, gpus, &GpuState::name);
        // Readers might choose a GPU that says nothing over one that does.
        if (!gpu.labels.isEmpty())
            trees.addDevice(Query::GpuInfo, name, gpu.labels);
        trees.addDevice(Query::AllSensorsData,
                        QStringLiteral("GPU [#%1]: %2").arg(number++).arg(name), gpu.labels);
    }
    return !gpus.empty();
}
