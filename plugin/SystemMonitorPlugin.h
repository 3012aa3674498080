#pragma once

#include "SDK/Plugin.h"
#include "plugin/KeyGauges.h"
#include "sensors/SystemMonitorLibOwner.h"

#include <QList>
#include <QMutex>
#include <QOperatingSystemVersion>

class IoLocalSocket;
class KeyPass;
class LibreHardwareMonitorLib;
class LibreHardwareWebSocket;
class PerfDataSource;
class normalAction;
class QTimer;
enum class SettingsOccasion;

/// The plugin: it owns the data sources and the visible keys, and paints and sends every key once a
/// second. Everything runs on the main thread. It lives until the process ends and therefore
/// deletes neither its keys nor its data sources.
class SystemMonitorPlugin : public Plugin, public SystemMonitorLibOwner
{
    Q_OBJECT
    Q_INTERFACES(SystemMonitorLibOwner)

public:
    /// Opens the data sources, waits one second for them, takes the first readings and starts the
    /// update timer. Without a hardware-information service this takes some 12 seconds more. The
    /// library is told whether \a system is newer than Windows 7.
    explicit SystemMonitorPlugin(QObject *parent = nullptr, const QOperatingSystemVersion &system =
                                                                QOperatingSystemVersion::current());

    VqSystemMonitorLib *systemMonitorLib() const override { return m_library; }

    void DidReceiveSettings(const QString &action, const QString &context,
                            const QJsonObject &payload, const QString &deviceId) override;
    void KeyDownForAction(const QString &action, const QString &context, const QJsonObject &payload,
                          const QString &deviceId) override;
    void KeyUpForAction(const QString &action, const QString &context, const QJsonObject &payload,
                        const QString &deviceId) override;
    void DialPressForAction(const QString &action, const QString &context,
                            const QJsonObject &payload, const QString &deviceId) override;
    void WillAppearForAction(const QString &action, const QString &context,
                             const QJsonObject &payload, const QString &deviceId) override;
    void WillDisappearForAction(const QString &action, const QString &context,
                                const QJsonObject &payload, const QString &deviceId) override;
    void SendToPlugin(const QString &action, const QString &context, const QJsonObject &payload,
                      const QString &deviceId) override;
    void TitleParametersDidChange(const QString &action, const QString &context,
                                  const QJsonObject &payload, const QString &deviceId) override;
    void PropertyInspectorDidAppear(const QString &action, const QString &context,
                                    const QJsonObject &payload, const QString &deviceId) override;
    void PropertyInspectorDidDisAppear(const QString &action, const QString &context,
                                       const QJsonObject &payload,
                                       const QString &deviceId) override;
    /// Connects to the hardware-information service on the port that \a message names.
    void HwInfoPortMsg(const QString &message) override;

    /// The key of this UUID and context, created when there is none; never null.
    Action *GetOrCreateAction(const QString &action, const QString &context) override;
    bool RemoveAction(const QString &action, const QString &context) override;
    /// The key of this UUID and context, or null.
    normalAction *FindAction(const QString &action, const QString &context) const;

    /// Where to find the performance service.
    const PerfDataSource &perfDataSource() const { return *m_perfDataSource; }

public Q_SLOTS:
    /// One pass: takes new readings, then paints and sends every key.
    void updateImages();

private:
    void initSystemMonitorLib(bool newerThanWindows7);
    void refresh();
    void updateKeys();
    void updateKey(normalAction &key, KeyPass &pass);
    void onCommitData();
    void prepareFirstPass();
    void applyDiskMode(normalAction &key);
    void showDriveAndMoveOn(normalAction &key);
    void pressOrRelease(const QString &action, const QString &context, bool isPressed);
    void answerSettings(normalAction &key, const QJsonObject &payload, SettingsOccasion occasion);
    normalAction *getOrCreateKey(const QString &action, const QString &context);

    QMutex m_listLock;               ///< Held during a pass, on insertion and on removal.
    QList<normalAction *> m_actions; ///< In the order in which the keys first appeared.
    KeyGauges m_gauges;
    bool m_isPrepared = false;           ///< For the first pass over keys.
    VqSystemMonitorLib *m_library;       ///< Null when it could not be created.
    VqSystemMonitorLib *m_unusedLibrary; ///< Kept beside the first, never initialised nor read.
    PerfDataSource *m_perfDataSource;
    LibreHardwareMonitorLib *m_hardwareMonitorLib;
    IoLocalSocket *m_ioLocalSocket;
    LibreHardwareWebSocket *m_hardwareSocket;
    QTimer *m_updateTimer;
};

/// Whether \a system is a Windows newer than Windows 7; false for other systems.
bool isNewerThanWindows7(const QOperatingSystemVersion &system);
