#pragma once

#include <QString>

#include <chrono>

class normalAction;

/// What a disk key shows, from the present drives.
namespace diskkey {

/// The used share and the free space of the drive at the key's index, behind its root where the
/// key shows names. A drive that is not there counts as 0.
QString driveText(const normalAction &key);

/// That, or the same of all drives together where the key is set to that.
QString text(const normalAction &key);

/// The drive that a key names which does not loop; 0 when it names none.
int chosenDrive(const normalAction &key);

/// The drive that follows \a index, 0 after the last and where there are none.
int nextDrive(int index);

/// How long a key shows a drive that is set to \a seconds: at least one second, at most what a
/// timer holds.
std::chrono::milliseconds switchInterval(int seconds);

} // namespace diskkey
