#pragma once

#include "system_monitor_lib/recorded/FileStamp.h"

/// The time of a file, which Windows counts in steps of 100 ns since 1601, in the form that
/// FileStamp uses; 0 when Windows has none.
qint64 nanosecondsSince1970(quint64 ticksSince1601);
