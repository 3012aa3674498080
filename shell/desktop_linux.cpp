#include "shell/desktop.h"

#include <QByteArray>
#include <QByteArrayList>

namespace desktop {

namespace {

/// The window is never shown. Qt would load a complete OpenGL driver for it, some 50 MiB.
void doWithoutOpenGL()
{
    if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
}

} // namespace

void choosePlatform()
{
    doWithoutOpenGL();
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
