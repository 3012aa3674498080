#include "shell/processes.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/prctl.h>
#include <unistd.h>

namespace {

const char *const hideYourself = "hide-yourself";
const char *const endTheHidden = "end-the-hidden";
const char *const hiddenName = "a hidden one";

QString nameInSnapshot(qint64 id)
{
    const auto snapshot = processes::snapshot();
    if (!snapshot)
        return QStringLiteral("no snapshot");
    const auto found = std::find_if(snapshot->begin(), snapshot->end(),
                                    [id](const processes::Process &each) { return each.id == id; });
    return found == snapshot->end() ? QString() : found->executableName;
}

/// The administrator, to whom nothing is hidden, becomes someone else.
bool becomeAnyone()
{
    constexpr uid_t nobody = 65534;
    return geteuid() != 0 || setresuid(nobody, nobody, nobody) == 0;
}

/// Ends this process without the leak check, which one that others may not look into cannot run.
[[noreturn]] void say(const QByteArray &answer)
{
    std::fputs(answer.constData(), stdout);
    std::fflush(stdout);
    std::_Exit(EXIT_SUCCESS);
}

/// Its executable's name is not the one that the kernel keeps of it.
[[noreturn]] void hide()
{
    if (!becomeAnyone())
        say("refused");
    prctl(PR_SET_NAME, hiddenName);
    prctl(PR_SET_DUMPABLE, 0);
    std::puts("hidden");
    std::fflush(stdout);
    constexpr unsigned longEnough = 60;
    alarm(longEnough);
    while (true)
        pause();
}

[[noreturn]] void endHidden(qint64 id)
{
    if (!becomeAnyone())
        say("refused");
    const QString name = nameInSnapshot(id);
    const bool ended = processes::terminate({id, name});
    say(name.toUtf8() + (ended ? ": ended" : ": spared"));
}

} // namespace

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
    void sparesAProcessThatHidesItsExecutable();
    void cannotEndWhatHasEnded();

private:
    void start(const QString &name);
    processes::Process started(const QString &name) const { return {m_process.processId(), name}; }

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

void tst_Processes::sparesAProcessThatHidesItsExecutable()
{
    const QString self = QCoreApplication::applicationFilePath();
    m_process.start(self, {QString::fromLatin1(hideYourself)});
    QVERIFY(m_process.waitForReadyRead());
    const QByteArray answer = m_process.readAll();
    if (answer == "refused")
        QSKIP("The administrator of this machine cannot become someone else");
    QCOMPARE(answer, QByteArray("hidden\n"));

    QProcess other;
    other.start(self, {QString::fromLatin1(endTheHidden), QString::number(m_process.processId())});
    QVERIFY(other.waitForFinished());
    QCOMPARE(other.readAll(), QByteArray(hiddenName) + ": spared");
    // One that was ended is noticed within this time.
    QVERIFY(!m_process.waitForFinished(100));
    QCOMPARE(m_process.state(), QProcess::Running);
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

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QByteArray mode = argc > 1 ? argv[1] : "";
    if (mode == hideYourself)
        hide();
    if (mode == endTheHidden)
        endHidden(QByteArray(argv[2]).toLongLong());
    tst_Processes test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_processes.moc"
