#pragma once

class BasePlugin;
class ConnectionManager;

/// Reads the host's command line, picks the language and opens the host link for \a plugin; the
/// link itself is established later in the event loop. Returns 0 on success, and 1 after logging
/// the error when the command line is invalid.
int launchPlugin(int argc, char **argv, BasePlugin *plugin);

/// The process-wide host link; null until a launch has succeeded and after its plugin has been
/// deleted.
ConnectionManager *processConnectionManager();
