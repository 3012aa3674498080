#include "bench/ProcessUsage.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <unistd.h>

namespace {

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList threadsOf(const QString &process)
{
    return QDir(process + QStringLiteral("/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

/// The first number of schedstat: exact processor time in nanoseconds, without ended threads.
double threadSeconds(const QString &process)
{
    constexpr double nanosecond = 1e-9;
    double seconds = 0;
    for (const QString &thread : threadsOf(process)) {
        const QByteArray times =
            content(process + QStringLiteral("/task/%1/schedstat").arg(thread));
        seconds += times.left(times.indexOf(' ')).toDouble() * nanosecond;
    }
    return seconds;
}

/// The fields 16 and 17 of stat, in ticks. The second field is the name of the program, which may
/// contain blanks and ends with the last parenthesis.
double childSeconds(const QString &process)
{
    constexpr int firstChildField = 13;
    const QByteArray stat = content(process + QStringLiteral("/stat"));
    const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    const double ticks =
        fields.value(firstChildField).toDouble() + fields.value(firstChildField + 1).toDouble();
    return ticks / static_cast<double>(sysconf(_SC_CLK_TCK));
}

/// The number behind \a name, at the start of a line of \a text.
qint64 numberOf(const QByteArray &text, const QByteArray &name)
{
    const QByteArray lines = '\n' + text;
    const int start = lines.indexOf('\n' + name + ':') + 1;
    const QByteArray line = lines.mid(start, lines.indexOf('\n', start) - start);
    return line.simplified().split(' ').value(1).toLongLong();
}

qint64 wakeUps(const QString &process)
{
    qint64 count = 0;
    for (const QString &thread : threadsOf(process))
        count += numberOf(content(process + QStringLiteral("/task/%1/status").arg(thread)),
                          "voluntary_ctxt_switches");
    return count;
}

qint64 pageFaults(const QString &process)
{
    constexpr int field = 7;
    const QByteArray stat = content(process + QStringLiteral("/stat"));
    return stat.mid(stat.lastIndexOf(')') + 2).split(' ').value(field).toLongLong();
}

} // namespace

std::optional<ProcessUsage> processUsage(qint64 pid)
{
    const QString process = QStringLiteral("/proc/%1").arg(pid);
    const QByteArray status = content(process + QStringLiteral("/status"));
    if (status.isEmpty())
        return std::nullopt;
    const QByteArray calls = content(process + QStringLiteral("/io"));
    return ProcessUsage{threadSeconds(process) + childSeconds(process),
                        numberOf(status, "VmRSS"),
                        numberOf(status, "RssAnon"),
                        wakeUps(process),
                        pageFaults(process),
                        numberOf(calls, "syscr"),
                        numberOf(calls, "syscw")};
}
