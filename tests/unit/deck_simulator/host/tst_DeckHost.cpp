#include "deck_simulator/host/DeckHost.h"
#include "tests/support/Waits.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QWebSocket>
#include <QtTest>

using namespace deck;

class tst_DeckHost : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void putsTheKeysOnAfterRegistration();
    void refusesWrongRegistrations_data();
    void refusesWrongRegistrations();
    void refusesASecondPlugin();
    void takesTitlesPicturesAndSettings();
    void countsBrokenPictures();
    void countsUnknownEventsAndKeys();
    void countsMalformedMessages_data();
    void countsMalformedMessages();
    void dropsHugeMessages();
    void closesTheLinkOnEndlessMessages();
    void tellsThatTheLinkIsGone();
    void takesTheKeysOffAtTheEnd();
    void putsAndRemovesKeysWhileItRuns();
    void sendsSettingsAndEvents();
    void sendsAnyText();
    void keepsTheSizeOfTheLastPicture();
    void dies();

private:
    void connectPlugin();
    void registerPlugin();
    void send(const QJsonObject &message);
    void sendForKey(const QString &event, int index, const QJsonObject &payload);
    [[nodiscard]] QStringList receivedEvents() const;
    [[nodiscard]] const DeckKey &key(int index) const { return m_host->keys().at(index); }

    std::unique_ptr<DeckHost> m_host;
    std::unique_ptr<QWebSocket> m_plugin;
    std::unique_ptr<QSignalSpy> m_received;
};

namespace {

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QJsonObject parsed(const QList<QVariant> &message)
{
    return QJsonDocument::fromJson(message.at(0).toString().toUtf8()).object();
}

QString pngUrl(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::blue);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "png");
    return QStringLiteral("data:image/png;base64,") + QString::fromLatin1(bytes.toBase64());
}

} // namespace

void tst_DeckHost::init()
{
    m_host = std::make_unique<DeckHost>(defaultDeck(5));
    QVERIFY(m_host->listen());
    m_plugin = std::make_unique<QWebSocket>();
    m_received = std::make_unique<QSignalSpy>(m_plugin.get(), &QWebSocket::textMessageReceived);
}

void tst_DeckHost::cleanup()
{
    m_received.reset();
    m_plugin.reset();
    m_host.reset();
}

void tst_DeckHost::connectPlugin()
{
    m_plugin->open(QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(m_host->port())));
    QTRY_COMPARE(m_plugin->state(), QAbstractSocket::ConnectedState);
}

void tst_DeckHost::registerPlugin()
{
    connectPlugin();
    send({{QStringLiteral("event"), m_host->registerEvent()},
          {QStringLiteral("uuid"), m_host->pluginUUID()}});
    QTRY_VERIFY(m_host->isRegistered());
    // The device and its keys.
    QTRY_COMPARE(m_received->count(), m_host->keys().size() + 1);
}

void tst_DeckHost::send(const QJsonObject &message)
{
    m_plugin->sendTextMessage(compact(message));
}

void tst_DeckHost::sendForKey(const QString &event, int index, const QJsonObject &payload)
{
    send({{QStringLiteral("event"), event},
          {QStringLiteral("context"), key(index).context()},
          {QStringLiteral("payload"), payload}});
}

QStringList tst_DeckHost::receivedEvents() const
{
    QStringList events;
    for (const QList<QVariant> &message : *m_received)
        events.append(parsed(message).value(QLatin1String("event")).toString());
    return events;
}

void tst_DeckHost::putsTheKeysOnAfterRegistration()
{
    QSignalSpy registered(m_host.get(), &DeckHost::registered);
    registerPlugin();
    QCOMPARE(registered.count(), 1);
    QCOMPARE(receivedEvents().at(0), QStringLiteral("deviceDidConnect"));
    const QJsonObject device = parsed(m_received->at(0));
    QVERIFY(device.value(QLatin1String("deviceInfo")).isObject());
    for (int index = 0; index < m_host->keys().size(); ++index) {
        const QJsonObject message = parsed(m_received->at(index + 1));
        QCOMPARE(message.value(QLatin1String("event")).toString(), QStringLiteral("willAppear"));
        QCOMPARE(message.value(QLatin1String("action")).toString(), key(index).action());
        QCOMPARE(message.value(QLatin1String("context")).toString(), key(index).context());
        QCOMPARE(message.value(QLatin1String("device")), device.value(QLatin1String("device")));
        const QJsonObject payload = message.value(QLatin1String("payload")).toObject();
        QCOMPARE(payload.value(QLatin1String("settings")).toObject(), key(index).settings());
    }
}

