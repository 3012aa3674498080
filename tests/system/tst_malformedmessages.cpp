#include "tests/support/Json.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/RunningPlugin.h"

#include <QRegularExpression>
#include <QtTest>

#include <memory>

/// One plugin with one key has to survive all of it.
class tst_MalformedMessages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void changeNothing_data();
    void changeNothing();
    void binaryFrameChangesNothing();
    void outlandishSettings_data();
    void outlandishSettings();
    void keyIsStillUpdated();

private:
    /// True when the plugin has handled everything sent before and still answers.
    bool answers();

    std::unique_ptr<RunningPlugin> m_plugin;
    int m_probes = 0;
};

namespace {

const QString cpu = keyuuid::cpu;
const QString key = QStringLiteral("key");
const QString setSettings = QStringLiteral("setSettings");
constexpr int megabyte = 1024 * 1024;

/// \a text with the action's UUID for "@cpu".
QString toCpu(const QByteArray &text)
{
    return QString::fromUtf8(text).replace(QLatin1String("@cpu"), cpu);
}

} // namespace

void tst_MalformedMessages::initTestCase()
{
    m_plugin = std::make_unique<RunningPlugin>();
    QVERIFY(m_plugin->start());
    m_plugin->host.appear(cpu, key, FakeHost::keySettings(json(R"({"text": "Steady"})")));
    QVERIFY(m_plugin->host.waitForUpdate(key));
}

void tst_MalformedMessages::cleanupTestCase()
{
    m_plugin.reset();
}

bool tst_MalformedMessages::answers()
{
    const QString probe = QStringLiteral("probe %1").arg(++m_probes);
    m_plugin->host.appear(cpu, probe);
    m_plugin->host.disappear(cpu, probe);
    return m_plugin->host.waitForMessages(setSettings, probe, 1);
}

void tst_MalformedMessages::changeNothing_data()
{
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, const QByteArray &text) {
        QTest::newRow(name) << toCpu(text);
    };
    row("empty", "");
    row("blanks", " \r\n\t ");
    row("no JSON", "willAppear");
    row("cut off", R"({"event":"willAppear","action":"@cpu")");
    row("something behind the object", R"({"event":"willDisappear"} {)");
    row("number", "42");
    row("null", "null");
    row("text", R"("willAppear")");
    row("empty list", "[]");
    row("message in a list", R"([{"event":"willDisappear","action":"@cpu","context":"key"}])");
    row("empty object", "{}");
    row("no event", R"({"action":"@cpu","context":"key"})");
    row("event is a number", R"({"event":1,"context":"key"})");
    row("event is a list", R"({"event":["willDisappear"],"context":"key"})");
    row("event is an object", R"({"event":{"willDisappear":1},"context":"key"})");
    row("event is null", R"({"event":null,"context":"key"})");
    row("event unknown", R"({"event":"selfDestruct","context":"key"})");
    row("event in other letter case",
        R"({"event":"WillDisappear","action":"@cpu","context":"key"})");
    row("event with a tail", R"({"event":"willDisappear ","action":"@cpu","context":"key"})");
    row("willAppear, no action", R"({"event":"willAppear","context":"none"})");
    row("willAppear, empty action", R"({"event":"willAppear","action":"","context":"none"})");
    row("willAppear, action is a number", R"({"event":"willAppear","action":7,"context":"none"})");
    row("willDisappear, no context", R"({"event":"willDisappear","action":"@cpu"})");
    row("willDisappear, context is a list",
        R"({"event":"willDisappear","action":"@cpu","context":["key"]})");
    row("willDisappear, no action", R"({"event":"willDisappear","context":"key"})");
    row("didReceiveSettings, unknown key",
        R"({"event":"didReceiveSettings","action":"x","context":"none","payload":{}})");
    row("didReceiveSettings, action is an object",
        R"({"event":"didReceiveSettings","action":{},"context":"key","payload":{}})");
    row("keyDown, payload is a number",
        R"({"event":"keyDown","action":"@cpu","context":"key","payload":1})");
    row("keyUp, nothing else", R"({"event":"keyUp"})");
    row("dialPress, pressed is a text",
        R"({"event":"dialPress","action":"@cpu","context":"key","payload":{"pressed":"yes"}})");
    row("dialRotate, ticks out of range",
        R"({"event":"dialRotate","action":"@cpu","context":"key",
            "payload":{"ticks":-1e300,"pressed":[]}})");
    row("dialRotate, smallest ticks",
        R"({"event":"dialRotate","action":"@cpu","context":"key",
            "payload":{"ticks":-2147483648}})");
    row("deviceDidConnect, device is a number",
        R"({"event":"deviceDidConnect","device":3,"deviceInfo":"x"})");
    row("didReceiveGlobalSettings, payload is a list",
        R"({"event":"didReceiveGlobalSettings","payload":[1,2]})");
    row("sendToPlugin, no payload", R"({"event":"sendToPlugin","action":"@cpu","context":"key"})");
    row("systemDidWakeUp", R"({"event":"systemDidWakeUp","payload":"x"})");
    row("getDetectedSensorsData", R"({"event":"getDetectedSensorsData"})");
    row("GetAudioDevList", R"({"event":"GetAudioDevList"})");
    row("hwInfoPort, no port", R"({"event":"hwInfoPort"})");
    row("hwInfoPort, port is a list", R"({"event":"hwInfoPort","hwInfoPort":[15501]})");
    row("zero character", QByteArray("{\"event\":\"will\0Disappear\",\"context\":\"key\"}", 41));
    row("a megabyte of junk", QByteArray(megabyte, 'x'));
    row("a megabyte of event", R"({"event":")" + QByteArray(megabyte, 'e') + R"("})");
    row("deep lists", QByteArray(100000, '['));
    row("deep objects", QByteArray("{\"a\":").repeated(100000) + "1" + QByteArray(100000, '}'));
    row("deep payload", R"({"event":"keyDown","context":"key","payload":)" +
                            QByteArray("{\"a\":").repeated(900) + "1" + QByteArray(900, '}') + "}");
}

