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

const QString &chosenSensor(const normalAction &key, SettingsOccasion occasion)
{
    const bool anew = occasion == SettingsOccasion::DidReceiveSettings;
    return anew && !key.newlyChosenSensor.isEmpty() ? key.newlyChosenSensor : key.chosenSensor;
}

} // namespace

void applySelections(normalAction &key, SettingsOccasion occasion)
{
    const QString uuid = key.GetAction();
    if (uuid == actionuuid::allData)
        key.SelectValue = orFirst(chosenSensor(key, occasion), systemInfor::SensorList);
    else if (uuid == actionuuid::diskTemperature)
        key.SelectPhysicalDisk = orFirst(key.chosenDisk, systemInfor::DriveTemperatureList);
    else if (uuid == actionuuid::cpuFan)
        key.SelectCPUFan = orFirst(key.chosenFan, systemInfor::CpuFanList);
}
