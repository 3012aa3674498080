#include "plugin/SystemMonitorPlugin.h"

#include "render/GlyphShapes.h"
#include "render/normalAction.h"
#include "sensors/services/PerfDataSource.h"
#include "sensors/systemInfor.h"
#include "tests/support/FakeHardwareService.h"
#include "tests/support/InMemoryLibrary.h"
#include "tests/support/InMemoryMachine.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/Waits.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMetaMethod>
#include <QProcess>
#include <QTimer>
#include <QtTest>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

const char *const endTheSession = "end-the-session";
const char *const endTheSessionWithoutALibrary = "end-the-session-without-a-library";

void reportDeinit()
{
    std::printf("deinit calls: %d\n", InMemoryLibrary::deinitCalls);
}

/// The process in which the session ends: with a library it must end itself.
int runUntilSessionEnds(bool withLibrary)
{
    const FakeHardwareService service;
    std::atexit(reportDeinit);
    InMemoryLibrary::canBeCreated = withLibrary;
    const SystemMonitorPlugin plugin;
    QTimer::singleShot(0, qApp, [] {
        // A session manager cannot be created here; the argument is not used.
        char placeholder = 0;
        Q_EMIT qApp->commitDataRequest(*reinterpret_cast<QSessionManager *>(&placeholder));
        QCoreApplication::exit(EXIT_FAILURE);
    });
    return QApplication::exec();
}

QString quoted(const char *text)
{
    return MessageCapture::quoted(QString::fromUtf8(text));
}

} // namespace

class tst_SystemMonitorPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void startsInOrder();
    void startsWithALibraryThatFails();
    void startsWithoutALibrary();
    void tellsTheWindowsVersion_data();
    void tellsTheWindowsVersion();
    void tellsTheLibraryTheWindowsVersion();
    void keepsOneKeyForEachUuidAndContext();
    void removesOnlyTheKeyThatIsNamed();
    void appearingTwiceKeepsTheKey();
    void settingsOfAnUnknownKeyAreDropped();
    void disappearingRemovesTheKey();
    void otherKeyEventsAreOnlyLogged();
    void updatesByASlot();
    void takesOverAChangedServicePort_data();
    void takesOverAChangedServicePort();
    void loopsOverTheDrives();
    void settingsStartTheLoopAnew();
    void endsTheLoopInAnotherMode();
    void passWithoutAHostOnlyRefreshes();
    void preparesForTheFirstPass();
    void passesRunEverySecond();
    void passesRunPrecisely();
    void sessionEndStopsTheLibraryAndTheProcess_data();
    void sessionEndStopsTheLibraryAndTheProcess();

private:
    SystemMonitorPlugin &plugin() { return *m_plugin; }

    FakeHardwareService m_service;
    std::unique_ptr<MessageCapture> m_capture;
    std::unique_ptr<SystemMonitorPlugin> m_plugin;
};

namespace {

const QString uuid = keyuuid::cpu;
const QString memoryUuid = keyuuid::memory;
const QString diskUuid = keyuuid::physicalDisk;
const QString context = QStringLiteral("ctx");

QJsonObject diskSettings(const char *mode, int seconds, const QString &item = QString())
{
    const QJsonObject parameters{{QStringLiteral("diskMode"), QString::fromLatin1(mode)},
                                 {QStringLiteral("switchFrequency"), seconds},
                                 {QStringLiteral("volumeNameItem"), item},
                                 {QStringLiteral("showVolumeName"), true}};
    return {
        {QStringLiteral("settings"), QJsonObject{{QStringLiteral("titleParameters"), parameters}}}};
}

} // namespace

void tst_SystemMonitorPlugin::init()
{
    InMemoryLibrary::reset();
    InMemoryMachine::reset();
    InMemoryMachine::devices = {{QStringLiteral("Speakers"), 35.5F}};
    m_capture = std::make_unique<MessageCapture>();
}

void tst_SystemMonitorPlugin::cleanup()
{
    m_plugin.reset();
    m_capture.reset();
}

