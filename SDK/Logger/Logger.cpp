#include "SDK/Logger/Logger.h"

#include <QDebug>
#include <QFile>
#include <QLocale>
#include <QLoggingCategory>
#include <QMutex>
#include <QMutexLocker>
#include <QStringBuilder>

#include <algorithm>

namespace {

QMutex fileLogMutex;

/// Whether the debug stream quotes \a text as it is.
bool isPlain(const QString &text)
{
    constexpr ushort firstPrintable = 0x20;
    constexpr ushort lastPrintable = 0x7e;
    const ushort *const begin = text.utf16();
    return std::all_of(begin, begin + text.size(), [](ushort each) {
        return each >= firstPrintable && each <= lastPrintable && each != '"' && each != '\\';
    });
}

} // namespace

// Compatibility: output-name
const char *const outputName = "output.txt";

void Logger(QString message) // NOLINT(performance-unnecessary-value-param)
{
    const QMutexLocker lock(&fileLogMutex);
    // Compatibility: log-file
    QFile file(QStringLiteral("log.txt"));
    if (file.open(QIODevice::ReadWrite | QIODevice::Append)) {
        file.write(fileLogLine(QDateTime::currentDateTime(), message));
        file.flush();
    }
    file.close();
}

QByteArray fileLogLine(const QDateTime &time, const QString &message)
{
    // QDateTime's own toString writes the digits of the user's language.
    const QString stamp = QLocale::c().toString(time, QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    return QStringLiteral("%1 %2 %3\r\n")
        .arg(QStringLiteral("[%1]").arg(stamp), QStringLiteral("SDK/Logger"), message)
        .toUtf8();
}

void LogDebug(const QString &message)
{
    if (!QLoggingCategory::defaultCategory()->isDebugEnabled())
        return;
    // The debug stream looks at each character for one to escape.
    if (isPlain(message))
        qDebug().noquote() << QString(QLatin1Char('"') % message % QLatin1Char('"'));
    else
        qDebug() << message;
}

QString labelled(const char *label, const QString &value)
{
    return QString::fromUtf8(label) + value;
}

QString labelled(const char *label, int value)
{
    return labelled(label, QString::number(value));
}
