#include "deck_simulator/process/FileTail.h"

#include <QFile>
#include <QFileInfo>

namespace deck {

void FileTail::follow(const QString &path)
{
    m_path = path;
    m_position = QFileInfo(path).size();
    m_rest.clear();
}

QStringList FileTail::newLines()
{
    QFile file(m_path);
    if (m_path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return {};
    const qint64 size = file.size();
    if (size < m_position) {
        m_position = 0;
        m_rest.clear();
    }
    if (size - m_position > longestStep) {
        m_position = size - longestStep;
        m_rest.clear();
    }
    if (!file.seek(m_position))
        return {};
    const QByteArray bytes = file.read(longestStep);
    m_position += bytes.size();
    m_rest += bytes;
    const auto end = m_rest.lastIndexOf('\n');
    if (end < 0) {
        // One endless line is cut here.
        return m_rest.size() > longestStep ? QStringList(takeRest()) : QStringList();
    }
    QStringList lines = QString::fromUtf8(m_rest.left(end)).split(QLatin1Char('\n'));
    m_rest.remove(0, end + 1);
    for (QString &line : lines) {
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
    }
    return lines;
}

QString FileTail::takeRest()
{
    QString text = QString::fromUtf8(m_rest);
    m_rest.clear();
    return text;
}

} // namespace deck
