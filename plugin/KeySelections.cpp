#include "plugin/KeySelections.h"

#include "render/ActionCatalogue.h"
#include "render/normalAction.h"
#include "sensors/systemInfor.h"

namespace {

template <typename List>
QString orFirst(const QString &chosen, const List &list)
{
    return chosen.isEmpty() && !list.isEmpty() ? list.constFirst().first : chosen;
}

/// A settings panel names the sensor anew under a member of its own.
QString chosenSensor(const QJsonObject &parameters, SettingsOccasion occasion)
{
    const QString anew = occasion == SettingsOccasion::DidReceiveSettings
                             ? parameters.value(QLatin1String("SystemDataSelect")).toString()
                             : QString();
    return anew.isEmpty() ? parameters.value(QLatin1String("SelectValue")).toString() : anew;
}

} // namespace

void applySelections(normalAction &key, const QJsonObject &settings, SettingsOccasion occasion)
{
    const QJsonObject parameters = settings.value(QLatin1String("titleParameters")).toObject();
    const QString uuid = key.GetAction();
    if (uuid == actionuuid::allData) {
        key.SelectValue = orFirst(chosenSensor(parameters, occasion), systemInfor::SensorList);
    } else if (uuid == actionuuid::diskTemperature) {
        key.SelectPhysicalDisk =
            orFirst(parameters.value(QLatin1String("SelectPhysicalDisk")).toString(),
                    systemInfor::DriveTemperatureList);
    } else if (uuid == actionuuid::cpuFan) {
        key.SelectCPUFan = orFirst(parameters.value(QLatin1String("SelectCPUFan")).toString(),
                                   systemInfor::CpuFanList);
    }
}
