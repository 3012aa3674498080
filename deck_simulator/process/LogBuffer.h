#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <deque>

namespace deck {

/// Where a line of the plugin's comes from.
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

/// Which lines are shown.
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
    /// Older lines are dropped.
    static constexpr int mostLines = 20000;
    /// Longer lines are cut.
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
