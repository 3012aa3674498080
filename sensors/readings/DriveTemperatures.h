#pragma once

#include <QJsonObject>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

/// One entry per drive, in key order: "Drive Temperature", else "Drive Temperature 2", else "Drive
/// Airflow Temperature", in whole degrees; 0 when the drive has none of them or it is not whole.
QList<QPair<QString, int>> driveTemperatures(const QJsonObject &driveTrees);

/// The drives for which driveTemperatures gives 0 because they have no temperature.
QStringList drivesWithoutTemperature(const QJsonObject &driveTrees);
