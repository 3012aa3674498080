#include "deck_simulator/options/DisplayPlatform.h"

#include <QByteArray>
#include <QtGlobal>

namespace deck {

bool hasDisplay()
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (platform.startsWith("offscreen") || platform.startsWith("minimal"))
        return false;
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

void chooseDisplayPlatform()
{
    if (!hasDisplay() && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

} // namespace deck
