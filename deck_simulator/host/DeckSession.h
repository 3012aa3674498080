#pragma once

#include "deck_simulator/host/DeckHost.h"
#include "deck_simulator/host/HardwareService.h"
#include "deck_simulator/process/FontFiles.h"
#include "deck_simulator/process/PluginProcess.h"
#include "deck_simulator/process/RecordingWatch.h"

#include <QObject>
#include <QString>
#include <QTemporaryDir>
#include <QTimer>
#include <QVector>

#include <chrono>
#include <memory>
#include <optional>

namespace deck {

/// The settings of a session.
struct SessionSettings
{
    QString program; ///< The plugin's executable.
    QString language = QStringLiteral("en");
    /// The info text is passed without its double quotes, as after a command line that removes
    /// them.
    bool quoteStripped = false;
    QVector<FontFile> fonts;
    /// A recording of sensors, empty for live readings; if not set, this program's environment
    /// decides.
    std::optional<QString> recording;
    /// The plugin is given a copy of the recording, which changeRecording replaces; without a
    /// recording it has no readings.
    bool changesRecording = false;
    /// The plugin's working folder; empty for a temporary folder, which is removed at the end
    /// unless the plugin failed.
    QString workFolder;
    std::chrono::milliseconds registrationLimit{20000};
    /// How long the plugin may take to end by itself after it has lost its link.
    std::chrono::milliseconds endingPatience{2000};
};

/// One run of a plugin on a simulated deck, from start to end: the hardware-information service,
/// the host's end of the link and the plugin's process. It has no user interface.
class DeckSession : public QObject
{
    Q_OBJECT

public:
    DeckSession(const SessionSettings &settings, const DeckProfile &deck,
                QObject *parent = nullptr);

    /// Followed by keysAppeared, or by ended with a failure.
    void start();
    /// Removes the keys, closes the link and waits for the plugin; ended follows. A second call
    /// kills the plugin at once.
    void end();
    /// Like end, but without notifying the plugin: the host dies.
    void letHostDie();
    /// Moves the hardware-information service to another port and tells the plugin. False when
    /// there is no other port.
    bool moveService();
    /// The plugin's readings are those of this recording from now on. False when the file is no
    /// recording, or the session was not to change its recording.
    bool changeRecording(const QString &file);

    [[nodiscard]] const DeckHost &host() const { return *m_host; }
    [[nodiscard]] DeckHost &host() { return *m_host; }
    [[nodiscard]] const HardwareService &service() const { return *m_service; }
    [[nodiscard]] qint64 pluginPid() const { return m_process->pid(); }
    /// Absolute path; empty before the start.
    [[nodiscard]] QString workFolder() const { return m_workFolder; }
    /// The state of the session in words: "registered", ...
    [[nodiscard]] QString stateText() const;
    /// Whether it has been told to end.
    [[nodiscard]] bool isEnding() const
    {
        return m_state == State::Ending || m_state == State::Ended;
    }
    /// How the plugin ended: "exit status 0", ...; empty before that.
    [[nodiscard]] QString exitText() const { return m_exitText; }
    /// Why the session failed, possibly several lines; empty if it did not.
    [[nodiscard]] QString failure() const { return m_failure; }

Q_SIGNALS:
    void keysAppeared();
    void keyChanged(const QString &context);
    /// The plugin stands still, or no longer does.
    void stalledChanged(bool stalled);
    /// A message for the user that does not end the session.
    void notice(const QString &text);
    void ended();

private:
    enum class State { Idle, Starting, Running, LinkLost, Ending, Ended };

    bool prepare();
    bool prepareFolders();
    bool prepareRecording();
    /// The file's path as passed to the plugin; empty for live readings.
    [[nodiscard]] QString recording() const;
    void checkRecording();
    void onRecordingBroke(const QString &fault);
    void onRecordingMended();
    [[nodiscard]] QString info() const;
    [[nodiscard]] QProcessEnvironment environment() const;
    void startPlugin();
    void onRegistered();
    void onLinkClosed();
    void onRegistrationLimit();
    void onProcessEnded();
    void judgeOrderlyEnd();
    void fail(const QString &reason);
    void awaitEnd();
    void finish();
    /// Keeps the working folder and describes its contents.
    QString keptOutput();

    SessionSettings m_settings;
    DeckHost *m_host;
    HardwareService *m_service;
    PluginProcess *m_process;
    QTimer m_registrationTimer;
    RecordingWatch m_recordingWatch;
    QTemporaryDir m_systemDrive;
    std::unique_ptr<QTemporaryDir> m_temporaryFolder;
    QString m_workFolder;
    QString m_ownRecording; // the copy of the recording; empty: there is none
    QString m_failure;
    QString m_exitText;
    State m_state = State::Idle;
    bool m_hadLink = false;
};

} // namespace deck
