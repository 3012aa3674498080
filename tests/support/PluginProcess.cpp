#include "tests/support/PluginProcess.h"

#include "tests/support/Waits.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QTest>

namespace {

/// Without variables of the tester's session that would change the plugin's behaviour.
QProcessEnvironment bareEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QStringList names = environment.keys();
    for (const QString &name : names) {
        if (name.startsWith(QLatin1String("QT_")) || name.endsWith(QLatin1String("DISPLAY")) ||
            name.startsWith(QLatin1String("SYSTEM_MONITOR_")))
            environment.remove(name);
    }
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    // Otherwise Qt may log to the journal.
    environment.insert(QStringLiteral("QT_FORCE_STDERR_LOGGING"), QStringLiteral("1"));
    return environment;
}

} // namespace

PluginProcess::PluginProcess()
{
    const QDir folder(m_folder.path());
    if (!m_folder.isValid() || !folder.mkdir(QStringLiteral("work")))
        qFatal("No folder for the plugin to work in");

    setProgram(executable());
    setWorkingDirectory(workingFolder());
    setProcessEnvironment(bareEnvironment());
    m_service.announceToPrograms();
    setVariable(QStringLiteral("SystemDrive"), m_service.drive());
    setStandardInputFile(nullDevice());
    setStandardOutputFile(nullDevice());
    detach();
    connect(this, &QProcess::readyReadStandardError, this,
            [this] { m_standardError += readAllStandardError(); });
}

PluginProcess::~PluginProcess()
{
    printOnFailure();
    kill();
    waitForFinished();
}

QString PluginProcess::executable()
{
    return QFileInfo(QStringLiteral(PLUGIN_EXECUTABLE)).absoluteFilePath();
}

void PluginProcess::setVariable(const QString &name, const QString &value)
{
    QProcessEnvironment environment = processEnvironment();
    environment.insert(name, value);
    setProcessEnvironment(environment);
}

void PluginProcess::launch(const QStringList &arguments)
{
    setArguments(arguments);
    start();
}

bool PluginProcess::waitForEnd()
{
    return QTest::qWaitFor([this] { return state() == NotRunning; }, patience);
}

bool PluginProcess::endsWithStatus(int status)
{
    return waitForEnd() && exitStatus() == NormalExit && exitCode() == status;
}

QStringList PluginProcess::lines() const
{
    QString text = QString::fromUtf8(m_standardError);
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    QStringList lines = text.split(QLatin1Char('\n'));
    lines.removeLast();
    return lines;
}

bool PluginProcess::hasLogged(const QString &text) const
{
    return timesLogged(text) > 0;
}

int PluginProcess::timesLogged(const QString &text) const
{
    return static_cast<int>(lines().count(quoted(text)));
}

bool PluginProcess::hasLoggedInOrder(const QStringList &texts) const
{
    const QStringList printed = lines();
    QStringList::size_type from = 0;
    for (const QString &text : texts) {
        const auto found = printed.indexOf(quoted(text), from);
        if (found < 0)
            return false;
        from = found + 1;
    }
    return true;
}

bool PluginProcess::hasPrinted(const QString &text) const
{
    return !lines().filter(text).isEmpty();
}

QString PluginProcess::quoted(const QString &text)
{
    QString result;
    QDebug(&result).nospace() << text;
    return result;
}

QByteArray PluginProcess::content(const QString &fileName) const
{
    QFile file(QDir(workingFolder()).filePath(fileName));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList PluginProcess::fileLog() const
{
    static const QRegularExpression form(
        QStringLiteral(R"(\A\[\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\] SDK/Logger ([^\r\n]*)\z)"));
    QStringList written =
        QString::fromUtf8(content(QStringLiteral("log.txt"))).split(QStringLiteral("\r\n"));
    if (!written.takeLast().isEmpty())
        return {};
    QStringList messages;
    for (const QString &line : qAsConst(written)) {
        const QRegularExpressionMatch match = form.match(line);
        if (!match.hasMatch())
            return {};
        messages.append(match.captured(1));
    }
    return messages;
}

QString PluginProcess::workingFolder() const
{
    return m_folder.filePath(QStringLiteral("work"));
}

void PluginProcess::printOnFailure() const
{
    if (!QTest::currentTestFailed())
        return;
    constexpr int enough = 60;
    qInfo().noquote() << "The plugin's last words:\n"
                      << lines().mid(lines().size() - enough).join(QLatin1Char('\n'));
    qInfo().noquote() << "log.txt:\n" << content(QStringLiteral("log.txt"));
}
