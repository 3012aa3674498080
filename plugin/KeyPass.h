#pragma once

#include <QString>

#include <optional>

class KeyGauges;
class normalAction;

/// One pass over the keys: each is painted with the current reading of its kind.
class KeyPass
{
public:
    /// \a gauges outlives the pass; \a now is in the milliseconds of its clock.
    KeyPass(KeyGauges &gauges, qint64 now);

    /// Paints \a key and returns the picture as a data URL, which is empty if the key's settings
    /// leave nothing to paint. Nothing when its UUID is unknown.
    std::optional<QString> paint(normalAction &key);

    /// What the last disk-temperature key has shown, converted if it shows Fahrenheit. A key whose
    /// disk is unknown shows it again.
    int shownDiskTemperature = 0;

private:
    KeyGauges &m_gauges;
    qint64 m_now;
};