void tst_DeckHost::refusesWrongRegistrations_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    QTest::newRow("not JSON") << "hello"
                              << "instead of \"registerPlugin\"";
    QTest::newRow("not an object") << "[1]"
                                   << "instead of \"registerPlugin\"";
    QTest::newRow("another event") << R"({"event":"register","uuid":"UUID"})"
                                   << "\"register\"";
    QTest::newRow("event of another type") << R"({"event":7,"uuid":"UUID"})"
                                           << "the event \"\"";
    QTest::newRow("another uuid") << R"({"event":"registerPlugin","uuid":"x"})"
                                  << "the uuid \"x\"";
    QTest::newRow("no uuid") << R"({"event":"registerPlugin"})"
                             << "the uuid \"\"";
}

void tst_DeckHost::refusesWrongRegistrations()
{
    QFETCH(QString, text);
    QFETCH(QString, reason);
    QSignalSpy refused(m_host.get(), &DeckHost::registrationRefused);
    QSignalSpy disconnected(m_plugin.get(), &QWebSocket::disconnected);
    connectPlugin();
    m_plugin->sendTextMessage(text.replace(QLatin1String("UUID"), m_host->pluginUUID()));
    QTRY_COMPARE(refused.count(), 1);
    QVERIFY2(refused.at(0).at(0).toString().contains(reason),
             qPrintable(refused.at(0).at(0).toString()));
    QTRY_COMPARE(disconnected.count(), 1);
    QVERIFY(!m_host->isRegistered());
    QCOMPARE(m_received->count(), 0);
    QCOMPARE(m_host->counters().refusedLinks, quint64(1));
}

void tst_DeckHost::refusesASecondPlugin()
{
    registerPlugin();
    QWebSocket second;
    QSignalSpy disconnected(&second, &QWebSocket::disconnected);
    second.open(QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(m_host->port())));
    QTRY_COMPARE(disconnected.count(), 1);
    QCOMPARE(m_host->counters().refusedLinks, quint64(1));
    QVERIFY(m_host->isRegistered());
}

void tst_DeckHost::takesTitlesPicturesAndSettings()
{
    registerPlugin();
    QSignalSpy changed(m_host.get(), &DeckHost::keyChanged);
    const QString url = pngUrl(106, 33);
    const QJsonObject settings{{QStringLiteral("FontList"), QJsonArray{QStringLiteral("Roboto")}}};
    sendForKey(QStringLiteral("setTitle"), 2,
               {{QStringLiteral("title"), QStringLiteral("网速: 1.0KB/s")},
                {QStringLiteral("target"), 0}});
    sendForKey(QStringLiteral("setImage"), 2,
               {{QStringLiteral("image"), url}, {QStringLiteral("target"), 0}});
    sendForKey(QStringLiteral("setSettings"), 4, settings);
    QTRY_COMPARE(changed.count(), 3);
    QCOMPARE(changed.at(0).at(0).toString(), key(2).context());
    QCOMPARE(changed.at(2).at(0).toString(), key(4).context());
    QCOMPARE(key(2).title(), QStringLiteral("网速: 1.0KB/s"));
    QCOMPARE(key(2).picture().size(), QSize(106, 33));
    QCOMPARE(key(2).pictureBytes(), url.size());
    QVERIFY(key(2).lastUpdate().has_value());
    QCOMPARE(key(4).settings(), settings);
    QCOMPARE(key(4).settingsReplies(), quint64(1));
    QVERIFY(key(0).title().isEmpty());
    QCOMPARE(m_host->counters().frames, quint64(4)); // with the registration
    QVERIFY(m_host->counters().bytes > quint64(url.size()));
}

void tst_DeckHost::countsBrokenPictures()
{
    registerPlugin();
    sendForKey(QStringLiteral("setImage"), 0, {{QStringLiteral("image"), pngUrl(8, 8)}});
    sendForKey(QStringLiteral("setImage"), 0,
               {{QStringLiteral("image"), QStringLiteral("data:image/png;base64,AAAA")}});
    QTRY_COMPARE(key(0).brokenPictures(), quint64(1));
    QCOMPARE(m_host->counters().brokenPictures, quint64(1));
    QCOMPARE(key(0).picture().size(), QSize(8, 8));
}

