#pragma once

#include <QString>
#include <QVector>

#include <optional>

/// The processes of this machine, known by the file names of their executables.
namespace processes {

struct Process
{
    qint64 id;
    QString executableName; ///< File name without directory.
};

/// The file name of the running executable; empty when it cannot be found out.
QString ownExecutableName();

qint64 ownId();

/// A snapshot of the processes whose executable's name is known; nothing when none can be taken.
std::optional<QVector<Process>> snapshot();

/// Kills \a process immediately; false when it cannot be opened for that. On Linux it is left
/// alone, with false, if it has ended, hides its executable, or its process ID now belongs to
/// another executable.
bool terminate(const Process &process);

} // namespace processes
