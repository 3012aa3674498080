#pragma once

/// The place where the program's window lives.
namespace desktop {

/// Called before the application object exists. On Linux without DISPLAY and WAYLAND_DISPLAY it
/// chooses the offscreen platform, unless QT_QPA_PLATFORM is set; on Windows it does nothing.
void choosePlatform();

/// Attaches the calling thread to the interactive desktop "Default" of Windows; failures are
/// ignored. Does nothing on Linux.
void attach();

} // namespace desktop
