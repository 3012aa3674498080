#include "render/PngEncoder.h"

#include <QtEndian>

#include <isa-l/crc.h>
#include <isa-l/igzip_lib.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <optional>
#include <vector>

namespace {

/// Rows of pictures up to this size, in bytes, keep their memory for the next picture.
constexpr std::size_t keptRows = std::size_t{1} << 20U;

/// PNG's colour types: what a pixel is made of.
enum class ColorType : uchar { Palette = 3, TrueColorWithAlpha = 6 };

/// The colours of a picture, each in the place that its pixels name.
struct Palette
{
    static constexpr std::size_t largest = 256;

    std::array<QRgb, largest> colors = {}; ///< Transparent is the first.
    std::size_t size = 1;
};

constexpr QRgb transparent = 0;

/// The palette of text in one colour, in which the alpha of a pixel tells its colour.
class PaletteByAlpha
{
public:
    PaletteByAlpha()
    {
        // No pixel with this alpha has this colour.
        for (std::size_t alpha = 0; alpha < m_colors.size(); ++alpha)
            m_colors[alpha] = static_cast<QRgb>(alpha ^ 0xffU) << alphaShift;
        m_colors[0] = transparent;
    }

    /// False when there are two colours of the same alpha.
    bool writeRow(const QRgb *pixel, const QRgb *end, uchar *out)
    {
        for (; end - pixel >= block; pixel += block, out += block) {
            if (isTransparent(pixel))
                std::memset(out, 0, block);
            else if (!write(pixel, pixel + block, out))
                return false;
        }
        return write(pixel, end, out);
    }

    [[nodiscard]] const Palette &palette() const { return m_palette; }

private:
    static constexpr unsigned alphaShift = 24;

    /// Most pixels are transparent, mostly several in a row.
    static constexpr int block = 4;

    static bool isTransparent(const QRgb *pixel)
    {
        std::array<quint64, block * sizeof(QRgb) / sizeof(quint64)> pixels = {};
        std::memcpy(pixels.data(), pixel, sizeof(pixels));
        return (pixels[0] | pixels[1]) == 0;
    }

    bool write(const QRgb *pixel, const QRgb *end, uchar *out)
    {
        for (; pixel != end; ++pixel, ++out) {
            const QRgb color = *pixel;
            const std::size_t alpha = color >> alphaShift;
            if (m_colors[alpha] != color && !add(color))
                return false;
            *out = m_places[alpha];
        }
        return true;
    }

    bool add(QRgb color)
    {
        const std::size_t alpha = color >> alphaShift;
        if (m_places[alpha] != 0 || alpha == 0)
            return false;
        m_colors[alpha] = color;
        m_places[alpha] = static_cast<uchar>(m_palette.size);
        m_palette.colors[m_palette.size++] = color;
        return true;
    }

    std::array<QRgb, Palette::largest> m_colors = {};
    std::array<uchar, Palette::largest> m_places = {};
    Palette m_palette;
};

/// The palette of any picture.
class PaletteByColor
{
public:
    /// False when there are too many colours.
    bool writeRow(const QRgb *pixel, const QRgb *end, uchar *out)
    {
        QRgb last = transparent;
        uchar place = 0;
        for (; pixel != end && !m_overflows; ++pixel, ++out) {
            if (*pixel != last) {
                last = *pixel;
                place = placeOf(last);
            }
            *out = place;
        }
        return !m_overflows;
    }

    [[nodiscard]] const Palette &palette() const { return m_palette; }

private:
    static constexpr unsigned slotBits = 10;
    static constexpr std::size_t slots = std::size_t{1} << slotBits;

    static std::size_t home(QRgb color)
    {
        constexpr quint32 goldenRatio = 2654435769U;
        return (color * goldenRatio) >> (32U - slotBits);
    }

    uchar placeOf(QRgb color)
    {
        std::size_t slot = home(color);
        while (m_keys[slot] != color) {
            if (m_keys[slot] == transparent)
                return color == transparent ? uchar{0} : add(color, slot);
            slot = (slot + 1) % slots;
        }
        return m_places[slot];
    }

    uchar add(QRgb color, std::size_t slot)
    {
        m_overflows = m_palette.size == Palette::largest;
        if (m_overflows)
            return 0;
        const auto place = static_cast<uchar>(m_palette.size++);
        m_keys[slot] = color;
        m_places[slot] = place;
        m_palette.colors[place] = color;
        return place;
    }

