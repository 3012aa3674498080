#include "deck_simulator/host/DeckSession.h"

#include "deck_simulator/process/PluginArguments.h"
#include "deck_simulator/process/RecordingFault.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace deck {

namespace {

constexpr int tailLines = 10;
constexpr const char *recordingVariable = "SYSTEM_MONITOR_RECORDING";

// At once: who reads it sees the old or the new content.
bool replaceFile(const QString &name, const QByteArray &content)
{
    QSaveFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() &&
           file.commit();
}

QString seconds(std::chrono::milliseconds time)
{
    return QStringLiteral("%1 s").arg(double(time.count()) / 1000);
}

} // namespace

DeckSession::DeckSession(const SessionSettings &settings, const DeckProfile &deck, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_host(new DeckHost(deck, this))
    , m_service(new HardwareService(this))
    , m_process(new PluginProcess(this))
{
    m_registrationTimer.setSingleShot(true);
    connect(&m_registrationTimer, &QTimer::timeout, this, &DeckSession::onRegistrationLimit);
    connect(m_host, &DeckHost::registered, this, &DeckSession::onRegistered);
    connect(m_host, &DeckHost::linkClosed, this, &DeckSession::onLinkClosed);
    connect(m_host, &DeckHost::stalledChanged, this, &DeckSession::stalledChanged);
    connect(&m_recordingWatch, &RecordingWatch::broke, this, &DeckSession::onRecordingBroke);
    connect(&m_recordingWatch, &RecordingWatch::mended, this, &DeckSession::onRecordingMended);
    connect(m_host, &DeckHost::keyChanged, this, &DeckSession::keyChanged);
    connect(m_host, &DeckHost::registrationRefused, this, [this](const QString &reason) {
        Q_EMIT notice(QStringLiteral("A connection was refused: %1.").arg(reason));
    });
    connect(m_process, &PluginProcess::ended, this, &DeckSession::onProcessEnded);
    connect(m_process, &PluginProcess::failedToStart, this, [this](const QString &reason) {
        fail(QStringLiteral("The plugin %1 cannot be started: %2.")
                 .arg(QDir::toNativeSeparators(m_settings.program), reason));
    });
}

void DeckSession::start()
{
    m_state = State::Starting;
    if (!prepare())
        return;
    checkRecording();
    startPlugin();
}

bool DeckSession::prepare()
{
    if (!prepareFolders() || !prepareRecording())
        return false;
    if (!m_host->listen()) {
        fail(QStringLiteral("The host cannot listen: %1.").arg(m_host->errorString()));
        return false;
    }
    if (!m_service->listen()) {
        fail(QStringLiteral("The hardware-information service cannot listen: %1.")
                 .arg(m_service->errorString()));
        return false;
    }
    if (!m_service->announce(m_systemDrive.path())) {
        fail(QStringLiteral("The hardware-information service's file cannot be written below %1.")
                 .arg(m_systemDrive.path()));
        return false;
    }
    return true;
}

bool DeckSession::prepareFolders()
{
    if (!m_systemDrive.isValid()) {
        fail(QStringLiteral("No temporary folder: %1.").arg(m_systemDrive.errorString()));
        return false;
    }
    if (m_settings.workFolder.isEmpty()) {
        m_temporaryFolder = std::make_unique<QTemporaryDir>();
        m_workFolder = m_temporaryFolder->path();
    } else {
        m_workFolder = QDir(m_settings.workFolder).absolutePath();
    }
    const bool usable = QDir().mkpath(m_workFolder) && QFileInfo(m_workFolder).isWritable();
    if (!usable)
        fail(QStringLiteral("The working folder %1 cannot be used.").arg(m_workFolder));
    return usable;
}

bool DeckSession::prepareRecording()
{
    if (!m_settings.changesRecording)
        return true;
    const QString first = recording();
    m_ownRecording = QDir(m_workFolder).filePath(QStringLiteral("recording.json"));
    if (!first.isEmpty() && changeRecording(first))
        return true;
    if (!first.isEmpty())
        Q_EMIT notice(QStringLiteral("The recording %1 cannot be used. There are no readings.")
                          .arg(QDir::toNativeSeparators(first)));
    const bool written = replaceFile(m_ownRecording, "{}");
    if (!written)
        fail(QStringLiteral("The working folder %1 cannot be used.").arg(m_workFolder));
    return written;
}

bool DeckSession::changeRecording(const QString &file)
{
    if (m_ownRecording.isEmpty() || !recordingFault(file).isEmpty())
        return false;
    QFile source(file);
    return source.open(QIODevice::ReadOnly) && replaceFile(m_ownRecording, source.readAll());
}

QString DeckSession::recording() const
{
    if (!m_ownRecording.isEmpty())
        return m_ownRecording;
    // The plugin would look from its working folder.
    const QString file = m_settings.recording.value_or(qEnvironmentVariable(recordingVariable));
    return file.isEmpty() ? QString() : QFileInfo(file).absoluteFilePath();
}

void DeckSession::checkRecording()
{
    const QString file = recording();
    if (file.isEmpty())
        return;
    m_recordingWatch.follow(file);
    const QString &fault = m_recordingWatch.fault();
    if (!fault.isEmpty())
        Q_EMIT notice(QStringLiteral("The recording %1 cannot be used: %2. There are no readings.")
                          .arg(QDir::toNativeSeparators(file), fault));
}

void DeckSession::onRecordingBroke(const QString &fault)
{
    Q_EMIT notice(QStringLiteral("The recording %1 cannot be used any more: %2. The readings stay "
                                 "as they were.")
                      .arg(QDir::toNativeSeparators(recording()), fault));
}

void DeckSession::onRecordingMended()
{
    Q_EMIT notice(QStringLiteral("The recording %1 can be used again.")
                      .arg(QDir::toNativeSeparators(recording())));
}

QString DeckSession::info() const
{
    QString text = hostInfo(m_settings.language, m_settings.fonts, m_host->grid());
    if (m_settings.quoteStripped)
        text.remove(QLatin1Char('"'));
    return text;
}

QProcessEnvironment DeckSession::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // The service's file is looked for below the system drive.
    environment.insert(QStringLiteral("SystemDrive"), m_systemDrive.path());
    const QString variable = QString::fromLatin1(recordingVariable);
    if (recording().isEmpty())
        environment.remove(variable);
    else
        environment.insert(variable, recording());
    return environment;
}

