#include "sensors/machine/PulseAudioLink_linux.h"

#include <algorithm>

#include <pulse/pulseaudio.h>

namespace {

constexpr quint64 shortestPause = 500 * PA_USEC_PER_MSEC;
constexpr quint64 longestPause = 8 * PA_USEC_PER_SEC;

PlaybackDevice deviceOf(const pa_sink_info &sink)
{
    PlaybackDevice device;
    device.id = sink.name;
    device.name = QString::fromUtf8(sink.description);
    if (pa_cvolume_valid(&sink.volume) != 0) {
        // Amplification above 100 % counts as full volume.
        const pa_volume_t volume =
            std::min<pa_volume_t>(pa_cvolume_max(&sink.volume), PA_VOLUME_NORM);
        device.volume = 100.0F * static_cast<float>(volume) / static_cast<float>(PA_VOLUME_NORM);
    }
    device.active = !sink.active_port || sink.active_port->available != PA_PORT_AVAILABLE_NO;
    return device;
}

void release(pa_operation *operation)
{
    if (operation)
        pa_operation_unref(operation);
}

} // namespace

PulseAudioLink::PulseAudioLink()
    : m_loop(pa_threaded_mainloop_new())
    , m_pause(shortestPause)
{
    if (!m_loop)
        return;
    connectToServer();
    pa_threaded_mainloop_start(m_loop);
}

PulseAudioLink::~PulseAudioLink()
{
    if (!m_loop)
        return;
    pa_threaded_mainloop_stop(m_loop);
    if (m_retry)
        pa_threaded_mainloop_get_api(m_loop)->time_free(m_retry);
    dropContext();
    pa_threaded_mainloop_free(m_loop);
}

PlaybackState PulseAudioLink::state() const
{
    const std::lock_guard lock(m_stateLock);
    return m_state;
}

void PulseAudioLink::publish(const PlaybackState &state)
{
    const std::lock_guard lock(m_stateLock);
    m_state = state;
}

void PulseAudioLink::connectToServer()
{
    dropContext();
    m_context = pa_context_new(pa_threaded_mainloop_get_api(m_loop), "QtSystemMonitor");
    if (!m_context)
        return;
    pa_context_set_state_callback(
        m_context,
        [](pa_context *, void *link) { static_cast<PulseAudioLink *>(link)->onStateChanged(); },
        this);
    pa_context_set_subscribe_callback(
        m_context,
        [](pa_context *, pa_subscription_event_type_t, uint32_t, void *link) {
            static_cast<PulseAudioLink *>(link)->requestDevices();
        },
        this);
    if (pa_context_connect(m_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        connectLater();
}

void PulseAudioLink::dropContext()
{
    if (!m_context)
        return;
    pa_context_set_state_callback(m_context, nullptr, nullptr);
    pa_context_disconnect(m_context);
    pa_context_unref(m_context);
    m_context = nullptr;
}

void PulseAudioLink::onStateChanged()
{
    switch (pa_context_get_state(m_context)) {
    case PA_CONTEXT_READY: {
        m_pause = shortestPause;
        m_isListing = false;
        publish({true, false, {}});
        constexpr auto events = static_cast<pa_subscription_mask_t>(PA_SUBSCRIPTION_MASK_SINK |
                                                                    PA_SUBSCRIPTION_MASK_SERVER);
        release(pa_context_subscribe(m_context, events, nullptr, nullptr));
        requestDevices();
        break;
    }
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED:
        publish({});
        connectLater();
        break;
    default:
        break;
    }
}

void PulseAudioLink::connectLater()
{
    if (m_retry)
        return;
    m_retry = pa_context_rttime_new(
        m_context, pa_rtclock_now() + m_pause,
        [](pa_mainloop_api *api, pa_time_event *event, const timeval *, void *self) {
            auto *const link = static_cast<PulseAudioLink *>(self);
            api->time_free(event);
            link->m_retry = nullptr;
            link->connectToServer();
        },
        this);
    m_pause = std::min(2 * m_pause, longestPause);
}

/// Asks for the default device, then for the list.
void PulseAudioLink::requestDevices()
{
    m_isStale = m_isListing;
    if (m_isListing)
        return;
    m_isListing = true;
    release(pa_context_get_server_info(
        m_context,
        [](pa_context *, const pa_server_info *server, void *link) {
            static_cast<PulseAudioLink *>(link)->requestSinks(server ? server->default_sink_name
                                                                     : nullptr);
        },
        this));
}

void PulseAudioLink::requestSinks(const char *defaultSink)
{
    m_defaultSink = QByteArray(defaultSink);
    m_listed.clear();
    release(pa_context_get_sink_info_list(
        m_context,
        [](pa_context *, const pa_sink_info *sink, int endOfList, void *link) {
            static_cast<PulseAudioLink *>(link)->onSink(sink, endOfList);
        },
        this));
}

/// \a endOfList is 0 for each sink, then positive; negative when the request failed.
void PulseAudioLink::onSink(const pa_sink_info *sink, int endOfList)
{
    if (endOfList == 0) {
        m_listed.append(deviceOf(*sink));
        return;
    }
    m_isListing = false;
    publish({true, endOfList > 0, activeDevices(m_listed, m_defaultSink)});
    if (m_isStale)
        requestDevices();
}
