#include "shell/processes.h"
#include "tests/support/Waits.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <windows.h>

#include <algorithm>

namespace {

const char *const idle = "idle";

} // namespace

/// The processes are real: copies of this program under names of their own.
class tst_Processes_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void namesItself();
    void listsProcessesByTheirExecutable();
    void endsAProcessWithStatusZero();
    void forgetsWhatHasEnded();
    void cannotEndWhatCannotBeOpened();
    void opensWhatHasEndedButIsHeld();

private:
    void start(const QString &name);
    static QString nameInSnapshot(qint64 id);

    QTemporaryDir m_folder;
    QProcess m_process;
};

void tst_Processes_windows::initTestCase()
{
    QVERIFY(m_folder.isValid());
}

void tst_Processes_windows::cleanup()
{
    m_process.kill();
    m_process.waitForFinished();
}

void tst_Processes_windows::start(const QString &name)
{
    const QString path = m_folder.filePath(name);
    QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), path));
    m_process.start(path, {QString::fromLatin1(idle)});
    QVERIFY(m_process.waitForStarted());
}

QString tst_Processes_windows::nameInSnapshot(qint64 id)
{
    const auto snapshot = processes::snapshot();
    if (!snapshot)
        return QStringLiteral("no snapshot");
    const auto found = std::find_if(snapshot->begin(), snapshot->end(),
                                    [id](const processes::Process &each) { return each.id == id; });
    return found == snapshot->end() ? QString() : found->executableName;
}

void tst_Processes_windows::namesItself()
{
    QCOMPARE(processes::ownId(), QCoreApplication::applicationPid());
    QCOMPARE(processes::ownExecutableName(),
             QFileInfo(QCoreApplication::applicationFilePath()).fileName());
    QCOMPARE(nameInSnapshot(processes::ownId()), processes::ownExecutableName());
}

void tst_Processes_windows::listsProcessesByTheirExecutable()
{
    const QString name = QStringLiteral("ein Name mit Lücken 系统.exe");
    start(name);
    QCOMPARE(nameInSnapshot(m_process.processId()), name);
}

void tst_Processes_windows::endsAProcessWithStatusZero()
{
    const QString name = QStringLiteral("running.exe");
    start(name);
    QVERIFY(processes::terminate({m_process.processId(), name}));
    QVERIFY(m_process.waitForFinished());
    QCOMPARE(m_process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_process.exitCode(), 0);
}

void tst_Processes_windows::forgetsWhatHasEnded()
{
    start(QStringLiteral("ended.exe"));
    const qint64 id = m_process.processId();
    m_process.kill();
    QVERIFY(m_process.waitForFinished());
    QTRY_COMPARE(nameInSnapshot(id), QString());
}

void tst_Processes_windows::cannotEndWhatCannotBeOpened()
{
    QVERIFY(!processes::terminate({0, QStringLiteral("System Idle Process")}));
    // Numbers of processes are multiples of four.
    QVERIFY(!processes::terminate({0x7ffffff1, QStringLiteral("nobody.exe")}));
}

void tst_Processes_windows::opensWhatHasEndedButIsHeld()
{
    const QString name = QStringLiteral("held.exe");
    start(name);
    const qint64 id = m_process.processId();
    HANDLE held = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(id));
    QVERIFY(held != nullptr);
    m_process.kill();
    QVERIFY(m_process.waitForFinished());
    // Windows does not end it a second time; Wine says that it does.
    const bool opened = processes::terminate({id, name});
    CloseHandle(held);
    QVERIFY(opened);
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    if (argc == 2 && qstrcmp(argv[1], idle) == 0) {
        QTimer::singleShot(60000, &application, &QCoreApplication::quit);
        return QCoreApplication::exec();
    }
    tst_Processes_windows test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_processes_windows.moc"
