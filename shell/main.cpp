#include "SDK/Logger/Logger.h"
#include "shell/ApplicationBootstrap.h"
#include "shell/ConsoleTrigger.h"
#include "shell/QtSystemMonitor.h"
#include "shell/codepages.h"
#include "shell/desktop.h"
#include "shell/heap.h"
#include "shell/standardstreams.h"

#include <QApplication>
#include <QThread>
#include <QTimer>

#include <chrono>

namespace {

constexpr std::chrono::seconds heapInterval{5};

/// By then there were some passes, and usually the host has shown its keys.
constexpr std::chrono::seconds startUpEnd{5};

} // namespace

int main(int argc, char **argv)
{
    // Compatibility: start-pause
    QThread::msleep(100);
    fillStandardStreams();
    returnLargeBlocksWhenFreed();
    desktop::choosePlatform();
    QApplication application(argc, argv);
    desktop::attach();
    ConsoleTrigger consoleTrigger;
    auto *const bootstrap = new ApplicationBootstrap(argc, argv);
    Q_UNUSED(bootstrap) // It stays for as long as the process lives.

    QtSystemMonitor window;
    QObject::connect(&consoleTrigger, &ConsoleTrigger::sigPressed, &window,
                     [&window] { window.handleHotKey(QtSystemMonitor::consoleHotKey); });
    consoleTrigger.start();
    if (!window.StartPlugin(argc, argv)) {
        LogDebug(QStringLiteral("开始与varodek建立连接失败"));
        return 1;
    }
    window.hide();
    QTimer heapTimer;
    QObject::connect(&heapTimer, &QTimer::timeout, &window, returnFreedMemory);
    heapTimer.start(heapInterval);
    QTimer::singleShot(startUpEnd, &window, returnCodePages);
    return QApplication::exec();
}
