#include "system_monitor_lib/live/graphics/GpuSource.h"

#include "system_monitor_lib/SensorTrees.h"

namespace {

const QString totalLabel = QStringLiteral("GPU Memory Total");
const QString allocatedLabel = QStringLiteral("GPU Memory Allocated");
const QString usageLabel = QStringLiteral("GPU Memory Usage");

} // namespace

QStringList memoryLabelNames()
{
    return {totalLabel, allocatedLabel, usageLabel};
}

double addMemoryLabels(QJsonObject &labels, quint64 usedBytes, quint64 totalBytes)
{
    constexpr double bytesPerMegabyte = 1024.0 * 1024.0;
    if (totalBytes == 0)
        return 0;
    const QString units = QStringLiteral("MB");
    const double total = static_cast<double>(totalBytes) / bytesPerMegabyte;
    labels.insert(totalLabel, reading(total, units));
    if (usedBytes <= totalBytes) {
        const double used = static_cast<double>(usedBytes) / bytesPerMegabyte;
        labels.insert(allocatedLabel, reading(used, units));
        labels.insert(usageLabel, reading(100 * used / total, QStringLiteral("%")));
    }
    return total;
}
