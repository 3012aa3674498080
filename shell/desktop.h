#pragma once

/// The place where the program's window lives.
namespace desktop {

/// Called before the application object exists. On Linux it has Qt try the displays that
/// WAYLAND_DISPLAY and DISPLAY name, and at last the offscreen platform, which always starts,
/// unless QT_QPA_PLATFORM is set; on Windows it does nothing.
void choosePlatform();

/// Attaches the calling thread to the interactive desktop "Default" of Windows; failures are
/// ignored. Does nothing on Linux.
void attach();

} // namespace desktop
