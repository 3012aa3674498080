#pragma once

#include <QtGlobal>

#include <functional>

/// A source of time in nanoseconds that never goes back.
using MonotonicClock = std::function<qint64()>;

/// Nanoseconds since some fixed moment, including the time that the machine was asleep, so that
/// sleep shows as a gap.
qint64 monotonicNanoseconds();
