#pragma once

#include "qt/QtVersions.h"

#include <QWidget>

class SystemMonitorPlugin;

/// The program's one top-level widget, never shown: it owns the plugin and receives native window
/// messages. It does not close when it is asked to.
class QtSystemMonitor : public QWidget
{
    Q_OBJECT

public:
    /// Ctrl+Backspace, registered by whoever posts the message.
    static constexpr quint64 consoleHotKey = 1;

    QtSystemMonitor();

    /// Creates the plugin, opens its host link and loads the fonts that the host names. False, with
    /// no plugin left, when the command line is at fault; false at once on a second call.
    bool StartPlugin(int argc, char **argv);

    /// The console's hot key opens it; returns whether \a identifier was handled.
    bool handleHotKey(quint64 identifier);

protected:
    bool nativeEvent(const QByteArray &eventType, void *message,
                     NativeEventResult *result) override;
    void closeEvent(QCloseEvent *event) override;

private:
    SystemMonitorPlugin *plugin = nullptr;
};
