#include "system_monitor_lib/live/files/TextFields.h"

#include <charconv>

namespace {

bool isBlank(char character)
{
    return character == ' ' || character == '\t';
}

} // namespace

std::optional<std::string_view> takeLine(std::string_view &text)
{
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos)
        return std::nullopt;
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end + 1);
    return line;
}

std::optional<quint64> takeNumber(std::string_view &line)
{
    line = trimmed(line);
    const char *const end = line.data() + line.size();
    quint64 number = 0;
    const auto [stop, error] = std::from_chars(line.data(), end, number);
    const bool isWhole = stop == end || isBlank(*stop);
    if (error != std::errc() || !isWhole || number > largestPlausibleNumber)
        return std::nullopt;
    line.remove_prefix(static_cast<std::size_t>(stop - line.data()));
    return number;
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}