void tst_SystemMonitorPlugin::startsInOrder()
{
    QElapsedTimer timer;
    timer.start();
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    QVERIFY(timer.elapsed() >= 1000);
    QVERIFY(timer.elapsed() < 5000);
    QCOMPARE(
        MessageCapture::messages(),
        (QStringList{quoted("WebSocket 尝试连接第 1 次..."), quoted("WebSocket connected"),
                     quoted("WebSocket 连接成功"), quoted("插件启动"),
                     quoted("连接关机，重启，注销信号"), quoted("initSystemMonitorLib success"),
                     quoted("初始化性能监视器模块成功"), quoted("初始化系统信息"),
                     quoted("更新CPU型号&GPU型号")}));
    QCOMPARE(InMemoryLibrary::instances, 2);
    QCOMPARE(InMemoryLibrary::initCalls, 1);
    QCOMPARE(InMemoryLibrary::detectedSensorsCalls, 1);
    QVERIFY(m_plugin->systemMonitorLib());
}

void tst_SystemMonitorPlugin::startsWithALibraryThatFails()
{
    InMemoryLibrary::initSucceeds = false;
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    const QStringList messages = MessageCapture::messages();
    QVERIFY(messages.at(5).startsWith(QLatin1String("\"initSystemMonitorLib failed: ")));
    QCOMPARE(messages.mid(6),
             (QStringList{quoted("初始化性能监视器模块失败"), quoted("初始化系统信息"),
                          quoted("更新CPU型号&GPU型号")}));
    QCOMPARE(InMemoryLibrary::detectedSensorsCalls, 0);
}

void tst_SystemMonitorPlugin::startsWithoutALibrary()
{
    InMemoryLibrary::canBeCreated = false;
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    const QStringList messages = MessageCapture::messages();
    QVERIFY(messages.at(5).startsWith(QLatin1String("\"thisSystemMonitorLib obj create failed: ")));
    QCOMPARE(messages.mid(6),
             (QStringList{quoted("初始化性能监视器模块失败"), quoted("初始化系统信息"),
                          quoted("更新CPU型号&GPU型号")}));
    QVERIFY(!plugin().systemMonitorLib());
    QCOMPARE(systemInfor::AudioDeviceNames, QStringList(QStringLiteral("Speakers")));
    plugin().WillAppearForAction(keyuuid::diskTemperature, context, {}, QString());
    plugin().updateImages();
    QCOMPARE(InMemoryLibrary::initCalls, 0);
}

void tst_SystemMonitorPlugin::tellsTheWindowsVersion_data()
{
    using System = QOperatingSystemVersion;
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<int>("build");
    QTest::addColumn<bool>("newer");
    QTest::newRow("unknown") << int{System::Unknown} << 10 << 0 << 0 << false;
    QTest::newRow("no Windows") << int{System::Android} << 10 << 0 << 0 << false;
    QTest::newRow("Windows Vista") << int{System::Windows} << 6 << 0 << 6002 << false;
    QTest::newRow("Windows 7") << int{System::Windows} << 6 << 1 << 7601 << false;
    QTest::newRow("Windows 8") << int{System::Windows} << 6 << 2 << 9200 << true;
    QTest::newRow("Windows 10") << int{System::Windows} << 10 << 0 << 19045 << true;
    QTest::newRow("Windows 11") << int{System::Windows} << 10 << 0 << 22631 << true;
}

void tst_SystemMonitorPlugin::tellsTheWindowsVersion()
{
    QFETCH(int, type);
    QFETCH(int, major);
    QFETCH(int, minor);
    QFETCH(int, build);
    const QOperatingSystemVersion system(static_cast<QOperatingSystemVersion::OSType>(type), major,
                                         minor, build);
    QTEST(isNewerThanWindows7(system), "newer");
}

void tst_SystemMonitorPlugin::tellsTheLibraryTheWindowsVersion()
{
    for (const bool isNewer : {false, true}) {
        const QOperatingSystemVersion system =
            isNewer ? QOperatingSystemVersion::Windows8 : QOperatingSystemVersion::Windows7;
        InMemoryLibrary::lastInitFlag = !isNewer;
        m_plugin = std::make_unique<SystemMonitorPlugin>(nullptr, system);
        QCOMPARE(InMemoryLibrary::lastInitFlag, isNewer);
    }
}

void tst_SystemMonitorPlugin::keepsOneKeyForEachUuidAndContext()
{
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    QVERIFY(!plugin().FindAction(uuid, context));
    Action *const first = plugin().GetOrCreateAction(uuid, context);
    QCOMPARE(MessageCapture::messages().constLast(), quoted("新动作"));
    QCOMPARE(plugin().GetOrCreateAction(uuid, context), first);
    QCOMPARE(MessageCapture::messages().constLast(), quoted("已存在的动作"));
    QVERIFY(plugin().GetOrCreateAction(uuid, QStringLiteral("other")) != first);
    QVERIFY(plugin().GetOrCreateAction(QStringLiteral("x"), context) != first);
    QCOMPARE(plugin().FindAction(uuid, context), first);
    QVERIFY(!plugin().FindAction(uuid.toUpper(), context));
}

