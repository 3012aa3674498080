#pragma once

#include <QtGlobal>

class QUrl;
class QWebSocket;

/// Opens \a socket on \a url, as QWebSocket::open does. A frame or message of more than \a
/// longestMessage bytes closes the connection before it is read, and at most twice as many bytes
/// are buffered.
void openBounded(QWebSocket &socket, const QUrl &url, quint64 longestMessage);
