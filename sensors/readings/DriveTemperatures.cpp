#include "sensors/readings/DriveTemperatures.h"

#include "sensors/readings/SensorTree.h"

using namespace sensortree;

namespace {

QJsonObject temperatureReading(const QJsonObject &drive)
{
    QJsonObject reading;
    for (const char *const label :
         {"Drive Temperature", "Drive Temperature 2", "Drive Airflow Temperature"}) {
        reading = readingOf(drive, QString::fromLatin1(label));
        if (!reading.isEmpty())
            break;
    }
    return reading;
}

} // namespace

QList<QPair<QString, int>> driveTemperatures(const QJsonObject &driveTrees)
{
    QList<QPair<QString, int>> temperatures;
    for (auto drive = driveTrees.begin(); drive != driveTrees.end(); ++drive) {
        temperatures.append(
            {drive.key(), wholeValueOf(temperatureReading(drive.value().toObject()))});
    }
    return temperatures;
}

QStringList drivesWithoutTemperature(const QJsonObject &driveTrees)
{
    QStringList drives;
    for (auto drive = driveTrees.begin(); drive != driveTrees.end(); ++drive) {
        if (!hasWholeValue(temperatureReading(drive.value().toObject())))
            drives.append(drive.key());
    }
    return drives;
}
