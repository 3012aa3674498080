#include "deck_simulator/process/SessionProcess.h"

#include <QProcess>

#include <csignal>
#include <cstring>

#include <sys/prctl.h>
#include <unistd.h>

namespace deck {

namespace {

class SessionProcess : public QProcess
{
public:
    using QProcess::QProcess;

protected:
    // Runs in the child between fork and exec.
    void setupChildProcess() override
    {
        setsid();
        prctl(PR_SET_PDEATHSIG, SIGTERM);
    }
};

} // namespace

QProcess *createSessionProcess(QObject *parent)
{
    return new SessionProcess(parent);
}

QString describeCrash(int code)
{
    const char *const name = strsignal(code);
    return QStringLiteral("signal %1 (%2)").arg(code).arg(QString::fromLocal8Bit(name));
}

} // namespace deck
