#include "deck_simulator/process/SessionProcess.h"

#include "qt/QtVersions.h"

#include <csignal>
#include <cstring>

#include <sys/prctl.h>
#include <unistd.h>

namespace deck {

QProcess *createSessionProcess(QObject *parent)
{
    auto *const process = new ModifiedProcess(parent);
    process->setChildProcessModifier([] {
        setsid();
        prctl(PR_SET_PDEATHSIG, SIGTERM);
    });
    return process;
}

QString describeCrash(int code)
{
    const char *const name = strsignal(code);
    return QStringLiteral("signal %1 (%2)").arg(code).arg(QString::fromLocal8Bit(name));
}

} // namespace deck
