#include "tests/support/PluginProcess.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

void PluginProcess::setupChildProcess()
{
    setsid();
    prctl(PR_SET_PDEATHSIG, SIGKILL);
}

void PluginProcess::freeze()
{
    ::kill(static_cast<pid_t>(processId()), SIGSTOP);
}

void PluginProcess::thaw()
{
    ::kill(static_cast<pid_t>(processId()), SIGCONT);
}

void PluginProcess::limitDescriptors(int most)
{
    rlimit limit{};
    const auto process = static_cast<pid_t>(processId());
    ::prlimit(process, RLIMIT_NOFILE, nullptr, &limit);
    limit.rlim_cur = static_cast<rlim_t>(most);
    ::prlimit(process, RLIMIT_NOFILE, &limit, nullptr);
}

int PluginProcess::openDescriptors() const
{
    return static_cast<int>(QDir(QStringLiteral("/proc/%1/fd").arg(processId()))
                                .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                                .size());
}

qint64 PluginProcess::residentMemory() const
{
    QFile file(QStringLiteral("/proc/%1/statm").arg(processId()));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    // All of it, then what is resident, in pages.
    return file.readAll().split(' ').value(1).toLongLong() * ::sysconf(_SC_PAGESIZE);
}

qint64 PluginProcess::processorTime() const
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(processId()));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    // Behind the name, which may hold anything, the state is the third field of the table in
    // proc(5).
    const QByteArray stat = file.readAll();
    const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    constexpr int user = 14 - 3;
    const qint64 ticks = fields.value(user).toLongLong() + fields.value(user + 1).toLongLong();
    return ticks * 1000 / ::sysconf(_SC_CLK_TCK);
}

void PluginProcess::pressConsoleHotKey()
{
    ::kill(static_cast<pid_t>(processId()), SIGUSR1);
}

void PluginProcess::closeConsole()
{
    ::kill(static_cast<pid_t>(processId()), SIGHUP);
}
