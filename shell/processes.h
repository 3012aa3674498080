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

/// Ends \a process at once, with no chance to object; false when it cannot be opened for that.
/// On Linux a process that has ended or hides its executable, or whose number has passed to another
/// executable meanwhile, is left alone and gives false too.
bool terminate(const Process &process);

} // namespace processes
