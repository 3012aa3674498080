#pragma once

#include <QJsonObject>
#include <QString>

/// The settings of one key as the host sends them. A member that is missing or of another type is
/// empty, 0 or false: the settings panel always sends the full set.
struct KeySettings
{
    QString text;
    bool showTitle = false;
    QString fontFamily; ///< "FAMILY|STYLE".
    int fontSize = 0;
    QString color;
    double opacity = 0.0; ///< 0 is opaque, 1 invisible.
    QString temperatureType;
    QString titleLines;
    QString diskMode;
    QString volumeNameItem;
    int switchFrequency = 0; ///< Seconds.
    bool showVolumeName = false;
    int keyWidth = 0; ///< The key's own width in pixels; sent as a number or as text.
};

/// Reads "settings"."titleParameters" and "settings"."ActionGeometry" of an event's payload.
KeySettings parseKeySettings(const QJsonObject &payload);

/// The pixel size for \a fontSize on a key \a keyWidth wide whose last picture was \a imageWidth
/// wide (0: none yet, the size stays as it is): scaled by the ratio of the two, held to 1 to 600
/// and truncated.
int fontPixelSize(int fontSize, int keyWidth, int imageWidth);
