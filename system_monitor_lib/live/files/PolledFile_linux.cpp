#include "system_monitor_lib/live/files/PolledFile.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

PolledFile::PolledFile(const QString &path, std::size_t maximum)
    : m_path(QFile::encodeName(path).toStdString())
    , m_buffer(maximum, '\0')
{
}

PolledFile::~PolledFile()
{
    close();
}

std::string_view PolledFile::read()
{
    if (isOpen() && !isInPlace())
        close();
    const bool wasOpen = isOpen();
    if (!wasOpen)
        open();
    std::ptrdiff_t length = readFromStart();
    if (length < 0 && wasOpen) {
        // The device behind the descriptor has gone; another one may bear its name by now.
        close();
        open();
        length = readFromStart();
    }
    if (length < 0) {
        close();
        return {};
    }
    return std::string_view(m_buffer).substr(0, static_cast<std::size_t>(length));
}

bool PolledFile::isInPlace() const
{
    struct stat status = {};
    return ::fstat(m_descriptor, &status) == 0 && status.st_nlink > 0;
}

void PolledFile::open()
{
    m_descriptor = ::open(m_path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
}

void PolledFile::close()
{
    if (isOpen())
        ::close(m_descriptor);
    m_descriptor = -1;
}

std::ptrdiff_t PolledFile::readFromStart()
{
    if (!isOpen())
        return -1;
    std::size_t length = 0;
    while (length < m_buffer.size()) {
        const ssize_t count = ::pread(m_descriptor, m_buffer.data() + length,
                                      m_buffer.size() - length, static_cast<off_t>(length));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return -1;
        if (count == 0)
            break;
        length += static_cast<std::size_t>(count);
    }
    return static_cast<std::ptrdiff_t>(length);
}
