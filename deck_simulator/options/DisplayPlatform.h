#pragma once

namespace deck {

/// Makes an application object possible where there is no display: without one, and without a
/// choice by the user (QT_QPA_PLATFORM), the framework's offscreen platform is chosen, for the
/// processes started from here too. To be called before the application object is made.
void chooseDisplayPlatform();

/// Whether there is a display to open a window on, and the user (QT_QPA_PLATFORM) does not want to
/// do without.
bool hasDisplay();

} // namespace deck
