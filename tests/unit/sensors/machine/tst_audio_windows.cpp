#include "sensors/machine/CoreAudio_windows.h"
#include "sensors/machine/audio.h"
#include "tests/support/MessageCapture.h"

#include <QtTest>

#include <windows.h>

#include <endpointvolume.h>
#include <mmdeviceapi.h>

/// The playback devices of Core Audio: played by objects that fail where they are told to, and
/// those of this machine.
class tst_Audio_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void listsTheNames();
    void leavesOutADeviceWithoutAName_data();
    void leavesOutADeviceWithoutAName();
    void listsNothingWithoutDevices_data();
    void listsNothingWithoutDevices();
    void readsTheVolume();
    void reportsWhatFails_data();
    void reportsWhatFails();
    void readsThisMachine();
    void leavesTheThreadAsItWas();
};

namespace {

/// The calls in which the devices fail.
enum class Fault {
    None,
    Collection,
    Count,
    Item,
    Activate,
    Level,
    Store,
    Value,
    NameIsNoText,
};

Fault fault = Fault::None;
LONG references = 0;
float level = 0;

HRESULT resultUnless(Fault own)
{
    return fault == own ? E_FAIL : S_OK;
}

/// A COM object that counts the references to all of them.
template <typename Interface>
class Counted : public Interface
{
public:
    virtual ~Counted() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void **) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override
    {
        ++references;
        return ULONG(++m_count);
    }
    ULONG STDMETHODCALLTYPE Release() override
    {
        --references;
        if (--m_count > 0)
            return ULONG(m_count);
        delete this;
        return 0;
    }

private:
    LONG m_count = 0;
};

template <typename Object, typename Interface>
HRESULT handOver(Fault own, Interface **object)
{
    if (fault == own)
        return E_FAIL;
    auto *const made = new Object;
    made->AddRef();
    *object = made;
    return S_OK;
}

