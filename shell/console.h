#pragma once

#include <QPoint>

#include <optional>

/// The stream behind the debug console.
///
/// On Windows it is a console window of the process's own. On Linux it is the terminal: standard
/// error where that is one, else the controlling terminal, else the file "debug-console.txt" in the
/// working directory, which must be a regular file or not exist yet.
namespace console {

/// Attaches a console; false when none is available, on Windows also when one is already attached.
/// The standard streams stay unchanged.
bool attach();

/// The upper left corner of the console's window; nothing where the console has no window.
std::optional<QPoint> windowPosition();

/// Shows the console's window, top-most and in the foreground.
void showWindow();

/// Reopens standard output and standard error, on Windows also standard input, on the console.
void redirectStandardStreams();

/// Makes \a handler be called when the user closes the console: its window on Windows, a hang-up of
/// the terminal (SIGHUP) on Linux. The process survives this; interrupts keep their default action.
/// The call may come on a thread of the system.
void onClosed(void (*handler)());

/// Detaches from a console that the user has closed. Output is discarded from then on, until the
/// standard streams are reopened on another console.
void detach();

} // namespace console
