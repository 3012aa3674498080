#include "shell/ConsoleLog.h"
#include "shell/QtSystemMonitor.h"
#include "tests/support/TemporaryWorkingDirectory.h"

#include <QApplication>
#include <QProcess>
#include <QtTest>

namespace {

const char *const pressTheHotKey = "press-the-hot-key";

/// The hot key pressed in a process of its own that has no terminal.
int pressHotKeys()
{
    QtSystemMonitor window;
    const bool other = window.handleHotKey(2);
    const bool openAfterOther = ConsoleLog::isOpen();
    const bool first = window.handleHotKey(1);
    const bool second = window.handleHotKey(1);
    return !other && !openAfterOther && first && second && ConsoleLog::isOpen() ? 0 : 1;
}

} // namespace

class tst_QtSystemMonitor_linux : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hotKeyOpensOneConsole();
};

void tst_QtSystemMonitor_linux::hotKeyOpensOneConsole()
{
    const TemporaryWorkingDirectory directory;
    QProcess process;
    process.start(QStringLiteral("setsid"),
                  {QCoreApplication::applicationFilePath(), QString::fromLatin1(pressTheHotKey)});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    const QString before = QString::fromUtf8(process.readAllStandardError());
    QVERIFY(before.endsWith(QStringLiteral("\"outPutName: output.txt\"\n"
                                           "\"nativeEvent Ctrl+Backspace pressed!\"\n"
                                           "\"尝试打开控制台...\"\n")));
    QCOMPARE(QString::fromUtf8(directory.content(QStringLiteral("debug-console.txt"))),
             QStringLiteral("\"child window open\"\n"
                            "\"打开控制台完成\"\n"
                            "\"nativeEvent Ctrl+Backspace pressed!\"\n"));
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc == 2 && qstrcmp(argv[1], pressTheHotKey) == 0)
        return pressHotKeys();
    tst_QtSystemMonitor_linux test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_qtsystemmonitor_linux.moc"
