#include "system_monitor_lib/SensorTrees.h"

#include "system_monitor_lib/DistinctLabels.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

QJsonObject united(QJsonObject first, const QJsonObject &second)
{
    if (first.isEmpty())
        return second;
    for (auto member = second.begin(); member != second.end(); ++member) {
        // A label without readings does not replace one that has some.
        const bool isEmpty = member.value() == QJsonValue(QJsonArray());
        if (!isEmpty || !first.contains(member.key()))
            first.insert(member.key(), member.value());
    }
    return first;
}

QJsonArray newReading(double value, const QString &units)
{
    // Only a few units exist, and a copy costs less than a new object.
    static QHash<QString, QJsonObject> prototypes;
    static const QString valueKey = QStringLiteral("value");
    QJsonObject &prototype = prototypes[units];
    if (prototype.isEmpty())
        prototype = {{valueKey, 0}, {QStringLiteral("units"), units}};
    QJsonObject object = prototype;
    object.insert(valueKey, value);
    return {object};
}

} // namespace

QJsonArray reading(double value, const QString &units)
{
    struct Known
    {
        double value = 0;
        QString units;
        QJsonArray reading;
    };
    // Most sensors have the same reading as in the last pass, and finding one costs less than
    // making it. These are more than there are sensors.
    constexpr std::size_t count = 1024;
    static std::vector<Known> all(count);
    Known &known = all[(std::hash<double>{}(value) ^ qHash(units)) % count];
    const bool isEqual = known.value == value && known.units == units;
    if (!isEqual || known.reading.isEmpty())
        known = {value, units, newReading(value, units)};
    return known.reading;
}

void addReading(QJsonObject &labels, const QString &label, std::optional<double> value,
                const QString &units)
{
    if (value && std::isfinite(*value))
        labels.insert(label, reading(*value, units));
}

const QJsonObject &SensorTrees::tree(Query query) const
{
    return m_trees.at(static_cast<std::size_t>(query));
}

void SensorTrees::add(Query query, const QJsonObject &tree)
{
    QJsonObject &target = m_trees.at(static_cast<std::size_t>(query));
    target = united(target, tree);
}

void SensorTrees::add(const SensorTrees &other)
{
    for (std::size_t query = 0; query < queryCount; ++query) {
        if (query != static_cast<std::size_t>(Query::AllSensorsData))
            add(static_cast<Query>(query), other.m_trees.at(query));
    }
    const QJsonObject &sensors = other.tree(Query::AllSensorsData);
    for (const SensorGroup &each : other.m_groups)
        addGroup(each, sensors.value(each.name).toObject());
}

SensorTrees SensorTrees::withoutReadings() const
{
    SensorTrees groups;
    for (const SensorGroup &each : m_groups)
        groups.addGroup(each, {});
    return groups;
}

SensorGroup &SensorTrees::group(const QString &name)
{
    const auto known = std::find_if(m_groups.begin(), m_groups.end(),
                                    [&name](const SensorGroup &each) { return each.name == name; });
    if (known != m_groups.end())
        return *known;
    m_groups.push_back({name});
    return m_groups.back();
}

void SensorTrees::addGroup(const SensorGroup &added, const QJsonObject &tree)
{
    addDevice(Query::AllSensorsData, added.name, tree);
    SensorGroup &known = group(added.name);
    if (added.device.isEmpty())
        return;
    const QStringList labels = known.labels;
    known = added;
    for (const QString &label : labels) {
        if (!known.labels.contains(label))
            known.labels += label;
    }
}

QJsonObject SensorTrees::allSensors() const
{
    DistinctLabels labels;
    return allSensors(labels);
}

QJsonObject SensorTrees::allSensors(DistinctLabels &labels) const
{
    return labels.apply(tree(Query::AllSensorsData), m_groups);
}

void SensorTrees::addDevice(Query query, const QString &device, const QJsonObject &tree)
{
    if (query == Query::AllSensorsData)
        group(device);
    QJsonObject &target = m_trees.at(static_cast<std::size_t>(query));
    target.insert(device, united(target.value(device).toObject(), tree));
}
