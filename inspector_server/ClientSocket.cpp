#include "inspector_server/ClientSocket.h"

#include <QByteArray>
#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace {

/// The size of the frame at \a bytes that goes to the reader at once; 0 while it is incomplete.
qint64 sizeOfFrame(const FrameHead &head, qint64 count)
{
    if (head.size == 0)
        return 0;
    if (head.payloadSize > static_cast<quint64>(ClientSocket::longestPayload))
        return head.size;
    const qint64 size = head.size + static_cast<qint64>(head.payloadSize);
    return size <= count ? size : 0;
}

} // namespace

qint64 ClientSocket::bytesAvailable() const
{
    return m_isHoldingBack ? 0 : std::max<qint64>(buffered() - m_heldBack, 0);
}

qint64 ClientSocket::held() const
{
    // An unfinished text is kept in UTF-16.
    return buffered() + 2 * m_unfinished + bytesToWrite();
}

void ClientSocket::holdBack()
{
    m_isHoldingBack = true;
}

void ClientSocket::handOn(qint64 bytes)
{
    m_isHoldingBack = false;
    m_heldBack = buffered() - bytes;
}

FrameHead ClientSocket::head()
{
    std::array<char, FrameHead::longest> bytes{};
    // Peeking at more than is available would make Qt read on.
    const qint64 count = std::min<qint64>(buffered(), bytes.size());
    return isOpen() ? frameHead(bytes.data(), peek(bytes.data(), count)) : FrameHead();
}

qint64 ClientSocket::frameSize()
{
    return sizeOfFrame(head(), buffered());
}

int ClientSocket::frameCount()
{
    const QByteArray bytes = isOpen() ? peek(buffered()) : QByteArray();
    int frames = 0;
    qint64 at = 0;
    while (at < bytes.size()) {
        const qint64 left = bytes.size() - at;
        const qint64 size = sizeOfFrame(frameHead(bytes.constData() + at, left), left);
        if (size == 0)
            break;
        at += size;
        ++frames;
    }
    return frames;
}

qint64 ClientSocket::handOnFrame(QObject *reader)
{
    const FrameHead frame = head();
    const qint64 size = sizeOfFrame(frame, buffered());
    if (frame.kind != FrameHead::Kind::Control) {
        const auto payload = size - frame.size;
        m_unfinished = frame.isFinal ? 0 : m_unfinished + payload;
    }
    handOn(size);
    Q_EMIT readyRead();
    // Qt notifies the reader through a posted event.
    QCoreApplication::sendPostedEvents(reader, QEvent::MetaCall);
    holdBack();
    return size;
}

void ClientSocket::readUpTo(qint64 most)
{
    // Qt only resumes reading when the size changes.
    setReadBufferSize(most + 1);
    setReadBufferSize(most);
}

void ClientSocket::stopReading()
{
    // 0 would mean no limit.
    setReadBufferSize(std::max<qint64>(buffered(), 1));
}
