#include "plugin/SystemMonitorPlugin.h"

#include "SDK/ConnectionManager.h"
#include "SDK/Logger/Logger.h"
#include "plugin/DiskKey.h"
#include "plugin/KeyKinds.h"
#include "plugin/KeyPass.h"
#include "plugin/KeySelections.h"
#include "plugin/PassClock.h"
#include "plugin/SettingsReply.h"
#include "plugin/UpdateInterval.h"
#include "render/normalAction.h"
#include "sensors/VqSystemMonitorLib.h"
#include "sensors/machine/audio.h"
#include "sensors/readings/SensorRefresh.h"
#include "sensors/services/IoLocalSocket.h"
#include "sensors/services/LibreHardwareMonitorLib.h"
#include "sensors/services/LibreHardwareWebSocket.h"
#include "sensors/services/PerfDataSource.h"
#include "json/ParseJson.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMutexLocker>
#include <QTimer>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <new>
#include <thread>

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds startUpWait = 1000ms;

/// The playback device whose volume the volume key shows.
constexpr int audioDevice = 0;

/// The data sources settle meanwhile; nothing else may run on this thread. Others that want the
/// processor get it.
void waitBusily(std::chrono::milliseconds duration)
{
    QElapsedTimer timer;
    timer.start();
    while (!timer.hasExpired(duration.count()))
        std::this_thread::yield();
}

QString currentErrorText()
{
    return QString::fromLocal8Bit(std::strerror(errno)); // NOLINT(concurrency-mt-unsafe)
}

/// Null when it cannot be created, whatever exception a library throws.
VqSystemMonitorLib *createLibrary()
{
    try {
        return new (std::nothrow) VqSystemMonitorLib(false, nullptr);
    } catch (...) {
        return nullptr;
    }
}

void logKeyEvent(const QString &event, const QString &action, const QString &context)
{
    LogDebug(event);
    LogDebug(labelled("inAction: ", action));
    LogDebug(labelled("inContext: ", context));
}

} // namespace

bool isNewerThanWindows7(const QOperatingSystemVersion &system)
{
    return system > QOperatingSystemVersion::Windows7;
}

SystemMonitorPlugin::SystemMonitorPlugin(QObject *parent, const QOperatingSystemVersion &system)
    : Plugin(parent)
    , m_library(createLibrary())
    // Compatibility: second-library
    , m_unusedLibrary(createLibrary())
    , m_perfDataSource(new PerfDataSource)
    , m_hardwareMonitorLib(new LibreHardwareMonitorLib)
    // Compatibility: idle-local-socket
    , m_ioLocalSocket(new IoLocalSocket(false))
    , m_hardwareSocket(new LibreHardwareWebSocket(false))
    , m_updateTimer(new QTimer(this))
{
    LogDebug(QStringLiteral("插件启动"));
    LogDebug(QStringLiteral("连接关机，重启，注销信号"));
    if (auto *const application = qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        connect(application, &QGuiApplication::commitDataRequest, this,
                &SystemMonitorPlugin::onCommitData);
    }
    machineAudio(); // Finds the sound server during the wait.
    // Compatibility: busy-start
    waitBusily(startUpWait);
    initSystemMonitorLib(isNewerThanWindows7(system));
    LogDebug(QStringLiteral("初始化系统信息"));
    refresh();
    LogDebug(QStringLiteral("更新CPU型号&GPU型号"));
    refreshModelNames(m_library);

    connect(m_updateTimer, &QTimer::timeout, this, &SystemMonitorPlugin::updateImages);
    m_updateTimer->setTimerType(Qt::PreciseTimer);
    m_updateTimer->start(updateInterval());
}

void SystemMonitorPlugin::initSystemMonitorLib(bool newerThanWindows7)
{
    if (!m_library) {
        LogDebug(labelled("thisSystemMonitorLib obj create failed: ", currentErrorText()));
        LogDebug(QStringLiteral("初始化性能监视器模块失败"));
    } else if (m_library->initSystemMonitorLib(newerThanWindows7)) {
        LogDebug(QStringLiteral("initSystemMonitorLib success"));
        m_library->getNumberOfDetectedSensors();
        LogDebug(QStringLiteral("初始化性能监视器模块成功"));
    } else {
        LogDebug(labelled("initSystemMonitorLib failed: ", currentErrorText()));
        LogDebug(QStringLiteral("初始化性能监视器模块失败"));
    }
}

void SystemMonitorPlugin::refresh()
{
    refreshSystemInfor(m_library, audioDevice);
}

