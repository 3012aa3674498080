#pragma once

#include "plugin/gauges/ExtremeTurn.h"
#include "plugin/gauges/WidestText.h"
#include "render/Gauge.h"

#include <QString>

#include <array>

/// What a key with a gauge remembers while its settings stay.
struct KeyGaugeState
{
    QString selection; ///< That the level belongs to.
    gauge::Level level = gauge::Level::Normal;
    std::array<WidestText, 2> widest; ///< By direction.
    ExtremeTurn turn;
};
