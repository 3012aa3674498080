#include "deck_simulator/deck/KeyPicture.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>

namespace deck {

namespace {

const QLatin1String prefix("data:image/png;base64,");

} // namespace

bool isEmptyPicture(const QString &dataUrl)
{
    return dataUrl.isEmpty() || dataUrl == prefix;
}

QImage decodeKeyPicture(const QString &dataUrl)
{
    if (!dataUrl.startsWith(prefix))
        return {};
    const auto decoded = QByteArray::fromBase64Encoding(dataUrl.mid(prefix.size()).toLatin1(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return {};

    QByteArray bytes = *decoded;
    // Its library would complain on standard error.
    if (!bytes.startsWith("\x89PNG\r\n\x1a\n"))
        return {};
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "png");
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > maximumPictureSide || size.height() > maximumPictureSide)
        return {};
    return reader.read();
}

} // namespace deck
