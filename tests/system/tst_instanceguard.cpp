#include "tests/support/DataServerClient.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/Waits.h"

#include <QTcpServer>
#include <QWebSocketServer>
#include <QtTest>

#include <memory>
#include <vector>

class tst_InstanceGuard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leavesAServingInstanceAlone();
    void endsAFrozenInstanceAndServes();
    void endsProcessesOfItsNameOnly();
    void takesASilentListenerForAHungInstance();
    void takesAnyAnsweringServerForAnInstance();
};

namespace {

const QString failedProbe =
    QStringLiteral("Connect to PROT: 24509 Failed, try to killProcess and Running..");
const QString answeredProbe =
    QStringLiteral("Connect to PROT: 24509 Success(SystemMonitorIsAlearyRunning), Exit");
const QString suffix = QStringLiteral(EXECUTABLE_SUFFIX);
const QString ownName = QStringLiteral("当前进程名:QtSystemMonitor") + suffix;
const QString ended = QStringLiteral("已终止进程 ID:");
const QString endedAll = QStringLiteral("已终止所有同名进程。");
const QString notServing = QStringLiteral("WebSocket server failed to start!");
const QString cpu = keyuuid::cpu;
const QString key = QStringLiteral("key");

/// A program that keeps running, under the name of its file.
class NamedProcess : public QProcess
{
public:
    explicit NamedProcess(const QString &name)
        : m_path(m_folder.filePath(name + suffix))
    {
        QFile::copy(QStringLiteral(IDLE_EXECUTABLE), m_path);
        start(m_path, QStringList());
    }
    ~NamedProcess() override
    {
        kill();
        waitForFinished();
    }
    Q_DISABLE_COPY(NamedProcess)

private:
    QTemporaryDir m_folder;
    QString m_path;
};

} // namespace

void tst_InstanceGuard::leavesAServingInstanceAlone()
{
    RunningPlugin first;
    QVERIFY(first.start());
    DataServerClient panel;
    QVERIFY(panel.open());

    RunningPlugin second;
    QVERIFY(second.start());
    QTRY_VERIFY(second.process.hasLogged(answeredProbe));
    QVERIFY(!second.process.hasLogged(failedProbe));
    QVERIFY(!second.process.hasPrinted(ended));
    QTRY_VERIFY(second.process.hasPrinted(notServing));

    // Both serve their hosts; only the first serves the port.
    for (RunningPlugin *const plugin : {&first, &second}) {
        plugin->host.appear(cpu, key);
        QVERIFY(plugin->host.waitForUpdate(key));
    }
    QVERIFY(!panel.ask(QStringLiteral("Cpu Usage")).isEmpty());
    QVERIFY(!second.process.hasPrinted(QStringLiteral("Message received from client:")));
}

void tst_InstanceGuard::endsAFrozenInstanceAndServes()
{
    RunningPlugin first;
    QVERIFY(first.start());
    const QString firstId = QString::number(first.process.processId());
    first.process.freeze();

    RunningPlugin second;
    QVERIFY(second.start());
    QVERIFY(first.process.waitForEnd());
    // It had no chance to end by itself.
    QVERIFY(!first.process.content(QStringLiteral("log.txt")).contains("Disonnected"));
    QTRY_VERIFY(second.process.hasLoggedInOrder({failedProbe, ownName, ended + firstId, endedAll}));
    QCOMPARE(second.process.lines().filter(ended).size(), 1);

    QVERIFY(!second.process.hasPrinted(notServing));
    DataServerClient panel;
    QVERIFY(panel.open());
    QVERIFY(!panel.ask(QStringLiteral("Cpu Usage")).isEmpty());
}

void tst_InstanceGuard::endsProcessesOfItsNameOnly()
{
    const QStringList sameNames{QStringLiteral("QtSystemMonitor"),
                                QStringLiteral("qtsystemmonitor"),
                                QStringLiteral("QTSYSTEMMONITOR")};
    const QStringList otherNames{QStringLiteral("sleep"), QStringLiteral("QtSystemMonito"),
                                 QStringLiteral("QtSystemMonitor2"),
                                 QStringLiteral("QtSystemMonitor (deleted)")};
    std::vector<std::unique_ptr<NamedProcess>> processes;
    for (const QString &name : sameNames + otherNames) {
        processes.push_back(std::make_unique<NamedProcess>(name));
        QVERIFY2(processes.back()->waitForStarted(), qPrintable(name));
    }

    RunningPlugin plugin;
    QVERIFY(plugin.start());
    for (const auto &process : processes) {
        const QString name = QFileInfo(process->program()).completeBaseName();
        const bool same = sameNames.contains(name);
        QVERIFY2(!same || QTest::qWaitFor(
                              [&process] { return process->state() == QProcess::NotRunning; }),
                 qPrintable(name));
        QVERIFY2(same || process->state() == QProcess::Running, qPrintable(name));
    }
    QTRY_VERIFY(plugin.process.hasLoggedInOrder({failedProbe, ownName, endedAll}));
    QCOMPARE(plugin.process.lines().filter(ended).size(), sameNames.size());
}

void tst_InstanceGuard::takesASilentListenerForAHungInstance()
{
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::Any, DataServerClient::port));

    RunningPlugin plugin;
    QElapsedTimer timer;
    timer.start();
    QVERIFY(plugin.start());
    const qint64 taken = timer.elapsed();
    // Of the start of the process, of the probe, and of the plugin's start.
    constexpr qint64 waits = 100 + 1500 + 1000;
    constexpr qint64 longest = 10000;
    QVERIFY2(taken >= waits && taken < longest, qPrintable(QString::number(taken)));
    QTRY_VERIFY(plugin.process.hasLoggedInOrder({failedProbe, ownName, endedAll}));
    QTRY_VERIFY(plugin.process.hasPrinted(notServing));
    plugin.host.appear(cpu, key);
    QVERIFY(plugin.host.waitForUpdate(key));
}

void tst_InstanceGuard::takesAnyAnsweringServerForAnInstance()
{
    QWebSocketServer server(QStringLiteral("other"), QWebSocketServer::NonSecureMode);
    QVERIFY(server.listen(QHostAddress::Any, DataServerClient::port));
    NamedProcess sameName(QStringLiteral("QtSystemMonitor"));
    QVERIFY(sameName.waitForStarted());

    RunningPlugin plugin;
    QVERIFY(plugin.start());
    QTRY_VERIFY(plugin.process.hasLogged(answeredProbe));
    QTRY_VERIFY(plugin.process.hasPrinted(notServing));
    QCOMPARE(sameName.state(), QProcess::Running);

    const std::unique_ptr<QWebSocket> probe(server.nextPendingConnection());
    QVERIFY(probe);
    QVERIFY(!server.hasPendingConnections());
    QCOMPARE(probe->state(), QAbstractSocket::ConnectedState);
}

QTEST_GUILESS_MAIN(tst_InstanceGuard)
#include "tst_instanceguard.moc"
