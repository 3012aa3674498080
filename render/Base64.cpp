#include "render/Base64.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace {

constexpr unsigned digitBits = 6;
constexpr unsigned digitMask = (1U << digitBits) - 1;
constexpr unsigned pairBits = 2 * digitBits;
constexpr unsigned pairMask = (1U << pairBits) - 1;

constexpr char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

struct Pair
{
    ushort first;
    ushort second;
};

constexpr std::array<Pair, pairMask + 1> makePairs()
{
    std::array<Pair, pairMask + 1> pairs = {};
    for (std::size_t value = 0; value < pairs.size(); ++value)
        pairs[value] = {static_cast<ushort>(digits[value >> digitBits]),
                        static_cast<ushort>(digits[value & digitMask])};
    return pairs;
}

/// Two digits for each twelve bits.
constexpr std::array<Pair, pairMask + 1> pairs = makePairs();

/// Writes the digits of a group, which are the lowest bits of \a value.
ushort *write(quint64 value, ushort *out)
{
    std::memcpy(out, &pairs[value >> pairBits & pairMask], sizeof(Pair));
    std::memcpy(out + 2, &pairs[value & pairMask], sizeof(Pair));
    return out + 4;
}

} // namespace

QString withBase64(QLatin1String prefix, const QByteArray &bytes)
{
    constexpr int group = 3;
    constexpr std::ptrdiff_t twoGroups = 6;
    constexpr int byteBits = 8;
    constexpr int wordSize = sizeof(quint64);
    const auto length = (bytes.size() + group - 1) / group * 4;
    QString text(prefix.size() + length, Qt::Uninitialized);
    ushort *out =
        std::transform(prefix.begin(), prefix.end(), reinterpret_cast<ushort *>(text.data()),
                       [](char each) { return static_cast<uchar>(each); });
    const auto *in = reinterpret_cast<const uchar *>(bytes.constData());
    const uchar *const end = in + bytes.size();
    for (; end - in >= wordSize; in += twoGroups) {
        const quint64 value = qFromBigEndian<quint64>(in) >> 2 * byteBits;
        out = write(value >> group * byteBits, out);
        out = write(value, out);
    }
    for (; end - in >= group; in += group)
        out = write(quint64{in[0]} << 2 * byteBits | quint64{in[1]} << byteBits | in[2], out);
    if (in != end) {
        const quint64 second = end - in > 1 ? in[1] : 0;
        out = write(quint64{in[0]} << 2 * byteBits | second << byteBits, out);
        const auto missing = group - (end - in);
        std::fill_n(out - missing, missing, ushort{'='});
    }
    return text;
}
