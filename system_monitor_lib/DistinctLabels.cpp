#include "system_monitor_lib/DistinctLabels.h"

#include "system_monitor_lib/ListedNames.h"

#include <QHash>
#include <QSet>

#include <algorithm>

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

QStringList renamed(const QStringList &labels, const SensorGroup &group, const QString &prefix,
                    Owners &owners)
{
    QStringList result;
    for (const QString &sensor : labels) {
        QString label = sensor;
        for (const QString &start : {prefix, group.name}) {
            if (take(owners, label, group))
                break;
            label = labelOfDevice(start, sensor);
        }
        result += label;
    }
    return result;
}

QJsonObject relabelled(const QJsonObject &tree, const QStringList &labels)
{
    QJsonObject result;
    auto label = labels.begin();
    for (auto sensor = tree.begin(); sensor != tree.end(); ++sensor, ++label)
        result.insert(*label, sensor.value());
    return result;
}

} // namespace

bool DistinctLabels::holds(const Chosen &chosen, const SensorGroup &group,
                           const QJsonObject &sensors)
{
    const SensorGroup &known = chosen.group;
    if (known.name != group.name || known.device != group.device || known.place != group.place ||
        known.labels != group.labels)
        return false;
    const QJsonObject tree = sensors.value(group.name).toObject();
    if (tree.size() != chosen.labels.size())
        return false;
    auto label = chosen.labels.begin();
    for (auto sensor = tree.begin(); sensor != tree.end(); ++sensor, ++label) {
        if (sensor.key() != *label)
            return false;
    }
    return true;
}

void DistinctLabels::choose(const QJsonObject &sensors, const std::vector<SensorGroup> &groups)
{
    Owners owners;
    QSet<const SensorGroup *> shares;
    m_chosen.clear();
    for (const SensorGroup &group : groups) {
        for (const QString &label : group.labels)
            take(owners, label, group);
        m_chosen.push_back({group, sensors.value(group.name).toObject().keys()});
        for (const QString &label : qAsConst(m_chosen.back().labels)) {
            if (!take(owners, label, group))
                shares.insert(&group);
        }
    }
    // The place of the first device with that name, which may have several groups.
    QHash<QString, QString> first;
    for (std::size_t index = 0; index < groups.size(); ++index) {
        const SensorGroup &group = groups[index];
        if (!first.contains(group.device))
            first.insert(group.device, group.place);
        const bool isFirst = first.value(group.device) == group.place;
        Chosen &chosen = m_chosen[index];
        if (shares.contains(&group))
            chosen.distinct = renamed(chosen.labels, group, prefixOf(group, isFirst), owners);
    }
}

QJsonObject DistinctLabels::apply(const QJsonObject &sensors,
                                  const std::vector<SensorGroup> &groups)
{
    const bool stillHolds =
        std::equal(m_chosen.begin(), m_chosen.end(), groups.begin(), groups.end(),
                   [&sensors](const Chosen &chosen, const SensorGroup &group) {
                       return holds(chosen, group, sensors);
                   });
    if (!stillHolds)
        choose(sensors, groups);
    QJsonObject result = sensors;
    for (const Chosen &chosen : m_chosen) {
        const QString &name = chosen.group.name;
        if (!chosen.distinct.isEmpty())
            result.insert(name, relabelled(sensors.value(name).toObject(), chosen.distinct));
    }
    return result;
}
