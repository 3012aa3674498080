#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <chrono>

class QWebSocket;

namespace deck {

/// Notices when the other end of a link stands still: it is pinged, and every message and answer
/// is a sign of life. Answers come from its event loop, so that a blocked one counts as well.
class StallWatch : public QObject
{
    Q_OBJECT

public:
    /// The other end stands still after this time without a sign of life.
    static constexpr std::chrono::milliseconds limit{3000};

    explicit StallWatch(QObject *parent = nullptr);

    /// Watches \a link until it is closed or another one is followed. Null: none.
    void follow(QWebSocket *link);
    [[nodiscard]] bool isStalled() const { return m_stalled; }

Q_SIGNALS:
    void stalledChanged(bool stalled);

private:
    void look();
    void takeSign();
    void setStalled(bool stalled);

    QPointer<QWebSocket> m_link;
    QTimer m_timer;
    QElapsedTimer m_sinceSign;
    QElapsedTimer m_sinceLook;
    bool m_stalled = false;
};

} // namespace deck
