#include "sensors/services/LibreHardwareWebSocket.h"

#include "SDK/Logger/Logger.h"
#include "sensors/services/BoundedWebSocket.h"
#include "sensors/services/ServeConfig.h"
#include "json/ParseJson.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QThread>
#include <QTimer>

namespace {

constexpr int noPort = -1;

/// Far above any real configuration; a longer one is truncated.
constexpr qint64 longestFile = 1024LL * 1024;

/// The maximum size of a reply in bytes: some thirty times that of a machine with a thousand
/// sensors.
constexpr quint64 longestReply = 4ULL * 1024 * 1024;

constexpr int attemptCount = 3;
constexpr int attemptTimeoutMs = 3000;
constexpr int replyTimeoutMs = 3000;

QString configurationPath()
{
    QString drive = qEnvironmentVariable("SystemDrive");
    if (drive.isEmpty())
        drive = QStringLiteral("C:");
    return QDir::cleanPath(drive +
                           QStringLiteral("/ProgramData/ParvaneCraftServe/ServeConfig.ini"));
}

QString indented(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Indented));
}

} // namespace

LibreHardwareWebSocket::LibreHardwareWebSocket(bool fetch, QObject *parent)
    : QObject(parent)
    , socket(QString(), QWebSocketProtocol::Version13)
    , fetchOnConnect(fetch)
{
    const int configured = readConfiguredPort();
    usePort(configured == noPort ? port : configured);
    // Compatibility: error-signal-unconnected
    connect(&socket, &QWebSocket::connected, this, &LibreHardwareWebSocket::onConnected);
    connect(&socket, &QWebSocket::disconnected, this, &LibreHardwareWebSocket::onDisconnected);
    connect(&socket, &QWebSocket::textMessageReceived, this,
            &LibreHardwareWebSocket::onTextMessage);
    connectAndFetch();
}

void LibreHardwareWebSocket::setPort(int newPort)
{
    // Compatibility: no-close-on-new-port
    usePort(newPort);
    connectAndFetch();
}

int LibreHardwareWebSocket::readConfiguredPort()
{
    const QString path = configurationPath();
    // Only a regular file is accepted: reading a pipe might never end.
    if (!QFileInfo(path).isFile()) {
        qWarning() << "Config file not found:" << path;
        return noPort;
    }
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? configuredPort(file.read(longestFile)) : noPort;
}

void LibreHardwareWebSocket::usePort(int newPort)
{
    port = newPort;
    url = QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(port));
}

void LibreHardwareWebSocket::connectAndFetch()
{
    if (!connectWithRetries(attemptCount, attemptTimeoutMs) || !fetchOnConnect)
        return;
    const QJsonObject all = request(QByteArrayLiteral(R"({"method":"getAllSensorsData"})"));
    LogDebug(labelled("alldatajson:", indented(all)));
}

bool LibreHardwareWebSocket::isConnected() const
{
    return socket.state() == QAbstractSocket::ConnectedState;
}

bool LibreHardwareWebSocket::connectWithRetries(int attempts, int timeoutMs)
{
    for (int attempt = 1; attempt <= attempts; ++attempt) {
        LogDebug(QStringLiteral("WebSocket 尝试连接第 %1 次...").arg(attempt));
        QEventLoop loop;
        connect(&socket, &QWebSocket::connected, &loop, &QEventLoop::quit);
        QTimer::singleShot(timeoutMs, &loop, &QEventLoop::quit);
        openBounded(socket, url, longestReply);
        loop.exec();
        if (isConnected()) {
            LogDebug(QStringLiteral("WebSocket 连接成功"));
            return true;
        }
        LogDebug(labelled("WebSocket 连接失败:", socket.errorString()));
        socket.abort();
        QThread::sleep(1);
    }
    qWarning() << "WebSocket 多次连接失败";
    return false;
}

QJsonObject LibreHardwareWebSocket::request(const QByteArray &text)
{
    if (!isConnected() && !connectWithRetries(attemptCount, attemptTimeoutMs))
        return {};
    waiting = true;
    lastMessage.clear();
    result = {};
    socket.sendTextMessage(QString::fromUtf8(text.constData(), text.size()));

    QTimer timer;
    timer.setSingleShot(true);
    timer.start(replyTimeoutMs);
    while (waiting && timer.isActive()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        QThread::msleep(10);
    }
    if (waiting) {
        reportTimeout();
        return {};
    }
    return result;
}

void LibreHardwareWebSocket::reportTimeout()
{
    waiting = false;
    qWarning() << "等待响应超时";
    qWarning() << "socket 状态:" << socket.state();
    qWarning() << "socket 错误:" << socket.errorString();
}

void LibreHardwareWebSocket::onConnected()
{
    LogDebug(QStringLiteral("WebSocket connected"));
    // Compatibility: greeting
    socket.sendTextMessage(QStringLiteral("哈喽哈喽"));
}

void LibreHardwareWebSocket::onDisconnected()
{
    LogDebug(QStringLiteral("WebSocket disconnected"));
}

void LibreHardwareWebSocket::onError(QAbstractSocket::SocketError /*error*/)
{
    qWarning() << "WebSocket error:" << socket.errorString();
}

void LibreHardwareWebSocket::onTextMessage(const QString &msg)
{
    if (!waiting)
        return;
    // Compatibility: any-frame-ends-the-wait
    lastMessage = msg;
    result = serviceResult(msg);
    waiting = false;
}

QJsonObject serviceResult(const QString &message)
{
    LogDebug(labelled("收到消息:", message));
    const QJsonObject reply = parseJson(message.toUtf8()).object();
    const QString method = reply.value(QLatin1String("method")).toString();
    const int code = reply.value(QLatin1String("code")).toInt();
    QJsonObject result = reply.value(QLatin1String("result")).toObject();
    // Compatibility: code-as-character
    // The code is logged as the character with that number.
    LogDebug(QStringLiteral("method:") + method + QStringLiteral(" code:") +
             QLatin1Char(static_cast<char>(code)) + QStringLiteral(" result:") + indented(result));
    return result;
}
