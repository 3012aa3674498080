#pragma once

#include <QObject>

#include <memory>

namespace deck {

/// Reports, from the event loop, that the user wants the program to end: SIGINT, SIGTERM and SIGHUP
/// on Linux, Ctrl+C, Ctrl+Break and the closing of the console on Windows. Only one object may
/// exist at a time; its destructor restores the previous handling.
class InterruptWatcher : public QObject
{
    Q_OBJECT

public:
    explicit InterruptWatcher(QObject *parent = nullptr);
    ~InterruptWatcher() override;
    Q_DISABLE_COPY(InterruptWatcher)

Q_SIGNALS:
    void interrupted();

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace deck
