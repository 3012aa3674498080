#include "sensors/services/BoundedWebSocket.h"

#include <QUrl>
#include <QWebSocket>

void openBounded(QWebSocket &socket, const QUrl &url, quint64 longestMessage)
{
    socket.setMaxAllowedIncomingFrameSize(longestMessage);
    socket.setMaxAllowedIncomingMessageSize(longestMessage);
    socket.open(url);
    // The buffer does not exist before this point. It must hold a whole frame.
    socket.setReadBufferSize(2 * static_cast<qint64>(longestMessage));
}
