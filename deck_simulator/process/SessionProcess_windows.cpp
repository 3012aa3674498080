#include "deck_simulator/process/SessionProcess.h"

#include <QProcess>

#include <windows.h>

namespace deck {

QProcess *createSessionProcess(QObject *parent)
{
    auto *const process = new QProcess(parent);
    process->setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments *arguments) {
        arguments->flags |= CREATE_NEW_PROCESS_GROUP | CREATE_NO_WINDOW;
    });
    return process;
}

QString describeCrash(int code)
{
    return QStringLiteral("exception 0x%1").arg(uint(code), 8, 16, QLatin1Char('0'));
}

} // namespace deck
