#include "system_monitor_lib/live/network/GenericNetlink.h"

#include <libmnl/libmnl.h>

#include <array>

#include <sys/socket.h>
#include <sys/time.h>

namespace {

/// The most that the kernel puts into one piece of a list.
constexpr std::size_t longestPiece = std::size_t{32} * 1024;

int keepMessage(const nlmsghdr *message, void *messages)
{
    static_cast<std::vector<QByteArray> *>(messages)->emplace_back(
        reinterpret_cast<const char *>(message), static_cast<int>(message->nlmsg_len));
    return MNL_CB_OK;
}

} // namespace

GenericNetlink::~GenericNetlink()
{
    close();
}

std::vector<QByteArray> GenericNetlink::ask(QByteArray question)
{
    const auto length = static_cast<std::size_t>(question.size());
    auto *const header = reinterpret_cast<nlmsghdr *>(question.data());
    if (length < sizeof *header || header->nlmsg_len != length || !open())
        return {};
    header->nlmsg_seq = ++m_number;
    std::vector<QByteArray> messages;
    int state =
        mnl_socket_sendto(m_socket, header, header->nlmsg_len) < 0 ? MNL_CB_ERROR : MNL_CB_OK;
    std::array<char, longestPiece> piece; // NOLINT(cppcoreguidelines-pro-type-member-init)
    while (state == MNL_CB_OK) {
        const ssize_t size = mnl_socket_recvfrom(m_socket, piece.data(), piece.size());
        state = size < 0 ? MNL_CB_ERROR
                         : mnl_cb_run(piece.data(), static_cast<std::size_t>(size), m_number,
                                      mnl_socket_get_portid(m_socket), keepMessage, &messages);
    }
    // What comes late would be taken for the answer to the next question.
    if (state == MNL_CB_ERROR) {
        close();
        messages.clear();
    }
    return messages;
}

bool GenericNetlink::open()
{
    if (m_socket)
        return true;
    m_socket = mnl_socket_open2(NETLINK_GENERIC, SOCK_CLOEXEC);
    if (!m_socket)
        return false;
    constexpr timeval longestWait{0, 250'000};
    if (mnl_socket_bind(m_socket, 0, MNL_SOCKET_AUTOPID) != 0 ||
        setsockopt(mnl_socket_get_fd(m_socket), SOL_SOCKET, SO_RCVTIMEO, &longestWait,
                   sizeof longestWait) != 0)
        close();
    return m_socket != nullptr;
}

void GenericNetlink::close()
{
    if (m_socket)
        mnl_socket_close(m_socket);
    m_socket = nullptr;
}
