#pragma once

#include "sensors/machine/PlaybackDevice.h"

#include <mutex>

struct pa_context;
struct pa_sink_info;
struct pa_threaded_mainloop;
struct pa_time_event;

/// One connection to the user's sound server, made again after growing pauses (0.5 to 8 s) whenever
/// it is lost. All communication with the server runs on the sound library's own thread.
class PulseAudioLink
{
public:
    PulseAudioLink();
    ~PulseAudioLink();
    Q_DISABLE_COPY(PulseAudioLink)

    PlaybackState state() const;

private:
    void connectToServer();
    void dropContext();
    void onStateChanged();
    void connectLater();
    void requestDevices();
    void requestSinks(const char *defaultSink);
    void onSink(const pa_sink_info *sink, int endOfList);
    void publish(const PlaybackState &state);

    pa_threaded_mainloop *m_loop;
    pa_context *m_context = nullptr;
    pa_time_event *m_retry = nullptr;
    quint64 m_pause;                  ///< Before the next attempt, in microseconds.
    bool m_isListing = false;         ///< A list of devices has been requested.
    bool m_isStale = false;           ///< Something has changed since the request.
    QByteArray m_defaultSink;         ///< Of the requested list.
    QVector<PlaybackDevice> m_listed; ///< The part of the list received so far.

    /// Guards m_state, the only member that the caller's thread reads. The thread sanitizer knows
    /// this kind of mutex.
    mutable std::mutex m_stateLock;
    PlaybackState m_state;
};
