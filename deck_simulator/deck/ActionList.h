#pragma once

#include <QString>
#include <QVector>

namespace deck {

/// The groups in which a list of actions shows them, in this order.
enum class ActionGroup { Cpu, Gpu, Memory, Network, Drives, Other };

/// One of the plugin's actions, as a host lists it.
struct DeckAction
{
    QString uuid;
    QString caption;
    QString title; ///< The short title that a new key gets.
    ActionGroup group = ActionGroup::Other;
};

/// All actions, group by group.
const QVector<DeckAction> &deckActions();

/// Null for a uuid that is not in the list.
const DeckAction *findAction(const QString &uuid);

/// The caption, or the uuid itself if it is not in the list.
QString actionCaption(const QString &uuid);

QString groupCaption(ActionGroup group);

/// The compiled-in picture of a group's actions, such as ":/Type_1.png".
QString groupIcon(ActionGroup group);

} // namespace deck
