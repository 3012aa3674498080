#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

/// Somebody who connects to the data server to do harm, and again whenever it is dropped.
class Stranger : public QObject
{
    Q_OBJECT

public:
    struct Attack
    {
        enum class Manner {
            Ask,
            Ping,
            Unfinished, ///< Messages that never end.
            Trickle,    ///< A long request, byte by byte.
            Connect,    ///< Leaves as soon as it is let in.
        };

        QByteArray payload;
        int perSecond = 1; ///< How often it does
        int atOnce = 1;    ///< so much.
        Manner manner = Manner::Ask;
    };

    Stranger(Attack attack, bool reads);

    qint64 sent() const { return m_sent; }

private:
    void connectAnew();
    void attack();
    void onReadyRead();
    void send(const QByteArray &bytes);
    QByteArray nextBytes();

    Attack m_attack;
    bool m_reads;
    bool m_isServed = false;
    qint64 m_sent = 0;
    int m_sentFrames = 0; ///< Or bytes, one by one, of this connection.
    QTcpSocket m_socket;
    QTimer m_timer;
};

Q_DECLARE_METATYPE(Stranger::Attack)
