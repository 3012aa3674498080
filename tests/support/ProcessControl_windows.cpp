#include "tests/support/ProcessControl.h"

#include <QRegularExpression>

#include <windows.h>
// Behind windows.h, which they need.
#include <psapi.h>
#include <tlhelp32.h>

#include <memory>

namespace processcontrol {

namespace {

struct CloseHandleOf
{
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};

using Handle = std::unique_ptr<HANDLE, CloseHandleOf>;

Handle opened(qint64 process, DWORD access)
{
    return Handle(OpenProcess(access, FALSE, static_cast<DWORD>(process)));
}

/// NtSuspendProcess and NtResumeProcess, which no import library has.
void callForWhole(qint64 process, const char *function)
{
    using Call = LONG(NTAPI *)(HANDLE);
    const Handle handle = opened(process, PROCESS_SUSPEND_RESUME);
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"ntdll"), function);
    if (handle && found)
        reinterpret_cast<Call>(reinterpret_cast<void *>(found))(handle.get());
}

qint64 milliseconds(const FILETIME &time)
{
    constexpr qint64 ticks = 10000; // of 100 ns
    return ((static_cast<qint64>(time.dwHighDateTime) << 32) + time.dwLowDateTime) / ticks;
}

} // namespace

void freeze(qint64 process)
{
    callForWhole(process, "NtSuspendProcess");
}

void thaw(qint64 process)
{
    callForWhole(process, "NtResumeProcess");
}

int openDescriptors(qint64 process)
{
    const Handle handle = opened(process, PROCESS_QUERY_INFORMATION);
    DWORD count = 0;
    return handle && GetProcessHandleCount(handle.get(), &count) ? static_cast<int>(count) : -1;
}

qint64 residentMemory(qint64 process)
{
    const Handle handle = opened(process, PROCESS_QUERY_INFORMATION | PROCESS_VM_READ);
    PROCESS_MEMORY_COUNTERS counters{};
    return handle && K32GetProcessMemoryInfo(handle.get(), &counters, sizeof counters)
               ? static_cast<qint64>(counters.WorkingSetSize)
               : -1;
}

qint64 processorTime(qint64 process)
{
    const Handle handle = opened(process, PROCESS_QUERY_INFORMATION);
    FILETIME created{};
    FILETIME ended{};
    FILETIME kernel{};
    FILETIME user{};
    return handle && GetProcessTimes(handle.get(), &created, &ended, &kernel, &user)
               ? milliseconds(kernel) + milliseconds(user)
               : -1;
}

QStringList loadedPlatforms(qint64 process)
{
    static const QRegularExpression library(
        QRegularExpression::anchoredPattern(QStringLiteral("q(\\w+)\\.dll")));
    HANDLE raw = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, static_cast<DWORD>(process));
    QStringList platforms;
    if (raw == INVALID_HANDLE_VALUE)
        return platforms;
    const Handle snapshot(raw);
    MODULEENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Module32FirstW(raw, &entry); more; more = Module32NextW(raw, &entry)) {
        const QString path = QString::fromWCharArray(entry.szExePath);
        const QStringList parts = path.split(QLatin1Char('\\'));
        const auto match = library.match(parts.constLast());
        if (match.hasMatch() && parts.value(parts.size() - 2) == QLatin1String("platforms"))
            platforms.append(match.captured(1));
    }
    return platforms;
}

} // namespace processcontrol
