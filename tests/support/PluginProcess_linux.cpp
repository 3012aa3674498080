#include "tests/support/PluginProcess.h"

#include <csignal>

#include <sys/prctl.h>
#include <unistd.h>

void PluginProcess::detach()
{
    setChildProcessModifier([] {
        setsid();
        prctl(PR_SET_PDEATHSIG, SIGKILL);
    });
}

QString PluginProcess::usualPlatform()
{
    return QStringLiteral("offscreen"); // without a display
}

void PluginProcess::pressConsoleHotKey()
{
    ::kill(static_cast<pid_t>(processId()), SIGUSR1);
}
