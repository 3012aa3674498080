#include "system_monitor_lib/DistinctLabels.h"

#include <QHash>
#include <QSet>

namespace {

using Owners = QHash<QString, const SensorGroup *>;

/// Gives the label to the group unless another one has it. Returns whether the group has it.
bool take(Owners &owners, const QString &label, const SensorGroup &group)
{
    const SensorGroup *&owner = owners[label];
    if (!owner)
        owner = &group;
    return owner == &group;
}

/// The prefix of a group's labels when other groups have the same labels.
QString prefixOf(const SensorGroup &group, bool isFirstOfName)
{
    if (group.device.isEmpty())
        return group.name;
    return isFirstOfName || group.place.isEmpty()
               ? group.device
               : QStringLiteral("%1 (%2)").arg(group.device, group.place);
}

QJsonObject renamed(const QJsonObject &labels, const SensorGroup &group, const QString &prefix,
                    Owners &owners)
{
    QJsonObject result;
    for (auto sensor = labels.begin(); sensor != labels.end(); ++sensor) {
        QString label = sensor.key();
        for (const QString &start : {prefix, group.name}) {
            if (take(owners, label, group))
                break;
            label = QStringLiteral("%1 %2").arg(start, sensor.key());
        }
        result.insert(label, sensor.value());
    }
    return result;
}

} // namespace

QJsonObject withDistinctLabels(const QJsonObject &sensors, const std::vector<SensorGroup> &groups)
{
    constexpr int usualCount = 256;
    Owners owners;
    owners.reserve(usualCount);
    QSet<const SensorGroup *> shares;
    for (const SensorGroup &group : groups) {
        for (const QString &label : group.labels)
            take(owners, label, group);
        const QJsonObject labels = sensors.value(group.name).toObject();
        for (auto sensor = labels.begin(); sensor != labels.end(); ++sensor) {
            if (!take(owners, sensor.key(), group))
                shares.insert(&group);
        }
    }
    QJsonObject result = sensors;
    // The place of the first device with that name, which may have several groups.
    QHash<QString, QString> first;
    for (const SensorGroup &group : groups) {
        if (!first.contains(group.device))
            first.insert(group.device, group.place);
        const bool isFirst = first.value(group.device) == group.place;
        if (shares.contains(&group))
            result.insert(group.name, renamed(sensors.value(group.name).toObject(), group,
                                              prefixOf(group, isFirst), owners));
    }
    return result;
}
