#include "deck_simulator/terminal/Terminal.h"

#include <QtGlobal>

#include <cerrno>

#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace deck {

class Terminal::Private
{
public:
    bool interactive = false;
};

Terminal::Terminal()
    : d(std::make_unique<Private>())
{
    const QByteArray kind = qgetenv("TERM");
    d->interactive = isatty(STDOUT_FILENO) == 1 && kind != "dumb" && !kind.isEmpty();
}

Terminal::~Terminal() = default;

bool Terminal::isInteractive() const
{
    return d->interactive;
}

QSize Terminal::size() const
{
    winsize window{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &window) != 0 || window.ws_col == 0 || window.ws_row == 0)
        return {80, 24};
    return {window.ws_col, window.ws_row};
}

bool Terminal::write(const QByteArray &text)
{
    const char *next = text.constData();
    auto left = size_t(text.size());
    while (left > 0) {
        const ssize_t written = ::write(STDOUT_FILENO, next, left);
        if (written >= 0) {
            next += written;
            left -= size_t(written);
        } else if (errno == EAGAIN) {
            pollfd output{STDOUT_FILENO, POLLOUT, 0};
            poll(&output, 1, -1);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

} // namespace deck