void tst_SystemMonitorPlugin::removesOnlyTheKeyThatIsNamed()
{
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    QVERIFY(!plugin().RemoveAction(uuid, context));
    plugin().GetOrCreateAction(uuid, context);
    plugin().GetOrCreateAction(uuid, QStringLiteral("other"));
    QVERIFY(!plugin().RemoveAction(QStringLiteral("x"), context));
    QVERIFY(plugin().RemoveAction(uuid, context));
    QVERIFY(!plugin().FindAction(uuid, context));
    QVERIFY(plugin().FindAction(uuid, QStringLiteral("other")));
    QVERIFY(!plugin().RemoveAction(uuid, context));
}

void tst_SystemMonitorPlugin::appearingTwiceKeepsTheKey()
{
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    plugin().WillAppearForAction(uuid, context, {}, QString());
    normalAction *const key = plugin().FindAction(uuid, context);
    QVERIFY(key);
    key->imageWidth = 7;
    MessageCapture::clear();
    plugin().WillAppearForAction(uuid, context, {}, QString());
    QCOMPARE(plugin().FindAction(uuid, context), key);
    QCOMPARE(key->imageWidth, 7);
    QCOMPARE(MessageCapture::messages().mid(0, 4),
             (QStringList{quoted("WillAppearForAction"),
                          MessageCapture::quoted(QStringLiteral("inAction: ") + uuid),
                          quoted("inContext: ctx"), quoted("已存在的动作")}));
    // The list contains it once.
    QVERIFY(plugin().RemoveAction(uuid, context));
    QVERIFY(!plugin().RemoveAction(uuid, context));
}

void tst_SystemMonitorPlugin::settingsOfAnUnknownKeyAreDropped()
{
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    MessageCapture::clear();
    plugin().DidReceiveSettings(uuid, context, {}, QString());
    QCOMPARE(MessageCapture::messages(),
             (QStringList{quoted("DidReceiveSettings"),
                          MessageCapture::quoted(QStringLiteral("inAction: ") + uuid),
                          quoted("inContext: ctx"), quoted("action 操作句柄无效..")}));
    QVERIFY(!plugin().FindAction(uuid, context));
}

void tst_SystemMonitorPlugin::disappearingRemovesTheKey()
{
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    plugin().GetOrCreateAction(uuid, context);
    MessageCapture::clear();
    plugin().WillDisappearForAction(uuid, QStringLiteral("other"), {}, QString());
    QVERIFY(plugin().FindAction(uuid, context));
    plugin().WillDisappearForAction(uuid, context, {}, QString());
    QVERIFY(!plugin().FindAction(uuid, context));
    QCOMPARE(
        MessageCapture::messages(),
        QStringList({MessageCapture::quoted(QStringLiteral("WillDisappearForAction: ") + uuid),
                     MessageCapture::quoted(QStringLiteral("WillDisappearForAction: ") + uuid)}));
}

void tst_SystemMonitorPlugin::otherKeyEventsAreOnlyLogged()
{
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    plugin().WillAppearForAction(memoryUuid, context, {}, QString());
    normalAction &key = *plugin().FindAction(memoryUuid, context);
    key.font.setPixelSize(20);
    key.normalPainting(QStringLiteral("61%"));
    const QImage picture = key.keyImage;
    QVERIFY(!picture.isNull());
    // The known key, and one that does not exist.
    for (const QString &each : {memoryUuid, QStringLiteral("x")}) {
        MessageCapture::clear();
        plugin().KeyDownForAction(each, context, {}, QString());
        plugin().KeyUpForAction(each, context, {}, QString());
        plugin().SendToPlugin(each, context, {}, QString());
        plugin().TitleParametersDidChange(each, context, {}, QString());
        plugin().PropertyInspectorDidAppear(each, context, {}, QString());
        plugin().PropertyInspectorDidDisAppear(each, context, {}, QString());
        QStringList lines;
        for (const char *const event :
             {"KeyDownForAction: ", "KeyUpForAction: ", "SendToPlugin: ",
              "TitleParametersDidChange: ", "PropertyInspectorDidAppear: ",
              "PropertyInspectorDidDisAppear: "})
            lines.append(MessageCapture::quoted(QLatin1String(event) + each));
        QCOMPARE(MessageCapture::messages(), lines);
    }
    QVERIFY(!plugin().FindAction(QStringLiteral("x"), context));
    QCOMPARE(key.keyImage, picture);
    QCOMPARE(key.displayedText, QStringLiteral("61%"));
}

