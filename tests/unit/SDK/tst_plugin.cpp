#include "SDK/Action.h"
#include "SDK/Plugin.h"
#include "tests/support/TemporaryWorkingDirectory.h"

#include <QtTest>

#include <memory>

namespace {

/// Records every call.
class RecordingAction : public Action
{
public:
    explicit RecordingAction(QStringList &calls)
        : Action(nullptr, QStringLiteral("uuid"), QStringLiteral("ctx"))
        , m_calls(calls)
    {
    }

    void DidReceiveSettings(const QJsonObject &payload) override
    {
        record("DidReceiveSettings", payload);
    }
    void KeyDown(const QJsonObject &payload) override { record("KeyDown", payload); }
    void KeyUp(const QJsonObject &payload) override { record("KeyUp", payload); }
    void DialUp(const QJsonObject &payload) override { record("DialUp", payload); }
    void DialDown(const QJsonObject &payload) override { record("DialDown", payload); }
    void SendToPlugin(const QJsonObject &payload) override { record("SendToPlugin", payload); }
    void WillAppear(const QJsonObject &payload) override { record("WillAppear", payload); }
    void WillDisappear(const QJsonObject &payload) override { record("WillDisappear", payload); }
    void RotateClockwise(const QJsonObject & /*payload*/, int ticks, bool pressed) override
    {
        m_calls.append(QStringLiteral("RotateClockwise %1 %2").arg(ticks).arg(pressed));
    }
    void RotateCounterClockwise(const QJsonObject & /*payload*/, int ticks, bool pressed) override
    {
        m_calls.append(QStringLiteral("RotateCounterClockwise %1 %2").arg(ticks).arg(pressed));
    }

private:
    void record(const char *operation, const QJsonObject &payload)
    {
        m_calls.append(QString::fromLatin1(operation) + QLatin1Char(' ') +
                       payload.value(QStringLiteral("n")).toString());
    }

    QStringList &m_calls;
};

/// Knows one key, "uuid" in "ctx".
class OneKeyPlugin : public Plugin
{
public:
    OneKeyPlugin()
        : m_action(calls)
    {
    }

    Action *GetOrCreateAction(const QString &action, const QString &context) override
    {
        const bool known = action == QLatin1String("uuid") && context == QLatin1String("ctx");
        return known ? &m_action : nullptr;
    }
    bool RemoveAction(const QString &action, const QString &context) override
    {
        calls.append(QStringLiteral("RemoveAction %1 %2").arg(action, context));
        return true;
    }

    QStringList calls;

private:
    RecordingAction m_action;
};

using Operation = void (BasePlugin::*)(const QString &, const QString &, const QJsonObject &,
                                       const QString &);

} // namespace

Q_DECLARE_METATYPE(Operation)

class tst_Plugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void routesToTheAction_data();
    void routesToTheAction();
    void reportsAMissingAction_data();
    void reportsAMissingAction();
    void otherEventsDoNothing();
    void actionKeepsItsTexts();
    void baseActionDoesNothing();

private:
    static void call(BasePlugin &plugin, Operation operation, const QString &action,
                     const QJsonObject &payload)
    {
        (plugin.*operation)(action, QStringLiteral("ctx"), payload, QStringLiteral("dev"));
    }
};

void tst_Plugin::routesToTheAction_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QJsonObject>("payload");
    QTest::addColumn<QStringList>("calls");
    const QJsonObject n{{QStringLiteral("n"), QStringLiteral("7")}};
    const auto row = [](const char *name, Operation operation, const QJsonObject &payload,
                        const QStringList &calls) {
        QTest::newRow(name) << operation << payload << calls;
    };
    const auto dial = [](const QJsonValue &pressed) {
        return QJsonObject{{QStringLiteral("pressed"), pressed}};
    };
    const auto turn = [](const QJsonValue &ticks, const QJsonValue &pressed) {
        return QJsonObject{{QStringLiteral("ticks"), ticks}, {QStringLiteral("pressed"), pressed}};
    };
    row("settings", &BasePlugin::DidReceiveSettings, n, {QStringLiteral("DidReceiveSettings 7")});
    row("key down", &BasePlugin::KeyDownForAction, n, {QStringLiteral("KeyDown 7")});
    row("key up", &BasePlugin::KeyUpForAction, n, {QStringLiteral("KeyUp 7")});
    row("send", &BasePlugin::SendToPlugin, n, {QStringLiteral("SendToPlugin 7")});
    row("appear", &BasePlugin::WillAppearForAction, n, {QStringLiteral("WillAppear 7")});
    row("disappear, then removed", &BasePlugin::WillDisappearForAction, n,
        {QStringLiteral("WillDisappear 7"), QStringLiteral("RemoveAction uuid ctx")});
    row("dial down", &BasePlugin::DialPressForAction, dial(true), {QStringLiteral("DialDown ")});
    row("dial up", &BasePlugin::DialPressForAction, dial(false), {QStringLiteral("DialUp ")});
    row("dial without pressed", &BasePlugin::DialPressForAction, n, {QStringLiteral("DialUp 7")});
    row("dial pressed by text", &BasePlugin::DialPressForAction, dial(QStringLiteral("true")),
        {QStringLiteral("DialUp ")});
    row("3 ticks left", &BasePlugin::DialRotateForAction, turn(-3, false),
        {QStringLiteral("RotateCounterClockwise 3 0")});
    row("0 ticks", &BasePlugin::DialRotateForAction, turn(0, false),
        {QStringLiteral("RotateClockwise 0 0")});
    row("5 ticks right, held", &BasePlugin::DialRotateForAction, turn(5, true),
        {QStringLiteral("RotateClockwise 5 1")});
    row("no ticks", &BasePlugin::DialRotateForAction, n, {QStringLiteral("RotateClockwise 0 0")});
    row("ticks by text", &BasePlugin::DialRotateForAction, turn(QStringLiteral("-3"), 1),
        {QStringLiteral("RotateClockwise 0 0")});
    row("most ticks left", &BasePlugin::DialRotateForAction, turn(-2147483648.0, false),
        {QStringLiteral("RotateCounterClockwise 2147483647 0")});
    row("ticks beyond an integer", &BasePlugin::DialRotateForAction, turn(-1e300, false),
        {QStringLiteral("RotateClockwise 0 0")});
}

