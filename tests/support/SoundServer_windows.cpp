#include "tests/support/SoundServer.h"

// Under Wine the daemon is one of the host's: tests/support/with_sound_server.sh has started it, and
// the host's own programs control it.

SoundServer::SoundServer() = default;
SoundServer::~SoundServer() = default;

bool SoundServer::start()
{
    if (!qEnvironmentVariableIsEmpty("PULSE_SERVER"))
        return true;
    m_reason = QStringLiteral("with_sound_server.sh has started none");
    return false;
}

bool SoundServer::control(const QStringList &arguments) const
{
    return QProcess::execute(QStringLiteral("Z:/usr/bin/pactl"), arguments) == 0;
}
