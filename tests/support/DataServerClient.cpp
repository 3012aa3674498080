#include "tests/support/DataServerClient.h"

#include "tests/support/Waits.h"

#include <QTest>
#include <QUrl>

DataServerClient::DataServerClient()
{
    connect(&m_socket, &QWebSocket::textMessageReceived, this,
            [this](const QString &text) { m_replies.append(text); });
}

void DataServerClient::openSoon(const QHostAddress &address)
{
    QUrl url;
    url.setScheme(QStringLiteral("ws"));
    url.setHost(address.toString());
    url.setPort(port);
    m_socket.open(url);
}

bool DataServerClient::open(const QHostAddress &address)
{
    openSoon(address);
    return QTest::qWaitFor([this] { return isOpen(); }, patience);
}

QString DataServerClient::ask(const QString &request)
{
    const auto before = m_replies.size();
    m_socket.sendTextMessage(request);
    const bool answered =
        QTest::qWaitFor([this, before] { return m_replies.size() > before; }, patience);
    return answered ? m_replies.at(before) : QString();
}

bool DataServerClient::isOpen() const
{
    return m_socket.state() == QAbstractSocket::ConnectedState;
}

bool DataServerClient::waitForClose() const
{
    return QTest::qWaitFor([this] { return !isOpen(); }, patience);
}

void DataServerClient::close()
{
    m_socket.close();
}

void DataServerClient::sendText(const QString &text)
{
    m_socket.sendTextMessage(text);
}

void DataServerClient::sendBinary(const QByteArray &bytes)
{
    m_socket.sendBinaryMessage(bytes);
}
