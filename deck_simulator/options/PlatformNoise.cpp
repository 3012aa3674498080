#include "deck_simulator/options/PlatformNoise.h"

#include <QString>
#include <QtGlobal>

namespace deck {

namespace {

QtMessageHandler usualHandler = nullptr;

void showMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (text != QLatin1String("This plugin does not support propagateSizeHints()"))
        usualHandler(type, context, text);
}

} // namespace

void silencePlatformNoise()
{
    if (usualHandler == nullptr)
        usualHandler = qInstallMessageHandler(showMessage);
}

} // namespace deck
