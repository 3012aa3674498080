#pragma once

namespace deck {

/// Keeps off the terminal what Qt's platforms without a screen say of each window, and what nobody
/// can change. Every other message is shown as before.
void silencePlatformNoise();

} // namespace deck
