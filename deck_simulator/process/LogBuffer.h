#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <deque>

namespace deck {

/// The origin of a line.
enum class LogSource {
    File,  ///< log.txt
    Debug, ///< The debug stream.
    Host,  ///< What the simulator itself has to tell.
};

struct LogLine
{
    LogSource source = LogSource::File;
    QString text;
};

/// Selects the lines that are shown.
struct LogFilter
{
    bool file = true;
    bool debug = true;
    QString text; ///< In any case of letters; empty: every line.
};

bool matches(const LogLine &line, const LogFilter &filter);

/// The last lines of the plugin's log and debug stream.
class LogBuffer
{
public:
    /// The maximum number of lines; older ones are dropped.
    static constexpr int mostLines = 20000;
    /// The maximum length of a line; longer ones are truncated.
    static constexpr int longestLine = 2000;

    /// The line as it was taken.
    const LogLine &add(LogSource source, const QString &text);
    void clear() { m_lines.clear(); }
    [[nodiscard]] int size() const { return int(m_lines.size()); }
    [[nodiscard]] QStringList matching(const LogFilter &filter) const;

private:
    std::deque<LogLine> m_lines;
};

} // namespace deck
