#pragma once

#include "plugin/SettingsReply.h"

#include <QJsonObject>

class normalAction;

/// Sets the sensor, fan or disk that \a key shows, as its kind has one: the one that \a settings
/// name, else the first of the list. Without either it is empty.
void applySelections(normalAction &key, const QJsonObject &settings, SettingsOccasion occasion);
