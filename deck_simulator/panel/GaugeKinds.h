#pragma once

#include "deck_simulator/deck/EntrySettings.h"

#include <QString>
#include <QStringList>

namespace deck {

/// What a kind of key can show besides text, and what the plugin takes where the key's "display"
/// says nothing: as the plugin documents it, in words for the fields of a panel.
struct GaugeKind
{
    QStringList styles; ///< Those that it can be shown in besides text; empty: it has no gauge.
    /// A gauge shows it in place of the kind's default title; empty: the name of the drive or
    /// sensor.
    QString shortTitle;
    QString unit;        ///< Of the numbers below; empty: that of the sensor, or none.
    QString minimum;     ///< Empty: it follows the readings.
    QString maximum;     ///< Likewise.
    QString warning;     ///< Empty: none.
    QString critical;    ///< Likewise.
    bool below = false;  ///< Values below a threshold are worse.
    bool isRate = false; ///< It has bytes and bits.
};

/// \a settings decide the unit of temperatures.
GaugeKind gaugeKind(const QString &action, const EntrySettings &settings);

/// The style that the plugin shows a key in, which is not always the one that it is asked for.
QString shownStyle(const QString &action, const EntrySettings &settings);

} // namespace deck
