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

/// Writes the digits of three bytes; a fourth is read.
ushort *write(const uchar *bytes, ushort *out)
{
    constexpr unsigned byte = 8;
    const unsigned value = qFromBigEndian<quint32>(bytes) >> byte;
    std::memcpy(out, &pairs[value >> pairBits], sizeof(Pair));
    std::memcpy(out + 2, &pairs[value & pairMask], sizeof(Pair));
    return out + 4;
}

} // namespace

QString withBase64(QLatin1String prefix, const QByteArray &bytes)
{
    constexpr int group = 3;
    const int rest = bytes.size() % group;
    const int length = (bytes.size() + group - 1) / group * 4;
    QString text(prefix.size() + length, Qt::Uninitialized);
    ushort *out = std::transform(prefix.begin(), prefix.end(), reinterpret_cast<ushort *>(text.data()),
                                 [](char each) { return static_cast<uchar>(each); });
    // A terminating 0 follows the bytes of a QByteArray.
    const auto *in = reinterpret_cast<const uchar *>(bytes.constData());
    for (const uchar *const end = in + bytes.size() - rest; in != end; in += group)
        out = write(in, out);
    if (rest > 0) {
        std::array<uchar, group + 1> last = {};
        std::copy_n(in, rest, last.begin());
        out = write(last.data(), out);
        std::fill_n(out - (group - rest), group - rest, ushort{'='});
    }
    return text;
}
