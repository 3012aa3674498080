#pragma once

#include "system_monitor_lib/live/graphics/DisplayPower.h"
#include "system_monitor_lib/live/graphics/GraphicsCards.h"
#include "system_monitor_lib/live/graphics/NvidiaDevices.h"

/// The NVIDIA devices in Windows' tree of devices. As long as NVIDIA's library cannot be loaded,
/// the tree is not read, and the library is tried again every 10 seconds.
class ListedNvidiaDevices : public NvidiaDevices
{
public:
    /// \a cards tells which of them may go to sleep.
    ListedNvidiaDevices(const QString &library, std::shared_ptr<DisplayPower> power,
                        std::shared_ptr<GraphicsCards> cards);

    std::vector<NvidiaDevice> look(qint64 nowNs) override;

private:
    bool hasLibrary(qint64 nowNs);

    const QString m_library;
    const std::shared_ptr<DisplayPower> m_power;
    const std::shared_ptr<GraphicsCards> m_cards;
    Pace m_trying{listingPeriod};
    bool m_hasLibrary = false;
};
