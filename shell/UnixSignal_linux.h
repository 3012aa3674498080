#pragma once

#include <QObject>

/// A Unix signal as a Qt signal, delivered through the event loop. At most one object may exist for
/// a signal at a time. Destroying it restores the signal's default course.
class UnixSignal : public QObject
{
    Q_OBJECT

public:
    explicit UnixSignal(int signalNumber, QObject *parent = nullptr);
    ~UnixSignal() override;
    Q_DISABLE_COPY(UnixSignal)

Q_SIGNALS:
    void received();

private:
    void drain();

    int m_signalNumber;
    int m_readEnd = -1;
};