void tst_DeckHost::countsUnknownEventsAndKeys()
{
    registerPlugin();
    send({{QStringLiteral("event"), QStringLiteral("openUrl")}});
    send({});
    send({{QStringLiteral("event"), QStringLiteral("setTitle")},
          {QStringLiteral("context"), QStringLiteral("nobody")},
          {QStringLiteral("payload"), QJsonObject()}});
    send({{QStringLiteral("event"), QStringLiteral("setTitle")}, {QStringLiteral("context"), 7}});
    QTRY_COMPARE(m_host->counters().frames, quint64(5));
    QCOMPARE(m_host->counters().unknownEvents, quint64(2));
    QCOMPARE(m_host->counters().unknownContexts, quint64(2));
    QCOMPARE(m_host->counters().malformed, quint64(0));
}

void tst_DeckHost::countsMalformedMessages_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("not JSON") << "setTitle";
    QTest::newRow("array") << "[]";
    QTest::newRow("no payload") << R"({"event":"setTitle","context":"key-01"})";
    QTest::newRow("payload no object")
        << R"({"event":"setSettings","context":"key-01","payload":"x"})";
    QTest::newRow("title no text")
        << R"({"event":"setTitle","context":"key-01","payload":{"title":{}}})";
    QTest::newRow("image no text")
        << R"({"event":"setImage","context":"key-01","payload":{"image":1}})";
    QTest::newRow("nested too deep") << QString(5000, QLatin1Char('['));
}

void tst_DeckHost::countsMalformedMessages()
{
    QFETCH(QString, text);
    registerPlugin();
    QSignalSpy changed(m_host.get(), &DeckHost::keyChanged);
    m_plugin->sendTextMessage(text);
    m_plugin->sendBinaryMessage("binary");
    QTRY_COMPARE(m_host->counters().malformed, quint64(2));
    QCOMPARE(changed.count(), 0);
    QVERIFY(m_host->isRegistered());
}

void tst_DeckHost::dropsHugeMessages()
{
    registerPlugin();
    const QString title(DeckHost::maximumMessage, QLatin1Char('x'));
    sendForKey(QStringLiteral("setTitle"), 0, {{QStringLiteral("title"), title}});
    QTRY_COMPARE(m_host->counters().oversized, quint64(1));
    QVERIFY(key(0).title().isEmpty());
    sendForKey(QStringLiteral("setTitle"), 0, {{QStringLiteral("title"), QStringLiteral("ok")}});
    QTRY_COMPARE(key(0).title(), QStringLiteral("ok"));
}

void tst_DeckHost::closesTheLinkOnEndlessMessages()
{
    registerPlugin();
    QSignalSpy closed(m_host.get(), &DeckHost::linkClosed);
    m_plugin->sendTextMessage(QString(int(DeckHost::endingMessage) + 1, QLatin1Char('x')));
    QTRY_COMPARE(closed.count(), 1);
    QVERIFY(!m_host->isRegistered());
}

void tst_DeckHost::tellsThatTheLinkIsGone()
{
    registerPlugin();
    QSignalSpy closed(m_host.get(), &DeckHost::linkClosed);
    m_plugin->abort();
    QTRY_COMPARE(closed.count(), 1);
    QVERIFY(!m_host->isRegistered());
    m_host->close();
}

void tst_DeckHost::takesTheKeysOffAtTheEnd()
{
    registerPlugin();
    m_received->clear();
    QSignalSpy disconnected(m_plugin.get(), &QWebSocket::disconnected);
    QSignalSpy closed(m_host.get(), &DeckHost::linkClosed);
    m_host->close();
    QTRY_COMPARE(disconnected.count(), 1);
    QTRY_COMPARE(closed.count(), 1);
    QCOMPARE(receivedEvents().count(QStringLiteral("willDisappear")), m_host->keys().size());
    QCOMPARE(parsed(m_received->at(0)).value(QLatin1String("context")).toString(),
             key(0).context());
}