void tst_Plugin::routesToTheAction()
{
    QFETCH(Operation, operation);
    QFETCH(QJsonObject, payload);
    QFETCH(QStringList, calls);
    const TemporaryWorkingDirectory directory;
    OneKeyPlugin plugin;
    call(plugin, operation, QStringLiteral("uuid"), payload);
    QCOMPARE(plugin.calls, calls);
    QVERIFY(directory.content(QStringLiteral("log.txt")).isEmpty());
}

void tst_Plugin::reportsAMissingAction_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QByteArray>("line");
    const auto row = [](Operation operation, const char *line) {
        QTest::newRow(line) << operation << QByteArray(line);
    };
    row(&BasePlugin::DidReceiveSettings, "No action for DidReceiveSettings: other %1 ctx");
    row(&BasePlugin::KeyDownForAction, "No action for keydown - other %1 ctx");
    row(&BasePlugin::KeyUpForAction, "No action for keyup - other %1 ctx");
    row(&BasePlugin::DialPressForAction, "No action for dialPress - other %1 ctx");
    row(&BasePlugin::DialRotateForAction, "No action for dialRotate - other %1 ctx");
    row(&BasePlugin::WillAppearForAction, "No action for WillAppear - other %1 ctx");
    row(&BasePlugin::WillDisappearForAction, "No action for WillDisappear - other %1 ctx");
    row(&BasePlugin::SendToPlugin, "Received plugin request for unknown action other %1 ctx");
}

void tst_Plugin::reportsAMissingAction()
{
    QFETCH(Operation, operation);
    QFETCH(QByteArray, line);
    const TemporaryWorkingDirectory directory;
    OneKeyPlugin plugin;
    // A UUID that looks like a placeholder is written unchanged.
    call(plugin, operation, QStringLiteral("other %1"), {});
    QCOMPARE(plugin.calls, QStringList());
    const QByteArray log = directory.content(QStringLiteral("log.txt"));
    QVERIFY2(log.endsWith("SDK/Logger " + line + "\r\n"), log.constData());
}

void tst_Plugin::otherEventsDoNothing()
{
    const TemporaryWorkingDirectory directory;
    OneKeyPlugin plugin;
    const QString uuid = QStringLiteral("uuid");
    plugin.DidReceiveGlobalSettings({});
    plugin.DeviceDidConnect(uuid, {});
    plugin.DeviceDidDisconnect(uuid);
    plugin.SystemDidWakeUp();
    call(plugin, &BasePlugin::TitleParametersDidChange, uuid, {});
    call(plugin, &BasePlugin::PropertyInspectorDidAppear, uuid, {});
    call(plugin, &BasePlugin::PropertyInspectorDidDisAppear, uuid, {});
    plugin.GetDetectedSensorsData();
    plugin.HwInfoPortMsg(QStringLiteral("{}"));
    QCOMPARE(plugin.calls, QStringList());
    QVERIFY(directory.content(QStringLiteral("log.txt")).isEmpty());
}

void tst_Plugin::actionKeepsItsTexts()
{
    const Action action(nullptr, QStringLiteral("a"), QStringLiteral("c"));
    QCOMPARE(action.GetAction(), QStringLiteral("a"));
    QCOMPARE(action.GetContext(), QStringLiteral("c"));
}

void tst_Plugin::baseActionDoesNothing()
{
    const TemporaryWorkingDirectory directory;
    Action action(nullptr, QStringLiteral("a"), QStringLiteral("c"));
    action.DidReceiveSettings({});
    action.KeyDown({});
    action.KeyUp({});
    action.DialUp({});
    action.DialDown({});
    action.SendToPlugin({});
    action.WillAppear({});
    action.WillDisappear({});
    action.RotateClockwise({}, 1, false);
    action.RotateCounterClockwise({}, 1, false);
    QCOMPARE(action.GetAction(), QStringLiteral("a"));
    QVERIFY(directory.content(QStringLiteral("log.txt")).isEmpty());
}

QTEST_GUILESS_MAIN(tst_Plugin)
#include "tst_plugin.moc"
