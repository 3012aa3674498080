#pragma once

/// A plugin that registers, paints one text with the host's font and sends it once a second, until
/// the host ends. It takes its command line from the application, which must exist. No readings,
/// no settings, no sound, no log. The meter runs it like the plugin.
int runBarePlugin();
