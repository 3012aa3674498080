#pragma once

#include <QtGlobal>

/// Bytes of memory that this process has held at most so far; 0 where that cannot be told.
qint64 peakMemory();
