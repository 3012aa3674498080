#pragma once

#include <QString>

namespace deck {

/// \a text as one line that is safe to write to a terminal: line ends become " / ", control and
/// formatting characters are replaced or left out.
QString printable(const QString &text);

} // namespace deck