void tst_DeckHost::putsAndRemovesKeysWhileItRuns()
{
    registerPlugin();
    const auto keys = m_host->keys().size();
    m_received->clear();
    DeckKey another(QStringLiteral("Another"), QStringLiteral("an.action"), QStringLiteral("new"),
                    {{QStringLiteral("set"), 1}});
    another.setPlace({6, 3});
    m_host->putKey(another);
    QTRY_COMPARE(receivedEvents(), QStringList{QStringLiteral("willAppear")});
    const QJsonObject message = parsed(m_received->at(0));
    QCOMPARE(message.value(QLatin1String("context")).toString(), QStringLiteral("new"));
    const QJsonObject payload = message.value(QLatin1String("payload")).toObject();
    const QJsonObject coordinates = payload.value(QLatin1String("coordinates")).toObject();
    QCOMPARE(coordinates.value(QLatin1String("column")).toInt(), 6);
    QCOMPARE(coordinates.value(QLatin1String("row")).toInt(), 3);
    QCOMPARE(m_host->key(QStringLiteral("new")), &m_host->keys().at(keys));
    QCOMPARE(m_host->keyAt({6, 3}), &m_host->keys().at(keys));
    QCOMPARE(m_host->keyAt({6, 0, true}), nullptr); // a dial

    m_host->putKey(another); // at its own place
    QCOMPARE(m_host->keys().size(), keys + 1);
    QVERIFY(m_host->removeKey(QStringLiteral("new")));
    QVERIFY(!m_host->removeKey(QStringLiteral("new")));
    QTRY_COMPARE(receivedEvents().mid(1),
                 (QStringList{QStringLiteral("willAppear"), QStringLiteral("willDisappear")}));
    QCOMPARE(m_host->key(QStringLiteral("new")), nullptr);
    QCOMPARE(m_host->keyAt({6, 3}), nullptr);
    QCOMPARE(m_host->keyAt({0, 0}), &m_host->keys().at(0));
    QCOMPARE(m_host->keys().size(), keys);
}

void tst_DeckHost::sendsSettingsAndEvents()
{
    const QString context = key(0).context();
    QVERIFY(!m_host->sendKeyEvent(QStringLiteral("keyDown"), context)); // no plugin is connected
    registerPlugin();
    m_received->clear();
    const QJsonObject settings{{QStringLiteral("titleParameters"), QJsonObject()}};
    QVERIFY(m_host->changeSettings(context, settings));
    QVERIFY(!m_host->changeSettings(QStringLiteral("nobody"), settings));
    QVERIFY(m_host->sendKeyEvent(QStringLiteral("dialRotate"), context,
                                 {{QStringLiteral("ticks"), -2}}));
    QVERIFY(!m_host->sendKeyEvent(QStringLiteral("keyDown"), QStringLiteral("nobody")));
    QTRY_COMPARE(receivedEvents(),
                 (QStringList{QStringLiteral("didReceiveSettings"), QStringLiteral("dialRotate")}));
    const QJsonObject message = parsed(m_received->at(1));
    QCOMPARE(message.value(QLatin1String("action")).toString(), key(0).action());
    const QJsonObject payload = message.value(QLatin1String("payload")).toObject();
    QCOMPARE(payload.value(QLatin1String("ticks")).toInt(), -2);
    QCOMPARE(payload.value(QLatin1String("settings")).toObject(), settings);

    QSignalSpy replied(m_host.get(), &DeckHost::settingsReplied);
    sendForKey(QStringLiteral("setSettings"), 0, {{QStringLiteral("answer"), 1}});
    QTRY_COMPARE(replied.count(), 1);
    QCOMPARE(replied.at(0).at(0).toString(), context);
    QCOMPARE(key(0).settings().value(QLatin1String("answer")).toInt(), 1);
}

void tst_DeckHost::sendsAnyText()
{
    QVERIFY(!m_host->sendText(QStringLiteral("early")));
    registerPlugin();
    m_received->clear();
    QVERIFY(m_host->sendText(QStringLiteral("no JSON")));
    QTRY_COMPARE(m_received->count(), 1);
    QCOMPARE(m_received->at(0).at(0).toString(), QStringLiteral("no JSON"));
}

void tst_DeckHost::keepsTheSizeOfTheLastPicture()
{
    registerPlugin();
    QVERIFY(key(0).pictureSize().isEmpty());
    sendForKey(QStringLiteral("setImage"), 0, {{QStringLiteral("image"), pngUrl(8, 8)}});
    QTRY_VERIFY(!key(0).picture().isNull());
    const QSize size = key(0).picture().size();
    sendForKey(QStringLiteral("setImage"), 0, {{QStringLiteral("image"), QString()}});
    QTRY_VERIFY(key(0).picture().isNull());
    QCOMPARE(key(0).pictureSize(), size);
}

void tst_DeckHost::dies()
{
    registerPlugin();
    m_received->clear();
    QSignalSpy closed(m_host.get(), &DeckHost::linkClosed);
    QSignalSpy gone(m_plugin.get(), &QWebSocket::disconnected);
    m_host->die();
    QTRY_COMPARE(gone.count(), 1);
    QTRY_COMPARE(closed.count(), 1);
    QVERIFY(!m_host->isRegistered());
    QCOMPARE(receivedEvents(), QStringList()); // nothing was sent
    m_host->die();
}

QTEST_GUILESS_MAIN(tst_DeckHost)
#include "tst_DeckHost.moc"
