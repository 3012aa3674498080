#include "bench/PlainPass.h"

#include "SDK/Logger/Logger.h"
#include "sensors/readings/SensorRefresh.h"

#include <QWebSocket>

PlainPass::PlainPass(VqSystemMonitorLib *library, QWebSocket *link, QVector<TextsOfKey> keys)
    : m_library(library)
    , m_link(link)
    , m_keys(std::move(keys))
{
}

void PlainPass::run(int step)
{
    refreshSystemInfor(m_library, 0);
    LogDebug(QStringLiteral("updateImages"));
    for (const TextsOfKey &each : qAsConst(m_keys)) {
        const QString &text = each.texts.at(step % each.texts.size());
        LogDebug(labelled("get_operator->GetAction(): ", each.key.action));
        LogDebug(labelled("textToDraw: ", text));
        const QByteArray png = plainqt::encode(plainqt::paint(each.key, text));
        m_link->sendTextMessage(plainqt::imageMessage(each.key.context, plainqt::dataUrl(png)));
        m_link->sendTextMessage(plainqt::titleMessage(each.key.context, text));
    }
    LogDebug(QStringLiteral("-------------------updateImages over---------------------"));
}
