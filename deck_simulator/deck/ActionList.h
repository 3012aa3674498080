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
    QString title;          ///< The short title that a new key gets.
    QString chineseCaption; ///< The title in Chinese as well, where there is one.
    ActionGroup group = ActionGroup::Other;
};

/// All actions, group by group.
const QVector<DeckAction> &deckActions();

/// Null for a uuid that is not in the list.
const DeckAction *findAction(const QString &uuid);

// Texts are in Chinese for the language "zh_CN", otherwise in English.

/// The caption, or the uuid itself if it is not in the list.
QString actionCaption(const QString &uuid, const QString &language = {});

QString groupCaption(ActionGroup group, const QString &language = {});

/// The title that a new key gets; empty for one that needs none.
QString newTitle(const QString &uuid, const QString &language);

/// \a title, or in its place one that fits the number of lines: on two lines each has its part
/// before and behind a slash, and the plugin replaces a title without one.
QString titleForLines(const QString &uuid, const QString &title, bool twoLines,
                      const QString &language);

/// The compiled-in picture of a group's actions, such as ":/Type_1.png".
QString groupIcon(ActionGroup group);

} // namespace deck
