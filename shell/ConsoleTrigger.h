#pragma once

#include <QObject>

/// What asks for the debug console from outside. On Linux it is the signal SIGUSR1, caught from the
/// construction of this object on; on Windows the hot key reaches the window as a native message
/// and this object stays silent.
class ConsoleTrigger : public QObject
{
    Q_OBJECT

public:
    explicit ConsoleTrigger(QObject *parent = nullptr);

    /// Tells of the presses from here on, through the event loop, and of one that came before.
    void start();

Q_SIGNALS:
    void sigPressed();
};
