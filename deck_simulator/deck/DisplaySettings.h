#pragma once

#include <QJsonObject>
#include <QSize>
#include <QString>

#include <optional>

namespace deck {

/// What a key shows beside or in place of a line of text: the object "display" of its settings.
/// Texts are those that the plugin knows. An empty text and a missing number leave the choice to
/// the plugin.
struct DisplaySettings
{
    static constexpr int smallestSize = 72;
    static constexpr int largestSize = 288;
    static constexpr int shortestSpan = 10;
    static constexpr int longestSpan = 3600;
    static constexpr int longestAverage = 60;
    static constexpr int mostDecimals = 3;

    QString style = QStringLiteral("text");   ///< Or "bar", "ring", "graph", "pair".
    QString shape = QStringLiteral("square"); ///< Or "wide": twice as wide as high.
    int size = 144;                           ///< Height of the picture in pixels.
    // In the unit that the key shows; for network rates KB/s.
    std::optional<double> minimum;
    std::optional<double> maximum;
    std::optional<double> warning;
    std::optional<double> critical;
    QString worse; ///< "above" or "below".
    QString normalColor;
    QString warningColor;
    QString criticalColor;
    QString ground;  ///< Empty: none.
    int span = 60;   ///< Seconds that a graph covers.
    int average = 1; ///< The mean of so many samples is shown.
    std::optional<int> decimals;
    QString rates = QStringLiteral("bytes"); ///< Or "bits".
    QString press = QStringLiteral("none");  ///< Or "extremes".

    /// Whether a picture is asked for that is not a line of text.
    [[nodiscard]] bool isGauge() const { return style != QLatin1String("text"); }
};

bool operator==(const DisplaySettings &left, const DisplaySettings &right);
bool operator!=(const DisplaySettings &left, const DisplaySettings &right);

/// The colours that the plugin takes where none is chosen.
QString usualNormalColor();
QString usualWarningColor();
QString usualCriticalColor();

/// The members that differ from what the plugin takes without them; empty if none does.
QJsonObject displayObject(const DisplaySettings &display);

/// What is missing or of another type is as in a new object; sizes and counts out of range are
/// limited to it.
DisplaySettings displayFrom(const QJsonObject &object);

/// Whether a picture of \a picture pixels, on a key with these settings, is a gauge, which is as
/// large as the key; any other picture is as large as its text. A key whose kind has no gauge shows
/// text whatever its settings ask for.
bool isGaugePicture(const QSize &picture, const DisplaySettings &display);

} // namespace deck
