#include "shell/processes.h"
#include "tests/support/Waits.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

const char *const hideYourself = "hide-yourself";
const char *const endTheHidden = "end-the-hidden";
const char *const endInASandbox = "end-in-a-sandbox";
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

/// Root, from whom nothing is hidden, becomes another user.
bool becomeAnyone()
{
    constexpr uid_t nobody = 65534;
    return geteuid() != 0 || setresuid(nobody, nobody, nobody) == 0;
}

/// Ends this process without the leak check, which fails in a process that may not be traced.
[[noreturn]] void say(const QByteArray &answer)
{
    std::fputs(answer.constData(), stdout);
    std::fflush(stdout);
    std::_Exit(EXIT_SUCCESS);
}

/// A process whose executable's name differs from the kernel's name of the process.
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
    // A name that cannot be read must not match an empty one.
    const bool ended = processes::terminate({id, name}) || processes::terminate({id, QString()});
    say(name.toUtf8() + (ended ? ": ended" : ": spared"));
}

/// Makes the system refuse a call with an error from now on.
bool forbid(unsigned call, unsigned error)
{
    std::array<sock_filter, 4> filter{{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | error),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    }};
    const sock_fprog program{filter.size(), filter.data()};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

/// Where the system call \a call fails with \a error, ends the process \a id if it has this name.
[[noreturn]] void endWithout(unsigned call, unsigned error, qint64 id, const QString &name)
{
    if (!forbid(call, error))
        say("refused");
    say(processes::terminate({id, name}) ? "ended" : "spared");
}

} // namespace

/// The processes are real: copies of a system program with names of their own.
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
    void endsWhereDescriptorsAreRefused_data();
    void endsWhereDescriptorsAreRefused();

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
    // Longer than the name that the kernel stores for a process.
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

void tst_Processes::endsWhereDescriptorsAreRefused_data()
{
    QTest::addColumn<int>("call");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("outcome");
    const QString name = QStringLiteral("running");
    const QByteArray ended("ended");
    QTest::newRow("old kernel") << SYS_pidfd_open << ENOSYS << name << ended;
    QTest::newRow("sandbox") << SYS_pidfd_open << EPERM << name << ended;
    QTest::newRow("no descriptor free") << SYS_pidfd_open << EMFILE << name << ended;
    QTest::newRow("sandbox that forbids the signal")
        << SYS_pidfd_send_signal << EPERM << name << ended;
    // After ESRCH nothing else is tried, because another process may have the number by now.
    const QByteArray spared("spared");
    QTest::newRow("gone") << SYS_pidfd_open << ESRCH << name << spared;
    QTest::newRow("gone before the signal") << SYS_pidfd_send_signal << ESRCH << name << spared;
    QTest::newRow("another name") << SYS_pidfd_open << EPERM << QStringLiteral("another") << spared;
    QTest::newRow("no name") << SYS_pidfd_open << EPERM << QString() << spared;
}

void tst_Processes::endsWhereDescriptorsAreRefused()
{
    QFETCH(int, call);
    QFETCH(int, error);
    QFETCH(QString, name);
    QFETCH(QByteArray, outcome);
    const QString real = QStringLiteral("running");
    start(real);
    QTRY_COMPARE(nameInSnapshot(m_process.processId()), real);

    QProcess other;
    other.start(QCoreApplication::applicationFilePath(),
                {QString::fromLatin1(endInASandbox), QString::number(call), QString::number(error),
                 QString::number(m_process.processId()), name});
    QVERIFY(other.waitForFinished());
    const QByteArray answer = other.readAll();
    if (answer == "refused")
        QSKIP("This machine forbids to forbid system calls");
    QCOMPARE(answer, outcome);
    if (outcome == "ended")
        QVERIFY(m_process.waitForFinished());
    else
        QCOMPARE(nameInSnapshot(m_process.processId()), real);
}

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QByteArray mode = argc > 1 ? argv[1] : "";
    if (mode == hideYourself)
        hide();
    if (mode == endTheHidden)
        endHidden(QByteArray(argv[2]).toLongLong());
    if (mode == endInASandbox)
        endWithout(QByteArray(argv[2]).toUInt(), QByteArray(argv[3]).toUInt(),
                   QByteArray(argv[4]).toLongLong(), QString::fromLocal8Bit(argv[5]));
    tst_Processes test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_processes.moc"
