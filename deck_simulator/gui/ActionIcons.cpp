#include "deck_simulator/gui/ActionIcons.h"

#include "deck_simulator/deck/ActionList.h"

#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>

namespace deck {

namespace {

QPixmap tinted(const QString &file, const QColor &color)
{
    const QString name = QStringLiteral("deck-action %1 %2").arg(file, color.name());
    QPixmap pixmap;
    if (QPixmapCache::find(name, &pixmap))
        return pixmap;
    pixmap = QPixmap(file);
    if (pixmap.isNull())
        return pixmap;
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), color);
    painter.end();
    QPixmapCache::insert(name, pixmap);
    return pixmap;
}

} // namespace

QIcon actionIcon(const QString &action, const QColor &color)
{
    const DeckAction *known = findAction(action);
    return QIcon(tinted(groupIcon(known == nullptr ? ActionGroup::Other : known->group), color));
}

} // namespace deck
