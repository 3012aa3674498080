#pragma once

#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

/// What the command line asks for.
struct SimulatorOptions
{
    QString plugin; ///< The plugin's executable.
    QString language = QStringLiteral("en");
    QStringList fontFiles;     ///< Empty: the Roboto files of this machine.
    QString workFolder;        ///< Empty: a temporary folder.
    bool settingsDeck = false; ///< The deck that shows what settings do, instead of readings.
    QString snapshotFile;      ///< Empty: no snapshot.
    int columns = 5;           ///< Keys in a row, 1 to 16.
    int keySize = 144;         ///< Pixels of a key on the snapshot, 32 to 512.
    bool quiet = false;
    /// When the snapshot is taken, counted from the appearance of the keys.
    std::chrono::milliseconds snapshotAfter{4000};
    /// When the program ends by itself, counted likewise; nothing: when it is interrupted.
    std::optional<std::chrono::milliseconds> runFor;
};

/// The options, or else a text for the user: an answer (exit status 0) or an error (2).
struct ParsedOptions
{
    std::optional<SimulatorOptions> options;
    QString text;
    int exitStatus = 0;
};

/// \a arguments begins with the program's name. \a defaultPlugin is used without "--plugin". Needs
/// an application object for the answers to "--help" and "--version".
ParsedOptions parseOptions(const QStringList &arguments, const QString &defaultPlugin);
