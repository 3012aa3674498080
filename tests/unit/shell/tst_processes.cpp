#include "shell/processes.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <csignal>

/// The processes are real: copies of a system program under names of their own.
class tst_Processes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void namesItself();
    void listsProcessesByTheirExecutable();
    void namesAProcessWhoseFileIsGone();
    void endsAProcessAtOnce();
    void endsAStoppedProcess();
    void sparesAProcessOfAnotherName();
    void cannotEndWhatHasEnded();

private:
    void start(const QString &name);
    processes::Process started(const QString &name) const { return {m_process.processId(), name}; }
    static QString nameInSnapshot(qint64 id);

    QTemporaryDir m_folder;
    QProcess m_process;
};

void tst_Processes::init()
{
    QVERIFY(m_folder.isValid());
}

void tst_Processes::cleanup()
{
    m_process.kill();
    m_process.waitForFinished();
}

void tst_Processes::start(const QString &name)
{
    const QString path = m_folder.filePath(name);
    QVERIFY(QFileInfo::exists(path) || QFile::copy(QStringLiteral("/bin/sleep"), path));
    m_process.start(path, {QStringLiteral("60")});
    QVERIFY(m_process.waitForStarted());
}

QString tst_Processes::nameInSnapshot(qint64 id)
{
    const auto snapshot = processes::snapshot();
    if (!snapshot)
        return QStringLiteral("no snapshot");
    const auto found = std::find_if(snapshot->begin(), snapshot->end(),
                                    [id](const processes::Process &each) { return each.id == id; });
    return found == snapshot->end() ? QString() : found->executableName;
}

void tst_Processes::namesItself()
{
    QCOMPARE(processes::ownId(), QCoreApplication::applicationPid());
    QCOMPARE(processes::ownExecutableName(),
             QFileInfo(QCoreApplication::applicationFilePath()).fileName());
    QCOMPARE(nameInSnapshot(processes::ownId()), processes::ownExecutableName());
}

void tst_Processes::listsProcessesByTheirExecutable()
{
    // Longer than the kernel's own copy of a process's name.
    const QString name = QStringLiteral("a name of blanks and more than fifteen letters");
    start(name);
    QTRY_COMPARE(nameInSnapshot(m_process.processId()), name);
}

void tst_Processes::namesAProcessWhoseFileIsGone()
{
    const QString name = QStringLiteral("updated");
    start(name);
    QTRY_COMPARE(nameInSnapshot(m_process.processId()), name);
    QVERIFY(QFile::remove(m_folder.filePath(name)));
    QCOMPARE(nameInSnapshot(m_process.processId()), name);
}

void tst_Processes::endsAProcessAtOnce()
{
    const QString name = QStringLiteral("running");
    start(name);
    QTRY_COMPARE(nameInSnapshot(m_process.processId()), name);
    QVERIFY(processes::terminate(started(name)));
    QVERIFY(m_process.waitForFinished());
    QCOMPARE(m_process.exitStatus(), QProcess::CrashExit);
}

void tst_Processes::endsAStoppedProcess()
{
    const QString name = QStringLiteral("stopped");
    start(name);
    QTRY_COMPARE(nameInSnapshot(m_process.processId()), name);
    QCOMPARE(kill(static_cast<pid_t>(m_process.processId()), SIGSTOP), 0);
    QVERIFY(processes::terminate(started(name)));
    QVERIFY(m_process.waitForFinished());
}

void tst_Processes::sparesAProcessOfAnotherName()
{
    const QString name = QStringLiteral("spared");
    start(name);
    QTRY_COMPARE(nameInSnapshot(m_process.processId()), name);
    QVERIFY(!processes::terminate(started(QStringLiteral("another"))));
    QCOMPARE(nameInSnapshot(m_process.processId()), name);
}

void tst_Processes::cannotEndWhatHasEnded()
{
    const QString name = QStringLiteral("ended");
    start(name);
    const processes::Process process = started(name);
    m_process.kill();
    QVERIFY(m_process.waitForFinished());
    QVERIFY(!processes::terminate(process));
    QCOMPARE(nameInSnapshot(process.id), QString());
}

QTEST_GUILESS_MAIN(tst_Processes)
#include "tst_processes.moc"
