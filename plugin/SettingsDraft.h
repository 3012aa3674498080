#pragma once

#include "plugin/SettingsOccasion.h"

#include <QJsonObject>

class VqSystemMonitorLib;
class normalAction;

/// A reply to a key's settings while it is being written.
struct SettingsDraft
{
    const normalAction &key;
    SettingsOccasion occasion;
    VqSystemMonitorLib *library; ///< May be null.
    QJsonObject settings;        ///< The reply: the incoming settings with members replaced.
    QJsonObject parameters;      ///< What becomes its "titleParameters".
};
