#pragma once

class QProcess;

/// Tells a program without a window to end, as its user does from outside: by SIGTERM on Linux, by
/// Ctrl+C in its console on Windows.
void interrupt(QProcess &process);
