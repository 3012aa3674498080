#include "deck_simulator/process/PluginProcess.h"
#include "deck_simulator/terminal/InterruptWatcher.h"
#include "tests/support/Waits.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace deck;

using namespace std::chrono_literals;

class tst_PluginProcess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsHowTheProcessEnded_data();
    void tellsHowTheProcessEnded();
    void reportsAMissingProgram();
    void keepsOutputInTheWorkFolder();
    void showsTheEndOfStandardError();
    void runsOutsideTheTerminalsSession();
    void waitsForAnOrderlyEnd();
    void terminatesAProcessThatStays();
    void terminatesOnlyThatProcess();
    void killsAProcessThatIgnoresTermination();
    void killsAtDestruction();
};

namespace {

PluginProcess::Launch shell(const QTemporaryDir &folder, const char *script)
{
    return {QStringLiteral("/bin/sh"),
            {QStringLiteral("-c"), QString::fromLatin1(script)},
            folder.path(),
            QProcessEnvironment::systemEnvironment()};
}

QByteArray contents(const QTemporaryDir &folder, const char *name)
{
    QFile file(folder.filePath(QString::fromLatin1(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void tst_PluginProcess::tellsHowTheProcessEnded_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<bool>("endedWell");
    QTest::addColumn<QString>("text");
    QTest::newRow("true") << "exec /bin/true" << true << "exit status 0";
    QTest::newRow("false") << "exec /bin/false" << false << "exit status 1";
    QTest::newRow("status") << "exit 42" << false << "exit status 42";
    QTest::newRow("killed") << "kill -9 $$" << false << "signal 9 (Killed)";
    QTest::newRow("aborted") << "kill -ABRT $$" << false << "signal 6 (Aborted)";
}

void tst_PluginProcess::tellsHowTheProcessEnded()
{
    QFETCH(QString, script);
    const QTemporaryDir folder;
    PluginProcess process;
    QSignalSpy ended(&process, &PluginProcess::ended);
    process.start(shell(folder, qPrintable(script)));
    QTRY_COMPARE(ended.count(), 1);
    QTEST(process.endedWell(), "endedWell");
    QTEST(process.exitText(), "text");
    QVERIFY(!process.wasForced());
    QVERIFY(!process.isRunning());
    QCOMPARE(process.pid(), qint64(0));
}

void tst_PluginProcess::reportsAMissingProgram()
{
    const QTemporaryDir folder;
    PluginProcess process;
    QSignalSpy failed(&process, &PluginProcess::failedToStart);
    QSignalSpy ended(&process, &PluginProcess::ended);
    process.start({QStringLiteral("/no/such/program"), {}, folder.path(), {}});
    QTRY_COMPARE(failed.count(), 1);
    QVERIFY(!failed.at(0).at(0).toString().isEmpty());
    QCOMPARE(ended.count(), 0);
}

void tst_PluginProcess::keepsOutputInTheWorkFolder()
{
    const QTemporaryDir folder;
    PluginProcess process;
    QSignalSpy ended(&process, &PluginProcess::ended);
    process.start(shell(folder, "echo out; echo err >&2; echo log > log.txt"));
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(contents(folder, "plugin-stdout.txt"), QByteArray("out\n"));
    QCOMPARE(contents(folder, "plugin-stderr.txt"), QByteArray("err\n"));
    QCOMPARE(contents(folder, "log.txt"), QByteArray("log\n"));
}

void tst_PluginProcess::showsTheEndOfStandardError()
{
    const QTemporaryDir folder;
    PluginProcess process;
    QSignalSpy ended(&process, &PluginProcess::ended);
    process.start(shell(folder, "yes 'a long line of no interest' | head -n 5000 >&2; "
                                "printf 'last \\033[31mbut one\\nlast' >&2"));
    QTRY_COMPARE(ended.count(), 1);
    const QStringList expected{QStringLiteral("last \uFFFD[31mbut one"), QStringLiteral("last")};
    QCOMPARE(process.standardErrorTail(2), expected);
    QCOMPARE(process.standardErrorTail(10).size(), 10);
    QVERIFY(PluginProcess().standardErrorTail(10).isEmpty());
}

void tst_PluginProcess::runsOutsideTheTerminalsSession()
{
    const QTemporaryDir folder;
    PluginProcess process;
    QSignalSpy ended(&process, &PluginProcess::ended);
    // Fields 1 and 6 of /proc/PID/stat: process and session.
    process.start(shell(folder, "set -- $(cat /proc/$$/stat); test $1 = $6"));
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(process.exitText(), QStringLiteral("exit status 0"));
}

void tst_PluginProcess::waitsForAnOrderlyEnd()
{
    const QTemporaryDir folder;
    PluginProcess process;
    QSignalSpy ended(&process, &PluginProcess::ended);
    process.start(shell(folder, "while test ! -e enough; do sleep 0.05; done"));
    process.stop(60s);
    QFile enough(folder.filePath(QStringLiteral("enough")));
    QVERIFY(enough.open(QIODevice::WriteOnly));
    QTRY_COMPARE(ended.count(), 1);
    QVERIFY(process.endedWell());
    QVERIFY(!process.wasForced());
}

void tst_PluginProcess::terminatesAProcessThatStays()
{
    const QTemporaryDir folder;
    PluginProcess process;
    QSignalSpy ended(&process, &PluginProcess::ended);
    process.start(shell(folder, "exec sleep 600"));
    QTRY_VERIFY(process.pid() > 0);
    process.stop(50ms);
    process.stop(50ms);
    QTRY_COMPARE(ended.count(), 1);
    QVERIFY(process.wasForced());
    QVERIFY(!process.endedWell());
}

/// A process that has not begun to run its program yet would report an interrupt as the
/// simulator's.
void tst_PluginProcess::terminatesOnlyThatProcess()
{
    const QTemporaryDir folder;
    const InterruptWatcher watcher;
    QSignalSpy interrupted(&watcher, &InterruptWatcher::interrupted);
    for (int attempt = 0; attempt < 20; ++attempt) {
        PluginProcess process;
        QSignalSpy ended(&process, &PluginProcess::ended);
        process.start(shell(folder, "exec sleep 1000"));
        process.stop(0ms, 10min);
        QTRY_COMPARE(ended.count(), 1);
        QCOMPARE(process.exitText(), QStringLiteral("signal 15 (Terminated)"));
    }
    QCOMPARE(interrupted.count(), 0);
}

void tst_PluginProcess::killsAProcessThatIgnoresTermination()
{
    const QTemporaryDir folder;
    PluginProcess process;
    QSignalSpy ended(&process, &PluginProcess::ended);
    process.start(shell(folder, "trap '' TERM; touch ready; exec sleep 600"));
    QTRY_VERIFY(QFile::exists(folder.filePath(QStringLiteral("ready"))));
    process.stop(50ms, 50ms);
    QTRY_COMPARE(ended.count(), 1);
    QVERIFY(process.wasForced());
    QCOMPARE(process.exitText(), QStringLiteral("signal 9 (Killed)"));
}

void tst_PluginProcess::killsAtDestruction()
{
    const QTemporaryDir folder;
    qint64 pid = 0;
    {
        PluginProcess process;
        process.start(shell(folder, "exec sleep 600"));
        QTRY_VERIFY(process.pid() > 0);
        pid = process.pid();
    }
    QVERIFY(!QFile::exists(QStringLiteral("/proc/%1").arg(pid)));
}

QTEST_GUILESS_MAIN(tst_PluginProcess)
#include "tst_PluginProcess.moc"
