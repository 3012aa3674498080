#pragma once

#include "system_monitor_lib/live/MachineRoots.h"

#include <memory>
#include <optional>
#include <vector>

/// The counters of one network adapter.
struct AdapterCounters
{
    QString name;
    /// Another number says that another adapter has taken the name.
    quint64 identity = 0;
    quint64 receivedBytes = 0;
    quint64 sentBytes = 0;
    /// Adapters in the order of these come in the order of their slots, those on USB last.
    QString order = {};
};

/// Reads the physical network adapters: the entries of /sys/class/net with a device on Linux, or in
/// a container what leads out of it; GetIfTable2 on Windows.
class AdapterReader
{
public:
    explicit AdapterReader(const MachineRoots &roots);
    ~AdapterReader();
    Q_DISABLE_COPY(AdapterReader)

    /// The adapters that are there now and whose counters can be read. Nothing when the system does
    /// not list any adapters at all.
    std::optional<std::vector<AdapterCounters>> read();

    /// The present speed of an adapter's link in bytes per second, 0 when unknown. Drivers may ask
    /// the hardware for it, so it is not for every sample.
    [[nodiscard]] double linkBytesPerSecond(const QString &name) const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
