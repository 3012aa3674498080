#include "tests/support/ProcessControl.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <csignal>

#include <unistd.h>

namespace processcontrol {

void freeze(qint64 process)
{
    ::kill(static_cast<pid_t>(process), SIGSTOP);
}

void thaw(qint64 process)
{
    ::kill(static_cast<pid_t>(process), SIGCONT);
}

int openDescriptors(qint64 process)
{
    const QDir folder(QStringLiteral("/proc/%1/fd").arg(process));
    if (!folder.exists())
        return -1;
    return static_cast<int>(
        folder.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size());
}

qint64 residentMemory(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/statm").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    // All of it, then what is resident, in pages.
    return file.readAll().split(' ').value(1).toLongLong() * ::sysconf(_SC_PAGESIZE);
}

qint64 processorTime(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
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

QStringList loadedPlatforms(qint64 process)
{
    static const QRegularExpression library(QStringLiteral("/platforms/libq(\\w+)\\.so"));
    QFile maps(QStringLiteral("/proc/%1/maps").arg(process));
    QStringList platforms;
    if (!maps.open(QIODevice::ReadOnly))
        return platforms;
    auto found = library.globalMatch(QString::fromUtf8(maps.readAll()));
    while (found.hasNext())
        platforms.append(found.next().captured(1));
    platforms.removeDuplicates();
    return platforms;
}

} // namespace processcontrol
