#pragma once

#include <QColor>
#include <QJsonObject>
#include <QString>

#include <optional>

/// What a key shows beside, or instead of, a line of text. The default values are those of a key
/// whose settings have no such object: a line of text and nothing else.
///
/// Numbers without a range of their own are in the unit that the key shows: %, °C or °F, W, V, MHz,
/// RPM, MB, GB; rates in KB/s; those of any sensor in the sensor's own.
struct DisplaySettings
{
    enum class Style { Text, Bar, Ring, Graph, Pair };
    enum class Worse { Above, Below };

    Style style = Style::Text;
    int size = 144;      ///< Height of a gauge in pixels, 72 to 288.
    bool isWide = false; ///< Twice as wide as high; otherwise a square.
    // Ends of the scale and thresholds; the kind's own where there is none.
    std::optional<double> minimum;
    std::optional<double> maximum;
    std::optional<double> warning;
    std::optional<double> critical;
    std::optional<Worse> worse; ///< On which side of a threshold values are bad.
    QColor normalColor = QStringLiteral("#56B4E9");
    QColor warningColor = QStringLiteral("#F0E442");
    QColor criticalColor = QStringLiteral("#FF7043");
    QColor ground;               ///< Invalid: none.
    double span = 60;            ///< Seconds that a graph covers, 10 to 3600.
    int average = 1;             ///< Of how many readings the mean is shown, 1 to 60.
    std::optional<int> decimals; ///< Digits after the point, 0 to 3; as the text has them if none.
    bool showsBits = false;      ///< Rates in bits, otherwise in bytes.
    bool showsExtremes = false;  ///< A key press shows the extremes.

    bool hasThreshold() const { return warning || critical; }
};

/// Reads "display", the object directly under "settings". A member that is missing, of another
/// type, not finite, beyond ±10¹² or an unknown word has its default value; other numbers are held
/// to their range.
DisplaySettings parseDisplaySettings(const QJsonObject &display);
