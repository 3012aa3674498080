#pragma once

#include "system_monitor_lib/SensorTrees.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <variant>

/// The content of a recording: a JSON object whose members are named after the operations of
/// VqSystemMonitorLib ("getSystemInfo", ...) and hold the tree which that operation returns.
struct Recording
{
    SensorTrees trees;
    /// One text per member that is not an object and was therefore skipped.
    QStringList remarks;
};

/// Returns the recording, or a text saying why \a json is not one.
std::variant<Recording, QString> parseRecording(const QByteArray &json);

/// The members of a recording of \a trees; queries without readings are left out.
QJsonObject recordingOf(const SensorTrees &trees);
