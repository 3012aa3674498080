#pragma once

#include "deck_simulator/process/FontFiles.h"

#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

namespace deck {

/// What the host tells the plugin about itself: the compact JSON of the "-info" argument.
QString hostInfo(const QString &language, const QVector<FontFile> &fonts, const QSize &grid);

/// The four argument pairs with which a plugin is started.
QStringList pluginArguments(quint16 port, const QString &pluginUUID, const QString &registerEvent,
                            const QString &info);

} // namespace deck
