#pragma once

#include <QtGlobal>

/// Decides when to drop messages to a receiver that does not read: from the moment when too much is
/// unread until it has read nearly all of it.
class Backlog
{
public:
    /// Unread bytes that count as caught up: a receiver that reads may still leave a few pictures
    /// unread.
    static constexpr qint64 caughtUp = 64LL * 1024;

    /// \a limit is in bytes and above caughtUp. \a complaint is written to log.txt each time
    /// dropping begins; it must outlive this object.
    Backlog(qint64 limit, const char *complaint);

    /// Takes note of the present number of unread bytes.
    void setUnread(qint64 bytes);
    /// Whether messages are to be dropped.
    bool isDropping() const { return dropping; }

private:
    qint64 mostUnread;
    const char *text;
    bool dropping = false;
};