void SystemMonitorPlugin::onCommitData()
{
    // Compatibility: session-end
    LogDebug(QStringLiteral("Commit data request."));
    if (!m_library)
        return;
    m_library->deinitSystemMonitorLib();
    std::exit(0); // NOLINT(concurrency-mt-unsafe)
}

void SystemMonitorPlugin::updateImages()
{
    refresh();
    LogDebug(QStringLiteral("updateImages"));
    if (mConnectionManager)
        updateKeys();
    LogDebug(QStringLiteral("-------------------updateImages over---------------------"));
}

void SystemMonitorPlugin::updateKeys()
{
    // Compatibility: list-lock
    const QMutexLocker lock(&m_listLock);
    KeyPass pass(m_gauges, passTime());
    for (normalAction *const key : qAsConst(m_actions))
        updateKey(*key, pass);
}

void SystemMonitorPlugin::updateKey(normalAction &key, KeyPass &pass)
{
    // Compatibility: always-sent
    LogDebug(labelled("get_operator->GetAction(): ", key.GetAction()));
    if (const std::optional<QString> picture = pass.paint(key))
        mConnectionManager->SetImage(*picture, key.GetContext(), 0, -1);
    // Compatibility: unknown-kinds
    mConnectionManager->SetTitle(key.displayedText, key.GetContext(), 0, -1);
}

void SystemMonitorPlugin::WillAppearForAction(const QString &action, const QString &context,
                                              const QJsonObject &payload,
                                              const QString & /*deviceId*/)
{
    logKeyEvent(QStringLiteral("WillAppearForAction"), action, context);
    normalAction *const key = getOrCreateKey(action, context);
    answerSettings(*key, payload, SettingsOccasion::WillAppear);
    if (!m_isPrepared)
        QTimer::singleShot(0, this, &SystemMonitorPlugin::prepareFirstPass);
}

/// The fonts of a deck are mostly one, and nothing else happens until the timer starts a pass.
void SystemMonitorPlugin::prepareFirstPass()
{
    if (m_isPrepared || m_actions.isEmpty())
        return;
    m_isPrepared = true;
    m_actions.constFirst()->prepareToPaint();
}

void SystemMonitorPlugin::DidReceiveSettings(const QString &action, const QString &context,
                                             const QJsonObject &payload,
                                             const QString & /*deviceId*/)
{
    logKeyEvent(QStringLiteral("DidReceiveSettings"), action, context);
    normalAction *const key = FindAction(action, context);
    if (!key) {
        LogDebug(QStringLiteral("action 操作句柄无效.."));
        return;
    }
    answerSettings(*key, payload, SettingsOccasion::DidReceiveSettings);
}

void SystemMonitorPlugin::answerSettings(normalAction &key, const QJsonObject &payload,
                                         SettingsOccasion occasion)
{
    const QJsonObject settings = payload.value(QLatin1String("settings")).toObject();
    key.applySettings(payload);
    m_gauges.forget(key);
    applySelections(key, occasion);
    const KeyKind *const kind = findKeyKind(key.GetAction());
    if (kind && kind->stepsThroughDrives())
        applyDiskMode(key);
    const QJsonObject reply = settingsReply(settings, key, occasion, m_library);
    if (mConnectionManager)
        mConnectionManager->SetSettings(reply, key.GetContext());
}

void SystemMonitorPlugin::applyDiskMode(normalAction &key)
{
    key.switchTimer.stop();
    key.switchTimer.disconnect(this);
    if (!key.loopsOverDrives()) {
        key.driveIndex = diskkey::chosenDrive(key);
        return;
    }
    connect(&key.switchTimer, &QTimer::timeout, this, [this, &key] { showDriveAndMoveOn(key); });
    key.switchTimer.start(diskkey::switchInterval(key.switchFrequency));
}

/// Shows the current drive at once, whatever the mode, and moves on to the next.
void SystemMonitorPlugin::showDriveAndMoveOn(normalAction &key)
{
    // Compatibility: loop-shows-single
    const QString picture = m_gauges.paintBetweenPasses(key, *findKeyKind(key.GetAction()),
                                                        diskkey::driveText(key), passTime());
    if (mConnectionManager) {
        mConnectionManager->SetImage(picture, key.GetContext(), 0, -1);
        mConnectionManager->SetTitle(key.displayedText, key.GetContext(), 0, -1);
    }
    key.driveIndex = diskkey::nextDrive(key.driveIndex);
}

