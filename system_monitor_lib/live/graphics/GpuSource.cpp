#include "system_monitor_lib/live/graphics/GpuSource.h"

#include "system_monitor_lib/SensorTrees.h"

double addMemoryLabels(QJsonObject &labels, quint64 usedBytes, quint64 totalBytes)
{
    constexpr double bytesPerMegabyte = 1024.0 * 1024.0;
    if (totalBytes == 0)
        return 0;
    const QString units = QStringLiteral("MB");
    const double total = static_cast<double>(totalBytes) / bytesPerMegabyte;
    labels.insert(QStringLiteral("GPU Memory Total"), reading(total, units));
    if (usedBytes <= totalBytes) {
        const double used = static_cast<double>(usedBytes) / bytesPerMegabyte;
        labels.insert(QStringLiteral("GPU Memory Allocated"), reading(used, units));
        labels.insert(QStringLiteral("GPU Memory Usage"),
                      reading(100 * used / total, QStringLiteral("%")));
    }
    return total;
}
