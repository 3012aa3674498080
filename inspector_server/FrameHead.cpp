#include "inspector_server/FrameHead.h"

#include <QtEndian>

FrameHead frameHead(const char *bytes, qint64 count)
{
    constexpr int start = 2;
    if (count < start)
        return {};
    const auto first = static_cast<quint8>(bytes[0]);
    const auto second = static_cast<quint8>(bytes[1]);
    const int shortLength = second & 0x7F;
    const int lengthSize = shortLength == 126 ? 2 : shortLength == 127 ? 8 : 0;
    const int maskSize = (second & 0x80) != 0 ? 4 : 0;
    FrameHead head;
    if (count < start + lengthSize + maskSize)
        return {};
    head.size = start + lengthSize + maskSize;
    head.payloadSize = static_cast<quint64>(shortLength);
    if (lengthSize == 2)
        head.payloadSize = qFromBigEndian<quint16>(bytes + start);
    else if (lengthSize == 8)
        head.payloadSize = qFromBigEndian<quint64>(bytes + start);
    head.isFinal = (first & 0x80) != 0;
    if ((first & 0x08) != 0)
        head.kind = FrameHead::Kind::Control;
    else if ((first & 0x0F) == 0)
        head.kind = FrameHead::Kind::Continuation;
    return head;
}
