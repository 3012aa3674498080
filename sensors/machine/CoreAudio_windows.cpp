#include "sensors/machine/CoreAudio_windows.h"

#include "SDK/Logger/Logger.h"
#include "sensors/machine/ComPointer_windows.h"

#include <optional>

#include <windows.h>

#include <endpointvolume.h>
#include <mmdeviceapi.h>

namespace {

/// PKEY_Device_FriendlyName of the Windows SDK.
constexpr PROPERTYKEY friendlyName = {
    {0xa45c254e, 0xdf1c, 0x4efd, {0x80, 0x20, 0x67, 0xd1, 0x46, 0xa8, 0x50, 0xe0}}, 14};

/// The value of a property, cleared by the destructor.
class Property
{
public:
    Property() = default;
    ~Property() { PropVariantClear(&m_value); }
    Q_DISABLE_COPY(Property)

    PROPVARIANT *put() { return &m_value; }
    [[nodiscard]] QString text() const
    {
        return m_value.vt == VT_LPWSTR ? QString::fromWCharArray(m_value.pwszVal) : QString();
    }

private:
    PROPVARIANT m_value = {}; // As PropVariantInit initialises it.
};

ComPointer<IMMDeviceCollection> activeDevices(IMMDeviceEnumerator &enumerator)
{
    return comObject<IMMDeviceCollection>([&enumerator](IMMDeviceCollection **devices) {
        return enumerator.EnumAudioEndpoints(eRender, DEVICE_STATE_ACTIVE, devices);
    });
}

std::optional<UINT> countOf(IMMDeviceCollection &devices)
{
    UINT count = 0;
    return SUCCEEDED(devices.GetCount(&count)) ? std::optional(count) : std::nullopt;
}

ComPointer<IMMDevice> deviceAt(IMMDeviceCollection &devices, UINT index)
{
    return comObject<IMMDevice>([&](IMMDevice **device) { return devices.Item(index, device); });
}

QString nameOf(IMMDevice &device)
{
    const auto properties = comObject<IPropertyStore>(
        [&device](IPropertyStore **store) { return device.OpenPropertyStore(STGM_READ, store); });
    Property name;
    if (!properties || FAILED(properties->GetValue(friendlyName, name.put())))
        return {};
    return name.text();
}

ComPointer<IAudioEndpointVolume> volumeControlOf(IMMDevice &device)
{
    return comObject<IAudioEndpointVolume>([&device](IAudioEndpointVolume **control) {
        return device.Activate(__uuidof(IAudioEndpointVolume), CLSCTX_INPROC_SERVER, nullptr,
                               reinterpret_cast<void **>(control));
    });
}

float failed(const char *message)
{
    LogDebug(QStringLiteral("AudioERR: ") + QString::fromLatin1(message));
    return -1;
}

float volumeOf(IMMDevice &device)
{
    const auto control = volumeControlOf(device);
    if (!control)
        return failed("Unable to activate the volume control interface");
    float level = 0;
    if (FAILED(control->GetMasterVolumeLevelScalar(&level)))
        return failed("Unable to retrieve the volume");
    return level * 100;
}

} // namespace

namespace coreaudio {

QStringList deviceNames(IMMDeviceEnumerator *enumerator)
{
    const auto devices = enumerator ? activeDevices(*enumerator) : nullptr;
    const UINT count = devices ? countOf(*devices).value_or(0) : 0;
    QStringList names;
    for (UINT index = 0; index < count; ++index) {
        const auto device = deviceAt(*devices, index);
        const QString name = device ? nameOf(*device) : QString();
        if (!name.isEmpty())
            names.append(name);
    }
    return names;
}

float volume(IMMDeviceEnumerator *enumerator, int index)
{
    if (!enumerator)
        return failed("Unable to create audio device enumerator");
    const auto devices = activeDevices(*enumerator);
    if (!devices)
        return failed("Unable to get audio device collection");
    const auto count = countOf(*devices);
    if (!count)
        return failed("Unable to get device count");
    if (index < 0 || static_cast<UINT>(index) >= *count)
        return failed("Invalid device index");
    const auto device = deviceAt(*devices, static_cast<UINT>(index));
    if (!device)
        return failed("Unable to get the specified audio device");
    return volumeOf(*device);
}

} // namespace coreaudio
