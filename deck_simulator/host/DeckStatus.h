#pragma once

#include "deck_simulator/host/DeckHost.h"

#include <QString>

namespace deck {

/// The state of a run of the plugin.
struct DeckStatus
{
    QString link;         ///< "registered", "waiting for the plugin", ...
    qint64 pluginPid = 0; ///< 0: not running.
    double framesPerSecond = 0;
    double bytesPerSecond = 0;
    quint64 sensorRequests = 0; ///< To the hardware-information service.
    LinkCounters counters;
};

/// "512 B", "1.5 KB", "2.0 MB"; 1 KB is 1024 bytes.
QString byteText(double bytes);

/// The message that the plugin stands still, or that it no longer does.
QString stallText(bool stalled);

/// The status as one line; refusals are named only when there were any.
QString statusText(const DeckStatus &status);

} // namespace deck
