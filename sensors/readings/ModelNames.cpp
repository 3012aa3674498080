#include "sensors/readings/ModelNames.h"

#include <QStringList>

namespace {

/// Letter case counts here, unlike in sensor labels.
void takeName(const QString &group, const QString &kind, QString &name)
{
    const QStringList parts = group.split(QStringLiteral(": "));
    if (group.contains(kind) && parts.size() >= 2)
        name = parts.at(1);
}

} // namespace

ModelNames modelNames(const QJsonObject &allSensors, ModelNames known)
{
    for (auto group = allSensors.begin(); group != allSensors.end(); ++group) {
        if (!known.cpu.isEmpty() && !known.gpu.isEmpty())
            break;
        // Compatibility: model-names-replaced
        takeName(group.key(), QStringLiteral("CPU"), known.cpu);
        takeName(group.key(), QStringLiteral("GPU"), known.gpu);
    }
    if (known.gpu.isEmpty())
        known.gpu = QStringLiteral("integrated GPU");
    return known;
}
