#pragma once

#include "render/DisplaySettings.h"

#include <QJsonObject>
#include <QString>

/// The settings of one key. The default values are those of a key that has received no settings
/// yet; settings from the host replace all of them. Modes are stored as the received texts, because
/// the reply sends them back; the functions below interpret them.
struct KeySettings
{
    QString titleText;
    bool showTitle = true;
    QString fontSpec; ///< "FAMILY|STYLE".
    int fontSize = 0; ///< As sent; what is drawn follows from the last picture, see fontPixelSize.
    QString color = QStringLiteral("#ffffff");          ///< For QColor, which may not know it.
    double opacity = 0.0;                               ///< In fact a transparency: 0 is opaque.
    QString temperatureType = QStringLiteral("摄氏度"); ///< Celsius; see isFahrenheit.
    QString titleLines = QStringLiteral("单行显示");    ///< One line; see isTwoLines.
    QString diskMode = QStringLiteral("Single_Disk");   ///< See showsAllDrives, loopsOverDrives.
    QString volumeNameItem = QStringLiteral("0");       ///< The drive's number from 0.
    bool showVolumeName = true;
    int switchFrequency = 3; ///< Seconds for which a looping key shows a drive.
    int keyWidth = 0;        ///< The key's own width in pixels; sent as a number or as text.

    // What a key with a choice shows; empty when nothing has been chosen.
    QString chosenDisk;
    QString chosenFan;
    QString chosenSensor;
    QString newlyChosenSensor; ///< A settings panel names a sensor anew here.

    DisplaySettings display;

    bool isFahrenheit() const;
    /// One line and two lines; a network key that is set to neither paints nothing.
    bool isOneLine() const;
    bool isTwoLines() const;
    /// Whether a disk key shows all drives together.
    bool showsAllDrives() const;
    /// Whether a disk key steps through the drives by itself.
    bool loopsOverDrives() const;
};

/// Reads "settings"."titleParameters", "settings"."ActionGeometry" and "settings"."display" of an
/// event's payload. A member of the first two that is missing or of another type is empty, 0 or
/// false: the settings panel always sends the full set.
KeySettings parseKeySettings(const QJsonObject &payload);

/// The pixel size for \a fontSize on a key of width \a keyWidth whose last picture had the width \a
/// imageWidth (0: none yet, the size is used unchanged): multiplied by the ratio of the two,
/// limited to 1 to 600 and truncated.
int fontPixelSize(int fontSize, int keyWidth, int imageWidth);
