#include "deck_simulator/deck/KeyPicture.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>

namespace deck {

QImage decodeKeyPicture(const QString &dataUrl)
{
    const QLatin1String prefix("data:image/png;base64,");
    if (!dataUrl.startsWith(prefix))
        return {};
    const auto decoded = QByteArray::fromBase64Encoding(dataUrl.mid(prefix.size()).toLatin1(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return {};

    QByteArray bytes = *decoded;
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "png");
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > maximumPictureSide || size.height() > maximumPictureSide)
        return {};
    return reader.read();
}

} // namespace deck
