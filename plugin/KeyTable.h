#pragma once

#include <QString>

#include <optional>

class normalAction;

/// What the keys of one pass hand on to each other.
struct KeyPass
{
    /// The value that the last disk-temperature key showed, converted if it shows Fahrenheit. A key
    /// whose disk is not known takes it again.
    int diskTemperature = 0;
};

/// Paints \a key with the present reading of its kind and returns the picture as a data URL, empty
/// where the key's settings leave nothing to paint. Nothing when its UUID is of no known kind.
std::optional<QString> paintKey(normalAction &key, KeyPass &pass);
