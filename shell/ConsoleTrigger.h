#pragma once

#include <QObject>

/// External requests to open the debug console. On Linux this is the signal SIGUSR1, caught from
/// the construction of this object on. On Windows the hot key reaches the window as a native
/// message and this object never emits.
class ConsoleTrigger : public QObject
{
    Q_OBJECT

public:
    explicit ConsoleTrigger(QObject *parent = nullptr);

    /// Reports requests from now on through the event loop, including one that came before.
    void start();

Q_SIGNALS:
    void sigPressed();
};
