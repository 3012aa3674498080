#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

/// Appends one line, "[yyyy-MM-dd hh:mm:ss] SDK/Logger MESSAGE" in UTF-8 with CR LF, to "log.txt"
/// in the current working directory. The time has ASCII digits in every language. Can be called
/// from any thread. The file is opened for each line, so it may be deleted or moved at any time; if
/// it cannot be opened, the line is silently lost.
void Logger(QString message);

/// The line of \a message at \a time, in bytes.
QByteArray fileLogLine(const QDateTime &time, const QString &message);

/// Writes \a message to the framework's debug stream as one quoted item.
void LogDebug(const QString &message);

/// The message "LABELVALUE": \a label is UTF-8 and carries its own trailing blank where wanted.
QString labelled(const char *label, const QString &value);
QString labelled(const char *label, int value);

/// The process-wide output name. Only the debug console names it; no such file is ever opened.
extern const char *const outputName;
