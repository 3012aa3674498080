#pragma once

#include <QtGlobal>

#include <optional>
#include <string_view>

/// No counter of a running machine comes near this; sums of a dozen such numbers do not overflow.
inline constexpr quint64 largestPlausibleNumber = quint64{1} << 60U;

/// Takes the next line off the front of \a text and gives it without its newline. A last line
/// without a newline was cut short and is not given.
std::optional<std::string_view> takeLine(std::string_view &text);

/// Takes the next number off the front of \a line: decimal digits up to a blank or the end, at most
/// largestPlausibleNumber. Otherwise nothing, and \a line is left in an undefined state.
std::optional<quint64> takeNumber(std::string_view &line);

/// \a text without the blanks and tabs at both ends.
std::string_view trimmed(std::string_view text);
