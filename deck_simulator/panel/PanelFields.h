#pragma once

#include "deck_simulator/deck/EntrySettings.h"

#include <QString>

namespace deck {

/// The settings that apply to a key, besides title, font and colour, which apply to every key.
struct PanelFields
{
    bool temperatureUnit = false;
    bool titleLines = false;
    bool sensor = false;
    bool fan = false;
    bool physicalDisk = false;
    bool audioDevice = false;
    bool pump = false;
    bool diskMode = false;
    bool volumeName = false;
    bool drive = false;
    bool switchTime = false;
};

PanelFields panelFields(const QString &action, const EntrySettings &settings);

} // namespace deck
