#pragma once

#include "deck_simulator/deck/DeckPlace.h"

#include <QMimeData>
#include <QString>

#include <optional>

namespace deck {

/// The data of a drag: an action from the list, or a key from another place. The caller owns the
/// data.
QMimeData *actionMime(const QString &action);
QMimeData *placeMime(const DeckPlace &place);

/// Empty when \a data contains no action.
QString actionFrom(const QMimeData &data);
/// Nothing when \a data contains no place.
std::optional<DeckPlace> placeFrom(const QMimeData &data);

/// The type of an action's data.
QString actionMimeType();

} // namespace deck
