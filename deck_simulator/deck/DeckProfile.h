#pragma once

#include "deck_simulator/deck/DeckEntry.h"
#include "deck_simulator/deck/DeckKey.h"

#include <QJsonObject>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

namespace deck {

class DeckModel;

/// Width and height of a key in pixels, as the host sends them to the plugin.
constexpr int deckKeyPixels = 144;

/// The picture on a key, or on the screen of a dial, which is twice as wide.
constexpr QSize screenPixels(bool onDial)
{
    return {onDial ? 2 * deckKeyPixels : deckKeyPixels, deckKeyPixels};
}

/// A deck: its name, its grid and the keys on it, filled row by row. The grid may have room for
/// more keys than there are.
struct DeckProfile
{
    QString name;
    QSize grid;
    QVector<DeckKey> keys;
};

/// The key of an entry before the plugin has drawn anything on it.
DeckKey keyOf(const DeckEntry &entry);

/// The keys of a model that lie on its deck, in the model's order.
DeckProfile deckOf(const DeckModel &model);

/// Complete settings of a key with the title \a title; \a titleLines is "单行显示" or "双行显示".
QJsonObject keySettings(const QString &title, const QString &titleLines);

/// The deck that the simulator starts with, \a columns keys wide: the metrics that every machine
/// has, in every style. Its gauges are painted for keys of \a keyPixels pixels.
DeckProfile defaultDeck(int columns, int keyPixels = deckKeyPixels);

/// A deck with one key for every action of the plugin, \a columns keys wide.
DeckProfile kindsDeck(int columns);

/// A deck without keys, \a columns keys wide.
DeckProfile emptyDeck(int columns);

/// A deck that demonstrates settings, \a columns keys wide: titles, lines, sizes, colours and
/// transparency, and one key for each of \a fontSpecs ("FAMILY|STYLE").
DeckProfile settingsDeck(int columns, const QStringList &fontSpecs);

} // namespace deck
