#include "tests/support/SoundServer.h"

SoundServer::SoundServer() = default;
SoundServer::~SoundServer() = default;

bool SoundServer::start()
{
    m_reason =
        QStringLiteral("programs for Windows cannot start the host's; tst_audio_windows has one");
    return false;
}

bool SoundServer::control(const QStringList & /*arguments*/) const
{
    return false;
}
