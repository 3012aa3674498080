#pragma once

#include "deck_simulator/deck/EntrySettings.h"

#include <QString>

namespace deck {

/// The members of a key's "display" that matter to the style in which it is shown.
struct DisplayFields
{
    bool picture = false;    ///< Shape, size and ground.
    bool scale = false;      ///< Minimum and maximum.
    bool thresholds = false; ///< Warning and critical.
    bool worse = false;
    bool normalColor = false;
    bool warningColor = false;
    bool criticalColor = false;
    bool span = false;
    bool value = false; ///< Average, decimals and press.
    bool rates = false;
};

DisplayFields displayFields(const QString &action, const EntrySettings &settings);

} // namespace deck
