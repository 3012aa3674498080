#include "system_monitor_lib/live/network/WirelessLinks.h"

#include "system_monitor_lib/live/Pace.h"

#include <algorithm>

#include <winsock2.h>
#include <ws2ipdef.h>

#include <windows.h>

#include <iphlpapi.h>
#include <netioapi.h>
#include <wlanapi.h>

namespace {

template <typename Function>
void find(HMODULE library, const char *name, Function &function)
{
    if (library)
        function =
            reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(library, name)));
}

/// The library of the service for wireless networks, which servers lack.
class Wlan
{
public:
    Wlan() = default;
    ~Wlan() { close(); }
    Q_DISABLE_COPY(Wlan)

    std::vector<WirelessLink> links(qint64 nowNs)
    {
        WLAN_INTERFACE_INFO_LIST *list = nullptr;
        if (!open(nowNs))
            return {};
        if (m_list(m_service, nullptr, &list) != ERROR_SUCCESS || !list) {
            close();
            return {};
        }
        constexpr DWORD most = 64;
        std::vector<WirelessLink> found;
        for (DWORD index = 0; index < std::min(list->dwNumberOfItems, most); ++index)
            found.push_back(describe(list->InterfaceInfo[index]));
        m_free(list);
        return found;
    }

private:
    /// The service may be started later. False while there is none.
    bool open(qint64 nowNs)
    {
        if (m_service || !m_retry.isDue(nowNs))
            return m_service != nullptr;
        if (!m_isLoaded)
            load();
        constexpr DWORD clientVersion = 2;
        DWORD version = 0;
        const bool isComplete = m_open && m_close && m_list && m_query && m_free;
        if (!isComplete || m_open(clientVersion, nullptr, &version, &m_service) != ERROR_SUCCESS)
            m_service = nullptr;
        return m_service != nullptr;
    }

    void load()
    {
        m_isLoaded = true;
        // From the system's folder alone. Never unloaded, because others may use it as well.
        const HMODULE library =
            LoadLibraryExW(L"wlanapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        find(library, "WlanOpenHandle", m_open);
        find(library, "WlanCloseHandle", m_close);
        find(library, "WlanEnumInterfaces", m_list);
        find(library, "WlanQueryInterface", m_query);
        find(library, "WlanFreeMemory", m_free);
    }

    void close()
    {
        if (m_service)
            m_close(m_service, nullptr);
        m_service = nullptr;
    }

    WirelessLink describe(const WLAN_INTERFACE_INFO &adapter)
    {
        WirelessLink link;
        MIB_IF_ROW2 row = {};
        if (ConvertInterfaceGuidToLuid(&adapter.InterfaceGuid, &row.InterfaceLuid) == NO_ERROR &&
            GetIfEntry2(&row) == NO_ERROR) {
            constexpr ULONG64 unknown = ~ULONG64{0};
            link.adapter = QString::fromWCharArray(row.Alias);
            link.bitsPerSecond = row.TransmitLinkSpeed == unknown ? 0 : row.TransmitLinkSpeed;
        }
        link.isConnected = adapter.isState == wlan_interface_state_connected;
        if (link.isConnected)
            link.dbm = signal(adapter.InterfaceGuid);
        return link;
    }

    /// The question for the whole connection would need the user's consent to be located.
    std::optional<qint32> signal(const GUID &adapter)
    {
        DWORD size = 0;
        void *data = nullptr;
        if (m_query(m_service, &adapter, wlan_intf_opcode_rssi, nullptr, &size, &data, nullptr) !=
                ERROR_SUCCESS ||
            !data)
            return std::nullopt;
        std::optional<qint32> dbm;
        if (size == sizeof(LONG))
            dbm = *static_cast<const LONG *>(data);
        m_free(data);
        return dbm;
    }

    Pace m_retry{std::chrono::minutes(1)};
    bool m_isLoaded = false;
    HANDLE m_service = nullptr;
    decltype(&WlanOpenHandle) m_open = nullptr;
    decltype(&WlanCloseHandle) m_close = nullptr;
    decltype(&WlanEnumInterfaces) m_list = nullptr;
    decltype(&WlanQueryInterface) m_query = nullptr;
    decltype(&WlanFreeMemory) m_free = nullptr;
};

class WindowsLinks : public WirelessLinks
{
public:
    std::vector<WirelessLink> read(qint64 nowNs) override { return m_wlan.links(nowNs); }

private:
    Wlan m_wlan;
};

} // namespace

std::unique_ptr<WirelessLinks> wirelessLinks()
{
    return std::make_unique<WindowsLinks>();
}
