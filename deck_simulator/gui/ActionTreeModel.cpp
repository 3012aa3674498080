#include "deck_simulator/gui/ActionTreeModel.h"

#include "deck_simulator/deck/ActionList.h"
#include "deck_simulator/gui/ActionIcons.h"
#include "deck_simulator/gui/DeckMime.h"

#include <QMimeData>

namespace deck {

namespace {

QString searchText(const DeckAction &action)
{
    const QString chinese = QStringLiteral("zh_CN");
    return QStringList{groupCaption(action.group), groupCaption(action.group, chinese),
                       action.caption, action.chineseCaption,
                       action.uuid.section(QLatin1Char('.'), 3)}
        .join(QLatin1Char(' '));
}

} // namespace

ActionTreeModel::ActionTreeModel(QObject *parent)
    : QStandardItemModel(parent)
{
    QStandardItem *group = nullptr;
    ActionGroup groupId = ActionGroup::Other;
    for (const DeckAction &action : deckActions()) {
        if (group == nullptr || action.group != groupId) {
            groupId = action.group;
            group = new QStandardItem(groupCaption(groupId));
            group->setFlags(Qt::ItemIsEnabled);
            appendRow(group);
        }
        auto *item = new QStandardItem(action.caption);
        item->setData(action.uuid, uuidRole);
        item->setData(searchText(action), searchRole);
        item->setToolTip(action.uuid);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
        group->appendRow(item);
    }
}

void ActionTreeModel::setLanguage(const QString &language)
{
    for (int row = 0; row < rowCount(); ++row) {
        QStandardItem *group = item(row);
        for (int child = 0; child < group->rowCount(); ++child) {
            QStandardItem *action = group->child(child);
            const QString uuid = action->data(uuidRole).toString();
            action->setText(actionCaption(uuid, language));
            group->setText(groupCaption(findAction(uuid)->group, language));
        }
    }
}

void ActionTreeModel::setIconColor(const QColor &color)
{
    for (int row = 0; row < rowCount(); ++row) {
        QStandardItem *group = item(row);
        for (int child = 0; child < group->rowCount(); ++child) {
            QStandardItem *action = group->child(child);
            action->setIcon(actionIcon(action->data(uuidRole).toString(), color));
        }
    }
}

QStringList ActionTreeModel::mimeTypes() const
{
    return {actionMimeType()};
}

QMimeData *ActionTreeModel::mimeData(const QModelIndexList &indexes) const
{
    for (const QModelIndex &index : indexes) {
        const QString uuid = index.data(uuidRole).toString();
        if (!uuid.isEmpty())
            return actionMime(uuid);
    }
    return nullptr;
}

} // namespace deck
