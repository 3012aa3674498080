#include "deck_simulator/host/StallWatch.h"

#include <QWebSocket>

namespace deck {

namespace {

constexpr std::chrono::milliseconds period{250};
/// For so long without a sign the other end need not be asked for one.
constexpr std::chrono::milliseconds quiet{1000};

} // namespace

StallWatch::StallWatch(QObject *parent)
    : QObject(parent)
{
    connect(&m_timer, &QTimer::timeout, this, &StallWatch::look);
}

void StallWatch::follow(QWebSocket *link)
{
    if (m_link != nullptr)
        m_link->disconnect(this);
    m_timer.stop();
    m_link = link;
    setStalled(false);
    if (link == nullptr)
        return;
    connect(link, &QWebSocket::pong, this, &StallWatch::takeSign);
    connect(link, &QWebSocket::textFrameReceived, this, &StallWatch::takeSign);
    connect(link, &QWebSocket::binaryFrameReceived, this, &StallWatch::takeSign);
    connect(link, &QWebSocket::disconnected, this, [this] { follow(nullptr); });
    m_sinceSign.start();
    m_sinceLook.start();
    m_timer.start(period);
}

void StallWatch::look()
{
    // This program has been still itself: what came meanwhile has not been read yet.
    const bool wasStill = m_sinceLook.restart() > 4 * period.count();
    if (m_link == nullptr || m_stalled)
        return;
    if (wasStill)
        m_sinceSign.start();
    if (m_sinceSign.hasExpired(limit.count()))
        setStalled(true);
    else if (m_sinceSign.hasExpired(quiet.count()))
        m_link->ping();
}

void StallWatch::takeSign()
{
    m_sinceSign.start();
    setStalled(false);
}

void StallWatch::setStalled(bool stalled)
{
    if (stalled == m_stalled)
        return;
    m_stalled = stalled;
    Q_EMIT stalledChanged(stalled);
}

} // namespace deck
