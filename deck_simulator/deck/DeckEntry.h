#pragma once

#include "deck_simulator/deck/DeckPlace.h"
#include "deck_simulator/deck/EntrySettings.h"

#include <QString>

namespace deck {

/// An action on a place of the deck.
struct DeckEntry
{
    QString context; ///< Identifies it on the link.
    QString action;
    DeckPlace place;
    EntrySettings settings;
};

} // namespace deck
