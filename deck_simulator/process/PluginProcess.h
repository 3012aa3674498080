#pragma once

#include <QObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <chrono>

namespace deck {

/// The plugin's process. Its standard output and standard error go to files in its working folder.
class PluginProcess : public QObject
{
    Q_OBJECT

public:
    struct Launch
    {
        QString program;
        QStringList arguments;
        QString workFolder;
        QProcessEnvironment environment;
    };

    explicit PluginProcess(QObject *parent = nullptr);
    /// Kills the process if it is still running.
    ~PluginProcess() override;
    Q_DISABLE_COPY(PluginProcess)

    /// To be called once. failedToStart or ended follows.
    void start(const Launch &launch);
    [[nodiscard]] bool isRunning() const;
    /// 0 while it is not running.
    [[nodiscard]] qint64 pid() const;

    /// Gives the process \a patience to end by itself, then asks it to terminate, and kills it if
    /// it is still running after \a killAfter.
    void stop(std::chrono::milliseconds patience,
              std::chrono::milliseconds killAfter = std::chrono::seconds(2));
    void kill();
    /// True when stop or kill has ended the process.
    [[nodiscard]] bool wasForced() const { return m_forced; }
    [[nodiscard]] bool endedWell() const;
    /// "exit status 3", "signal 9 (Killed)".
    [[nodiscard]] QString exitText() const;
    /// The last \a lines lines of standard error, without control characters.
    [[nodiscard]] QStringList standardErrorTail(int lines) const;

Q_SIGNALS:
    void failedToStart(const QString &reason);
    void ended();

private:
    QProcess *m_process;
    QString m_standardErrorFile;
    bool m_stopping = false;
    bool m_forced = false;
};

} // namespace deck
