#pragma once

#include <QImage>
#include <QString>

namespace deck {

/// Pictures wider or higher than this number of pixels are rejected before they are decoded.
constexpr int maximumPictureSide = 4096;

/// The picture in a text "data:image/png;base64,...". A null image when it has another prefix, the
/// base64 or the PNG is broken, or a side is longer than maximumPictureSide.
QImage decodeKeyPicture(const QString &dataUrl);

/// Whether a text carries no picture at all: it is empty, or ends where the picture would begin, as
/// it does for a text of no letters.
bool isEmptyPicture(const QString &dataUrl);

} // namespace deck
