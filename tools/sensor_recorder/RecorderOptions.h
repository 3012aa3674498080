#pragma once

#include <QString>
#include <QStringList>

#include <variant>

/// What the command line asks of the recorder.
struct RecorderOptions
{
    /// Where the recording goes.
    QString file;
    int samples = 1;
    /// Milliseconds before the first recording, which rates need, and between two.
    int intervalMs = 1000;
};

/// What to say instead of recording.
struct RecorderMessage
{
    QString text;
    int status = 0; ///< Of the process: 0 where the text was asked for.
};

/// \a arguments begins with the program's name.
std::variant<RecorderOptions, RecorderMessage> parseRecorderOptions(const QStringList &arguments);

/// The file of one of several samples, counted from 1: "FILE-1.json" for "FILE.json". A single
/// sample keeps the name.
QString sampleFile(const RecorderOptions &options, int sample);
