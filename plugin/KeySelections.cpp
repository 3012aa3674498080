#include "plugin/KeySelections.h"

#include "plugin/KeyKinds.h"
#include "render/normalAction.h"
#include "sensors/systemInfor.h"

namespace {

template <typename List>
QString orFirst(const QString &chosen, const List &list)
{
    return chosen.isEmpty() && !list.isEmpty() ? list.constFirst().first : chosen;
}

} // namespace

void applySelections(normalAction &key, SettingsOccasion occasion)
{
    if (const KeyKind *const kind = findKeyKind(key.GetAction()))
        kind->select(key, occasion);
}

void keyselection::sensor(normalAction &key, SettingsOccasion occasion)
{
    // Compatibility: selection-by-occasion
    const bool anew =
        occasion == SettingsOccasion::DidReceiveSettings && !key.newlyChosenSensor.isEmpty();
    key.SelectValue =
        orFirst(anew ? key.newlyChosenSensor : key.chosenSensor, systemInfor::SensorList);
}

void keyselection::disk(normalAction &key, SettingsOccasion /*occasion*/)
{
    key.SelectPhysicalDisk = orFirst(key.chosenDisk, systemInfor::DriveTemperatureList);
}

void keyselection::fan(normalAction &key, SettingsOccasion /*occasion*/)
{
    key.SelectCPUFan = orFirst(key.chosenFan, systemInfor::CpuFanList);
}
