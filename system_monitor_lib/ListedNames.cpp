#include "system_monitor_lib/ListedNames.h"

namespace {

bool has(const QString &text, const char *word)
{
    return text.contains(QLatin1String(word), Qt::CaseInsensitive);
}

bool isPumpOrCpuFan(const QString &label)
{
    return has(label, "AIO Pump") || (has(label, "CPU") && has(label, "Fan"));
}

/// Without the words for a pump and the processor.
QString neutral(QString text)
{
    text.replace(QLatin1String("AIO Pump"), QLatin1String("AIO-Pump"), Qt::CaseInsensitive);
    text.replace(QLatin1String("CPU"), QLatin1String("processor"), Qt::CaseInsensitive);
    return text;
}

} // namespace

QString deviceGroup(const QString &kind, const QString &name)
{
    QString text = neutral(name);
    text.replace(QLatin1String("GPU"), QLatin1String("graphics"), Qt::CaseInsensitive);
    return QStringLiteral("%1: %2").arg(kind, text);
}

QString labelOfDevice(const QString &name, const QString &label)
{
    const QString full = QStringLiteral("%1 %2").arg(name, label);
    return isPumpOrCpuFan(full) && !isPumpOrCpuFan(label) ? neutral(full) : full;
}
