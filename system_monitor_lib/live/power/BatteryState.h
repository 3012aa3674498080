#pragma once

#include <QJsonObject>
#include <QStringList>

#include <optional>

/// The state of one battery. What it does not tell is absent.
struct BatteryState
{
    std::optional<double> percent;
    /// Positive while it is discharged, negative while it is charged.
    std::optional<double> watts;
    /// Until it is empty; absent while it is not discharged.
    std::optional<double> minutesLeft;
    std::optional<quint64> cycles;
    /// The capacity that it has left of the one it was made for, which may exceed 100.
    std::optional<double> healthPercent;
};

/// The time in minutes for which \a wattHours last at \a watts. Nothing without power, and when it
/// is longer than a week, which is what a battery at rest may report.
std::optional<double> batteryMinutes(std::optional<double> wattHours, std::optional<double> watts);

/// "Battery Charge" (%), "Battery Power" (W), "Battery Time Left" (whole minutes), "Battery Cycles"
/// (a plain number) and "Battery Health" (%).
QJsonObject batteryLabels(const BatteryState &state);
QStringList batteryLabelNames();
/// The group of the battery \a name.
QString batteryGroup(const QString &name);

/// "Mains Power": 1 plugged in, 0 not.
QJsonObject mainsLabels(bool isPluggedIn);
QString mainsGroup();
