#pragma once

#include <QtGlobal>

#include <optional>
#include <string_view>

/// The largest prefetchable window of a PCI device in bytes, from its file "resource" in /sys: one
/// line of start, end and flags per window. A card maps all or a part of its memory into it.
/// Nothing when there is none.
std::optional<quint64> parseLargestWindow(std::string_view text);

/// The largest size in bytes to which a window can be set, from a file "resourceN_resize": a mask
/// of sizes in hexadecimal digits, whose lowest bit stands for 1 MiB. Nothing when it is malformed.
std::optional<quint64> parseLargestSize(std::string_view text);
