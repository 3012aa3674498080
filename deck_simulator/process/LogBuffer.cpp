#include "deck_simulator/process/LogBuffer.h"

#include "deck_simulator/process/PrintableText.h"

namespace deck {

bool matches(const LogLine &line, const LogFilter &filter)
{
    if ((line.source == LogSource::File && !filter.file) ||
        (line.source == LogSource::Debug && !filter.debug))
        return false;
    return filter.text.isEmpty() || line.text.contains(filter.text, Qt::CaseInsensitive);
}

const LogLine &LogBuffer::add(LogSource source, const QString &text)
{
    QString line = printable(text.left(longestLine));
    if (text.size() > longestLine)
        line += QChar(0x2026);
    m_lines.push_back({source, line});
    if (int(m_lines.size()) > mostLines)
        m_lines.pop_front();
    return m_lines.back();
}

QStringList LogBuffer::matching(const LogFilter &filter) const
{
    QStringList texts;
    for (const LogLine &line : m_lines) {
        if (matches(line, filter))
            texts.append(line.text);
    }
    return texts;
}

} // namespace deck
