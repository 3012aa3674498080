#include "shell/QtSystemMonitor.h"

#include "SDK/Logger/Logger.h"
#include "SDK/PluginLauncher.h"
#include "plugin/SystemMonitorPlugin.h"
#include "render/FontRegistry.h"
#include "shell/ConsoleLog.h"
#include "shell/NativeHotKey.h"

#include <QCloseEvent>

namespace {

// Compatibility: fonts-by-place
/// Taken by its place on the command line, whatever name precedes it.
constexpr int infoArgument = 8;

void loadFonts(const QString &info)
{
    LogDebug(QStringLiteral("加载字体..."));
    LogDebug(labelled("fontJson: ", info));
    const auto files = fontregistry::loadFontList(info);
    for (const fontregistry::FontFile &file : files)
        fontregistry::loadFont(file.url);
}

} // namespace

QtSystemMonitor::QtSystemMonitor()
{
    setWindowTitle(QStringLiteral("QtSystemMonitor"));
    // Only native windows get messages, and a widget that is never shown does not have one by
    // itself.
    winId();
}

bool QtSystemMonitor::StartPlugin(int argc, char **argv)
{
    if (plugin) {
        LogDebug(QStringLiteral("插件并非第一次启动, 不执行任何操作"));
        return false;
    }
    LogDebug(QStringLiteral("插件第一次启动 初始化插件模块"));
    plugin = new SystemMonitorPlugin;
    connect(this, &QObject::destroyed, plugin, &QObject::deleteLater);

    LogDebug(QStringLiteral("尝试启动插件"));
    if (launchPlugin(argc, argv, plugin) != 0) {
        LogDebug(QStringLiteral("尝试启动插件失败..."));
        delete plugin;
        plugin = nullptr;
        return false;
    }
    LogDebug(QStringLiteral("尝试启动插件成功"));
    loadFonts(QString::fromLocal8Bit(argv[infoArgument]));
    return true;
}

bool QtSystemMonitor::handleHotKey(quint64 identifier)
{
    if (identifier != consoleHotKey)
        return false;
    ConsoleLog *const console = ConsoleLog::instance();
    LogDebug(QStringLiteral("nativeEvent Ctrl+Backspace pressed!"));
    console->openOnce();
    return true;
}

bool QtSystemMonitor::nativeEvent(const QByteArray &eventType, void *message,
                                  NativeEventResult *result)
{
    const auto identifier = hotKeyIdentifier(eventType, message);
    if (identifier && handleHotKey(*identifier)) {
        *result = 0;
        return true;
    }
    return QWidget::nativeEvent(eventType, message, result);
}

void QtSystemMonitor::closeEvent(QCloseEvent *event)
{
    // Closing would end the program, or at least destroy the native window. The end of a session
    // does not come this way: it only asks visible windows.
    event->ignore();
}
