#include "SDK/Backlog.h"

#include "SDK/Logger/Logger.h"

Backlog::Backlog(qint64 limit, const char *complaint)
    : mostUnread(limit)
    , text(complaint)
{
}

void Backlog::setUnread(qint64 bytes)
{
    if (!dropping && bytes >= mostUnread) {
        dropping = true;
        Logger(QString::fromLatin1(text));
    } else if (dropping && bytes <= caughtUp) {
        dropping = false;
    }
}
