#pragma once

#include "system_monitor_lib/live/MachineRoots.h"

#include <memory>
#include <optional>
#include <vector>

/// The counters of one network adapter.
struct AdapterCounters
{
    QString name;
    /// Another number means that another adapter now has this name.
    quint64 identity = 0;
    quint64 receivedBytes = 0;
    quint64 sentBytes = 0;
    /// Sorting by this sorts adapters by their slots, those on USB last.
    QString order = {};
};

/// Reads the physical network adapters: on Linux the entries of /sys/class/net with a device, or in
/// a container the adapters that lead out of it; on Windows GetIfTable2.
class AdapterReader
{
public:
    explicit AdapterReader(const MachineRoots &roots);
    ~AdapterReader();
    Q_DISABLE_COPY(AdapterReader)

    /// The adapters that exist now and whose counters can be read. Nothing when the system cannot
    /// list adapters at all.
    std::optional<std::vector<AdapterCounters>> read();

    /// The current speed of an adapter's link in bytes per second; 0 when unknown, without a link
    /// and while the adapter is asleep. Drivers may query the hardware for it, so it should not be
    /// called for every sample.
    [[nodiscard]] double linkBytesPerSecond(const QString &name) const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
