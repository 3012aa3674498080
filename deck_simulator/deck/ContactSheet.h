#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <QVector>

class QPainter;

namespace deck {

/// How the sheet is laid out, in pixels.
struct ContactSheetStyle
{
    int columns = 5;
    int keySize = 144;
};

/// The picture on a key.
struct SheetPicture
{
    QImage image;
    bool isGauge = false; ///< It is as large as the key, not as its text.
};

/// The rectangle of the key \a index on the sheet, where each picture takes one key.
QRect sheetKeyRect(int index, const ContactSheetStyle &style);

/// Size of a sheet for \a keys keys: full rows, with a margin around.
QSize sheetSize(int keys, const ContactSheetStyle &style);

/// The size at which a line of text of \a picture pixels is shown on a key: as large as fits within
/// the key's border with the same proportions, and enlarged at most one and a half times on a key
/// of 144 pixels. Empty for an empty picture, otherwise at least one pixel.
QSize shownTextSize(const QSize &picture, const ContactSheetStyle &style);

/// The same for a screen that may be wider than high: no higher than fits either.
QSize shownTextOnScreen(const QSize &picture, const QSize &screen);

/// The size at which a gauge is shown on a screen: as large as fits with the same proportions.
QSize shownGaugeSize(const QSize &picture, const QSize &screen);

/// Paints a gauge in the middle of \a screen, whose corners are round.
void paintGaugePicture(QPainter &painter, const QRect &screen, const QImage &picture);

/// The deck with one key per picture on a dark ground; a wide gauge takes two neighbours, like the
/// screen of a dial. A key with a null picture is dark, and so are the keys that fill the rows.
QImage paintContactSheet(const QVector<SheetPicture> &pictures, const ContactSheetStyle &style);

} // namespace deck
