#pragma once

#include <QSize>
#include <QString>

namespace deck {

/// How large a picture is, and what becomes of it on a key or on the screen of a dial; a gauge
/// fills it to the edge. Empty for an empty picture.
QString pictureText(const QSize &picture, bool isGauge, bool onDial);

} // namespace deck
