#include "tests/support/KeyUuids.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/Waits.h"

#include <QtTest>

/// Which of Qt's platforms the plugin runs on, told by what it has loaded.
class tst_Platform_linux : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithoutADisplay_data();
    void startsWithoutADisplay();
    void keepsTheUsersChoice();
    void failsOnAChoiceThatCannotStart();
    void usesADisplay();
};

namespace {

const QString display = QStringLiteral("DISPLAY");
const QString waylandDisplay = QStringLiteral("WAYLAND_DISPLAY");
const QString platform = QStringLiteral("QT_QPA_PLATFORM");
/// Neither has a server.
const QString noDisplay = QStringLiteral(":4711");
const QString noWaylandDisplay = QStringLiteral("wayland-of-nobody");

QByteArray mapsOf(qint64 process)
{
    QFile maps(QStringLiteral("/proc/%1/maps").arg(process));
    return maps.open(QIODevice::ReadOnly) ? maps.readAll() : QByteArray();
}

} // namespace

void tst_Platform_linux::startsWithoutADisplay_data()
{
    QTest::addColumn<QString>("displayName");
    QTest::addColumn<QString>("waylandDisplayName");
    QTest::newRow("no display") << QString() << QString();
    QTest::newRow("X out of reach") << noDisplay << QString();
    QTest::newRow("Wayland out of reach") << QString() << noWaylandDisplay;
    QTest::newRow("both out of reach") << noDisplay << noWaylandDisplay;
}

void tst_Platform_linux::startsWithoutADisplay()
{
    QFETCH(QString, displayName);
    QFETCH(QString, waylandDisplayName);
    RunningPlugin plugin;
    plugin.process.setVariable(display, displayName);
    plugin.process.setVariable(waylandDisplay, waylandDisplayName);
    QVERIFY(plugin.start());
    QVERIFY(plugin.process.platforms().contains(QStringLiteral("offscreen")));

    const QString key = QStringLiteral("key");
    plugin.host.appear(keyuuid::cpu, key);
    QVERIFY(plugin.host.waitForUpdate(key));
    QVERIFY(FakeHost::hasInk(plugin.host.images(key).constLast()));
}

void tst_Platform_linux::keepsTheUsersChoice()
{
    RunningPlugin plugin;
    plugin.process.setVariable(display, noDisplay);
    plugin.process.setVariable(platform, QStringLiteral("minimal"));
    QVERIFY(plugin.start());
    QVERIFY(plugin.process.platforms().contains(QStringLiteral("minimal")));
    QVERIFY(!plugin.process.platforms().contains(QStringLiteral("offscreen")));
}

void tst_Platform_linux::failsOnAChoiceThatCannotStart()
{
    RunningPlugin plugin;
    plugin.process.setVariable(display, noDisplay);
    plugin.process.setVariable(platform, QStringLiteral("xcb"));
    plugin.process.launch(plugin.host.arguments());
    QVERIFY(plugin.process.waitForEnd());
    QVERIFY(plugin.process.exitStatus() == QProcess::CrashExit);
    QVERIFY(plugin.process.hasPrinted(noDisplay));
}

void tst_Platform_linux::usesADisplay()
{
    QProcess server;
    server.start(QStringLiteral("Xvfb"), {QStringLiteral("-displayfd"), QStringLiteral("1"),
                                          QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    if (!server.waitForStarted())
        QSKIP("There is no Xvfb (Debian package xvfb)");
    const auto endServer = qScopeGuard([&server] {
        server.terminate();
        server.waitForFinished();
    });
    if (!QTest::qWaitFor([&server] { return server.canReadLine(); }, patience))
        QSKIP("Xvfb does not start here");

    RunningPlugin plugin;
    const QString name = QLatin1Char(':') + QString::fromLatin1(server.readLine().trimmed());
    plugin.process.setVariable(display, name);
    QVERIFY(plugin.start());
    QVERIFY(plugin.process.platforms().contains(QStringLiteral("xcb")));
    QVERIFY(!plugin.process.platforms().contains(QStringLiteral("offscreen")));
    const QByteArray loaded = mapsOf(plugin.process.processId());
    QVERIFY(loaded.contains("libqxcb.so"));
    QVERIFY(!loaded.contains("/xcbglintegrations/"));
}

QTEST_GUILESS_MAIN(tst_Platform_linux)
#include "tst_platform_linux.moc"
