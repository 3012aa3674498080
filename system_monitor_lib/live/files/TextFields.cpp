#include "system_monitor_lib/live/files/TextFields.h"

#include <charconv>

namespace {

constexpr std::string_view blanks = " \t";

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
    const std::size_t length = line.find_first_of(blanks);
    const std::string_view field = line.substr(0, length);
    const char *const end = field.data() + field.size();
    quint64 number = 0;
    const auto [stop, error] = std::from_chars(field.data(), end, number);
    if (error != std::errc() || stop != end || number > largestPlausibleNumber)
        return std::nullopt;
    line.remove_prefix(field.size());
    return number;
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}
