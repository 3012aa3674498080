#include "SDK/HostEvents.h"

#include "SDK/BasePlugin.h"
#include "tests/support/MessageCapture.h"

#include <QJsonDocument>
#include <QtTest>

namespace {

/// Records every call with all its arguments.
class RecordingPlugin : public BasePlugin
{
public:
    QStringList calls;

#define RECORD_KEY_EVENT(operation)                                                                \
    void operation(const QString &action, const QString &context, const QJsonObject &payload,      \
                   const QString &deviceId) override                                               \
    {                                                                                              \
        record(#operation, {action, context, text(payload), deviceId});                            \
    }
    RECORD_KEY_EVENT(DidReceiveSettings)
    RECORD_KEY_EVENT(KeyDownForAction)
    RECORD_KEY_EVENT(KeyUpForAction)
    RECORD_KEY_EVENT(DialPressForAction)
    RECORD_KEY_EVENT(DialRotateForAction)
    RECORD_KEY_EVENT(WillAppearForAction)
    RECORD_KEY_EVENT(WillDisappearForAction)
    RECORD_KEY_EVENT(SendToPlugin)
    RECORD_KEY_EVENT(TitleParametersDidChange)
    RECORD_KEY_EVENT(PropertyInspectorDidAppear)
    RECORD_KEY_EVENT(PropertyInspectorDidDisAppear)
#undef RECORD_KEY_EVENT

    void DidReceiveGlobalSettings(const QJsonObject &payload) override
    {
        record("DidReceiveGlobalSettings", {text(payload)});
    }
    void DeviceDidConnect(const QString &deviceId, const QJsonObject &deviceInfo) override
    {
        record("DeviceDidConnect", {deviceId, text(deviceInfo)});
    }
    void DeviceDidDisconnect(const QString &deviceId) override
    {
        record("DeviceDidDisconnect", {deviceId});
    }
    void SystemDidWakeUp() override
    {
        record("SystemDidWakeUp", {});
    }
    void GetDetectedSensorsData() override
    {
        record("GetDetectedSensorsData", {});
    }
    void HwInfoPortMsg(const QString &message) override
    {
        record("HwInfoPortMsg", {message});
    }

private:
    static QString text(const QJsonObject &object)
    {
        return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
    }
    void record(const char *operation, const QStringList &arguments)
    {
        calls.append(QString::fromLatin1(operation) + QLatin1Char('(') +
                     arguments.join(QLatin1Char(',')) + QLatin1Char(')'));
    }
};

} // namespace

class tst_HostEvents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void makesTheOneCall_data();
    void makesTheOneCall();
    void missingMembersAreEmpty();
    void makesNoCall_data();
    void makesNoCall();
    void logsThePortMessage();
};

void tst_HostEvents::makesTheOneCall_data()
{
    QTest::addColumn<QString>("event");
    QTest::addColumn<QString>("call");
    const auto keyEvent = [](const char *event, const char *operation) {
        QTest::newRow(event) << QString::fromLatin1(event)
                             << QString::fromLatin1(operation) +
                                    QStringLiteral("(a,c,{\"n\":1},d)");
    };
    keyEvent("keyDown", "KeyDownForAction");
    keyEvent("keyUp", "KeyUpForAction");
    keyEvent("willAppear", "WillAppearForAction");
    keyEvent("willDisappear", "WillDisappearForAction");
    keyEvent("didReceiveSettings", "DidReceiveSettings");
    keyEvent("sendToPlugin", "SendToPlugin");
    keyEvent("dialPress", "DialPressForAction");
    keyEvent("dialRotate", "DialRotateForAction");
    keyEvent("titleParametersDidChange", "TitleParametersDidChange");
    keyEvent("propertyInspectorDidAppear", "PropertyInspectorDidAppear");
    keyEvent("propertyInspectorDidDisappear", "PropertyInspectorDidDisAppear");
    const auto event = [](const char *name, const char *call) {
        QTest::newRow(name) << QString::fromLatin1(name) << QString::fromLatin1(call);
    };
    event("didReceiveGlobalSettings", "DidReceiveGlobalSettings({\"n\":1})");
    event("deviceDidConnect", "DeviceDidConnect(d,{\"name\":\"deck\"})");
    event("deviceDidDisconnect", "DeviceDidDisconnect(d)");
    event("systemDidWakeUp", "SystemDidWakeUp()");
    event("getDetectedSensorsData", "GetDetectedSensorsData()");
}

