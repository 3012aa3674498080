#pragma once

#include "deck_simulator/deck/DisplaySettings.h"

#include <QJsonObject>
#include <QSize>
#include <QString>

namespace deck {

/// The settings of a key, as a settings panel holds them. Texts are those that the plugin knows.
struct EntrySettings
{
    QString text; ///< The title.
    bool showTitle = true;
    QString fontFamily = QStringLiteral("Roboto|Bold"); ///< "FAMILY|STYLE".
    /// Pixels, 1 to 600. Ten letters of 28 pixels fill a key; longer texts are scaled down.
    int fontSize = 28;
    QString color = QStringLiteral("#ffffff");          ///< A colour name or #RRGGBB.
    double opacity = 0;                                 ///< 0 is opaque, 1 invisible.
    QString temperatureType = QStringLiteral("摄氏度"); ///< Or "华氏度".
    QString titleLines = QStringLiteral("单行显示");    ///< Or "双行显示".
    QString diskMode = QStringLiteral("Single_Disk");   ///< "Disk_Loop", "Total_Disks".
    QString volumeNameItem = QStringLiteral("0");       ///< Number of the drive, from 0.
    int switchFrequency = 3;                            ///< Seconds, 1 to 86400.
    bool showVolumeName = true;
    // What was chosen from the plugin's lists; empty: the first entry.
    QString selectValue;
    QString selectCpuFan;
    QString selectPhysicalDisk;
    QString audioDevice;
    /// The plugin is told the width of the key instead of that of the picture, and chooses the font
    /// size by which the text fills the key. New keys do; settings that do not say do not.
    bool fillsKey = false;
    DisplaySettings display;
};

bool operator==(const EntrySettings &left, const EntrySettings &right);
bool operator!=(const EntrySettings &left, const EntrySettings &right);

/// The whole set as it travels: {"titleParameters": {...}, "ActionGeometry": {...}}, and "display"
/// where it has members. \a geometry is the size to tell.
QJsonObject settingsMessage(const EntrySettings &settings, const QSize &geometry);

/// \a settings with whatever \a message has of them. Members that are missing, of another type or
/// out of range change nothing.
EntrySettings settingsFrom(const QJsonObject &message, const EntrySettings &settings);

} // namespace deck