void tst_SystemMonitorPlugin::updatesByASlot()
{
    const QMetaObject &meta = SystemMonitorPlugin::staticMetaObject;
    const int index = meta.indexOfMethod("updateImages()");
    QVERIFY(index >= 0);
    QCOMPARE(meta.method(index).methodType(), QMetaMethod::Slot);
}

void tst_SystemMonitorPlugin::takesOverAChangedServicePort_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("good");
    QTest::newRow("good") << QStringLiteral(R"({"event":"hwInfoPort","hwInfoPort":"%1"})") << true;
    QTest::newRow("port is no text") << QStringLiteral(R"({"hwInfoPort":%1})") << false;
    QTest::newRow("not a number") << QStringLiteral(R"({"hwInfoPort":"%1x"})") << false;
    QTest::newRow("no port") << QStringLiteral(R"({"event":"hwInfoPort"})") << false;
    QTest::newRow("not JSON") << QStringLiteral("hwInfoPort: %1") << false;
}

void tst_SystemMonitorPlugin::takesOverAChangedServicePort()
{
    QFETCH(QString, message);
    QFETCH(bool, good);
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    QCOMPARE(plugin().perfDataSource().port(), 15500);
    const FakeHardwareService other;
    const QString text =
        message.contains(QStringLiteral("%1")) ? message.arg(other.port()) : message;
    MessageCapture::clear();
    plugin().HwInfoPortMsg(text);
    QCOMPARE(MessageCapture::messages().mid(0, 3),
             (QStringList{MessageCapture::quoted(QStringLiteral("hwInfoPortMsg: ") + text),
                          quoted("端口号发生变更，重新链接.."),
                          quoted("WebSocket 尝试连接第 1 次...")}));
    QCOMPARE(other.connections, good ? 1 : 0);
    QCOMPARE(plugin().perfDataSource().port(), good ? other.port() : 0);
}

void tst_SystemMonitorPlugin::loopsOverTheDrives()
{
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    systemInfor::DriveRoots = QStringList{QStringLiteral("/"), QStringLiteral("/home")};
    systemInfor::DriveFreeGB = {10, 20};
    systemInfor::DriveFreePercent = {90, 80};
    plugin().WillAppearForAction(diskUuid, context, diskSettings("Disk_Loop", 1), QString());
    normalAction &key = *plugin().FindAction(diskUuid, context);
    QCOMPARE(key.switchTimer.interval(), 1000);
    QVERIFY(key.switchTimer.isActive());

    QStringList shown;
    const QObject listener;
    connect(&key.switchTimer, &QTimer::timeout, &listener,
            [&] { shown.append(key.displayedText); });
    // A pass between two steps reads the drives of the machine; here they stay the same.
    InMemoryMachine::drives = {
        {QStringLiteral("/"), QString(), InMemoryMachine::gigabytes(10, 11)},
        {QStringLiteral("/home"), QString(), InMemoryMachine::gigabytes(20, 25)}};
    QTRY_COMPARE(shown.size(), 3);
    QCOMPARE(shown, (QStringList{QStringLiteral("/  10% Used  10G Free"),
                                 QStringLiteral("/home  20% Used  20G Free"),
                                 QStringLiteral("/  10% Used  10G Free")}));

    // The drives disappear.
    InMemoryMachine::drives.clear();
    QTRY_COMPARE(shown.constLast(), QStringLiteral("  0% Used  0G Free"));
    QCOMPARE(key.driveIndex, 0);
}

void tst_SystemMonitorPlugin::settingsStartTheLoopAnew()
{
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    systemInfor::DriveRoots =
        QStringList{QStringLiteral("/"), QStringLiteral("/home"), QStringLiteral("/data")};
    plugin().WillAppearForAction(diskUuid, context, diskSettings("Disk_Loop", 1), QString());
    plugin().DidReceiveSettings(diskUuid, context, diskSettings("Disk_Loop", 1), QString());
    plugin().DidReceiveSettings(diskUuid, context, diskSettings("Disk_Loop", 7), QString());
    normalAction &key = *plugin().FindAction(diskUuid, context);
    QCOMPARE(key.switchTimer.interval(), 7000);
    // One step for each time-out: the earlier connections are gone.
    QMetaObject::invokeMethod(&key.switchTimer, "timeout");
    QCOMPARE(key.driveIndex, 1);
}

