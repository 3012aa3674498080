#include "render/PngEncoder.h"

#include <QtEndian>

#include <isa-l/crc.h>
#include <isa-l/igzip_lib.h>

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <numeric>
#include <vector>

namespace {

/// Rows of pictures up to this size, in bytes, keep their memory for the next picture.
constexpr std::size_t keptRows = std::size_t{1} << 20U;

/// PNG's colour types: what a pixel is made of.
enum class ColorType : uchar { Palette = 3, TrueColorWithAlpha = 6 };

/// The colours of a picture and their places in its palette.
class Palette
{
public:
    static constexpr std::size_t largest = 256;

    [[nodiscard]] std::size_t size() const { return m_size; }
    [[nodiscard]] QRgb at(std::size_t place) const { return m_colors[place]; }

    /// The place of \a color, which is added if it is new. Meaningless once the palette overflows.
    uchar placeOf(QRgb color)
    {
        std::size_t slot = home(color);
        while (m_keys[slot] != color) {
            if (m_keys[slot] == transparent)
                return add(color, slot);
            slot = (slot + 1) % slots;
        }
        return m_places[slot];
    }

    /// Whether there were more colours than the palette can hold.
    [[nodiscard]] bool overflows() const { return m_overflows; }

private:
    static constexpr QRgb transparent = 0;
    static constexpr unsigned slotBits = 12;
    static constexpr std::size_t slots = std::size_t{1} << slotBits;

    static std::size_t home(QRgb color)
    {
        constexpr quint32 goldenRatio = 2654435769U;
        return (color * goldenRatio) >> (32U - slotBits);
    }

    uchar add(QRgb color, std::size_t slot)
    {
        m_overflows = m_size == largest;
        if (m_overflows)
            return 0;
        const auto place = static_cast<uchar>(m_size++);
        m_keys[slot] = color;
        m_places[slot] = place;
        m_colors[place] = color;
        return place;
    }

    // Transparent always has the first place, so that an empty slot is one that holds it.
    std::array<QRgb, slots> m_keys = {};
    std::array<uchar, slots> m_places = {};
    std::array<QRgb, largest> m_colors = {};
    std::size_t m_size = 1;
    bool m_overflows = false;
};

/// The rows of a PNG, each with the number of its filter in front: 0, none.
using Rows = std::vector<uchar>;

const QRgb *pixels(const QImage &image, int y)
{
    return reinterpret_cast<const QRgb *>(image.constScanLine(y));
}

/// Sizes \a rows for \a image, which has \a pixelBytes bytes for each pixel.
void resize(Rows &rows, const QImage &image, std::size_t pixelBytes)
{
    const auto width = static_cast<std::size_t>(image.width());
    rows.resize((width * pixelBytes + 1) * static_cast<std::size_t>(image.height()));
}

bool isTransparent(const QRgb *begin, const QRgb *end)
{
    return std::accumulate(begin, end, QRgb{0}, std::bit_or<>()) == 0;
}

/// False when \a image has too many colours for a palette.
bool writePaletteRows(const QImage &image, Palette &palette, Rows &rows)
{
    resize(rows, image, 1);
    uchar *out = rows.data();
    const int width = image.width();
    for (int y = 0; y < image.height() && !palette.overflows(); ++y) {
        *out++ = 0;
        const QRgb *const begin = pixels(image, y);
        const QRgb *const end = begin + width;
        // Above and below the letters.
        if (isTransparent(begin, end))
            std::fill(out, out + width, 0);
        else
            std::transform(begin, end, out,
                           [&palette](QRgb color) { return palette.placeOf(color); });
        out += width;
    }
    return !palette.overflows();
}

quint32 rgba(QRgb pixel)
{
    return pixel << 8U | pixel >> 24U;
}

void writeTrueColorRows(const QImage &image, Rows &rows)
{
    resize(rows, image, sizeof(QRgb));
    uchar *out = rows.data();
    const int width = image.width();
    for (int y = 0; y < image.height(); ++y) {
        *out++ = 0;
        const QRgb *pixel = pixels(image, y);
        for (const QRgb *const end = pixel + width; pixel != end; ++pixel) {
            qToBigEndian(rgba(*pixel), out);
            out += sizeof(QRgb);
        }
    }
}

/// Makes codes for rows of text in a palette: many transparent pixels, else any colour, and
/// repetitions of any length and distance. False when the library fails.
bool makeCodesForText(isal_hufftables &codes)
{
    constexpr std::size_t endOfBlock = 256;
    isal_huff_histogram shares = {};
    std::fill(std::begin(shares.lit_len_histogram), std::end(shares.lit_len_histogram), 40);
    std::fill_n(std::begin(shares.lit_len_histogram), endOfBlock, 10);
    shares.lit_len_histogram[0] = 500;
    shares.lit_len_histogram[endOfBlock] = 1;
    std::fill(std::begin(shares.dist_histogram), std::end(shares.dist_histogram), 1);
    return isal_create_hufftables(&codes, &shares) == 0;
}

/// Precomputed codes allow a picture to be compressed in one call. Null, which means the library's
/// own codes, when they could not be made.
isal_hufftables *readyCodes()
{
    static isal_hufftables codes = {};
    static const bool made = makeCodesForText(codes);
    return made ? &codes : nullptr;
}

/// A PNG under construction. A chunk is the length of its data, its type, the data and a checksum
/// of type and data.
class PngFile
{
public:
    explicit PngFile(std::size_t expectedSize)
    {
        m_bytes.reserve(static_cast<int>(expectedSize));
        m_bytes.append("\x89PNG\r\n\x1a\n", 8);
    }

