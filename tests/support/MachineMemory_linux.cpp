#include "tests/support/MachineMemory.h"

#include <QFile>
#include <QRegularExpression>

MachineMemory machineMemory()
{
    QFile file(QStringLiteral("/proc/meminfo"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString report = QString::fromLatin1(file.readAll());
    const auto line = [&report](const char *label) {
        const QRegularExpression form(
            QStringLiteral("\\b%1:\\s+(\\d+) kB").arg(QLatin1String(label)));
        const auto match = form.match(report);
        return match.hasMatch() ? static_cast<int>(match.captured(1).toLongLong() / 1024) : -1;
    };
    return {line("MemTotal"), line("MemAvailable")};
}
