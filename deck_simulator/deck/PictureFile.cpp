#include "deck_simulator/deck/PictureFile.h"

#include <QFileInfo>
#include <QImageWriter>

namespace deck {

namespace {

constexpr int jpegQuality = 92;

bool isJpeg(const QByteArray &format)
{
    return format == "jpg" || format == "jpeg";
}

QByteArray formatOf(const QString &file)
{
    const QByteArray suffix = QFileInfo(file).suffix().toLower().toLatin1();
    // A JPEG must not become a PNG of that name where no JPEG can be written.
    const bool known = QImageWriter::supportedImageFormats().contains(suffix) || isJpeg(suffix);
    return known ? suffix : QByteArray("png");
}

} // namespace

QString writePicture(const QImage &picture, const QString &file)
{
    const QByteArray format = formatOf(file);
    QImageWriter writer(file, format);
    if (format == "png")
        writer.setQuality(0); // as small as it gets
    else
        writer.setQuality(jpegQuality);
    return writer.write(picture) ? QString() : writer.errorString();
}

} // namespace deck
