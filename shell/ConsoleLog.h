#pragma once

#include <QWidget>

/// The debug console: from its first opening on, every debug message is printed in it. It is never
/// shown as a widget and never deleted.
class ConsoleLog : public QWidget
{
    Q_OBJECT

public:
    /// The one object, created on the first call.
    static ConsoleLog *instance();

    /// True while a console is attached, and forever once an attempt to attach one has failed.
    static bool isOpen();

    /// Opens the console unless it is open or an attempt has failed.
    void openOnce();

    /// Attaches and shows a console and prints every message there from then on. Does nothing if no
    /// console is available.
    void OpenConsole();

private:
    ConsoleLog();
};
