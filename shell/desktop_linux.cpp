#include "shell/desktop.h"

#include <QByteArray>
#include <QByteArrayList>

namespace desktop {

void choosePlatform()
{
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        return;
    // Qt takes the first that starts, and aborts where none does.
    QByteArrayList platforms{QByteArrayLiteral("offscreen")};
    if (!qEnvironmentVariableIsEmpty("DISPLAY"))
        platforms.prepend(QByteArrayLiteral("xcb"));
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        platforms.prepend(QByteArrayLiteral("wayland"));
    qputenv("QT_QPA_PLATFORM", platforms.join(';'));
}

void attach() {}

} // namespace desktop
