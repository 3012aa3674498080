#pragma once

#include <QFont>
#include <QImage>
#include <QRect>
#include <QString>
#include <QVector>

/// A line of text and where it stands in a picture.
struct PictureLine
{
    QRect rect;
    QString text;
};

/// How the lines of a picture are drawn.
struct PictureStyle
{
    QFont font;
    QString color;  ///< Any text that QColor accepts; another one is taken as an invalid colour.
    double opacity; ///< Painter opacity, 0 to 1.
    int alignment;  ///< Qt::Alignment flags of each line within its rectangle.
};

/// A transparent picture of \a size with \a lines drawn on it; a null image when \a size is empty
/// or too large to be painted.
QImage paintPicture(const QSize &size, const QVector<PictureLine> &lines,
                    const PictureStyle &style);

/// "data:image/png;base64," and the base64 of \a image as PNG. A picture that cannot be saved gives
/// nothing after the comma and a critical message that names \a operation.
QString pngDataUrl(const QImage &image, const char *operation);
