#pragma once

#include <QObject>

class QSocketNotifier;

/// A Unix signal as a Qt signal, delivered through the event loop. At most one object may exist per
/// signal at a time. Its destructor restores the signal's default action.
class UnixSignal : public QObject
{
    Q_OBJECT

public:
    /// From here on the signal is caught.
    explicit UnixSignal(int signalNumber, QObject *parent = nullptr);
    ~UnixSignal() override;
    Q_DISABLE_COPY(UnixSignal)

    /// Delivers what has been caught before, and from here on each signal.
    void start();

Q_SIGNALS:
    void sigReceived();

private:
    void drain();

    int m_signalNumber;
    int m_readEnd = -1;
    QSocketNotifier *m_notifier = nullptr;
};
