#include "tests/support/KeyUuids.h"
#include "tests/support/ProcessControl.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/Waits.h"

#include <QDir>
#include <QElapsedTimer>
#include <QtTest>

/// Faults of the machine while the plugin runs.
class tst_Faults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsWhenItsHostIsKilled();
    void outlivesAHostThatIsStopped();
    void outlivesALogThatCannotBeWritten();
    void goesOnAfterAPause();
    void takesAMessageOfManyMegabytes();
    void updatesTenThousandKeys();
};

namespace {

const QString cpu = keyuuid::cpu;
const QString key = QStringLiteral("key");
const QString passEnd = QStringLiteral("-------------------updateImages over---------------------");

/// Whether the key gets its next picture and title, \a times times.
bool updates(const FakeHost &host, int times = 2)
{
    for (int update = 0; update < times; ++update) {
        if (!host.waitForUpdate(key))
            return false;
    }
    return !FakeHost::picture(host.images(key).constLast()).isNull();
}

/// A host in a process of its own: tests/support/programs/host_process.cpp.
class HostProcess : public QProcess
{
public:
    explicit HostProcess(int keys)
    {
        start(QStringLiteral(HOST_EXECUTABLE), {QString::number(keys)});
    }
    ~HostProcess() override
    {
        kill();
        waitForFinished();
    }
    Q_DISABLE_COPY(HostProcess)

    /// The command line of the plugin; none yet at first.
    QStringList arguments() { return lines().value(0).split(QLatin1Char(' '), Qt::SkipEmptyParts); }

    bool hasRegistered() { return lines().value(1) == QLatin1String("registered"); }

    /// The number of pictures that it has received.
    int pictures() { return lines().constLast().toInt(); }

    void stop() { processcontrol::freeze(processId()); }
    void goOn() { processcontrol::thaw(processId()); }

private:
    const QStringList &lines()
    {
        while (canReadLine())
            m_lines.append(QString::fromUtf8(readLine().trimmed()));
        return m_lines;
    }

    QStringList m_lines;
};

} // namespace

void tst_Faults::endsWhenItsHostIsKilled()
{
    HostProcess host(0);
    PluginProcess plugin;
    QTRY_VERIFY(!host.arguments().isEmpty());
    plugin.launch(host.arguments());
    QTRY_VERIFY(host.hasRegistered());
    host.kill();
    QVERIFY(plugin.endsWithStatus(0));
    QVERIFY(plugin.content(QStringLiteral("log.txt")).contains("Disonnected-serverPort: "));
}

void tst_Faults::outlivesAHostThatIsStopped()
{
    constexpr int keys = 1000;
    constexpr qint64 backlog = 32LL * 1024 * 1024;
    HostProcess host(keys);
    PluginProcess plugin;
    QTRY_VERIFY(!host.arguments().isEmpty());
    plugin.launch(host.arguments());
    QTRY_VERIFY(host.hasRegistered());
    QTRY_VERIFY(host.pictures() >= 2 * keys);
    const qint64 before = plugin.residentMemory();

    host.stop();
    const QByteArray line("The host does not read: pictures are dropped until it does");
    const auto log = [&plugin] { return plugin.content(QStringLiteral("log.txt")); };
    QTRY_VERIFY_WITH_TIMEOUT(log().contains(line), 5 * patience);
    // A few more passes.
    const int passes = plugin.timesLogged(passEnd);
    QTRY_VERIFY(plugin.timesLogged(passEnd) >= passes + 5);
    const qint64 meanwhile = plugin.residentMemory();
    constexpr int most = 3;
    QVERIFY2(hasHeapOfItsOwn || meanwhile < before + most * backlog,
             qPrintable(QString::number(meanwhile - before)));

    host.goOn();
    const int read = host.pictures();
    // More than can have been waiting.
    QTRY_VERIFY(host.pictures() >= read + 10 * keys);
    QCOMPARE(log().count(line), 1);
}

void tst_Faults::outlivesALogThatCannotBeWritten()
{
    RunningPlugin plugin;
    QVERIFY(QDir(plugin.process.workingFolder()).mkdir(QStringLiteral("log.txt")));
    QVERIFY(plugin.start());
    plugin.host.appear(cpu, key);
    QVERIFY(updates(plugin.host));
    plugin.host.closeLink();
    QVERIFY(plugin.process.endsWithStatus(0));
}

void tst_Faults::goesOnAfterAPause()
{
    RunningPlugin plugin;
    QVERIFY(plugin.start());
    plugin.host.appear(cpu, key);
    QVERIFY(updates(plugin.host));
    // Like sleep of the machine, a stop halts the process but not the clock.
    plugin.process.freeze();
    const auto before = plugin.host.titles(key).size();
    QVERIFY(!QTest::qWaitFor([&] { return plugin.host.titles(key).size() > before + 1; }, 4000));
    plugin.process.thaw();
    plugin.host.sendEvent(QStringLiteral("systemDidWakeUp"), QString(), QString());
    QElapsedTimer timer;
    timer.start();
    QVERIFY(plugin.host.waitForMessages(QStringLiteral("setTitle"), key, before + 4));
    // Missed passes are not repeated.
    QVERIFY2(timer.elapsed() > 900, qPrintable(QString::number(timer.elapsed())));
}

void tst_Faults::takesAMessageOfManyMegabytes()
{
    RunningPlugin plugin;
    QVERIFY(plugin.start());
    plugin.host.appear(cpu, key);
    QVERIFY(updates(plugin.host));
    constexpr int megabytes = 50;
    const QString huge(megabytes * 1024 * 1024, QLatin1Char('x'));
    plugin.host.sendText(QStringLiteral(R"({"event":"keyDown","context":"%1"})").arg(huge));
    plugin.host.sendText(huge);
    QVERIFY(updates(plugin.host, 3));
    QVERIFY2(plugin.process.residentMemory() < 1500LL * 1024 * 1024,
             qPrintable(QString::number(plugin.process.residentMemory())));
}

void tst_Faults::updatesTenThousandKeys()
{
    constexpr int keys = 10000;
    RunningPlugin plugin;
    QVERIFY(plugin.start());
    for (int index = 0; index < keys; ++index)
        plugin.host.appear(cpu, QStringLiteral("key %1").arg(index));
    const QString last = QStringLiteral("key %1").arg(keys - 1);
    QTRY_VERIFY_WITH_TIMEOUT(!plugin.host.titles(last).isEmpty() || !plugin.process.isRunning(),
                             10 * patience);
    QVERIFY(plugin.process.isRunning());
    QVERIFY(!FakeHost::picture(plugin.host.images(last).constFirst()).isNull());
    for (int index = 0; index < keys; ++index)
        plugin.host.disappear(cpu, QStringLiteral("key %1").arg(index));
    plugin.host.appear(cpu, key);
    QTRY_VERIFY_WITH_TIMEOUT(!plugin.host.titles(key).isEmpty(), 10 * patience);
}

QTEST_GUILESS_MAIN(tst_Faults)
#include "tst_faults.moc"
