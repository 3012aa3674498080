#pragma once

#include "deck_simulator/process/FileTail.h"
#include "deck_simulator/process/LogBuffer.h"

#include <QObject>
#include <QTimer>

namespace deck {

/// Follows what a plugin writes in its working folder: log.txt and its standard error, whose lines
/// get the time of their arrival.
class PluginLog : public QObject
{
    Q_OBJECT

public:
    /// The interval between two checks of the files in milliseconds.
    static constexpr int period = 300;

    explicit PluginLog(QObject *parent = nullptr);

    /// Follows the files from the start of a plugin in that folder.
    void follow(const QString &folder);
    /// Reads the rest after a plugin has ended.
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
