#include "deck_simulator/process/RecordingWatch.h"

#include "deck_simulator/process/RecordingFault.h"

#include <QFileInfo>

#include <tuple>

namespace deck {

RecordingWatch::RecordingWatch(QObject *parent)
    : QObject(parent)
{
    connect(&m_timer, &QTimer::timeout, this, &RecordingWatch::look);
}

void RecordingWatch::follow(const QString &fileName)
{
    m_timer.stop();
    m_fileName = fileName;
    m_fault.clear();
    if (fileName.isEmpty())
        return;
    m_stamp = stamp();
    m_judged = true;
    m_fault = recordingFault(fileName);
    m_timer.start(period);
}

RecordingWatch::Stamp RecordingWatch::stamp() const
{
    const QFileInfo file(m_fileName);
    return {file.isFile(), file.size(), file.lastModified()};
}

void RecordingWatch::look()
{
    const Stamp now = stamp();
    const bool same = std::tie(now.exists, now.size, now.modified) ==
                      std::tie(m_stamp.exists, m_stamp.size, m_stamp.modified);
    m_stamp = now;
    if (!same)
        m_judged = false;
    if (m_judged)
        return;
    const QString fault = recordingFault(m_fileName);
    // Somebody may be writing it: a fault has to stay for two looks.
    if (!fault.isEmpty() && !same)
        return;
    m_judged = true;
    const bool wasBroken = !m_fault.isEmpty();
    m_fault = fault;
    if (fault.isEmpty() && wasBroken)
        Q_EMIT mended();
    else if (!fault.isEmpty() && !wasBroken)
        Q_EMIT broke(fault);
}

} // namespace deck