    void begin(const char *type)
    {
        m_chunk = static_cast<int>(m_bytes.size());
        append(quint32{0});
        m_bytes.append(type, typeLength);
    }

    void end()
    {
        const int typed = static_cast<int>(m_bytes.size()) - m_chunk - lengthLength;
        qToBigEndian(static_cast<quint32>(typed - typeLength), m_bytes.data() + m_chunk);
        append(
            crc32_gzip_refl(0, position(m_chunk + lengthLength), static_cast<std::size_t>(typed)));
    }

    void append(quint32 number)
    {
        const quint32 bigEndian = qToBigEndian(number);
        m_bytes.append(reinterpret_cast<const char *>(&bigEndian), sizeof(bigEndian));
    }

    template <std::size_t size>
    void append(const std::array<char, size> &data, int length = static_cast<int>(size))
    {
        m_bytes.append(data.data(), length);
    }

    /// False when the library refuses.
    bool appendCompressed(Rows &rows)
    {
        // What cannot be compressed is stored in blocks of up to 65535 bytes with 5 bytes each.
        constexpr std::size_t leastBlock = 1024;
        constexpr std::size_t others = 64;
        const int start = static_cast<int>(m_bytes.size());
        const std::size_t room = rows.size() + rows.size() / leastBlock + others;
        m_bytes.resize(start + static_cast<int>(room));

        static isal_zstream stream;
        isal_deflate_stateless_init(&stream);
        if (isal_hufftables *const codes = readyCodes())
            stream.hufftables = codes;
        stream.gzip_flag = IGZIP_ZLIB;
        stream.end_of_stream = 1;
        stream.next_in = rows.data();
        stream.avail_in = static_cast<quint32>(rows.size());
        stream.next_out = position(start);
        stream.avail_out = static_cast<quint32>(room);
        const bool compressed = isal_deflate_stateless(&stream) == COMP_OK;
        m_bytes.truncate(start + static_cast<int>(stream.total_out));
        return compressed;
    }

    [[nodiscard]] const QByteArray &bytes() const { return m_bytes; }

private:
    uchar *position(int offset) { return reinterpret_cast<uchar *>(m_bytes.data() + offset); }

    static constexpr int lengthLength = sizeof(quint32);
    static constexpr int typeLength = 4;
    QByteArray m_bytes;
    int m_chunk = 0;
};

void writeHeader(PngFile &png, const QSize &size, ColorType type)
{
    constexpr char bitsPerChannel = 8;
    png.begin("IHDR");
    png.append(static_cast<quint32>(size.width()));
    png.append(static_cast<quint32>(size.height()));
    png.append(std::array<char, 5>{bitsPerChannel, static_cast<char>(type), 0, 0, 0});
    png.end();
}

void writePalette(PngFile &png, const Palette &palette)
{
    std::array<char, 3 *Palette::largest> colors = {};
    std::array<char, Palette::largest> alphas = {};
    for (std::size_t place = 0; place < palette.size(); ++place) {
        const QRgb color = palette.at(place);
        colors[3 * place] = static_cast<char>(qRed(color));
        colors[3 * place + 1] = static_cast<char>(qGreen(color));
        colors[3 * place + 2] = static_cast<char>(qBlue(color));
        alphas[place] = static_cast<char>(qAlpha(color));
    }
    const auto size = static_cast<int>(palette.size());
    png.begin("PLTE");
    png.append(colors, 3 * size);
    png.end();
    png.begin("tRNS");
    png.append(alphas, size);
    png.end();
}

bool writeRows(PngFile &png, Rows &rows)
{
    png.begin("IDAT");
    const bool compressed = png.appendCompressed(rows);
    png.end();
    return compressed;
}

QByteArray encoded(const QImage &image, Rows &rows)
{
    constexpr std::size_t others = 2048;
    Palette palette;
    const bool fits = writePaletteRows(image, palette, rows);
    if (!fits)
        writeTrueColorRows(image, rows);
    PngFile png(rows.size() + rows.size() / 8 + others);
    writeHeader(png, image.size(), fits ? ColorType::Palette : ColorType::TrueColorWithAlpha);
    if (fits)
        writePalette(png, palette);
    if (!writeRows(png, rows))
        return {};
    png.begin("IEND");
    png.end();
    return png.bytes();
}

} // namespace

QByteArray encodedPng(const QImage &image)
{
    if (image.format() != QImage::Format_ARGB32)
        return {};
    static Rows rows;
    QByteArray png = encoded(image, rows);
    if (rows.size() > keptRows)
        Rows().swap(rows);
    return png;
}
