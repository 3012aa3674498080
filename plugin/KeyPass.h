#pragma once

#include <QString>

#include <optional>

class normalAction;

/// One pass over the keys: each is painted with the present reading of its kind.
class KeyPass
{
public:
    /// Paints \a key and returns the picture as a data URL, empty where the key's settings leave
    /// nothing to paint. Nothing when its UUID is of no known kind.
    std::optional<QString> paint(normalAction &key);

    /// What a disk-temperature key has shown last, converted where it shows Fahrenheit. A key whose
    /// disk is not known takes it again.
    int shownDiskTemperature = 0;
};
