#include "system_monitor_lib/live/graphics/GraphicsSystem.h"

#include <utility>

#include <windows.h>

#include <dxgi.h>

namespace {

/// Of a card's number, which the system has in two parts.
constexpr unsigned bitsOfHalf = 32;

// D3DKMT_OPENADAPTERFROMLUID, D3DKMT_CLOSEADAPTER and D3DKMT_QUERYADAPTERINFO of the driver kit's
// d3dkmthk.h.
struct OpenedAdapter
{
    LUID luid;
    UINT handle;
};

struct ClosedAdapter
{
    UINT handle;
};

struct AdapterQuery
{
    UINT handle;
    UINT topic;
    void *data;
    UINT size;
};
static_assert(sizeof(OpenedAdapter) == 12 && sizeof(AdapterQuery) == 24);

template <typename Function>
void find(HMODULE library, const char *name, Function &function)
{
    if (library)
        function =
            reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(library, name)));
}

/// From the system's folder alone. Never unloaded, because others may use it as well.
HMODULE systemLibrary(const wchar_t *name)
{
    return LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

template <typename Interface>
struct Releaser
{
    void operator()(Interface *object) const { object->Release(); }
};

template <typename Interface>
using Com = std::unique_ptr<Interface, Releaser<Interface>>;

/// The adapters as the factory lists them, which is as they were when it was created.
class Dxgi
{
public:
    std::vector<DisplayAdapter> adapters()
    {
        // Creating a factory may wake adapters.
        if (!m_factory || !m_factory->IsCurrent())
            create();
        constexpr UINT most = 64;
        std::vector<DisplayAdapter> found;
        for (UINT index = 0; m_factory && index < most; ++index) {
            IDXGIAdapter1 *adapter = nullptr;
            if (FAILED(m_factory->EnumAdapters1(index, &adapter)) || !adapter)
                break;
            const Com<IDXGIAdapter1> owned(adapter);
            DXGI_ADAPTER_DESC1 description = {};
            if (SUCCEEDED(owned->GetDesc1(&description)))
                found.push_back(describe(description));
        }
        return found;
    }

private:
    void create()
    {
        if (!std::exchange(m_isLoaded, true))
            find(systemLibrary(L"dxgi.dll"), "CreateDXGIFactory1", m_create);
        void *factory = nullptr;
        m_factory.reset();
        if (m_create && SUCCEEDED(m_create(__uuidof(IDXGIFactory1), &factory)))
            m_factory.reset(static_cast<IDXGIFactory1 *>(factory));
    }

    static DisplayAdapter describe(const DXGI_ADAPTER_DESC1 &description)
    {
        DisplayAdapter adapter;
        const auto high = static_cast<quint32>(description.AdapterLuid.HighPart);
        adapter.luid = quint64{high} << bitsOfHalf | description.AdapterLuid.LowPart;
        const std::size_t length =
            wcsnlen(description.Description, std::size(description.Description));
        adapter.name =
            QString::fromWCharArray(description.Description, static_cast<int>(length)).simplified();
        adapter.vendor = description.VendorId;
        adapter.memoryBytes = description.DedicatedVideoMemory;
        adapter.isSoftware = (description.Flags & DXGI_ADAPTER_FLAG_SOFTWARE) != 0;
        return adapter;
    }

    bool m_isLoaded = false;
    HRESULT(WINAPI *m_create)(REFIID, void **) = nullptr;
    Com<IDXGIFactory1> m_factory;
};

/// The graphics kernel. An adapter is opened for each question, so that it can be removed.
class Kernel
{
public:
    Kernel()
    {
        const HMODULE library = systemLibrary(L"gdi32.dll");
        find(library, "D3DKMTOpenAdapterFromLuid", m_open);
        find(library, "D3DKMTCloseAdapter", m_close);
        find(library, "D3DKMTQueryAdapterInfo", m_query);
    }

    [[nodiscard]] QByteArray ask(quint64 luid, quint32 topic, const QByteArray &question) const
    {
        if (!m_open || !m_close || !m_query)
            return {};
        OpenedAdapter adapter = {};
        adapter.luid.LowPart = static_cast<DWORD>(luid);
        adapter.luid.HighPart = static_cast<LONG>(luid >> bitsOfHalf);
        if (m_open(&adapter) < 0)
            return {};
        QByteArray answer = question;
        const AdapterQuery query = {adapter.handle, topic, answer.data(),
                                    static_cast<UINT>(answer.size())};
        const bool isAnswered = m_query(&query) >= 0;
        const ClosedAdapter closed = {adapter.handle};
        m_close(&closed);
        return isAnswered ? answer : QByteArray();
    }

private:
    LONG(WINAPI *m_open)(OpenedAdapter *) = nullptr;
    LONG(WINAPI *m_close)(const ClosedAdapter *) = nullptr;
    LONG(WINAPI *m_query)(const AdapterQuery *) = nullptr;
};

class WindowsGraphics : public GraphicsSystem
{
public:
    std::vector<DisplayAdapter> adapters() override { return m_dxgi.adapters(); }

    QByteArray ask(quint64 luid, quint32 topic, const QByteArray &question) override
    {
        return m_kernel.ask(luid, topic, question);
    }

    std::vector<CounterValue> engineLoads(qint64 nowNs) override { return m_engines.values(nowNs); }

    std::vector<CounterValue> memoryInUse(qint64 nowNs) override { return m_memory.values(nowNs); }

private:
    Dxgi m_dxgi;
    Kernel m_kernel;
    PerformanceCounter m_engines{QStringLiteral("\\GPU Engine(*)\\Utilization Percentage")};
    PerformanceCounter m_memory{QStringLiteral("\\GPU Adapter Memory(*)\\Dedicated Usage")};
};

} // namespace

std::unique_ptr<GraphicsSystem> graphicsSystem()
{
    return std::make_unique<WindowsGraphics>();
}