void DeckSession::startPlugin()
{
    PluginProcess::Launch launch;
    launch.program = m_settings.program;
    launch.arguments =
        pluginArguments(m_host->port(), m_host->pluginUUID(), m_host->registerEvent(), info());
    launch.workFolder = m_workFolder;
    launch.environment = environment();
    m_registrationTimer.start(m_settings.registrationLimit);
    m_process->start(launch);
}

void DeckSession::end()
{
    if (m_state == State::Ended)
        return;
    if (m_state == State::Ending) {
        m_process->kill();
        return;
    }
    m_state = State::Ending;
    m_host->close();
    awaitEnd();
}

void DeckSession::letHostDie()
{
    if (m_state == State::Ended || m_state == State::Ending)
        return;
    m_state = State::Ending;
    m_host->die();
    awaitEnd();
}

void DeckSession::awaitEnd()
{
    m_registrationTimer.stop();
    if (m_process->isRunning())
        m_process->stop(m_hadLink ? m_settings.endingPatience : std::chrono::milliseconds(0));
    else
        finish();
}

bool DeckSession::moveService()
{
    if (!m_service->moveToAnotherPort())
        return false;
    // A plugin started from now on reads the file; the running one is told.
    const bool announced = m_service->announce(m_systemDrive.path());
    m_host->sendMessage({{QStringLiteral("event"), QStringLiteral("hwInfoPort")},
                         {QStringLiteral("hwInfoPort"), QString::number(m_service->port())}});
    return announced;
}

QString DeckSession::stateText() const
{
    switch (m_state) {
    case State::Idle:
    case State::Starting:
        return QStringLiteral("waiting for the plugin");
    case State::Running:
        return m_host->isStalled() ? QStringLiteral("the plugin stands still")
                                   : QStringLiteral("registered");
    case State::LinkLost:
        return QStringLiteral("link lost");
    case State::Ending:
        return QStringLiteral("ending");
    case State::Ended:
        break;
    }
    return QStringLiteral("ended");
}

void DeckSession::onRegistered()
{
    if (m_state != State::Starting)
        return;
    m_registrationTimer.stop();
    m_state = State::Running;
    m_hadLink = true;
    Q_EMIT keysAppeared();
}

void DeckSession::onLinkClosed()
{
    if (m_state != State::Running)
        return;
    // As a rule the process is about to end, and its exit status says more.
    m_state = State::LinkLost;
    m_process->stop(m_settings.endingPatience);
}

void DeckSession::onRegistrationLimit()
{
    fail(QStringLiteral("The plugin did not register within %1.")
             .arg(seconds(m_settings.registrationLimit)) +
         keptOutput());
}

void DeckSession::onProcessEnded()
{
    const QString how = m_process->exitText();
    m_exitText = how;
    if (m_state == State::Ending) {
        judgeOrderlyEnd();
        finish();
    } else if (m_state == State::LinkLost && m_process->wasForced()) {
        fail(QStringLiteral("The plugin closed its link and did not end.") + keptOutput());
    } else if (m_state == State::Starting) {
        fail(QStringLiteral("The plugin ended with %1 before it registered.").arg(how) +
             keptOutput());
    } else {
        fail(QStringLiteral("The plugin ended with %1 while its keys were on the deck.").arg(how) +
             keptOutput());
    }
}

void DeckSession::judgeOrderlyEnd()
{
    if (!m_failure.isEmpty() || !m_hadLink || m_process->endedWell())
        return;
    if (m_process->wasForced())
        m_failure = QStringLiteral("The plugin did not end within %1 of losing its link and was "
                                   "terminated.")
                        .arg(seconds(m_settings.endingPatience));
    else
        m_failure = QStringLiteral("The plugin ended with %1 when it lost its link.")
                        .arg(m_process->exitText());
    m_failure += keptOutput();
}

void DeckSession::fail(const QString &reason)
{
    if (m_failure.isEmpty())
        m_failure = reason;
    if (m_state != State::Ending)
        end();
}

void DeckSession::finish()
{
    m_recordingWatch.follow({});
    m_state = State::Ended;
    Q_EMIT ended();
}

QString DeckSession::keptOutput()
{
    if (m_temporaryFolder)
        m_temporaryFolder->setAutoRemove(false);
    QString text = QStringLiteral("\nIts log and output are in %1")
                       .arg(QDir::toNativeSeparators(m_workFolder));
    const QStringList tail = m_process->standardErrorTail(tailLines);
    if (!tail.isEmpty())
        text += QStringLiteral("\nThe end of its standard error:\n  ") +
                tail.join(QStringLiteral("\n  "));
    return text;
}

} // namespace deck
