#pragma once

/// The place where the program's window lives.
namespace desktop {

/// Called before the application object exists. On Linux, unless QT_QPA_PLATFORM is set, it makes
/// Qt try the displays named by WAYLAND_DISPLAY and DISPLAY, and finally the offscreen platform,
/// which always works. On an X server no OpenGL is loaded, unless QT_XCB_GL_INTEGRATION is set. On
/// Windows it does nothing.
void choosePlatform();

/// Attaches the calling thread to the interactive desktop "Default" of Windows; failures are
/// ignored. Does nothing on Linux.
void attach();

} // namespace desktop