void SystemMonitorPlugin::WillDisappearForAction(const QString &action, const QString &context,
                                                 const QJsonObject & /*payload*/,
                                                 const QString & /*deviceId*/)
{
    // Compatibility: silent-removal
    LogDebug(labelled("WillDisappearForAction: ", action));
    RemoveAction(action, context);
}

// Compatibility: presses-do-nothing
/// Unless the key's display settings ask for more.
void SystemMonitorPlugin::KeyDownForAction(const QString &action, const QString &context,
                                           const QJsonObject & /*payload*/,
                                           const QString & /*deviceId*/)
{
    LogDebug(labelled("KeyDownForAction: ", action));
    pressOrRelease(action, context, true);
}

void SystemMonitorPlugin::KeyUpForAction(const QString &action, const QString &context,
                                         const QJsonObject & /*payload*/,
                                         const QString & /*deviceId*/)
{
    LogDebug(labelled("KeyUpForAction: ", action));
    pressOrRelease(action, context, false);
}

void SystemMonitorPlugin::DialPressForAction(const QString &action, const QString &context,
                                             const QJsonObject &payload, const QString &deviceId)
{
    Plugin::DialPressForAction(action, context, payload, deviceId);
    pressOrRelease(action, context, payload.value(QLatin1String("pressed")).toBool());
}

void SystemMonitorPlugin::pressOrRelease(const QString &action, const QString &context,
                                         bool isPressed)
{
    const normalAction *const key = FindAction(action, context);
    if (!key)
        return;
    if (isPressed)
        m_gauges.press(*key, passTime());
    else
        m_gauges.release(*key, passTime());
}

void SystemMonitorPlugin::SendToPlugin(const QString &action, const QString & /*context*/,
                                       const QJsonObject & /*payload*/,
                                       const QString & /*deviceId*/)
{
    LogDebug(labelled("SendToPlugin: ", action));
}

void SystemMonitorPlugin::TitleParametersDidChange(const QString &action,
                                                   const QString & /*context*/,
                                                   const QJsonObject & /*payload*/,
                                                   const QString & /*deviceId*/)
{
    LogDebug(labelled("TitleParametersDidChange: ", action));
}

void SystemMonitorPlugin::PropertyInspectorDidAppear(const QString &action,
                                                     const QString & /*context*/,
                                                     const QJsonObject & /*payload*/,
                                                     const QString & /*deviceId*/)
{
    LogDebug(labelled("PropertyInspectorDidAppear: ", action));
}

void SystemMonitorPlugin::PropertyInspectorDidDisAppear(const QString &action,
                                                        const QString & /*context*/,
                                                        const QJsonObject & /*payload*/,
                                                        const QString & /*deviceId*/)
{
    LogDebug(labelled("PropertyInspectorDidDisAppear: ", action));
}

void SystemMonitorPlugin::HwInfoPortMsg(const QString &message)
{
    LogDebug(labelled("hwInfoPortMsg: ", message));
    LogDebug(QStringLiteral("端口号发生变更，重新链接.."));
    const QJsonObject object = parseJson(message.toUtf8()).object();
    const int port = object.value(QLatin1String("hwInfoPort")).toString().toInt();
    m_perfDataSource->setPort(port);
    m_hardwareSocket->setPort(port);
}

normalAction *SystemMonitorPlugin::FindAction(const QString &action, const QString &context) const
{
    const auto key =
        std::find_if(m_actions.begin(), m_actions.end(), [&](const normalAction *each) {
            return each->GetAction() == action && each->GetContext() == context;
        });
    return key == m_actions.end() ? nullptr : *key;
}

normalAction *SystemMonitorPlugin::getOrCreateKey(const QString &action, const QString &context)
{
    if (normalAction *const known = FindAction(action, context)) {
        LogDebug(QStringLiteral("已存在的动作"));
        return known;
    }
    LogDebug(QStringLiteral("新动作"));
    auto *const key = new normalAction(mConnectionManager, action, context);
    const QMutexLocker lock(&m_listLock);
    m_actions.append(key);
    return key;
}

Action *SystemMonitorPlugin::GetOrCreateAction(const QString &action, const QString &context)
{
    return getOrCreateKey(action, context);
}

bool SystemMonitorPlugin::RemoveAction(const QString &action, const QString &context)
{
    const QMutexLocker lock(&m_listLock);
    normalAction *const key = FindAction(action, context);
    if (!key)
        return false;
    m_actions.removeOne(key);
    m_gauges.forget(*key);
    delete key;
    return true;
}
