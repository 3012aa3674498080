#include "system_monitor_lib/SensorTrees.h"

namespace {

QJsonObject united(QJsonObject first, const QJsonObject &second)
{
    if (first.isEmpty())
        return second;
    for (auto member = second.begin(); member != second.end(); ++member)
        first.insert(member.key(), member.value());
    return first;
}

} // namespace

QJsonArray reading(double value, const QString &units)
{
    return {QJsonObject{{QStringLiteral("value"), value}, {QStringLiteral("units"), units}}};
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

void SensorTrees::addDevice(Query query, const QString &device, const QJsonObject &tree)
{
    QJsonObject &target = m_trees.at(static_cast<std::size_t>(query));
    target.insert(device, united(target.value(device).toObject(), tree));
}
