#pragma once

#include <QString>

namespace deck {

/// Gives the application the colours "light" or "dark"; any other name leaves the desktop's.
void applyColors(const QString &name);

/// Scales the texts of the application's windows, in percent.
void applyTextSize(int percent);

} // namespace deck
