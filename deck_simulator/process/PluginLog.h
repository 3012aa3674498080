#pragma once

#include "deck_simulator/process/FileTail.h"
#include "deck_simulator/process/LogBuffer.h"

#include <QObject>
#include <QTimer>

namespace deck {

/// Follows what a plugin writes in its working folder: log.txt and its standard error.
class PluginLog : public QObject
{
    Q_OBJECT

public:
    /// Between two looks at the files, milliseconds.
    static constexpr int period = 300;

    explicit PluginLog(QObject *parent = nullptr);

    /// From the start of a plugin in that folder on.
    void follow(const QString &folder);
    /// Reads the rest, for a plugin that has ended.
    void finish();
    void tell(const QString &text);
    void clear();
    [[nodiscard]] const LogBuffer &lines() const { return m_lines; }

Q_SIGNALS:
    void lineAdded(const LogLine &line);

private:
    void look();
    void add(LogSource source, const QStringList &lines);

    LogBuffer m_lines;
    FileTail m_file;
    FileTail m_debug;
    QTimer m_timer;
};

} // namespace deck
