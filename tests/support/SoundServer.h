#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A PulseAudio daemon of the test's own with two null sinks, "Desk Speakers" (speakers) and "Head
/// Phones" (phones). While it exists, the environment variable PULSE_SERVER leads to it.
class SoundServer
{
public:
    SoundServer();
    ~SoundServer();
    Q_DISABLE_COPY(SoundServer)

    /// False when it cannot be started; reason() says why.
    bool start();
    QString reason() const { return m_reason; }

    /// Ends it without warning.
    void kill();

    void freeze() const;
    void thaw() const;

    /// Gives a command to the daemon, such as {"set-sink-volume", "speakers", "35%"}.
    bool control(const QStringList &arguments) const;

private:
    void sendSignal(int signal) const;
    QString socket() const { return m_folder.filePath(QStringLiteral("native")); }

    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_reason;
};
