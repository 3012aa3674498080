#include "deck_simulator/host/TrafficMeter.h"

namespace deck {

void TrafficMeter::add(qint64 now, quint64 frames, quint64 bytes)
{
    if (!m_samples.isEmpty()) {
        const Sample &last = m_samples.last();
        if (frames < last.frames || bytes < last.bytes)
            m_samples.clear();
        else if (now <= last.time)
            return;
    }
    m_samples.append({now, frames, bytes});
    while (m_samples.size() > 2 && m_samples.first().time < now - window)
        m_samples.removeFirst();
}

double TrafficMeter::framesPerSecond() const
{
    return perSecond(&Sample::frames);
}

double TrafficMeter::bytesPerSecond() const
{
    return perSecond(&Sample::bytes);
}

double TrafficMeter::perSecond(quint64 Sample::*total) const
{
    if (m_samples.size() < 2)
        return 0;
    const Sample &first = m_samples.first();
    const Sample &last = m_samples.last();
    return double(last.*total - first.*total) * 1000.0 / double(last.time - first.time);
}

} // namespace deck
