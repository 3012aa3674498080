#pragma once

#include <QThread>

#include <atomic>

/// A deck host on a thread of its own, whose time is not counted: accepts connections on a free
/// port, reads everything and counts it.
class CountingHost : public QThread
{
    Q_OBJECT

public:
    CountingHost();
    ~CountingHost() override;
    Q_DISABLE_COPY(CountingHost)

    [[nodiscard]] quint16 port() const { return m_port; }
    [[nodiscard]] quint64 messages() const { return m_messages; }
    [[nodiscard]] quint64 bytes() const { return m_bytes; }

protected:
    void run() override;

private:
    std::atomic<quint16> m_port = 0;
    std::atomic<quint64> m_messages = 0;
    std::atomic<quint64> m_bytes = 0;
};
