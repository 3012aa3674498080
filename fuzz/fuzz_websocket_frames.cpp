#include "fuzz/FuzzSupport.h"
#include "inspector_server/FrameHead.h"

// What a client sends to the data server after the handshake: frame after frame.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = fuzz::bytesOf(data, size);
    qint64 at = 0;
    while (at < bytes.size()) {
        const char *const start = bytes.constData() + at;
        const qint64 left = bytes.size() - at;
        const FrameHead head = frameHead(start, left);
        if (head.size == 0) {
            fuzz::require(left < FrameHead::longest);
            break;
        }
        fuzz::require(head.size >= 2 && head.size <= FrameHead::longest && head.size <= left);
        // What follows the head makes no difference; without its last byte there is no head.
        fuzz::require(frameHead(start, head.size).payloadSize == head.payloadSize);
        fuzz::require(frameHead(start, head.size - 1).size == 0);
        if (head.payloadSize > static_cast<quint64>(left - head.size))
            break;
        at += head.size + static_cast<qint64>(head.payloadSize);
    }
    return 0;
}
