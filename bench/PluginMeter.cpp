#include "bench/PluginMeter.h"

#include "bench/BenchDeck.h"
#include "tests/support/TestFonts.h"

#include <QHostAddress>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QWebSocket>

#include <chrono>
#include <cstdio>

using namespace std::chrono_literals;

namespace {

/// Time after the first picture in which all caches fill.
constexpr std::chrono::milliseconds warmUp = 3s;

const QString pictureMark = QStringLiteral("\"setImage\"");

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

void print(const QJsonObject &object)
{
    std::puts(qPrintable(compact(object)));
    std::fflush(stdout);
}

} // namespace

PluginMeter::PluginMeter(const Task &task, QObject *parent)
    : QObject(parent)
    , m_task(task)
    , m_server(QStringLiteral("meter"), QWebSocketServer::NonSecureMode)
{
    connect(&m_server, &QWebSocketServer::newConnection, this, &PluginMeter::takeLink);
    connect(&m_sampleTimer, &QTimer::timeout, this, &PluginMeter::sample);
    connect(&m_plugin, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, [this] {
        if (m_reported)
            return;
        std::fputs("The plugin has ended\n", stderr);
        Q_EMIT finished(false);
    });
}

PluginMeter::~PluginMeter()
{
    m_plugin.disconnect(this);
    m_plugin.kill();
    m_plugin.waitForFinished();
}

bool PluginMeter::start()
{
    if (!m_server.listen(QHostAddress::LocalHost))
        return false;
    m_plugin.setStandardOutputFile(QProcess::nullDevice());
    m_plugin.setStandardErrorFile(QProcess::nullDevice());
    m_sinceStart.start();
    m_plugin.start(m_task.program, m_task.arguments + hostArguments());
    return m_plugin.waitForStarted();
}

QStringList PluginMeter::hostArguments() const
{
    const QJsonObject font{
        {QStringLiteral("name"), QStringLiteral("Roboto")},
        {QStringLiteral("url"), testfonts::find(QStringLiteral("Roboto-Bold.ttf"))}};
    const QJsonObject info{{QStringLiteral("application"),
                            QJsonObject{{QStringLiteral("language"), QStringLiteral("en")}}},
                           {QStringLiteral("fonts"), QJsonArray{font}}};
    return {QStringLiteral("-port"),          QString::number(m_server.serverPort()),
            QStringLiteral("-pluginUUID"),    QStringLiteral("meter"),
            QStringLiteral("-registerEvent"), QStringLiteral("registerPlugin"),
            QStringLiteral("-info"),          compact(info)};
}

void PluginMeter::takeLink()
{
    QWebSocket *const link = m_server.nextPendingConnection();
    link->setParent(&m_server);
    connect(link, &QWebSocket::textMessageReceived, this, &PluginMeter::take);
    showDeck(*link);
}

void PluginMeter::showDeck(QWebSocket &link) const
{
    for (const BenchKey &key : benchDeck(m_task.keys, m_task.style)) {
        link.sendTextMessage(compact({{QStringLiteral("event"), QStringLiteral("willAppear")},
                                      {QStringLiteral("action"), key.action},
                                      {QStringLiteral("context"), key.context},
                                      {QStringLiteral("device"), QStringLiteral("deck")},
                                      {QStringLiteral("payload"), key.payload}}));
    }
}

void PluginMeter::take(const QString &text)
{
    if (m_registered < 0)
        m_registered = m_sinceStart.elapsed();
    m_bytes += static_cast<quint64>(text.size());
    if (!text.left(200).contains(pictureMark))
        return;
    ++m_pictures;
    if (m_firstPicture < 0) {
        m_firstPicture = m_sinceStart.elapsed();
        QTimer::singleShot(warmUp, this, &PluginMeter::beginMeasuring);
    }
}

ProcessUsage PluginMeter::usage() const
{
    return processUsage(m_plugin.processId()).value_or(ProcessUsage());
}

void PluginMeter::beginMeasuring()
{
    m_first = usage();
    m_pictures = 0;
    m_bytes = 0;
    m_sinceMeasuring.start();
    QTimer::singleShot(std::chrono::seconds(m_task.seconds), this, &PluginMeter::report);
    if (m_task.sampleSeconds > 0)
        m_sampleTimer.start(std::chrono::seconds(m_task.sampleSeconds));
}

void PluginMeter::sample()
{
    const ProcessUsage now = usage();
    print({{QStringLiteral("second"), m_sinceMeasuring.elapsed() / 1000},
           {QStringLiteral("residentKiB"), now.residentKiB},
           {QStringLiteral("anonymousKiB"), now.anonymousKiB}});
}

void PluginMeter::report()
{
    constexpr double millisecondsPerSecond = 1000;
    const ProcessUsage last = usage();
    const double seconds = static_cast<double>(m_sinceMeasuring.elapsed()) / millisecondsPerSecond;
    const double cpu = (last.cpuSeconds - m_first.cpuSeconds) * millisecondsPerSecond / seconds;
    const auto pictures = static_cast<double>(m_pictures);
    const auto perSecond = [seconds](qint64 first, qint64 then) {
        return static_cast<double>(then - first) / seconds;
    };
    m_reported = true;
    print({{QStringLiteral("registeredMs"), m_registered},
           {QStringLiteral("firstPictureMs"), m_firstPicture},
           {QStringLiteral("cpuMsPerSecond"), cpu},
           {QStringLiteral("wakeUpsPerSecond"), perSecond(m_first.wakeUps, last.wakeUps)},
           {QStringLiteral("pageFaultsPerSecond"), perSecond(m_first.pageFaults, last.pageFaults)},
           {QStringLiteral("readsPerSecond"), perSecond(m_first.reads, last.reads)},
           {QStringLiteral("writesPerSecond"), perSecond(m_first.writes, last.writes)},
           {QStringLiteral("picturesPerSecond"), pictures / seconds},
           {QStringLiteral("bytesPerKey"), static_cast<double>(m_bytes) / pictures},
           {QStringLiteral("residentKiB"), last.residentKiB},
           {QStringLiteral("anonymousKiB"), last.anonymousKiB},
           {QStringLiteral("growthKiB"), last.residentKiB - m_first.residentKiB}});
    Q_EMIT finished(m_pictures > 0);
}
