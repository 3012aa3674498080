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

void paintKey(QPainter &painter, const QRect &rect)
{
    const qreal radius = rect.width() / 8.0;
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
    QImage sheet(sheetSize(pictures.size(), style), QImage::Format_RGB32);
    sheet.fill(deckColor);
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::Antialiasing);
    const int places = rowsOf(pictures.size(), style) * style.columns;
    for (int index = 0; index < places; ++index) {
        const QRect key = sheetKeyRect(index, style);
        paintKey(painter, key);
        if (index >= pictures.size())
            continue;
        const SheetPicture &picture = pictures.at(index);
        if (picture.isGauge)
            paintGaugePicture(painter, key, picture.image);
        else
            paintText(painter, key, picture.image, style);
    }
    return sheet;
}

} // namespace deck
