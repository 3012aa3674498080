#include "tests/support/PluginProcess.h"

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

void PluginProcess::setupChildProcess()
{
    setsid();
    prctl(PR_SET_PDEATHSIG, SIGKILL);
}

void PluginProcess::freeze()
{
    ::kill(static_cast<pid_t>(processId()), SIGSTOP);
}

void PluginProcess::pressConsoleHotKey()
{
    ::kill(static_cast<pid_t>(processId()), SIGUSR1);
}

void PluginProcess::closeConsole()
{
    ::kill(static_cast<pid_t>(processId()), SIGHUP);
}
