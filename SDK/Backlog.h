#pragma once

#include <QtGlobal>

/// Decides when to drop messages to a receiver that does not read: from the moment when it leaves
/// too much unread until it has read nearly all of that.
class Backlog
{
public:
    /// Unread bytes that do not count: a receiver that reads leaves a few pictures unread at times.
    static constexpr qint64 caughtUp = 64LL * 1024;

    /// \a limit in bytes, above caughtUp. \a complaint goes to log.txt each time that dropping
    /// begins; it outlives this object.
    Backlog(qint64 limit, const char *complaint);

    /// What the receiver has not read by now, in bytes.
    void setUnread(qint64 bytes);
    /// Whether messages are to be dropped.
    bool isDropping() const { return dropping; }

private:
    qint64 mostUnread;
    const char *text;
    bool dropping = false;
};
