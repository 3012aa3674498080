#include "system_monitor_lib/live/graphics/PciMemory.h"

#include "system_monitor_lib/live/files/TextFields.h"

#include <QtAlgorithms>

#include <algorithm>
#include <charconv>

namespace {

/// No card has more.
constexpr quint64 largestMemory = quint64{1} << 44U;

/// Takes the next hexadecimal number, with or without "0x", off the front of \a line.
std::optional<quint64> takeHexadecimal(std::string_view &line)
{
    line = trimmed(line);
    if (line.substr(0, 2) == "0x")
        line.remove_prefix(2);
    constexpr int base = 16;
    quint64 number = 0;
    const auto [stop, error] =
        std::from_chars(line.data(), line.data() + line.size(), number, base);
    if (error != std::errc())
        return std::nullopt;
    line.remove_prefix(static_cast<std::size_t>(stop - line.data()));
    return number;
}

} // namespace

std::optional<quint64> parseLargestWindow(std::string_view text)
{
    constexpr quint64 prefetchableMemory = 0x2200;
    std::optional<quint64> largest;
    while (std::optional<std::string_view> line = takeLine(text)) {
        const std::optional<quint64> start = takeHexadecimal(*line);
        const std::optional<quint64> end = takeHexadecimal(*line);
        const std::optional<quint64> flags = takeHexadecimal(*line);
        if (!start || !end || !flags || (*flags & prefetchableMemory) != prefetchableMemory)
            continue;
        if (*end > *start && *end - *start < largestMemory)
            largest = std::max(largest.value_or(0), *end - *start + 1);
    }
    return largest;
}

std::optional<quint64> parseLargestSize(std::string_view text)
{
    constexpr quint64 megabyte = quint64{1024} * 1024;
    constexpr uint lastBit = 63;
    const std::optional<std::string_view> line = takeLine(text);
    std::string_view field = line.value_or(std::string_view());
    const std::optional<quint64> mask = takeHexadecimal(field);
    if (!mask || *mask == 0 || !trimmed(field).empty())
        return std::nullopt;
    const uint highest = lastBit - qCountLeadingZeroBits(*mask);
    return (quint64{1} << highest) > largestMemory / megabyte
               ? std::nullopt
               : std::optional((quint64{1} << highest) * megabyte);
}
