#include "sensors/machine/audio.h"

#include "sensors/machine/ComPointer_windows.h"
#include "sensors/machine/CoreAudio_windows.h"

#include <windows.h>

#include <mmdeviceapi.h>

namespace {

/// COM, initialised for the thread. It is uninitialised only if it was initialised here: a thread
/// for which COM was already initialised differently can be used as well.
class ComSession
{
public:
    ComSession()
        : m_result(CoInitialize(nullptr))
    {
    }
    ~ComSession()
    {
        if (SUCCEEDED(m_result))
            CoUninitialize();
    }
    Q_DISABLE_COPY(ComSession)

private:
    const HRESULT m_result;
};

ComPointer<IMMDeviceEnumerator> createEnumerator()
{
    return comObject<IMMDeviceEnumerator>([](IMMDeviceEnumerator **enumerator) {
        return CoCreateInstance(__uuidof(MMDeviceEnumerator), nullptr, CLSCTX_INPROC_SERVER,
                                __uuidof(IMMDeviceEnumerator),
                                reinterpret_cast<void **>(enumerator));
    });
}

class CoreAudioSource : public AudioSource
{
public:
    QStringList deviceNames() override
    {
        const ComSession session;
        return coreaudio::deviceNames(createEnumerator().get());
    }

    float volume(int index) override
    {
        const ComSession session;
        return coreaudio::volume(createEnumerator().get(), index);
    }
};

} // namespace

AudioSource &machineAudio()
{
    static CoreAudioSource source;
    return source;
}
