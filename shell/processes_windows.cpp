#include "shell/processes.h"

#include <QFileInfo>

#include <windows.h>

#include <memory>
#include <tlhelp32.h>

namespace {

struct CloseHandleOf
{
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};

using Handle = std::unique_ptr<HANDLE, CloseHandleOf>;

} // namespace

namespace processes {

QString ownExecutableName()
{
    wchar_t path[MAX_PATH] = {};
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    return QFileInfo(QString::fromWCharArray(path, static_cast<int>(length))).fileName();
}

qint64 ownId()
{
    return GetCurrentProcessId();
}

std::optional<QVector<Process>> snapshot()
{
    HANDLE raw = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (raw == INVALID_HANDLE_VALUE)
        return std::nullopt;
    const Handle handle(raw);
    QVector<Process> found;
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(handle.get(), &entry); more;
         more = Process32NextW(handle.get(), &entry))
        found.append({entry.th32ProcessID, QString::fromWCharArray(entry.szExeFile)});
    return found;
}

bool terminate(const Process &process)
{
    const Handle handle(OpenProcess(PROCESS_TERMINATE, FALSE, static_cast<DWORD>(process.id)));
    if (!handle)
        return false;
    TerminateProcess(handle.get(), 0);
    return true;
}

} // namespace processes
