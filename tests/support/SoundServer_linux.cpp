#include "tests/support/SoundServer.h"

#include "tests/support/Waits.h"

#include <QStandardPaths>
#include <QtTest>

#include <csignal>

SoundServer::SoundServer()
{
    qputenv("PULSE_SERVER", "unix:" + socket().toUtf8());
    qputenv("PULSE_COOKIE", m_folder.filePath(QStringLiteral("cookie")).toUtf8());
}

SoundServer::~SoundServer()
{
    kill();
    qunsetenv("PULSE_SERVER");
    qunsetenv("PULSE_COOKIE");
}

bool SoundServer::start()
{
    if (QStandardPaths::findExecutable(QStringLiteral("pulseaudio")).isEmpty()) {
        m_reason = QStringLiteral("pulseaudio is not installed");
        return false;
    }
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *const folder :
         {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH"})
        environment.insert(QString::fromLatin1(folder), m_folder.path());
    for (const char *const foreign : {"DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "PULSE_SERVER"})
        environment.remove(QString::fromLatin1(foreign));
    m_daemon.setProcessEnvironment(environment);
    m_daemon.setProcessChannelMode(QProcess::MergedChannels);
    const QString sink = QStringLiteral("module-null-sink sink_name=%1 "
                                        "sink_properties=\"device.description='%2'\"");
    m_daemon.start(
        QStringLiteral("pulseaudio"),
        {QStringLiteral("-n"), QStringLiteral("--daemonize=no"),
         QStringLiteral("--use-pid-file=no"), QStringLiteral("--exit-idle-time=-1"),
         QStringLiteral("--disable-shm=yes"), QStringLiteral("--realtime=no"),
         QStringLiteral("--high-priority=no"), QStringLiteral("--log-target=stderr"),
         QStringLiteral("-L"),
         QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") + socket(),
         QStringLiteral("-L"),
         sink.arg(QStringLiteral("speakers"), QStringLiteral("Desk Speakers")),
         QStringLiteral("-L"), sink.arg(QStringLiteral("phones"), QStringLiteral("Head Phones"))});
    const auto isReady = [this] { return control({QStringLiteral("info")}); };
    const auto hasEnded = [this] { return m_daemon.state() == QProcess::NotRunning; };
    if (QTest::qWaitFor([&] { return hasEnded() || isReady(); }, patience) && !hasEnded())
        return true;
    m_reason = QString::fromUtf8(m_daemon.readAll());
    return false;
}

void SoundServer::kill()
{
    m_daemon.kill();
    m_daemon.waitForFinished();
}

void SoundServer::sendSignal(int signal) const
{
    ::kill(static_cast<pid_t>(m_daemon.processId()), signal);
}

void SoundServer::freeze() const
{
    sendSignal(SIGSTOP);
}

void SoundServer::thaw() const
{
    sendSignal(SIGCONT);
}

bool SoundServer::control(const QStringList &arguments) const
{
    QProcess control;
    control.start(QStringLiteral("pactl"), arguments);
    return control.waitForFinished() && control.exitCode() == 0;
}