void tst_HostEvents::makesTheOneCall()
{
    QFETCH(QString, event);
    QFETCH(QString, call);
    RecordingPlugin plugin;
    dispatchHostEvent(
        QStringLiteral(
            R"({"event":"%1","action":"a","context":"c","device":"d","payload":{"n":1},"deviceInfo":{"name":"deck"}})")
            .arg(event),
        plugin);
    QCOMPARE(plugin.calls, QStringList(call));
}

void tst_HostEvents::missingMembersAreEmpty()
{
    RecordingPlugin plugin;
    dispatchHostEvent(QStringLiteral(R"({"event":"keyDown"})"), plugin);
    dispatchHostEvent(
        QStringLiteral(R"({"event":"keyUp","action":1,"context":{},"device":[],"payload":"text"})"),
        plugin);
    dispatchHostEvent(QStringLiteral(R"({"event":"deviceDidConnect","deviceInfo":3})"), plugin);
    QCOMPARE(plugin.calls, (QStringList{QStringLiteral("KeyDownForAction(,,{},)"),
                                        QStringLiteral("KeyUpForAction(,,{},)"),
                                        QStringLiteral("DeviceDidConnect(,{})")}));
}

void tst_HostEvents::makesNoCall_data()
{
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const QString &text) { QTest::newRow(name) << text; };
    row("unknown event", QStringLiteral(R"({"event":"keydown","action":"a"})"));
    row("no event", QStringLiteral(R"({"action":"a","context":"c"})"));
    row("event of another type", QStringLiteral(R"({"event":["keyDown"]})"));
    row("appearing without action", QStringLiteral(R"({"event":"willAppear","context":"c"})"));
    row("appearing with empty action",
        QStringLiteral(R"({"event":"willAppear","action":"","context":"c"})"));
    row("audio devices: recognised and ignored", QStringLiteral(R"({"event":"GetAudioDevList"})"));
    row("sensors in other letters", QStringLiteral(R"({"event":"GetDetectedSensorsData"})"));
    row("port in other letters", QStringLiteral(R"({"event":"HwInfoPort"})"));
    row("not JSON", QStringLiteral("keyDown"));
    row("empty", QString());
    row("array", QStringLiteral(R"([{"event":"keyDown"}])"));
    row("cut off", QStringLiteral(R"({"event":"keyDown")"));
    row("junk behind it", QStringLiteral(R"({"event":"keyDown"} x)"));
    row("nested 10,000 deep",
        QStringLiteral(R"({"event":"keyDown","payload":)") + QString(10000, QLatin1Char('[')));
    row("lone surrogate", QStringLiteral(R"({"event":"key)") + QChar(0xD800));
}

void tst_HostEvents::makesNoCall()
{
    QFETCH(QString, text);
    const MessageCapture capture;
    RecordingPlugin plugin;
    dispatchHostEvent(text, plugin);
    QCOMPARE(plugin.calls, QStringList());
    QCOMPARE(MessageCapture::messages(), QStringList());
}

void tst_HostEvents::logsThePortMessage()
{
    const QString text = QStringLiteral(R"({"event":"hwInfoPort","hwInfoPort":"15600"})");
    const MessageCapture capture;
    RecordingPlugin plugin;
    dispatchHostEvent(text, plugin);
    QCOMPARE(plugin.calls, QStringList(QStringLiteral("HwInfoPortMsg(%1)").arg(text)));
    QCOMPARE(MessageCapture::messages(),
             QStringList(MessageCapture::quoted(QStringLiteral("hwInfoPort: ") + text)));
}

QTEST_GUILESS_MAIN(tst_HostEvents)
#include "tst_hostevents.moc"
