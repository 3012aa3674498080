#include "shell/console.h"

#include "shell/UnixSignal_linux.h"

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char *const fallbackFile = "debug-console.txt";

/// The descriptor that attach has opened; -1 when standard error already is the console.
int attachedStream = -1;

UnixSignal *hangUp = nullptr;

/// The fallback file, opened for appending; -1 unless it is a regular file. Opening a pipe without
/// a reader, or writing to one with a slow reader, would block.
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
    // It watches until the process ends, because messages continue to be printed.
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
