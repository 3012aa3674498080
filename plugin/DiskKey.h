#pragma once

#include <QString>

#include <chrono>

class normalAction;

/// What a disk key shows, from the present drives.
namespace diskkey {

/// The used share and the free space of the drive at the key's index, after its root if the key
/// shows names. A missing drive counts as 0.
QString driveText(const normalAction &key);

/// The same, or that of all drives together if the key is set to that.
QString text(const normalAction &key);

/// The drive named by a key that does not loop; 0 when it names none.
int chosenDrive(const normalAction &key);

/// The drive that follows \a index; 0 after the last one and when there are none.
int nextDrive(int index);

/// How long a key that is set to \a seconds shows a drive: at least one second, at most what a
/// timer can hold.
std::chrono::milliseconds switchInterval(int seconds);

} // namespace diskkey
