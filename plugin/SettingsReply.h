#pragma once

#include <QJsonObject>

class normalAction;

/// The event that a settings reply answers; the two differ in which members they write.
enum class SettingsOccasion { WillAppear, DidReceiveSettings };

/// \a settings, the key's incoming "settings" object, with "titleParameters" (the settings in
/// force and the lists that the settings panel offers) and "ActionGeometry" (the size of the last
/// picture) replaced.
QJsonObject settingsReply(const QJsonObject &settings, const normalAction &key,
                          SettingsOccasion occasion);
