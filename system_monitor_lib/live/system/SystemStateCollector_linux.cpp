#include "system_monitor_lib/live/system/SystemStateCollector.h"

#include "system_monitor_lib/live/files/Directory.h"
#include "system_monitor_lib/live/system/SystemText.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstring>

namespace {

bool isNumber(const char *name)
{
    const std::size_t length = std::strlen(name);
    return length > 0 && std::strspn(name, "0123456789") == length;
}

/// Without looking at a single one.
std::optional<quint64> countProcesses(const QString &proc)
{
    const Directory directory(::opendir(QFile::encodeName(proc).constData()));
    quint64 count = 0;
    // readdir is safe here, because no one else uses this stream.
    while (const dirent *const entry =
               directory ? ::readdir(directory.get()) : nullptr) // NOLINT(concurrency-mt-unsafe)
        count += isNumber(entry->d_name) ? 1U : 0U;
    return count > 0 ? std::optional(count) : std::nullopt;
}

std::optional<quint64> countSessions(const QString &run)
{
    constexpr int most = 1000;
    const QDir sessions(run + QStringLiteral("/systemd/sessions"));
    if (run.isEmpty() || !sessions.exists())
        return std::nullopt;
    // Beside the files are pipes, named after the sessions with ".ref".
    const QStringList names = sessions.entryList(QDir::Files).mid(0, most);
    return static_cast<quint64>(
        std::count_if(names.begin(), names.end(), [&sessions](const QString &name) {
            PolledFile session(sessions.filePath(name));
            return isUserSession(session.read());
        }));
}

} // namespace

SystemStateCollector::SystemStateCollector(const MachineRoots &roots)
    : m_roots(roots)
    , m_uptime(roots.proc + QStringLiteral("/uptime"))
    , m_loads(roots.proc + QStringLiteral("/loadavg"))
{
}

void SystemStateCollector::read(qint64 nowNs)
{
    if (m_counting.isDue(nowNs)) {
        m_state.processes = countProcesses(m_roots.proc);
        m_state.sessions = countSessions(m_roots.run);
    }
    m_state.uptimeSeconds = parseUptime(m_uptime.read());
    parseLoadAverages(m_loads.read(), m_state);
    m_labels = systemStateLabels(m_state);
}

bool SystemStateCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_reading.isDue(nowNs))
        read(nowNs);
    if (!m_labels.isEmpty())
        trees.addDevice(Query::AllSensorsData, systemStateGroup(), m_labels);
    return !m_labels.isEmpty();
}
