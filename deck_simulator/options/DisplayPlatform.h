#pragma once

namespace deck {

/// Allows an application object to be created without a display: if there is none, and the user has
/// made no choice (QT_QPA_PLATFORM), the framework's offscreen platform is chosen, also for
/// processes started from here. To be called before the application object is created.
void chooseDisplayPlatform();

/// Whether there is a display to open a window on, and the user has not chosen to do without it
/// (QT_QPA_PLATFORM).
bool hasDisplay();

} // namespace deck
