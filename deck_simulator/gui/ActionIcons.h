#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

namespace deck {

/// The picture of an action's group in one colour.
QIcon actionIcon(const QString &action, const QColor &color);

} // namespace deck
