#pragma once

#include <QString>

/// What an entry of /sys/class/net stands for.
enum class AdapterKind {
    Physical,
    /// The near end of a pair whose far end is elsewhere, as in a container: the only way out where
    /// there is no physical adapter.
    Link,
    /// Counts what another one counts too, or nothing that leaves the machine: guests' ends, ports
    /// of a switch, bridges, tunnels.
    Other,
};

/// \a folder is the entry's. What it says does not change while the adapter exists.
AdapterKind adapterKind(const QString &folder);
