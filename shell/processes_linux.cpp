#include "shell/processes.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cerrno>
#include <csignal>
#include <sys/stat.h>
#include <unistd.h>

// The C library's header lacks the linkage for C++ in its first release with these functions.
extern "C" {
#include <sys/pidfd.h>
}

namespace {

/// TASK_COMM_LEN - 1: /proc/PID/comm is limited to this length.
constexpr int longestComm = 15;

QByteArray procPath(qint64 id, const char *entry)
{
    return "/proc/" + QByteArray::number(id) + '/' + entry;
}

/// The kernel marks the link of an executable whose file is gone, as after an update.
QByteArray withoutDeletedMark(QByteArray target, const QByteArray &link)
{
    static const QByteArray mark(" (deleted)");
    struct stat file = {};
    if (target.endsWith(mark) && stat(link.constData(), &file) == 0 && file.st_nlink == 0)
        target.chop(mark.size());
    return target;
}

struct LinkedName
{
    QString name; ///< Empty when the link cannot be read.
    int error;    ///< Why it cannot; otherwise 0.
};

/// The file name behind /proc/PID/exe.
LinkedName linkedName(qint64 id)
{
    const QByteArray link = procPath(id, "exe");
    QByteArray target(4096, '\0');
    const ssize_t length =
        readlink(link.constData(), target.data(), static_cast<size_t>(target.size()));
    if (length < 0)
        return {QString(), errno};
    target.truncate(static_cast<int>(length));
    const QByteArray path = withoutDeletedMark(target, link);
    return {QFile::decodeName(path.mid(path.lastIndexOf('/') + 1)), 0};
}

/// The name that the kernel stores besides the link and that anyone may read.
QString keptName(qint64 id)
{
    QFile comm(QFile::decodeName(procPath(id, "comm")));
    return comm.open(QIODevice::ReadOnly) ? QFile::decodeName(comm.read(longestComm + 1).trimmed())
                                          : QString();
}

/// Another user's link cannot be read; the kernel's name is then used, so that the process is at
/// least known to exist.
QString executableName(qint64 id)
{
    const auto [name, error] = linkedName(id);
    return error == EACCES || error == EPERM ? keptName(id) : name;
}

bool bearsItsName(const processes::Process &process)
{
    return !process.executableName.isEmpty() &&
           linkedName(process.id).name == process.executableName;
}

class Descriptor
{
public:
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    ~Descriptor()
    {
        if (m_number >= 0)
            close(m_number);
    }
    Q_DISABLE_COPY(Descriptor)

    int number() const { return m_number; }

private:
    int m_number;
};

/// Ends the process through a descriptor, which refers to the process itself, so that no other
/// process that gets its ID can be hit. Returns 0 or an error number, which is ESRCH also when the
/// process has another name.
int endByDescriptor(const processes::Process &process)
{
    const Descriptor descriptor(pidfd_open(static_cast<pid_t>(process.id), 0));
    if (descriptor.number() < 0)
        return errno;
    if (!bearsItsName(process))
        return ESRCH;
    return pidfd_send_signal(descriptor.number(), SIGKILL, nullptr, 0) == 0 ? 0 : errno;
}

} // namespace

namespace processes {

QString ownExecutableName()
{
    return linkedName(ownId()).name;
}

qint64 ownId()
{
    return QCoreApplication::applicationPid();
}

std::optional<QVector<Process>> snapshot()
{
    const QDir proc(QStringLiteral("/proc"));
    const QStringList entries = proc.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    if (entries.isEmpty())
        return std::nullopt;
    QVector<Process> found;
    for (const QString &entry : entries) {
        bool isProcess = false;
        const qint64 id = entry.toLongLong(&isProcess);
        if (!isProcess)
            continue;
        const QString name = executableName(id);
        if (!name.isEmpty())
            found.append({id, name});
    }
    return found;
}

bool terminate(const Process &process)
{
    const int error = endByDescriptor(process);
    if (error == 0 || error == ESRCH)
        return error == 0;
    // Old kernels and some sandboxes refuse process descriptors.
    return bearsItsName(process) && kill(static_cast<pid_t>(process.id), SIGKILL) == 0;
}

} // namespace processes
