#include "deck_simulator/panel/KeyLook.h"

#include "deck_simulator/panel/GaugeKinds.h"

namespace deck {

EntrySettings withLook(const DeckEntry &key, const DeckEntry &model)
{
    const EntrySettings &look = model.settings;
    EntrySettings settings = key.settings;
    settings.fontFamily = look.fontFamily;
    settings.fontSize = look.fontSize;
    settings.fillsKey = look.fillsKey;
    settings.color = look.color;
    settings.opacity = look.opacity;

    DisplaySettings &display = settings.display;
    display.size = look.display.size;
    display.normalColor = look.display.normalColor;
    display.warningColor = look.display.warningColor;
    display.criticalColor = look.display.criticalColor;
    display.ground = look.display.ground;
    if (key.place.dial == model.place.dial)
        display.shape = look.display.shape;
    EntrySettings wanted = settings;
    wanted.display.style = look.display.style;
    if (!look.display.isGauge() || shownStyle(key.action, wanted) != QLatin1String("text"))
        display.style = look.display.style;
    return settings;
}

} // namespace deck
