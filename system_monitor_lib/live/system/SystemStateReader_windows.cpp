#include "system_monitor_lib/live/system/SystemStateReader.h"

#include <memory>

#include <windows.h>

#include <psapi.h>
#include <wtsapi32.h>

namespace {

template <typename Function>
void find(HMODULE library, const char *name, Function &function)
{
    if (library)
        function =
            reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(library, name)));
}

/// The service for sessions, which small editions of Windows lack.
class Sessions
{
public:
    Sessions()
    {
        // From the system's folder alone. Never unloaded, because others may use it as well.
        const HMODULE library =
            LoadLibraryExW(L"wtsapi32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        find(library, "WTSEnumerateSessionsW", m_enumerate);
        find(library, "WTSQuerySessionInformationW", m_query);
        find(library, "WTSFreeMemory", m_free);
    }

    /// Those that have a user. Nothing when the service does not answer.
    [[nodiscard]] std::optional<quint64> count() const
    {
        constexpr DWORD version = 1;
        WTS_SESSION_INFOW *sessions = nullptr;
        DWORD number = 0;
        if (!m_enumerate || !m_query || !m_free ||
            !m_enumerate(WTS_CURRENT_SERVER_HANDLE, 0, version, &sessions, &number))
            return std::nullopt;
        quint64 users = 0;
        for (DWORD index = 0; index < number; ++index)
            users += hasUser(sessions[index].SessionId) ? 1 : 0;
        m_free(sessions);
        return users;
    }

private:
    [[nodiscard]] bool hasUser(DWORD session) const
    {
        wchar_t *name = nullptr;
        DWORD size = 0;
        if (!m_query(WTS_CURRENT_SERVER_HANDLE, session, WTSUserName, &name, &size) || !name)
            return false;
        const bool isNamed = name[0] != L'\0';
        m_free(name);
        return isNamed;
    }

    decltype(&WTSEnumerateSessionsW) m_enumerate = nullptr;
    decltype(&WTSQuerySessionInformationW) m_query = nullptr;
    decltype(&WTSFreeMemory) m_free = nullptr;
};

} // namespace

SystemStateReader systemStateReader()
{
    const auto sessions = std::make_shared<Sessions>();
    return [sessions] {
        constexpr double millisecondsPerSecond = 1000;
        SystemState state;
        state.uptimeSeconds = static_cast<double>(GetTickCount64()) / millisecondsPerSecond;
        PERFORMANCE_INFORMATION information = {};
        information.cb = sizeof(information);
        if (GetPerformanceInfo(&information, sizeof(information)) && information.ProcessCount > 0)
            state.processes = information.ProcessCount;
        state.sessions = sessions->count();
        return state;
    };
}