class Store : public Counted<IPropertyStore>
{
public:
    HRESULT STDMETHODCALLTYPE GetCount(DWORD *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetAt(DWORD, PROPERTYKEY *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetValue(REFPROPERTYKEY key, PROPVARIANT *value) override
    {
        if (fault == Fault::Value || key.pid != 14)
            return E_FAIL;
        if (fault == Fault::NameIsNoText) {
            value->vt = VT_UI4;
            value->ulVal = 1;
            return S_OK;
        }
        const wchar_t name[] = L"Kopfhörer 耳机";
        value->vt = VT_LPWSTR;
        value->pwszVal = static_cast<wchar_t *>(CoTaskMemAlloc(sizeof(name)));
        memcpy(value->pwszVal, name, sizeof(name));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetValue(REFPROPERTYKEY, REFPROPVARIANT) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Commit() override { return E_NOTIMPL; }
};

class Control : public Counted<IAudioEndpointVolume>
{
public:
    using Callback = IAudioEndpointVolumeCallback;
    HRESULT STDMETHODCALLTYPE RegisterControlChangeNotify(Callback *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE UnregisterControlChangeNotify(Callback *) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetChannelCount(UINT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetMasterVolumeLevel(float, LPCGUID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetMasterVolumeLevelScalar(float, LPCGUID) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetMasterVolumeLevel(float *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMasterVolumeLevelScalar(float *scalar) override
    {
        *scalar = level;
        return resultUnless(Fault::Level);
    }
    HRESULT STDMETHODCALLTYPE SetChannelVolumeLevel(UINT, float, LPCGUID) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetChannelVolumeLevelScalar(UINT, float, LPCGUID) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetChannelVolumeLevel(UINT, float *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetChannelVolumeLevelScalar(UINT, float *) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetMute(BOOL, LPCGUID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMute(BOOL *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetVolumeStepInfo(UINT *, UINT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE VolumeStepUp(LPCGUID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE VolumeStepDown(LPCGUID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE QueryHardwareSupport(DWORD *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetVolumeRange(float *, float *, float *) override
    {
        return E_NOTIMPL;
    }
};

class Device : public Counted<IMMDevice>
{
public:
    HRESULT STDMETHODCALLTYPE Activate(REFIID, DWORD, PROPVARIANT *, void **object) override
    {
        return handOver<Control>(Fault::Activate,
                                 reinterpret_cast<IAudioEndpointVolume **>(object));
    }
    HRESULT STDMETHODCALLTYPE OpenPropertyStore(DWORD access, IPropertyStore **store) override
    {
        return access == STGM_READ ? handOver<Store>(Fault::Store, store) : E_ACCESSDENIED;
    }
    HRESULT STDMETHODCALLTYPE GetId(LPWSTR *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetState(DWORD *) override { return E_NOTIMPL; }
};

/// Two devices.
class Collection : public Counted<IMMDeviceCollection>
{
public:
    HRESULT STDMETHODCALLTYPE GetCount(UINT *count) override
    {
        *count = 2;
        return resultUnless(Fault::Count);
    }
    HRESULT STDMETHODCALLTYPE Item(UINT index, IMMDevice **device) override
    {
        return index < 2 ? handOver<Device>(Fault::Item, device) : E_INVALIDARG;
    }
};

class Enumerator : public Counted<IMMDeviceEnumerator>
{
public:
    using Client = IMMNotificationClient;
    HRESULT STDMETHODCALLTYPE EnumAudioEndpoints(EDataFlow flow, DWORD states,
                                                 IMMDeviceCollection **devices) override
    {
        if (flow != eRender || states != DEVICE_STATE_ACTIVE)
            return E_INVALIDARG;
        return handOver<Collection>(Fault::Collection, devices);
    }
    HRESULT STDMETHODCALLTYPE GetDefaultAudioEndpoint(EDataFlow, ERole, IMMDevice **) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetDevice(LPCWSTR, IMMDevice **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RegisterEndpointNotificationCallback(Client *) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE UnregisterEndpointNotificationCallback(Client *) override
    {
        return E_NOTIMPL;
    }
};

Enumerator enumerator;

const QString name = QStringLiteral("Kopfhörer 耳机");

} // namespace

void tst_Audio_windows::cleanup()
{
    fault = Fault::None;
    QCOMPARE(references, 0);
}

void tst_Audio_windows::listsTheNames()
{
    QCOMPARE(coreaudio::deviceNames(&enumerator), (QStringList{name, name}));
}

void tst_Audio_windows::leavesOutADeviceWithoutAName_data()
{
    QTest::addColumn<int>("where");
    QTest::newRow("no device") << int(Fault::Item);
    QTest::newRow("no properties") << int(Fault::Store);
    QTest::newRow("no name") << int(Fault::Value);
    QTest::newRow("a number") << int(Fault::NameIsNoText);
}

void tst_Audio_windows::leavesOutADeviceWithoutAName()
{
    QFETCH(int, where);
    fault = Fault(where);
    QCOMPARE(coreaudio::deviceNames(&enumerator), QStringList());
}

void tst_Audio_windows::listsNothingWithoutDevices_data()
{
    QTest::addColumn<int>("where");
    QTest::newRow("no collection") << int(Fault::Collection);
    QTest::newRow("no count") << int(Fault::Count);
}

void tst_Audio_windows::listsNothingWithoutDevices()
{
    QFETCH(int, where);
    fault = Fault(where);
    QCOMPARE(coreaudio::deviceNames(&enumerator), QStringList());
    QCOMPARE(coreaudio::deviceNames(nullptr), QStringList());
}

void tst_Audio_windows::readsTheVolume()
{
    const MessageCapture capture;
    level = 0.355F;
    QCOMPARE(coreaudio::volume(&enumerator, 0), 35.5F);
    level = 1;
    QCOMPARE(coreaudio::volume(&enumerator, 1), 100.0F);
    level = 0;
    QCOMPARE(coreaudio::volume(&enumerator, 1), 0.0F);
    QCOMPARE(MessageCapture::messages(), QStringList());
}

void tst_Audio_windows::reportsWhatFails_data()
{
    QTest::addColumn<bool>("enumerable");
    QTest::addColumn<int>("where");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("message");
    const auto row = [](const char *rowName, Fault where, int index, const char *message) {
        QTest::newRow(rowName) << true << int(where) << index << QString::fromLatin1(message);
    };
    QTest::newRow("no enumerator")
        << false << int(Fault::None) << 0
        << QStringLiteral("AudioERR: Unable to create audio device enumerator");
    row("no collection", Fault::Collection, 0, "AudioERR: Unable to get audio device collection");
    row("no count", Fault::Count, 0, "AudioERR: Unable to get device count");
    row("one past the last", Fault::None, 2, "AudioERR: Invalid device index");
    row("far past the last", Fault::None, 2147483647, "AudioERR: Invalid device index");
    row("before the first", Fault::None, -1, "AudioERR: Invalid device index");
    row("no device", Fault::Item, 1, "AudioERR: Unable to get the specified audio device");
    row("no control", Fault::Activate, 0,
        "AudioERR: Unable to activate the volume control interface");
    row("no volume", Fault::Level, 0, "AudioERR: Unable to retrieve the volume");
}

void tst_Audio_windows::reportsWhatFails()
{
    QFETCH(bool, enumerable);
    QFETCH(int, where);
    QFETCH(int, index);
    QFETCH(QString, message);
    const MessageCapture capture;
    fault = Fault(where);
    QCOMPARE(coreaudio::volume(enumerable ? &enumerator : nullptr, index), -1.0F);
    QCOMPARE(MessageCapture::messages(), QStringList{MessageCapture::quoted(message)});
}

void tst_Audio_windows::readsThisMachine()
{
    const QStringList names = machineAudio().deviceNames();
    if (!qEnvironmentVariableIsSet("PULSE_SERVER"))
        QSKIP("no sound server of the test's own, so no known devices");
    QVERIFY(names.contains(QStringLiteral("Desk Speakers")));
    QVERIFY(names.contains(QStringLiteral("Head Phones")));
    const MessageCapture capture;
    for (int index = 0; index < names.size(); ++index) {
        const float volume = machineAudio().volume(index);
        QVERIFY2(volume >= 0 && volume <= 100, qPrintable(QString::number(double(volume))));
    }
    QCOMPARE(MessageCapture::messages(), QStringList());
    QCOMPARE(machineAudio().volume(1000), -1.0F);
    QCOMPARE(MessageCapture::messages(),
             QStringList{MessageCapture::quoted(QStringLiteral("AudioERR: Invalid device index"))});
}

void tst_Audio_windows::leavesTheThreadAsItWas()
{
    QCOMPARE(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    const QStringList names = machineAudio().deviceNames();
    // Still so: another kind would be refused.
    QCOMPARE(CoInitialize(nullptr), RPC_E_CHANGED_MODE);
    CoUninitialize();
    QCOMPARE(CoInitialize(nullptr), S_OK);
    CoUninitialize();
    QCOMPARE(machineAudio().deviceNames(), names);
}

QTEST_GUILESS_MAIN(tst_Audio_windows)
#include "tst_audio_windows.moc"
