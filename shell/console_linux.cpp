#include "shell/console.h"

#include "shell/UnixSignal_linux.h"

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char *const fallbackFile = "debug-console.txt";

/// The stream that attach has opened; -1 where standard error is the console as it stands.
int attachedStream = -1;

UnixSignal *hangUp = nullptr;

/// The fallback file, opened to append; -1 when it is anything but a regular file. A pipe without a
/// reader must not be waited for, nor one whose reader is slow be written to.
int openFallbackFile()
{
    const int stream =
        open(fallbackFile,
             O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0600);
    struct stat file = {};
    if (stream < 0 || (fstat(stream, &file) == 0 && S_ISREG(file.st_mode)))
        return stream;
    close(stream);
    return -1;
}

void putInPlaceOf(int stream, FILE *standardStream)
{
    std::fflush(standardStream);
    dup2(stream, fileno(standardStream));
}

} // namespace

namespace console {

bool attach()
{
    attachedStream = -1;
    if (isatty(STDERR_FILENO) == 1)
        return true;
    attachedStream = open("/dev/tty", O_WRONLY | O_NOCTTY | O_CLOEXEC);
    if (attachedStream < 0)
        attachedStream = openFallbackFile();
    return attachedStream >= 0;
}

std::optional<QPoint> windowPosition()
{
    return std::nullopt;
}

void showWindow() {}

void redirectStandardStreams()
{
    if (attachedStream < 0)
        return;
    putInPlaceOf(attachedStream, stdout);
    putInPlaceOf(attachedStream, stderr);
    close(attachedStream);
    attachedStream = -1;
}

void onClosed(void (*handler)())
{
    if (hangUp)
        return;
    // It watches for the rest of the process's life, as the console's messages go on.
    hangUp = new UnixSignal(SIGHUP);
    QObject::connect(hangUp, &UnixSignal::sigReceived, hangUp, handler);
    hangUp->start();
}

void detach()
{
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere < 0)
        return;
    putInPlaceOf(nowhere, stdout);
    putInPlaceOf(nowhere, stderr);
    close(nowhere);
}

} // namespace console
