#pragma once

#include <QtGlobal>

#include <optional>
#include <string_view>

/// No counter of a running machine comes near this; sums of a dozen such numbers do not overflow.
inline constexpr quint64 largestPlausibleNumber = quint64{1} << 60U;

/// Removes the next line from the front of \a text and returns it without its newline. A last line
/// without a newline was truncated and is not returned.
std::optional<std::string_view> takeLine(std::string_view &text);

/// Removes the next number from the front of \a line: decimal digits up to a blank or the end, at
/// most largestPlausibleNumber. Otherwise nothing, and \a line is left in an undefined state.
std::optional<quint64> takeNumber(std::string_view &line);

/// \a text without the blanks and tabs at both ends.
std::string_view trimmed(std::string_view text);
