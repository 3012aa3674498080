#include "sensors/services/BoundedWebSocket.h"

#include <QUrl>
#include <QWebSocket>

void openBounded(QWebSocket &socket, const QUrl &url, quint64 longestMessage)
{
    socket.setMaxAllowedIncomingFrameSize(longestMessage);
    socket.setMaxAllowedIncomingMessageSize(longestMessage);
    socket.open(url);
    // Only now there is a buffer. It must hold a whole frame.
    socket.setReadBufferSize(2 * static_cast<qint64>(longestMessage));
}
