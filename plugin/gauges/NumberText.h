#pragma once

#include <QString>

#include <optional>

/// A number as a gauge shows it: digits and unit apart.
struct NumberText
{
    QString value;
    QString unit;
};

/// What a reading counts.
enum class Quantity {
    Plain,       ///< Its units are its own.
    Temperature, ///< In °C.
    Rate,        ///< In KB/s.
};

/// The digits that a kind of key has in its text.
enum class Digits {
    Whole,   ///< A reading is cut off; a mean is rounded.
    One,     ///< One after the point.
    Three,   ///< Three after the point.
    General, ///< At most six in all; a mean has as many after the point as the present reading.
};

/// How one key wants its number.
struct NumberStyle
{
    Digits digits = Digits::Whole;
    std::optional<int> decimals; ///< In place of digits.
    bool isFahrenheit = false;
    bool isInBits = false;
};

/// How many digits \a number has after the point where it has at most six in all.
int decimalsOf(double number);

/// What is shown for a reading that is missing.
NumberText missingNumber();

/// \a number, a mean if \a isMean is true, in the units that \a style asks for; \a units are those
/// of a plain number.
NumberText numberText(double number, Quantity quantity, const QString &units,
                      const NumberStyle &style, bool isMean);

double fahrenheit(double celsius);
double celsius(double fahrenheit);
