#include "deck_simulator/process/PluginLog.h"

#include <QDir>
#include <QTime>

namespace deck {

namespace {

// The debug stream has no times of its own, unlike log.txt.
QString timed(const QString &line)
{
    const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss"));
    return QStringLiteral("%1  %2").arg(time, line);
}

} // namespace

PluginLog::PluginLog(QObject *parent)
    : QObject(parent)
{
    connect(&m_timer, &QTimer::timeout, this, &PluginLog::look);
}

void PluginLog::follow(const QString &folder)
{
    finish();
    const QDir dir(folder);
    m_file.follow(dir.filePath(QStringLiteral("log.txt")));
    m_debug.follow(dir.filePath(QStringLiteral("plugin-stderr.txt")));
    m_timer.start(period);
}

void PluginLog::finish()
{
    m_timer.stop();
    look();
    for (FileTail *tail : {&m_file, &m_debug}) {
        const QString rest = tail->takeRest();
        if (!rest.isEmpty())
            add(tail == &m_file ? LogSource::File : LogSource::Debug, {rest});
    }
}

void PluginLog::tell(const QString &text)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines)
        add(LogSource::Host, {line});
}

void PluginLog::clear()
{
    m_lines.clear();
}

void PluginLog::look()
{
    add(LogSource::File, m_file.newLines());
    add(LogSource::Debug, m_debug.newLines());
}

void PluginLog::add(LogSource source, const QStringList &lines)
{
    for (const QString &line : lines)
        Q_EMIT lineAdded(m_lines.add(source, source == LogSource::File ? line : timed(line)));
}

} // namespace deck
