#pragma once

#include <QImage>
#include <QString>

namespace deck {

/// Writes a picture in the format of the file's suffix, as PNG if that is none of pictures. Returns
/// why it cannot be written; empty on success.
QString writePicture(const QImage &picture, const QString &file);

} // namespace deck
