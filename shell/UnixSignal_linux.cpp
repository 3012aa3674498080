#include "shell/UnixSignal_linux.h"

#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

/// The write end of each watched signal's pipe. A signal's handler is in place only while it is
/// watched, so that no other entry is ever read.
std::array<std::atomic<int>, NSIG> writeEnds{};

void wakeEventLoop(int signalNumber)
{
    const int savedErrno = errno;
    const char byte = 0;
    // A full pipe already contains enough wake-ups.
    [[maybe_unused]] const ssize_t written =
        write(writeEnds.at(static_cast<size_t>(signalNumber)), &byte, 1);
    errno = savedErrno;
}

void setHandler(int signalNumber, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signalNumber, &action, nullptr);
}

} // namespace

UnixSignal::UnixSignal(int signalNumber, QObject *parent)
    : QObject(parent)
    , m_signalNumber(signalNumber)
{
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        qWarning("Cannot watch signal %d: no pipe", signalNumber);
        return;
    }
    m_readEnd = ends[0];
    writeEnds.at(static_cast<size_t>(signalNumber)) = ends[1];
    m_notifier = new QSocketNotifier(m_readEnd, QSocketNotifier::Read, this);
    m_notifier->setEnabled(false);
    connect(m_notifier, &QSocketNotifier::activated, this, &UnixSignal::drain);
    setHandler(signalNumber, wakeEventLoop);
}

UnixSignal::~UnixSignal()
{
    if (m_readEnd < 0)
        return;
    setHandler(m_signalNumber, SIG_DFL);
    close(writeEnds.at(static_cast<size_t>(m_signalNumber)).exchange(-1));
    close(m_readEnd);
}

void UnixSignal::start()
{
    if (m_notifier)
        m_notifier->setEnabled(true);
}

void UnixSignal::drain()
{
    char bytes[64];
    bool caught = false;
    ssize_t length = 0;
    while ((length = read(m_readEnd, bytes, sizeof bytes)) > 0)
        caught = true;
    // Something else now has the pipe's descriptor, and would wake the event loop forever.
    if (length == 0 || (errno != EAGAIN && errno != EINTR))
        m_notifier->setEnabled(false);
    if (caught)
        Q_EMIT sigReceived();
}
