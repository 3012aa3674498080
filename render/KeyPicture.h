#pragma once

#include <QFont>
#include <QImage>
#include <QRect>
#include <QString>
#include <QVector>

class ShapedLine;

/// A line of text and where it stands in a picture.
struct PictureLine
{
    QRect rect;
    const ShapedLine *line = nullptr; ///< Never null.
};

/// How the lines of a picture are drawn.
struct PictureStyle
{
    QFont font;     ///< That of the lines.
    QString color;  ///< Any text that QColor accepts; another one is taken as an invalid colour.
    double opacity; ///< Painter opacity, 0 to 1.
    int alignment;  ///< Qt::Alignment flags of each line within its rectangle.
};

/// The most pixels of a picture.
constexpr int largestArea = 1 << 23;

/// A transparent picture of \a size with \a lines drawn on it. A null image when \a size is empty,
/// when it has more than 32767 pixels on a side or more than largestArea, or when a line is not
/// whole.
QImage paintPicture(const QSize &size, const QVector<PictureLine> &lines,
                    const PictureStyle &style);

/// "data:image/png;base64," and the base64 of \a image as PNG. A picture that cannot be saved gives
/// nothing after the comma and a critical message that names \a operation.
QString pngDataUrl(const QImage &image, const char *operation);
