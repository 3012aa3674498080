#include "SDK/Logger/Logger.h"

#include <QDebug>
#include <QFile>
#include <QLocale>
#include <QMutex>
#include <QMutexLocker>

namespace {

QMutex fileLogMutex;

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
