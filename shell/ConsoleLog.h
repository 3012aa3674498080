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

    /// True while a console is attached, and for good once an attempt to attach one has failed.
    static bool isOpen();

    /// Opens the console unless it is open or was tried in vain.
    void openOnce();

    /// Attaches and shows a console and sends every message there from then on. Without a console
    /// to be had it does nothing.
    void OpenConsole();

private:
    ConsoleLog();
};
