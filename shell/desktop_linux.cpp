#include "shell/desktop.h"

#include <QByteArray>
#include <QByteArrayList>

namespace desktop {

void choosePlatform()
{
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        return;
    // Qt uses the first platform that starts, and aborts if none does.
    QByteArrayList platforms{QByteArrayLiteral("offscreen")};
    if (!qEnvironmentVariableIsEmpty("DISPLAY"))
        platforms.prepend(QByteArrayLiteral("xcb"));
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        platforms.prepend(QByteArrayLiteral("wayland"));
    qputenv("QT_QPA_PLATFORM", platforms.join(';'));
}

void attach() {}

} // namespace desktop
