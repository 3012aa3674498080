#include "shell/ConsoleTrigger.h"

ConsoleTrigger::ConsoleTrigger(QObject *parent)
    : QObject(parent)
{
}

void ConsoleTrigger::start() {}
