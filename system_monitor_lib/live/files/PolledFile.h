#pragma once

#include <QString>

#include <string>
#include <string_view>

/// A file that is read repeatedly: it stays open and is read from its start each time, which makes
/// a file in /proc or /sys return its current content. It is reopened when it was removed.
class PolledFile
{
public:
    /// At most \a maximum bytes are read; the file is opened by the first read.
    explicit PolledFile(const QString &path, std::size_t maximum = 4096);
    ~PolledFile();
    Q_DISABLE_COPY(PolledFile)

    /// The content, valid until the next call. Empty when the file cannot be read.
    std::string_view read();

private:
    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }
    /// Whether the open file still has its name, or any name at all.
    [[nodiscard]] bool isInPlace() const;
    void open();
    void close();
    /// Fills the buffer; -1 on failure.
    std::ptrdiff_t readFromStart();

    const std::string m_path;
    std::string m_buffer;
    int m_descriptor = -1;
};
