#pragma once

#include <QtGlobal>

class QUrl;
class QWebSocket;

/// Opens \a socket on \a url, as QWebSocket::open does. A frame or message of more than
/// \a longestMessage bytes closes the connection before it is read, and no more than twice as many
/// bytes wait to be read.
void openBounded(QWebSocket &socket, const QUrl &url, quint64 longestMessage);
