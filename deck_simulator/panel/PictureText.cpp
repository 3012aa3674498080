#include "deck_simulator/panel/PictureText.h"

#include "deck_simulator/deck/ContactSheet.h"
#include "deck_simulator/deck/DeckProfile.h"
#include "deck_simulator/panel/PanelText.h"

namespace deck {

namespace {

QString sizeText(const QSize &size)
{
    return QStringLiteral("%1 × %2").arg(size.width()).arg(size.height());
}

} // namespace

QString pictureText(const QSize &picture, bool isGauge, bool onDial)
{
    if (picture.isEmpty())
        return {};
    const QSize screen = screenPixels(onDial);
    const QSize shown =
        isGauge ? shownGaugeSize(picture, screen) : shownTextOnScreen(picture, screen);
    const int percent = qRound(100.0 * shown.width() / picture.width());
    const QString sizes =
        (onDial ? panelText("Picture %1, screen %2") : panelText("Picture %1, key %2"))
            .arg(sizeText(picture), sizeText(screen));
    return percent == 100 ? sizes : panelText("%1: scaled to %2 %").arg(sizes).arg(percent);
}

} // namespace deck
