#pragma once

#include <QtGlobal>

#include <string_view>

/// What ZFS's cache would give back, in KiB, out of /proc/spl/kstat/zfs/arcstats (kstat text: name,
/// type, value): its size above the least that it keeps. The kernel does not count that as
/// available, though programs can have it. 0 when there is no such cache or a line is malformed.
quint64 parseArcGivesBack(std::string_view text);
