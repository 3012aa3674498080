#pragma once

#include "qt/QtVersions.h"
#include "tests/support/FakeHardwareService.h"
#include "tests/support/ProcessControl.h"

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

/// One run of the plugin's executable: a working folder of its own, no display, no terminal, a
/// hardware-information service so that it starts quickly. It does not outlive this object.
class PluginProcess : public ModifiedProcess
{
public:
    PluginProcess();
    ~PluginProcess() override;
    Q_DISABLE_COPY(PluginProcess)

    static QString executable();

    void setVariable(const QString &name, const QString &value);
    void launch(const QStringList &arguments);

    bool isRunning() const { return state() == Running; }

    /// True when it has ended, by itself or by a signal, in time.
    bool waitForEnd();

    /// True when it has ended by itself with this status.
    bool endsWithStatus(int status);

    /// The lines on standard error so far, without a last one that is not complete.
    QStringList lines() const;

    /// Bytes on standard error so far.
    qint64 bytesPrinted() const { return m_standardError.size(); }

    /// Whether the debug stream has printed exactly this text as one message.
    bool hasLogged(const QString &text) const;
    int timesLogged(const QString &text) const;

    /// Whether the messages have been printed in this order, others between them or not.
    bool hasLoggedInOrder(const QStringList &texts) const;

    /// Whether some line on standard error contains this text.
    bool hasPrinted(const QString &text) const;

    /// \a text as the debug stream prints a string.
    static QString quoted(const QString &text);

    /// The whole content of a file in the working folder; empty when there is none.
    QByteArray content(const QString &fileName) const;

    /// The messages of log.txt without stamp and source; empty when any line is not of its form.
    QStringList fileLog() const;

    /// Its working folder, which contains log.txt.
    QString workingFolder() const;

    void freeze() { processcontrol::freeze(processId()); }
    void thaw() { processcontrol::thaw(processId()); }
    int openDescriptors() const { return processcontrol::openDescriptors(processId()); }
    qint64 residentMemory() const { return processcontrol::residentMemory(processId()); }
    qint64 processorTime() const { return processcontrol::processorTime(processId()); }
    QStringList platforms() const { return processcontrol::loadedPlatforms(processId()); }

    void pressConsoleHotKey();

    /// The framework's platform that it runs on when nothing says otherwise.
    static QString usualPlatform();

private:
    /// From the terminal, and so that it ends with this process (Linux).
    void detach();
    void printOnFailure() const;

    QTemporaryDir m_folder;
    FakeHardwareService m_service;
    QByteArray m_standardError;
};
