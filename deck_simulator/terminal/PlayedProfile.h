#pragma once

#include "deck_simulator/deck/DeckProfile.h"
#include "deck_simulator/deck/StoredProfile.h"

#include <QString>

namespace deck {

/// What a run without a window takes from a window's profile.
struct PlayedProfile
{
    DeckProfile deck; ///< Its keys row by row, then its dials.
    LaunchChoices launch;
    QString error; ///< For the user; empty when the whole profile can be played.
};

/// Reads the profile \a file and leaves it as it is.
PlayedProfile readPlayedProfile(const QString &file);

} // namespace deck
