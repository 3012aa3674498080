#pragma once

#include <QJsonObject>

#include <optional>

/// The state of the operating system. What a system does not tell is absent.
struct SystemState
{
    std::optional<double> uptimeSeconds;
    std::optional<quint64> processes;
    /// The mean numbers of programs that want to run, over 1, 5 and 15 minutes.
    std::optional<double> load1;
    std::optional<double> load5;
    std::optional<double> load15;
    /// Sessions of users who have logged in.
    std::optional<quint64> sessions;
};

/// "Uptime" (hours, with one decimal), "Processes", "Load Average 1 min", "Load Average 5 min",
/// "Load Average 15 min" and "User Sessions" (plain numbers).
QJsonObject systemStateLabels(const SystemState &state);

/// The group of these labels. An empty choice of a sensor means the first label of the last group,
/// so no name of a group that always exists may follow that of the memory, "System: memory".
QString systemStateGroup();
