#pragma once

#include "render/Gauge.h"

#include <QtGlobal>

#include <optional>

/// Which extreme a key shows after a press: minimum, maximum and mean for three passes each, then
/// the present again.
class ExtremeTurn
{
public:
    enum class Release {
        GoesOn, ///< The next is shown.
        Resets, ///< The key was held for a second: the present is shown, and extremes begin anew.
    };

    /// Times are in milliseconds.
    void press(qint64 now);
    /// A release that no press came before counts as a short press.
    Release release(qint64 now);

    gauge::Extreme shown() const { return m_shown; }
    /// Counts a pass that has shown it.
    void pass();

private:
    void goOn();

    gauge::Extreme m_shown = gauge::Extreme::None;
    int m_passesLeft = 0;
    std::optional<qint64> m_pressed;
};
