#include "tests/support/FakeHost.h"

#include "tests/support/Json.h"
#include "tests/support/Waits.h"

#include <QElapsedTimer>
#include <QTest>
#include <QWebSocket>

namespace {

qint64 now()
{
    static const QElapsedTimer clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return clock.elapsed();
}

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace

FakeHost::FakeHost()
    : m_server(QStringLiteral("host"), QWebSocketServer::NonSecureMode)
{
    if (!m_server.listen(QHostAddress::LocalHost))
        qFatal("No port for the host: %s", qPrintable(m_server.errorString()));
    connect(&m_server, &QWebSocketServer::newConnection, this, &FakeHost::takeLink);
}

quint16 FakeHost::port() const
{
    return m_server.serverPort();
}

QStringList FakeHost::arguments(const QString &info) const
{
    return {QStringLiteral("-port"),          QString::number(port()),
            QStringLiteral("-pluginUUID"),    QStringLiteral("plugin-1"),
            QStringLiteral("-registerEvent"), QStringLiteral("registerPlugin"),
            QStringLiteral("-info"),          info};
}

bool FakeHost::waitForRegistration() const
{
    return QTest::qWaitFor([this] { return !m_texts.isEmpty(); }, patience);
}

bool FakeHost::waitForMessages(const QString &event, const QString &context,
                               QStringList::size_type count) const
{
    return QTest::qWaitFor(
        [this, &event, &context, count] { return arrivals(event, context).size() >= count; },
        patience);
}

bool FakeHost::waitForUpdate(const QString &context) const
{
    // The title follows the picture.
    return waitForMessages(QStringLiteral("setTitle"), context, titles(context).size() + 1);
}

template <typename Value, typename Extract>
QVector<Value> FakeHost::collect(const QString &event, const QString &context,
                                 Extract extract) const
{
    QVector<Value> values;
    for (const Message &message : m_messages) {
        if (message.event == event && message.context == context)
            values.append(extract(message));
    }
    return values;
}

QVector<QJsonObject> FakeHost::messages(const QString &event, const QString &context) const
{
    return collect<QJsonObject>(event, context,
                                [](const Message &message) { return message.object; });
}

QVector<qint64> FakeHost::arrivals(const QString &event, const QString &context) const
{
    return collect<qint64>(event, context, [](const Message &message) { return message.arrival; });
}

QStringList FakeHost::events(const QString &context) const
{
    QStringList events;
    for (const Message &message : m_messages) {
        if (message.context == context)
            events.append(message.event);
    }
    return events;
}

QStringList FakeHost::titles(const QString &context) const
{
    return collect<QString>(QStringLiteral("setTitle"), context,
                            [](const Message &message) {
                                const QJsonObject payload =
                                    message.object.value(QLatin1String("payload")).toObject();
                                return payload.value(QLatin1String("title")).toString();
                            })
        .toList();
}

QStringList FakeHost::images(const QString &context) const
{
    return collect<QString>(QStringLiteral("setImage"), context,
                            [](const Message &message) {
                                const QJsonObject payload =
                                    message.object.value(QLatin1String("payload")).toObject();
                                return payload.value(QLatin1String("image")).toString();
                            })
        .toList();
}

QVector<QJsonObject> FakeHost::settings(const QString &context) const
{
    return collect<QJsonObject>(QStringLiteral("setSettings"), context, [](const Message &message) {
        return message.object.value(QLatin1String("payload")).toObject();
    });
}

QImage FakeHost::picture(const QString &dataUrl)
{
    static const QByteArray prefix("data:image/png;base64,");
    const QByteArray text = dataUrl.toLatin1();
    if (!text.startsWith(prefix))
        return {};
    const auto png = QByteArray::fromBase64Encoding(text.mid(prefix.size()),
                                                    QByteArray::AbortOnBase64DecodingErrors);
    return png ? QImage::fromData(*png, "PNG") : QImage();
}

bool FakeHost::hasInk(const QString &dataUrl)
{
    const QImage image = picture(dataUrl);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) != 0)
                return true;
        }
    }
    return false;
}

QJsonObject FakeHost::keySettings(const QJsonObject &changes)
{
    QJsonObject parameters = json(R"({
        "text": "Title", "showTitle": true, "fontFamily": "DejaVu Sans", "fontSize": 20,
        "color": "#ffffff", "opacity": 0, "temperatureType": "摄氏度", "titleLines": "单行显示"})");
    for (auto change = changes.begin(); change != changes.end(); ++change)
        parameters.insert(change.key(), change.value());
    return {{QStringLiteral("titleParameters"), parameters},
            {QStringLiteral("ActionGeometry"), json(R"({"width": 144, "height": 144})")}};
}

void FakeHost::sendText(const QString &text)
{
    if (m_link)
        m_link->sendTextMessage(text);
}

void FakeHost::sendBinary(const QByteArray &bytes)
{
    if (m_link)
        m_link->sendBinaryMessage(bytes);
}

void FakeHost::sendEvent(const QString &event, const QString &action, const QString &context,
                         const QJsonObject &payload)
{
    sendText(compact({{QStringLiteral("event"), event},
                      {QStringLiteral("action"), action},
                      {QStringLiteral("context"), context},
                      {QStringLiteral("device"), QStringLiteral("device-1")},
                      {QStringLiteral("payload"), payload}}));
}

void FakeHost::appear(const QString &action, const QString &context, const QJsonObject &settings)
{
    sendEvent(QStringLiteral("willAppear"), action, context,
              {{QStringLiteral("settings"), settings}});
}

void FakeHost::disappear(const QString &action, const QString &context)
{
    sendEvent(QStringLiteral("willDisappear"), action, context);
}

void FakeHost::closeLink()
{
    if (m_link)
        m_link->close();
}

void FakeHost::abortLink()
{
    if (m_link)
        m_link->abort();
}

void FakeHost::takeLink()
{
    ++m_connections;
    QWebSocket *const link = m_server.nextPendingConnection();
    m_link = link;
    connect(link, &QWebSocket::textMessageReceived, this, &FakeHost::record);
    connect(link, &QWebSocket::disconnected, link, &QObject::deleteLater);
}

void FakeHost::record(const QString &text)
{
    m_texts.append(text);
    const QJsonObject object = json(text.toUtf8());
    m_messages.append({object.value(QLatin1String("event")).toString(),
                       object.value(QLatin1String("context")).toString(), object, now()});
}
