#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>
#include <string_view>

/// Parses an attribute of /sys that holds one whole number, with or without a newline at its end.
/// Nothing when it holds something else or a number beyond largestPlausibleNumber.
std::optional<qint64> parseInteger(std::string_view text);

/// Parses an attribute of /sys that holds one word or name. Empty when it holds none.
QString parseWord(std::string_view text);

/// Whether a device with this power/runtime_status is asleep, falling asleep or waking up. False
/// when the status cannot be read.
bool meansAsleep(const QString &runtimeStatus);

/// Parses a temperature in thousandths of a degree and returns °C. Nothing outside 0 to 140 °C,
/// which is what sensors that are not connected and limits that are not set report.
std::optional<double> parseCelsius(std::string_view text);

/// Whether a temperature in °C is one that hardware can have.
bool isPlausibleCelsius(double celsius);

/// The value of \a key in the lines KEY=VALUE of a uevent file. Empty when there is none.
QString parseUevent(std::string_view text, std::string_view key);

/// The first number of a list of processors such as "2-3,8".
std::optional<int> parseFirstProcessor(std::string_view text);