    // An empty slot holds transparent, which always has the first place.
    std::array<QRgb, slots> m_keys = {};
    std::array<uchar, slots> m_places = {};
    Palette m_palette;
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

/// Writes \a image in the places of the palette that it gives to \a colors, which has
/// writeRow(); false when it does not fit into such a palette.
template <typename Colors>
bool writePaletteRows(const QImage &image, Colors &colors, Rows &rows)
{
    resize(rows, image, 1);
    uchar *out = rows.data();
    const int width = image.width();
    for (int y = 0; y < image.height(); ++y) {
        *out++ = 0;
        const QRgb *const begin = pixels(image, y);
        if (!colors.writeRow(begin, begin + width, out))
            return false;
        out += width;
    }
    return true;
}

/// Writes \a image with a palette, if it has one.
std::optional<Palette> writePaletteRows(const QImage &image, Rows &rows)
{
    if (PaletteByAlpha colors; writePaletteRows(image, colors, rows))
        return colors.palette();
    if (PaletteByColor colors; writePaletteRows(image, colors, rows))
        return colors.palette();
    return std::nullopt;
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

/// Makes codes for rows of text in a palette: many transparent and fully covered pixels, the
/// numbers 0 and 1, else any colour; repetitions that are mostly short, and as far as the pixels
/// beside or one or two rows above. The shares are those of the pictures of a usual deck. False
/// when the library fails.
bool makeCodesForText(isal_hufftables &codes)
{
    constexpr std::size_t endOfBlock = 256;
    constexpr std::size_t lengths = endOfBlock + 1;
    constexpr std::array<quint64, 14> shortLengths = {5,  260, 66, 50, 32, 30, 21,
                                                      21, 24,  18, 18, 11, 13, 9};
    constexpr std::array<quint64, 24> distances = {70, 8,  6,  5,  7,  7,  22, 22, 22, 22, 22, 22,
                                                   22, 22, 22, 22, 69, 28, 28, 28, 28, 28, 28, 28};
    constexpr quint64 longest = 8;
    isal_huff_histogram shares = {};
    std::fill(std::begin(shares.lit_len_histogram), std::end(shares.lit_len_histogram), 3);
    std::fill_n(std::begin(shares.lit_len_histogram), endOfBlock, 5);
    std::fill_n(std::begin(shares.lit_len_histogram), 2, 250);
    shares.lit_len_histogram[endOfBlock] = 1;
    std::copy(shortLengths.begin(), shortLengths.end(),
              std::begin(shares.lit_len_histogram) + lengths);
    *std::rbegin(shares.lit_len_histogram) = longest;
    std::fill(std::begin(shares.dist_histogram), std::end(shares.dist_histogram), 2);
    std::copy(distances.begin(), distances.end(), std::begin(shares.dist_histogram));
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
    bool appendCompressed(const uchar *bytes, std::size_t size)
    {
        // What cannot be compressed is stored in blocks of up to 65535 bytes with 5 bytes each.
        constexpr std::size_t leastBlock = 1024;
        constexpr std::size_t others = 64;
        const int start = static_cast<int>(m_bytes.size());
        const std::size_t room = size + size / leastBlock + others;
        m_bytes.resize(start + static_cast<int>(room));

        static isal_zstream stream;
        isal_deflate_stateless_init(&stream);
        if (isal_hufftables *const codes = readyCodes())
            stream.hufftables = codes;
        stream.gzip_flag = IGZIP_ZLIB;
        stream.end_of_stream = 1;
        stream.next_in =
            const_cast<uchar *>(bytes); // NOLINT(cppcoreguidelines-pro-type-const-cast)
        stream.avail_in = static_cast<quint32>(size);
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

void writePalette(PngFile &png, const QRgb *palette, std::size_t size)
{
    std::array<char, 3 *Palette::largest> colors = {};
    std::array<char, Palette::largest> alphas = {};
    for (std::size_t place = 0; place < size; ++place) {
        const QRgb color = palette[place];
        colors[3 * place] = static_cast<char>(qRed(color));
        colors[3 * place + 1] = static_cast<char>(qGreen(color));
        colors[3 * place + 2] = static_cast<char>(qBlue(color));
        alphas[place] = static_cast<char>(qAlpha(color));
    }
    const auto length = static_cast<int>(size);
    png.begin("PLTE");
    png.append(colors, 3 * length);
    png.end();
    png.begin("tRNS");
    png.append(alphas, length);
    png.end();
}

/// The rows of a PNG in a buffer of somebody else.
struct RowsView
{
    const uchar *bytes;
    std::size_t size;
};

bool writeRows(PngFile &png, RowsView rows)
{
    png.begin("IDAT");
    const bool compressed = png.appendCompressed(rows.bytes, rows.size);
    png.end();
    return compressed;
}

/// Without a palette if \a colors is 0.
QByteArray encoded(const QSize &size, const QRgb *palette, std::size_t colors, RowsView rows)
{
    constexpr std::size_t others = 2048;
    PngFile png(rows.size + rows.size / 8 + others);
    writeHeader(png, size, colors > 0 ? ColorType::Palette : ColorType::TrueColorWithAlpha);
    if (colors > 0)
        writePalette(png, palette, colors);
    if (!writeRows(png, rows))
        return {};
    png.begin("IEND");
    png.end();
    return png.bytes();
}

QByteArray encoded(const QImage &image, Rows &rows)
{
    if (const std::optional<Palette> palette = writePaletteRows(image, rows))
        return encoded(image.size(), palette->colors.data(), palette->size,
                       {rows.data(), rows.size()});
    writeTrueColorRows(image, rows);
    return encoded(image.size(), nullptr, 0, {rows.data(), rows.size()});
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

QByteArray encodedPng(const QImage &image, const IndexedPixels &pixels)
{
    if (pixels.colors.isEmpty())
        return encodedPng(image);
    return encoded(image.size(), pixels.colors.constData(),
                   static_cast<std::size_t>(pixels.colors.size()),
                   {reinterpret_cast<const uchar *>(pixels.rows.constData()),
                    static_cast<std::size_t>(pixels.rows.size())});
}
