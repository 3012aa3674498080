#pragma once

#include "plugin/SettingsOccasion.h"

#include <QJsonObject>

class normalAction;
class VqSystemMonitorLib;

/// \a settings, the key's incoming "settings" object, with "titleParameters" (the effective
/// settings and the lists that the settings panel offers) and "ActionGeometry" (the size of the
/// last picture) replaced, plus what the key's kind adds (plugin/KeyKinds.cpp). \a library may be
/// null.
QJsonObject settingsReply(const QJsonObject &settings, const normalAction &key,
                          SettingsOccasion occasion, VqSystemMonitorLib *library);
