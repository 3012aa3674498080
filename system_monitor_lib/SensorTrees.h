#pragma once

#include "system_monitor_lib/Query.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <array>

/// The value under a sensor label: an array of one object with "value" and "units".
QJsonArray reading(double value, const QString &units);

/// The trees of all queries at one moment.
class SensorTrees
{
public:
    [[nodiscard]] const QJsonObject &tree(Query query) const;

    /// Adds the members of \a tree to the top level of \a query.
    void add(Query query, const QJsonObject &tree);
    /// Adds \a tree to \a query below the key \a device (a GPU, adapter, drive or sensor group),
    /// beside what is there already. The key exists afterwards even when \a tree is empty.
    void addDevice(Query query, const QString &device, const QJsonObject &tree);

private:
    std::array<QJsonObject, queryCount> m_trees;
};
