#include "system_monitor_lib/live/drives/DriveTree.h"

#include <cmath>

void addDrive(SensorTrees &trees, const QString &name, std::optional<double> celsius)
{
    QJsonObject tree;
    if (celsius)
        tree.insert(QStringLiteral("Drive Temperature"),
                    reading(std::round(*celsius), QStringLiteral("°C")));
    trees.addDevice(Query::SmartInfo, name, tree);
    trees.addDevice(Query::AllSensorsData, QStringLiteral("Drive: %1").arg(name), tree);
}
