#include "tests/support/MessageCapture.h"

#include <QDebug>
#include <QMutex>
#include <QMutexLocker>

namespace {

QMutex mutex;
QStringList captured;
QStringList capturedCritical;

void capture(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    const QMutexLocker lock(&mutex);
    captured.append(message);
    if (type == QtCriticalMsg)
        capturedCritical.append(message);
}

} // namespace

MessageCapture::MessageCapture()
{
    clear();
    m_previous = qInstallMessageHandler(capture);
}

MessageCapture::~MessageCapture()
{
    qInstallMessageHandler(m_previous);
}

QStringList MessageCapture::messages()
{
    const QMutexLocker lock(&mutex);
    return captured;
}

QStringList MessageCapture::criticalMessages()
{
    const QMutexLocker lock(&mutex);
    return capturedCritical;
}

int MessageCapture::count(const QString &message)
{
    return static_cast<int>(messages().count(message));
}

void MessageCapture::clear()
{
    const QMutexLocker lock(&mutex);
    captured.clear();
    capturedCritical.clear();
}

QString MessageCapture::quoted(const QString &text)
{
    QString result;
    QDebug(&result).nospace() << text;
    return result;
}
