#pragma once

#include <QString>

/// What an entry of /sys/class/net represents.
enum class AdapterKind {
    Physical,
    /// The local end of a pair whose other end is elsewhere, as in a container: the only way out if
    /// there is no physical adapter.
    Link,
    /// Traffic that another adapter also counts, or that does not leave the machine: the host's
    /// ends of guests' adapters, ports of a switch, bridges, tunnels.
    Other,
};

/// \a folder is the folder of the entry. The kind does not change while the adapter exists.
AdapterKind adapterKind(const QString &folder);
