#pragma once

#include <QByteArray>

#include <vector>

/// Asks the kernel through a netlink socket for the protocols that have no number of their own
/// (netlink(7), NETLINK_GENERIC). The socket is opened when it is first needed.
class GenericNetlink
{
public:
    GenericNetlink() = default;
    ~GenericNetlink();
    Q_DISABLE_COPY(GenericNetlink)

    /// The messages with which the kernel answers \a question, whose number is set here. There are
    /// none where it refuses, has nothing to tell or does not answer within a quarter of a second.
    std::vector<QByteArray> ask(QByteArray question);

private:
    bool open();
    void close();

    struct mnl_socket *m_socket = nullptr;
    quint32 m_number = 0;
};
