#include "system_monitor_lib/live/drives/DriveTree.h"

#include <cmath>

void addDrive(SensorTrees &trees, const DriveName &name, std::optional<double> celsius)
{
    const QString label = QStringLiteral("Drive Temperature");
    QJsonObject tree;
    if (celsius)
        tree.insert(label, reading(std::round(*celsius), QStringLiteral("°C")));
    trees.addDevice(Query::SmartInfo, name.key, tree);
    trees.addGroup({QStringLiteral("Drive: %1").arg(name.key), name.model, name.place, {label}},
                   tree);
}