void tst_MalformedMessages::changeNothing()
{
    QFETCH(QString, text);
    FakeHost &host = m_plugin->host;
    const auto replies = [&host](const QString &context) { return host.settings(context).size(); };
    const auto toKey = replies(key);
    host.sendText(text);
    QVERIFY(answers());
    QCOMPARE(replies(key), toKey);
    QCOMPARE(replies(QString()), 0);
    QCOMPARE(replies(QStringLiteral("none")), 0);
    QVERIFY(m_plugin->process.isRunning());
}

void tst_MalformedMessages::binaryFrameChangesNothing()
{
    m_plugin->host.sendBinary(
        toCpu(R"({"event":"willDisappear","action":"@cpu","context":"key"})").toUtf8());
    m_plugin->host.sendBinary(QByteArray(megabyte, '\xff'));
    QVERIFY(answers());
}

void tst_MalformedMessages::outlandishSettings_data()
{
    QTest::addColumn<QString>("settings");

    const auto row = [](const char *name, const QByteArray &settings) {
        QTest::newRow(name) << QString::fromUtf8(settings);
    };
    row("giant font", R"({"fontSize": 2147483647})");
    row("long title", R"({"text": ")" + QByteArray(20000, 'W') + R"(", "fontSize": 600})");
    row("title of a megabyte", R"({"text": ")" + QByteArray(megabyte, 'W') + R"("})");
    row("title of line breaks", R"({"text": "a\nb\r\n\tc"})");
    row("title of other scripts", R"({"text": "网速 🌡️ \u202e שלום \ud800"})");
    row("opacity out of range", R"({"opacity": -1e300})");
    row("colour out of this world", R"({"color": "octarine"})");
    row("colour of a megabyte", R"({"color": "#)" + QByteArray(megabyte, 'f') + R"("})");
    row("font family of bars", R"({"fontFamily": "||||"})");
    row("font family of a megabyte", R"({"fontFamily": ")" + QByteArray(megabyte, 'F') + R"("})");
}

void tst_MalformedMessages::outlandishSettings()
{
    QFETCH(QString, settings);
    const QString context = QString::fromUtf8(QTest::currentDataTag());
    FakeHost &host = m_plugin->host;
    const QJsonObject changes = json(settings.toUtf8());
    QVERIFY(!changes.isEmpty());
    host.appear(cpu, context, FakeHost::keySettings(changes));
    QVERIFY(host.waitForUpdate(context));
    host.disappear(cpu, context);
    QVERIFY(answers());
    QVERIFY(m_plugin->process.isRunning());
}

void tst_MalformedMessages::keyIsStillUpdated()
{
    FakeHost &host = m_plugin->host;
    QVERIFY(host.waitForUpdate(key));
    static const QRegularExpression steady(QStringLiteral("\\ASteady: \\d{1,3}%\\z"));
    const QStringList titles = host.titles(key);
    for (const QString &title : titles)
        QVERIFY2(steady.match(title).hasMatch(), qPrintable(title));
    const QStringList images = host.images(key);
    for (const QString &image : images)
        QVERIFY(!FakeHost::picture(image).isNull());
    QCOMPARE(host.connections(), 1);
}

QTEST_GUILESS_MAIN(tst_MalformedMessages)
#include "tst_malformedmessages.moc"
