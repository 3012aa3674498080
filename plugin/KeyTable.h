#pragma once

#include <QString>

#include <optional>

class normalAction;

/// Paints \a key with the present reading of its kind and returns the picture as a data URL, empty
/// where the key's settings leave nothing to paint. Nothing when its UUID is of no known kind.
std::optional<QString> paintKey(normalAction &key);
