#pragma once

#include <QJsonObject>

class normalAction;
class VqSystemMonitorLib;

/// The event that a settings reply answers; the two differ in which members they write.
enum class SettingsOccasion { WillAppear, DidReceiveSettings };

/// \a settings, the key's incoming "settings" object, with "titleParameters" (the settings in
/// force and the lists that the settings panel offers) and "ActionGeometry" (the size of the last
/// picture) replaced. The drive trees of a disk-temperature key are asked of \a library at once;
/// it may be null.
QJsonObject settingsReply(const QJsonObject &settings, const normalAction &key,
                          SettingsOccasion occasion, VqSystemMonitorLib *library);
