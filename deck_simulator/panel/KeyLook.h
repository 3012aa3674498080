#pragma once

#include "deck_simulator/deck/DeckEntry.h"

namespace deck {

/// The settings of \a key with the look of \a model: font, size, colours, style and picture. What
/// depends on the reading (scale, thresholds, decimals, key press) stays, as does the shape where
/// one is a key and the other a dial, and the style where the kind does not have the other.
EntrySettings withLook(const DeckEntry &key, const DeckEntry &model);

} // namespace deck
