#include "deck_simulator/DisplayPlatform.h"

#include <QByteArray>
#include <QtGlobal>

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

void chooseDisplayPlatform()
{
    if (!hasDisplay() && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}
