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

/// The first number of schedstat: exact processor time in nanoseconds, without ended threads.
double threadSeconds(const QString &process)
{
    constexpr double nanosecond = 1e-9;
    double seconds = 0;
    const QStringList threads =
        QDir(process + QStringLiteral("/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &thread : threads) {
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

qint64 memory(const QByteArray &status, const QByteArray &name)
{
    const int start = status.indexOf(name + ':');
    const QByteArray line = status.mid(start, status.indexOf('\n', start) - start);
    return line.simplified().split(' ').value(1).toLongLong();
}

} // namespace

std::optional<ProcessUsage> processUsage(qint64 pid)
{
    const QString process = QStringLiteral("/proc/%1").arg(pid);
    const QByteArray status = content(process + QStringLiteral("/status"));
    if (status.isEmpty())
        return std::nullopt;
    return ProcessUsage{threadSeconds(process) + childSeconds(process), memory(status, "VmRSS"),
                        memory(status, "RssAnon")};
}
