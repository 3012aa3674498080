#pragma once

#include <QtGlobal>

/// Milliseconds since some fixed moment, including the time that the machine was asleep. Never goes
/// back.
qint64 passTime();
