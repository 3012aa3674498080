#pragma once

#include "tests/support/FakeHost.h"
#include "tests/support/PluginProcess.h"

/// A plugin and the host that has started it.
struct RunningPlugin
{
    FakeHost host;
    PluginProcess process;

    /// True when the plugin has registered with the host.
    bool start(const QString &info = QStringLiteral("{}"))
    {
        process.launch(host.arguments(info));
        return host.waitForRegistration();
    }
};
