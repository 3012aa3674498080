#include "deck_simulator/deck/ContactSheet.h"

#include "deck_simulator/deck/DeckProfile.h"

#include <QColor>
#include <QPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

namespace deck {

namespace {

const QColor deckColor(0x26, 0x27, 0x2b);
const QColor keyColor(0x08, 0x08, 0x0a);
const QColor keyEdgeColor(0x4a, 0x4c, 0x52);

constexpr qreal largestEnlargement = 1.5;

int gapOf(const ContactSheetStyle &style)
{
    return qMax(2, style.keySize / 8);
}

int rowsOf(int keys, const ContactSheetStyle &style)
{
    return qMax(1, (keys + style.columns - 1) / style.columns);
}

/// Where a picture stands: its first key, and how many it takes.
struct SheetPlace
{
    int key;
    int span;
};

QVector<SheetPlace> placesOf(const QVector<SheetPicture> &pictures, const ContactSheetStyle &style)
{
    QVector<SheetPlace> places;
    int next = 0;
    for (const SheetPicture &picture : pictures) {
        const bool isWide = picture.isGauge && picture.image.width() > picture.image.height();
        const int span = isWide && style.columns > 1 ? 2 : 1;
        const int left = style.columns - next % style.columns;
        if (span > left)
            next += left;
        places.append({next, span});
        next += span;
    }
    return places;
}

QRect placeRect(const SheetPlace &place, const ContactSheetStyle &style)
{
    const QRect first = sheetKeyRect(place.key, style);
    QRect rect(0, 0, place.span * style.keySize, style.keySize);
    rect.moveCenter((first | sheetKeyRect(place.key + place.span - 1, style)).center());
    return rect;
}

void paintKey(QPainter &painter, const QRect &rect)
{
    const qreal radius = rect.height() / 8.0;
    painter.setPen(QPen(keyEdgeColor, 1.0));
    painter.setBrush(keyColor);
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

void paintText(QPainter &painter, const QRect &key, const QImage &picture,
               const ContactSheetStyle &style)
{
    const QSize size = shownTextSize(picture.size(), style);
    if (size.isEmpty())
        return;
    QRect target(QPoint(), size);
    target.moveCenter(key.center());
    painter.drawImage(target.topLeft(),
                      picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

} // namespace

QRect sheetKeyRect(int index, const ContactSheetStyle &style)
{
    const int step = style.keySize + gapOf(style);
    return {gapOf(style) + (index % style.columns) * step,
            gapOf(style) + (index / style.columns) * step, style.keySize, style.keySize};
}

QSize sheetSize(int keys, const ContactSheetStyle &style)
{
    const int step = style.keySize + gapOf(style);
    return {gapOf(style) + style.columns * step, gapOf(style) + rowsOf(keys, style) * step};
}

QSize shownTextSize(const QSize &picture, const ContactSheetStyle &style)
{
    if (picture.isEmpty())
        return {0, 0};
    const int border = qMax(1, style.keySize / 24);
    const qreal room = style.keySize - 2 * border;
    const qreal largest = largestEnlargement * style.keySize / deckKeyPixels;
    const qreal scale = qMin(largest, qMin(room / picture.width(), room / picture.height()));
    return {qMax(1, qRound(picture.width() * scale)), qMax(1, qRound(picture.height() * scale))};
}

QSize shownTextOnScreen(const QSize &picture, const QSize &screen)
{
    const QSize size = shownTextSize(picture, {1, screen.width()});
    const int room = screen.height() - 2 * qMax(1, screen.height() / 24);
    return size.height() <= room ? size : size.scaled(size.width(), room, Qt::KeepAspectRatio);
}

QSize shownGaugeSize(const QSize &picture, const QSize &screen)
{
    return picture.isEmpty() ? QSize(0, 0) : picture.scaled(screen, Qt::KeepAspectRatio);
}

void paintGaugePicture(QPainter &painter, const QRect &screen, const QImage &picture)
{
    const QSize size = shownGaugeSize(picture.size(), screen.size());
    if (size.isEmpty())
        return;
    QRect target(QPoint(), size);
    target.moveCenter(screen.center());
    const qreal ratio = painter.device()->devicePixelRatioF();
    QImage fitted = picture.scaled(size * ratio, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    fitted.setDevicePixelRatio(ratio);
    const qreal radius = qMin(screen.width(), screen.height()) / 8.0;
    QPainterPath glass;
    glass.addRoundedRect(screen, radius, radius);
    painter.save();
    painter.setClipPath(glass);
    painter.drawImage(target.topLeft(), fitted);
    painter.restore();
}

QImage paintContactSheet(const QVector<SheetPicture> &pictures, const ContactSheetStyle &style)
{
    const QVector<SheetPlace> places = placesOf(pictures, style);
    const int keys = places.isEmpty() ? 0 : places.constLast().key + places.constLast().span;
    QImage sheet(sheetSize(keys, style), QImage::Format_RGB32);
    sheet.fill(deckColor);
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::Antialiasing);
    QVector<bool> taken(rowsOf(keys, style) * style.columns, false);
    for (int index = 0; index < pictures.size(); ++index) {
        const SheetPlace place = places.at(index);
        const QRect rect = placeRect(place, style);
        for (int key = place.key; key < place.key + place.span; ++key)
            taken[key] = true;
        paintKey(painter, rect);
        if (pictures.at(index).isGauge)
            paintGaugePicture(painter, rect, pictures.at(index).image);
        else
            paintText(painter, rect, pictures.at(index).image, style);
    }
    for (int key = 0; key < taken.size(); ++key) {
        if (!taken.at(key))
            paintKey(painter, sheetKeyRect(key, style));
    }
    return sheet;
}

} // namespace deck
