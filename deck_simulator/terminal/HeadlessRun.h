#pragma once

#include "deck_simulator/host/DeckSession.h"
#include "deck_simulator/host/TrafficMeter.h"
#include "deck_simulator/options/SimulatorOptions.h"
#include "deck_simulator/script/Script.h"
#include "deck_simulator/terminal/Terminal.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QSize>
#include <QStringList>
#include <QTimer>

namespace deck {

/// Bytes that replace the \a previousLines lines written before on a terminal with \a lines. The
/// cursor is hidden while they are written, and ends below the last line.
QByteArray replacementFrame(const QStringList &lines, int previousLines);

/// A session without a window: a table in the terminal, a snapshot, a script, an end after some
/// seconds.
/// Where the output is no terminal, a line is written for each title that changes, and a table at
/// the end.
class HeadlessRun : public QObject
{
    Q_OBJECT

public:
    /// \a session is not owned and outlives this object.
    HeadlessRun(const SimulatorOptions &options, DeckSession *session, QObject *parent = nullptr);

    /// Plays these steps once the keys have appeared, and ends after them.
    void setScript(const QVector<ScriptStep> &steps) { m_script = steps; }
    void start();
    /// The user wants to end the run. A second call does not wait for the plugin.
    void interrupt();

Q_SIGNALS:
    /// The session is over and everything has been shown. 0 is success, 1 is a failure that was
    /// reported on standard error.
    void finished(int exitStatus);

private:
    void onKeysAppeared();
    void onEnded();
    void playScript();
    void takeSnapshot();
    QStringList writeSnapshot(const QString &file);
    void measure();
    void showTable();
    void showChange(const QString &context);
    QByteArray tableInPlace();
    void report(const QString &text);
    [[nodiscard]] QStringList tableText(int width) const;

    SimulatorOptions m_options;
    DeckSession *m_session;
    Terminal m_terminal;
    TrafficMeter m_meter;
    QTimer m_meterTimer;
    QTimer m_tableTimer;
    QTimer m_endTimer;
    QSize m_terminalSize;
    int m_shownLines = 0;
    QHash<QString, QString> m_shownTitles; // by context
    bool m_outputGone = false;
    bool m_snapshotTaken = false;
    bool m_scriptPlayed = false;
    QVector<ScriptStep> m_script;
    QString m_failure;
};

} // namespace deck
