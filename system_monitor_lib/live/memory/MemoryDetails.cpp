#include "system_monitor_lib/live/memory/MemoryDetails.h"

#include "system_monitor_lib/SensorTrees.h"

QJsonObject memoryDetailLabels(const MemoryDetails &details)
{
    QJsonObject labels;
    const auto add = [&labels](const QString &label, std::optional<quint64> kibibytes) {
        constexpr double kibibytesPerMegabyte = 1024;
        if (kibibytes)
            addReading(labels, label, static_cast<double>(*kibibytes) / kibibytesPerMegabyte,
                       QStringLiteral("MB"));
    };
    add(QStringLiteral("Swap Used"), details.swapUsed);
    add(QStringLiteral("Swap Total"), details.swapTotal);
    add(QStringLiteral("Memory Cached"), details.cached);
    add(QStringLiteral("Memory Dirty"), details.dirty);
    add(QStringLiteral("Memory Compressed"), details.compressed);
    return labels;
}

QString memoryDetailsGroup()
{
    return QStringLiteral("Memory details");
}
