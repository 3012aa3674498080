#pragma once

#include <QJsonObject>
#include <QString>

/// The messages that the plugin sends to the host, as JSON without white space.
namespace hostmessages {

QString registration(const QString &registerEvent, const QString &pluginUUID);

/// "state" is written only when \a state is 0 or more.
QString setTitle(const QString &title, const QString &context, int target, int state);

/// \a image gets the prefix "data:image/png;base64," unless it is empty or already has it.
QString setImage(const QString &image, const QString &context, int target, int state);

QString setSettings(const QJsonObject &payload, const QString &context);

} // namespace hostmessages