void tst_SystemMonitorPlugin::endsTheLoopInAnotherMode()
{
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    plugin().WillAppearForAction(diskUuid, context, diskSettings("Disk_Loop", 1), QString());
    plugin().DidReceiveSettings(diskUuid, context,
                                diskSettings("Total_Disks", 1, QStringLiteral("2")), QString());
    normalAction &key = *plugin().FindAction(diskUuid, context);
    QVERIFY(!key.switchTimer.isActive());
    QCOMPARE(key.driveIndex, 2);
    key.driveIndex = 5;
    QMetaObject::invokeMethod(&key.switchTimer, "timeout");
    QCOMPARE(key.driveIndex, 5);
}

void tst_SystemMonitorPlugin::passWithoutAHostOnlyRefreshes()
{
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    plugin().WillAppearForAction(uuid, context, {}, QString());
    InMemoryLibrary::cpuInfo =
        InMemoryLibrary::reading(QStringLiteral("Total CPU Usage"), 42, QStringLiteral("%"));
    MessageCapture::clear();
    plugin().updateImages();
    QCOMPARE(systemInfor::CpuUsage, 42U);
    QCOMPARE(MessageCapture::messages(),
             (QStringList{quoted("updateImages"),
                          quoted("-------------------updateImages over---------------------")}));
    QVERIFY(plugin().FindAction(uuid, context)->keyImage.isNull());
}

/// Without a host no pass paints, so that the glyphs can only come from the preparation.
void tst_SystemMonitorPlugin::preparesForTheFirstPass()
{
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    plugin().WillAppearForAction(uuid, QStringLiteral("gone"), {}, QString());
    plugin().WillDisappearForAction(uuid, QStringLiteral("gone"), {}, QString());
    // A size that no other test uses, so that no glyph is known.
    const QJsonObject title{{QStringLiteral("fontSize"), 37}};
    plugin().WillAppearForAction(
        uuid, context,
        {{QStringLiteral("settings"), QJsonObject{{QStringLiteral("titleParameters"), title}}}},
        QString());
    const normalAction *const key = plugin().FindAction(uuid, context);
    QVERIFY(key);
    const GlyphShapes &glyphs = GlyphShapes::of(QRawFont::fromFont(key->font));
    QCOMPARE(glyphs.count(), std::size_t(0));
    QTRY_VERIFY(glyphs.count() > 0);
    QVERIFY(key->keyImage.isNull());
    QCOMPARE(key->displayedText, QString());
    QCOMPARE(key->imageWidth, 0);
    for (const QString &message : MessageCapture::messages())
        QVERIFY2(!message.contains(QLatin1String("textToDraw")), qPrintable(message));
}

void tst_SystemMonitorPlugin::passesRunEverySecond()
{
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    QElapsedTimer timer;
    timer.start();
    QTRY_COMPARE(MessageCapture::count(quoted("updateImages")), 2);
    QVERIFY(timer.elapsed() >= 1900);
}

void tst_SystemMonitorPlugin::passesRunPrecisely()
{
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    const auto timers = plugin().findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers.constFirst()->interval(), 1000);
    QCOMPARE(timers.constFirst()->timerType(), Qt::PreciseTimer);
    QVERIFY(timers.constFirst()->isActive());
}

void tst_SystemMonitorPlugin::sessionEndStopsTheLibraryAndTheProcess_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("output");
    QTest::newRow("library") << QString::fromLatin1(endTheSession) << EXIT_SUCCESS
                             << QByteArray("deinit calls: 1");
    QTest::newRow("none: the process goes on") << QString::fromLatin1(endTheSessionWithoutALibrary)
                                               << EXIT_FAILURE << QByteArray("deinit calls: 0");
}

void tst_SystemMonitorPlugin::sessionEndStopsTheLibraryAndTheProcess()
{
    QFETCH(QString, argument);
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {argument});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QTEST(process.exitCode(), "status");
    QTEST(process.readAllStandardOutput().trimmed(), "output");
    QVERIFY(process.readAllStandardError().contains("\"Commit data request.\""));
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc == 2 && qstrcmp(argv[1], endTheSession) == 0)
        return runUntilSessionEnds(true);
    if (argc == 2 && qstrcmp(argv[1], endTheSessionWithoutALibrary) == 0)
        return runUntilSessionEnds(false);
    tst_SystemMonitorPlugin test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_systemmonitorplugin.moc"
