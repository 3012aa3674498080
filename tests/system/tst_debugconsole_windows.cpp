#include "tests/support/KeyUuids.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/TestDisplay.h"
#include "tests/support/Waits.h"

#include <QtTest>

/// The plugin has no console until its hot key opens one. What the console shows is tested with the
/// program's parts: tst_consolelog_windows, tst_qtsystemmonitor_windows.
class tst_DebugConsole_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesStandardErrorOver();
};

namespace {

const QString pressed = QStringLiteral("nativeEvent Ctrl+Backspace pressed!");
const QString opening = QStringLiteral("尝试打开控制台...");
const QString shown = QStringLiteral("尝试显示出来");
const QString place = QStringLiteral("X: 0,y: 0");
const QString updated = QStringLiteral("-------------------updateImages over---------------------");

} // namespace

void tst_DebugConsole_windows::takesStandardErrorOver()
{
    if (!TestDisplay().isThere())
        QSKIP("There is no display to open a console on");
    RunningPlugin plugin;
    PluginProcess &process = plugin.process;
    FakeHost &host = plugin.host;
    const QString key = QStringLiteral("key");
    QVERIFY(plugin.start());
    QTRY_VERIFY(process.hasLogged(updated));
    process.pressConsoleHotKey();
    QTRY_VERIFY(process.hasLoggedInOrder(
        {QStringLiteral("outPutName: output.txt"), pressed, opening, shown, place}));

    host.appear(keyuuid::cpu, key);
    QVERIFY(host.waitForUpdate(key));
    process.pressConsoleHotKey();
    QVERIFY(host.waitForUpdate(key));
    QVERIFY(host.waitForUpdate(key));
    const QStringList lines = process.lines();
    const QStringList behind = lines.mid(lines.indexOf(PluginProcess::quoted(place)) + 1);
    QVERIFY2(behind.isEmpty(), qPrintable(behind.join(QLatin1Char('\n'))));
    host.closeLink();
    QVERIFY(process.endsWithStatus(0));
}

QTEST_GUILESS_MAIN(tst_DebugConsole_windows)
#include "tst_debugconsole_windows.moc"
