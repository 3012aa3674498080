#include "system_monitor_lib/live/drives/DriveTree.h"

#include <cmath>

namespace {

QString groupOf(const DriveName &name)
{
    return QStringLiteral("Drive: %1").arg(name.key);
}

void addActivity(SensorTrees &trees, const DriveName &name,
                 const std::optional<DriveActivity> &activity)
{
    if (activity)
        trees.addDevice(Query::AllSensorsData, groupOf(name), driveActivityLabels(*activity));
}

} // namespace

void addDrive(SensorTrees &trees, const DriveName &name, std::optional<double> celsius,
              const std::optional<DriveActivity> &activity)
{
    const QString label = QStringLiteral("Drive Temperature");
    QJsonObject tree;
    if (celsius)
        tree.insert(label, reading(std::round(*celsius), QStringLiteral("°C")));
    trees.addDevice(Query::SmartInfo, name.key, tree);
    trees.addGroup(
        {groupOf(name), name.model, name.place, QStringList{label} + driveActivityLabelNames()},
        tree);
    addActivity(trees, name, activity);
}

void addListedDrive(SensorTrees &trees, const DriveName &name,
                    const std::optional<DriveActivity> &activity)
{
    trees.addGroup({groupOf(name), name.model, name.place, driveActivityLabelNames()}, {});
    addActivity(trees, name, activity);
}
