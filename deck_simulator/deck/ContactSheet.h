#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <QVector>

namespace deck {

/// How the sheet is laid out, in pixels.
struct ContactSheetStyle
{
    int columns = 5;
    int keySize = 144;
};

/// The rectangle of the key \a index on the sheet.
QRect sheetKeyRect(int index, const ContactSheetStyle &style);

/// Size of a sheet for \a keys keys: full rows, with a margin around.
QSize sheetSize(int keys, const ContactSheetStyle &style);

/// The size at which a picture of \a picture pixels is shown on a key: as large as fits within the
/// key's border with the same proportions, and enlarged at most one and a half times on a key of
/// 144 pixels. Empty for an empty picture, otherwise at least one pixel.
QSize shownPictureSize(const QSize &picture, const ContactSheetStyle &style);

/// The deck with one key per picture on a dark ground. A key with a null picture is dark, and so
/// are the keys that fill the last row.
QImage paintContactSheet(const QVector<QImage> &pictures, const ContactSheetStyle &style);

} // namespace deck
