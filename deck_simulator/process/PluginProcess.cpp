#include "deck_simulator/process/PluginProcess.h"

#include "deck_simulator/process/PrintableText.h"
#include "deck_simulator/process/SessionProcess.h"

#include <QDir>
#include <QFile>
#include <QTimer>

namespace deck {

namespace {

constexpr qint64 maximumTail = 1 << 14; // bytes
constexpr int killLimit = 2000;         // milliseconds

} // namespace

PluginProcess::PluginProcess(QObject *parent)
    : QObject(parent)
    , m_process(createSessionProcess(this))
{
    connect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &PluginProcess::ended);
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            Q_EMIT failedToStart(m_process->errorString());
    });
}

PluginProcess::~PluginProcess()
{
    m_process->disconnect(this);
    if (isRunning()) {
        m_process->kill();
        m_process->waitForFinished(killLimit);
    }
}

void PluginProcess::start(const Launch &launch)
{
    const QDir folder(launch.workFolder);
    m_standardErrorFile = folder.filePath(QStringLiteral("plugin-stderr.txt"));
    m_process->setWorkingDirectory(launch.workFolder);
    m_process->setProcessEnvironment(launch.environment);
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardOutputFile(folder.filePath(QStringLiteral("plugin-stdout.txt")));
    m_process->setStandardErrorFile(m_standardErrorFile);
    m_process->start(launch.program, launch.arguments);
}

bool PluginProcess::isRunning() const
{
    return m_process->state() != QProcess::NotRunning;
}

qint64 PluginProcess::pid() const
{
    return isRunning() ? m_process->processId() : 0;
}

void PluginProcess::stop(std::chrono::milliseconds patience, std::chrono::milliseconds killAfter)
{
    if (m_stopping || !isRunning())
        return;
    m_stopping = true;
    QTimer::singleShot(patience, this, [this, killAfter] {
        if (!isRunning())
            return;
        m_forced = true;
        // Until it runs the plugin, the new process has this one's signal handlers.
        if (m_process->state() == QProcess::Starting)
            m_process->waitForStarted(killLimit);
        m_process->terminate();
        QTimer::singleShot(killAfter, this, &PluginProcess::kill);
    });
}

void PluginProcess::kill()
{
    if (!isRunning())
        return;
    m_forced = true;
    m_process->kill();
}

bool PluginProcess::endedWell() const
{
    return !m_forced && m_process->exitStatus() == QProcess::NormalExit &&
           m_process->exitCode() == 0;
}

QString PluginProcess::exitText() const
{
    const int code = m_process->exitCode();
    return m_process->exitStatus() == QProcess::CrashExit
               ? describeCrash(code)
               : QStringLiteral("exit status %1").arg(code);
}

QStringList PluginProcess::standardErrorTail(int lines) const
{
    QFile file(m_standardErrorFile);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    file.seek(qMax(qint64(0), file.size() - maximumTail));
    QStringList tail =
        QString::fromUtf8(file.read(maximumTail)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    tail = tail.mid(qMax(0, tail.size() - lines));
    for (QString &line : tail) {
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        line = printable(line);
    }
    return tail;
}

} // namespace deck
