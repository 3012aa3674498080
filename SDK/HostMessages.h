#pragma once

#include <QJsonObject>
#include <QString>

/// The JSON objects that the plugin sends to the host.
namespace hostmessages {

QJsonObject registration(const QString &registerEvent, const QString &pluginUUID);

/// "state" is written only when \a state is 0 or more.
QJsonObject setTitle(const QString &title, const QString &context, int target, int state);

/// \a image gets the prefix "data:image/png;base64," unless it is empty or already has it.
QJsonObject setImage(const QString &image, const QString &context, int target, int state);

QJsonObject setSettings(const QJsonObject &payload, const QString &context);

/// The text of \a message without white space.
QString compact(const QJsonObject &message);

} // namespace hostmessages
