#include "deck_simulator/terminal/InterruptWatcher.h"

#include <QSocketNotifier>
#include <QtGlobal>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>

#include <fcntl.h>
#include <unistd.h>

namespace deck {

namespace {

constexpr std::array<int, 3> watchedSignals{SIGINT, SIGTERM, SIGHUP};

// A signal handler has no other way to reach the watcher.
volatile sig_atomic_t writeEnd = -1;

extern "C" void noteSignal(int)
{
    const int keptError = errno;
    const char mark = 0;
    const ssize_t written = write(writeEnd, &mark, 1);
    Q_UNUSED(written)
    errno = keptError;
}

} // namespace

class InterruptWatcher::Private
{
public:
    std::array<int, 2> pipe{-1, -1};
    std::array<struct sigaction, watchedSignals.size()> previous{};
    std::unique_ptr<QSocketNotifier> notifier;
};

InterruptWatcher::InterruptWatcher(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    if (pipe2(d->pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        qWarning("InterruptWatcher: no pipe; interrupts end the program at once");
        return;
    }
    writeEnd = d->pipe[1];
    d->notifier = std::make_unique<QSocketNotifier>(d->pipe[0], QSocketNotifier::Read);
    connect(d->notifier.get(), &QSocketNotifier::activated, this, [this] {
        std::array<char, 16> marks{};
        while (read(d->pipe[0], marks.data(), marks.size()) > 0) {
        }
        Q_EMIT interrupted();
    });

    struct sigaction action = {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (size_t i = 0; i < watchedSignals.size(); ++i) {
        sigaction(watchedSignals.at(i), nullptr, &d->previous.at(i));
        // nohup and background jobs start with signals ignored, which is intended.
        if (d->previous.at(i).sa_handler != SIG_IGN)
            sigaction(watchedSignals.at(i), &action, nullptr);
    }
}

InterruptWatcher::~InterruptWatcher()
{
    if (d->pipe[0] < 0)
        return;
    for (size_t i = 0; i < watchedSignals.size(); ++i)
        sigaction(watchedSignals.at(i), &d->previous.at(i), nullptr);
    writeEnd = -1;
    d->notifier.reset();
    close(d->pipe[0]);
    close(d->pipe[1]);
}

} // namespace deck
