#pragma once

#include <QString>

class QObject;
class QProcess;

namespace deck {

/// A process that is detached from the caller's terminal: it cannot write to it, and the terminal's
/// interrupt key does not reach it. On Linux it also ends when the caller dies.
QProcess *createSessionProcess(QObject *parent);

/// The reason why a process crashed or was killed, from QProcess::exitCode: a signal's number and
/// name, or an exception code.
QString describeCrash(int code);

} // namespace deck
