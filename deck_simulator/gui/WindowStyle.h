#pragma once

#include <QString>

namespace deck {

/// Sets the application's style, which grows with the text, and its colours to "light" or "dark";
/// any other name keeps the desktop's colours.
void applyColors(const QString &name);

/// Scales the texts of the application's windows, in percent.
void applyTextSize(int percent);

} // namespace deck
