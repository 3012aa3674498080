#include "system_monitor_lib/live/drives/DriveTree.h"

#include "system_monitor_lib/ListedNames.h"

#include <cmath>

namespace {

QString groupOf(const DriveName &name)
{
    return deviceGroup(QStringLiteral("Drive"), name.key);
}

/// What the list of all sensors has of it.
QJsonObject listed(const std::optional<DriveActivity> &activity)
{
    return activity ? driveActivityLabels(*activity) : QJsonObject();
}

/// The list of all sensors has \a others, too, which may have \a otherLabels.
void addTemperature(SensorTrees &trees, const DriveName &name, std::optional<double> celsius,
                    const QJsonObject &others, const QStringList &otherLabels)
{
    const QString label = QStringLiteral("Drive Temperature");
    QJsonObject tree;
    QJsonObject all = others;
    if (celsius) {
        const QJsonArray temperature = reading(std::round(*celsius), QStringLiteral("°C"));
        tree.insert(label, temperature);
        all.insert(label, temperature);
    }
    trees.addDevice(Query::SmartInfo, name.key, tree);
    trees.addGroup({groupOf(name), name.model, name.place, QStringList{label} + otherLabels}, all);
}

} // namespace

void addDrive(SensorTrees &trees, const DriveName &name, std::optional<double> celsius)
{
    addTemperature(trees, name, celsius, {}, {});
}

void addDrive(SensorTrees &trees, const DriveName &name, std::optional<double> celsius,
              const std::optional<DriveActivity> &activity)
{
    addTemperature(trees, name, celsius, listed(activity), driveActivityLabelNames());
}

void addListedDrive(SensorTrees &trees, const DriveName &name,
                    const std::optional<DriveActivity> &activity)
{
    trees.addGroup({groupOf(name), name.model, name.place, driveActivityLabelNames()},
                   listed(activity));
}
