#pragma once

#include <QString>

/// What the host hands over on the command line.
struct LaunchParameters
{
    int port = 0;          ///< The host's local WebSocket port.
    QString pluginUUID;    ///< Sent back when registering.
    QString registerEvent; ///< The event name to register with.
    QString info;          ///< JSON document: language, fonts.
};

/// The result of reading a command line: \a error is empty when the parameters are complete,
/// otherwise it is the line to log.
struct LaunchParametersResult
{
    LaunchParameters parameters;
    QString error;
};

/// Reads four name/value pairs, in any order, after the program's name. Texts are Latin-1. An
/// unknown name is skipped; a repeated name overwrites the earlier value.
LaunchParametersResult parseLaunchParameters(int argc, const char *const *argv);

/// The UI language that \a info names ("application"."language"); "en" when it names none.
QString languageFromInfo(const QString &info);
