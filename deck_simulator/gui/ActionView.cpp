#include "deck_simulator/gui/ActionView.h"

#include "deck_simulator/gui/ActionIcons.h"
#include "deck_simulator/gui/ActionTreeModel.h"
#include "deck_simulator/gui/DeckMime.h"

#include <QDrag>
#include <QPainter>

namespace deck {

namespace {

QPixmap smallKey(const QString &action, int side, qreal ratio)
{
    QPixmap key(QSize(side, side) * ratio);
    key.setDevicePixelRatio(ratio);
    key.fill(Qt::black);
    QPainter painter(&key);
    const int margin = side / 6;
    const QRect inner = QRect(0, 0, side, side).adjusted(margin, margin, -margin, -margin);
    actionIcon(action, Qt::white).paint(&painter, inner);
    return key;
}

} // namespace

void ActionView::startDrag(Qt::DropActions supportedActions)
{
    QMimeData *dragged = model()->mimeData(selectedIndexes());
    if (dragged == nullptr)
        return; // a group
    const QString action = currentIndex().data(ActionTreeModel::uuidRole).toString();
    auto *drag = new QDrag(this);
    drag->setMimeData(dragged);
    drag->setPixmap(smallKey(action, 2 * fontMetrics().height(), devicePixelRatioF()));
    drag->setHotSpot(dragOffset);
    drag->exec(supportedActions);
}

} // namespace deck
