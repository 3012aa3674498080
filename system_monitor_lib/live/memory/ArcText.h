#pragma once

#include <QtGlobal>

#include <string_view>

/// The memory that ZFS's cache can give back, in KiB, from /proc/spl/kstat/zfs/arcstats (kstat
/// text: name, type, value): its size above its minimum size. The kernel does not count this as
/// available, although programs can have it. 0 when there is no such cache or a line is malformed.
quint64 parseArcGivesBack(std::string_view text);
