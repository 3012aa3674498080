#pragma once

#include "system_monitor_lib/Query.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <vector>

/// The value under a sensor label: an array of one object with "value" and "units".
QJsonArray reading(double value, const QString &units);

/// Adds the label to \a labels if there is a finite value.
void addReading(QJsonObject &labels, const QString &label, std::optional<double> value,
                const QString &units);

/// A group of the list of all sensors, and the device that it belongs to.
struct SensorGroup
{
    QString name;
    /// The name of the device; empty for groups that exist only once.
    QString device = {};
    /// Distinguishes it from another device with the same name, also after a restart.
    QString place = {};
    /// The labels that the device may have, whether or not it has readings for them now.
    QStringList labels = {};
};

class DistinctLabels;

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
    /// Adds \a tree to the list of all sensors, as \a added. A group that is added again may have
    /// the labels of both.
    void addGroup(const SensorGroup &added, const QJsonObject &tree);
    /// Adds the contents of \a other; for a label that both have, \a other's readings count if
    /// there are any.
    void add(const SensorTrees &other);
    /// Only the groups.
    [[nodiscard]] SensorTrees withoutReadings() const;

    /// The list of all sensors, with a unique label for each sensor. Of the groups that may have a
    /// label, the one that was added first keeps it; the labels of the others are prefixed with the
    /// name of their device.
    [[nodiscard]] QJsonObject allSensors() const;
    /// The same. \a labels knows what was chosen for the last moment, which saves time.
    [[nodiscard]] QJsonObject allSensors(DistinctLabels &labels) const;

private:
    SensorGroup &group(const QString &name);

    std::array<QJsonObject, queryCount> m_trees;
    /// In the order in which they were added.
    std::vector<SensorGroup> m_groups;
};
