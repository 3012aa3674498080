#include "system_monitor_lib/recorded/FileStamp.h"

#include <QFile>

#include <algorithm>
#include <limits>
#include <sys/stat.h>

namespace {

qint64 nanoseconds(const timespec &time)
{
    constexpr qint64 perSecond = 1'000'000'000;
    constexpr qint64 mostSeconds = std::numeric_limits<qint64>::max() / perSecond - 1;
    return std::clamp(qint64{time.tv_sec}, -mostSeconds, mostSeconds) * perSecond + time.tv_nsec;
}

} // namespace

FileStamp fileStamp(const QString &path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    FileStamp stamp;
    stamp.kind = S_ISREG(status.st_mode) ? FileStamp::Kind::Regular : FileStamp::Kind::Other;
    stamp.size = status.st_size;
    stamp.identity = status.st_ino;
    stamp.modifiedNs = nanoseconds(status.st_mtim);
    stamp.changedNs = nanoseconds(status.st_ctim);
    return stamp;
}
