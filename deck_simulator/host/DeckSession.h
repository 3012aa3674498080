#pragma once

#include "deck_simulator/host/DeckHost.h"
#include "deck_simulator/host/HardwareService.h"
#include "deck_simulator/process/FontFiles.h"
#include "deck_simulator/process/PluginProcess.h"

#include <QObject>
#include <QString>
#include <QTemporaryDir>
#include <QTimer>
#include <QVector>

#include <chrono>
#include <memory>
#include <optional>

namespace deck {

/// What a session is run with.
struct SessionSettings
{
    QString program; ///< The plugin's executable.
    QString language = QStringLiteral("en");
    /// The info text goes without its double quotes, as behind a command line that eats them.
    bool quoteStripped = false;
    QVector<FontFile> fonts;
    /// A recording of sensors, empty for live readings; nothing: as this program's environment has
    /// it.
    std::optional<QString> recording;
    /// Where the plugin runs; empty for a temporary folder, which is removed at the end unless the
    /// plugin failed.
    QString workFolder;
    std::chrono::milliseconds registrationLimit{20000};
    /// How long the plugin may take to end by itself once it has lost its link.
    std::chrono::milliseconds endingPatience{2000};
};

/// One run of a plugin on a simulated deck: the hardware-information service, the host's end of the
/// link and the plugin's process, from start to end. Shows nothing.
class DeckSession : public QObject
{
    Q_OBJECT

public:
    DeckSession(const SessionSettings &settings, const DeckProfile &deck,
                QObject *parent = nullptr);

    /// keysAppeared follows, or ended with a failure.
    void start();
    /// Takes the keys off, closes the link and waits for the plugin; ended follows. Called again,
    /// it kills the plugin at once.
    void end();
    /// As end, but without a word to the plugin: the host dies.
    void letHostDie();
    /// The hardware-information service goes to another port, and the plugin is told. False when
    /// there is no other port.
    bool moveService();

    [[nodiscard]] const DeckHost &host() const { return *m_host; }
    [[nodiscard]] DeckHost &host() { return *m_host; }
    [[nodiscard]] const HardwareService &service() const { return *m_service; }
    [[nodiscard]] qint64 pluginPid() const { return m_process->pid(); }
    /// Absolute path; empty before the start.
    [[nodiscard]] QString workFolder() const { return m_workFolder; }
    /// What the session is at, in words: "registered", ...
    [[nodiscard]] QString stateText() const;
    /// Whether it has been told to end.
    [[nodiscard]] bool isEnding() const
    {
        return m_state == State::Ending || m_state == State::Ended;
    }
    /// How the plugin ended: "exit status 0", ...; empty while it has not.
    [[nodiscard]] QString exitText() const { return m_exitText; }
    /// Why the session failed, several lines perhaps; empty when it did not.
    [[nodiscard]] QString failure() const { return m_failure; }

Q_SIGNALS:
    void keysAppeared();
    void keyChanged(const QString &context);
    /// Something to tell the user that does not end the session.
    void notice(const QString &text);
    void ended();

private:
    enum class State { Idle, Starting, Running, LinkLost, Ending, Ended };

    bool prepare();
    bool prepareFolders();
    /// The file as the plugin is told it; empty for live readings.
    [[nodiscard]] QString recording() const;
    void checkRecording();
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
    /// Keeps the working folder and says what is in it.
    QString keptOutput();

    SessionSettings m_settings;
    DeckHost *m_host;
    HardwareService *m_service;
    PluginProcess *m_process;
    QTimer m_registrationTimer;
    QTemporaryDir m_systemDrive;
    std::unique_ptr<QTemporaryDir> m_temporaryFolder;
    QString m_workFolder;
    QString m_failure;
    QString m_exitText;
    State m_state = State::Idle;
    bool m_hadLink = false;
};

} // namespace deck
