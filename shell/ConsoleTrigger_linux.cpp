#include "shell/ConsoleTrigger.h"

#include "shell/UnixSignal_linux.h"

#include <csignal>

ConsoleTrigger::ConsoleTrigger(QObject *parent)
    : QObject(parent)
{
    const auto *const signal = new UnixSignal(SIGUSR1, this);
    connect(signal, &UnixSignal::sigReceived, this, &ConsoleTrigger::sigPressed);
}

void ConsoleTrigger::start()
{
    findChild<UnixSignal *>()->start();
}
