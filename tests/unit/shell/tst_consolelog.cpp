#include "SDK/Logger/Logger.h"
#include "shell/ConsoleLog.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/TemporaryWorkingDirectory.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QtTest>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

const char *const useTheConsole = "use-the-console";

/// Runs the event loop until the console is as wanted or ten seconds have passed.
bool waitFor(bool open)
{
    QElapsedTimer timer;
    timer.start();
    while (ConsoleLog::isOpen() != open && !timer.hasExpired(10000))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    return ConsoleLog::isOpen() == open;
}

/// The life of a console, in a process of its own that has no terminal.
int runConsole()
{
    ConsoleLog::instance()->openOnce();
    LogDebug(QStringLiteral("first message"));
    qWarning("a warning without quotes");
    ConsoleLog::instance()->openOnce();
    if (!ConsoleLog::isOpen())
        return 2;

    std::raise(SIGHUP);
    if (!waitFor(false))
        return 3;
    LogDebug(QStringLiteral("to nobody"));

    ConsoleLog::instance()->openOnce();
    LogDebug(QStringLiteral("second opening"));
    return ConsoleLog::isOpen() ? 0 : 4;
}

/// Where no console can be opened.
int runWithoutConsole()
{
    ConsoleLog::instance()->openOnce();
    return ConsoleLog::isOpen() ? 0 : 5;
}

} // namespace

class tst_ConsoleLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isOneObject();
    void printsEveryMessageUntilClosed();
    void failedAttemptIsNotRepeated_data();
    void failedAttemptIsNotRepeated();
    void interruptKeepsItsDefaultCourse();

private:
    static void runDetached(QProcess &process, const char *mode)
    {
        process.start(QStringLiteral("setsid"),
                      {QCoreApplication::applicationFilePath(), QString::fromLatin1(mode)});
    }
};

void tst_ConsoleLog::isOneObject()
{
    const MessageCapture capture;
    ConsoleLog *const log = ConsoleLog::instance();
    QCOMPARE(ConsoleLog::instance(), log);
    QCOMPARE(MessageCapture::messages(),
             QStringList(MessageCapture::quoted(QStringLiteral("outPutName: output.txt"))));
    QVERIFY(!ConsoleLog::isOpen());
    QVERIFY(log->isHidden());
}

void tst_ConsoleLog::printsEveryMessageUntilClosed()
{
    const TemporaryWorkingDirectory directory;
    QProcess process;
    runDetached(process, useTheConsole);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(QString::fromUtf8(directory.content(QStringLiteral("debug-console.txt"))),
             QStringLiteral("\"child window open\"\n"
                            "\"打开控制台完成\"\n"
                            "\"first message\"\n"
                            "a warning without quotes\n"
                            "\"child window open\"\n"
                            "\"打开控制台完成\"\n"
                            "\"second opening\"\n"));
    QVERIFY(!QFile::exists(QStringLiteral("output.txt")));
}

void tst_ConsoleLog::failedAttemptIsNotRepeated_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<bool>("isRead");
    QTest::newRow("folder") << QStringLiteral("mkdir debug-console.txt") << false;
    QTest::newRow("link") << QStringLiteral("ln -s elsewhere debug-console.txt") << false;
    const QString makePipe = QStringLiteral("mkfifo debug-console.txt");
    QTest::newRow("pipe that nobody reads") << makePipe << false;
    QTest::newRow("pipe") << makePipe << true;
}

void tst_ConsoleLog::failedAttemptIsNotRepeated()
{
    QFETCH(QString, command);
    QFETCH(bool, isRead);
    const TemporaryWorkingDirectory directory;
    QCOMPARE(std::system(qPrintable(command)), 0);
    // Such an opening does not wait for a writer.
    const int reader = isRead ? open("debug-console.txt", O_RDWR | O_CLOEXEC) : -1;
    const auto closeReader = qScopeGuard([reader] { close(reader); });
    QProcess process;
    runDetached(process, "no-console");
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    const QString errors = QString::fromUtf8(process.readAllStandardError());
    QVERIFY(errors.endsWith(QStringLiteral("\"尝试打开控制台...\"\n")));
    QVERIFY(!QFile::exists(QStringLiteral("elsewhere")));
    int written = 0;
    QVERIFY(!isRead || ioctl(reader, FIONREAD, &written) == 0);
    QCOMPARE(written, 0);
}

void tst_ConsoleLog::interruptKeepsItsDefaultCourse()
{
    const TemporaryWorkingDirectory directory;
    QProcess process;
    runDetached(process, "interrupt");
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
    QVERIFY(directory.content(QStringLiteral("debug-console.txt")).contains("child window open"));
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QByteArray mode = argc == 2 ? argv[1] : "";
    if (mode == useTheConsole)
        return runConsole();
    if (mode == "no-console")
        return runWithoutConsole();
    if (mode == "interrupt") {
        ConsoleLog::instance()->openOnce();
        std::raise(SIGINT);
        return 0;
    }
    tst_ConsoleLog test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_consolelog.moc"
