#include "render/PngEncoder.h"

#include <QtEndian>

#include <libdeflate.h>

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace {

/// The fastest level that compresses.
constexpr int compressionLevel = 1;

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

    /// The place of \a color, which is added if it is new; nothing when the palette is full.
    std::optional<uchar> placeOf(QRgb color)
    {
        std::size_t slot = home(color);
        while (m_keys[slot] != color) {
            if (m_keys[slot] == transparent)
                return add(color, slot);
            slot = (slot + 1) % slots;
        }
        return m_places[slot];
    }

private:
    static constexpr QRgb transparent = 0;
    static constexpr unsigned slotBits = 12;
    static constexpr std::size_t slots = std::size_t{1} << slotBits;

    static std::size_t home(QRgb color)
    {
        constexpr quint32 goldenRatio = 2654435769U;
        return (color * goldenRatio) >> (32U - slotBits);
    }

    std::optional<uchar> add(QRgb color, std::size_t slot)
    {
        if (m_size == largest)
            return std::nullopt;
        m_keys[slot] = color;
        m_places[slot] = static_cast<uchar>(m_size);
        m_colors[m_size] = color;
        return static_cast<uchar>(m_size++);
    }

    // Transparent is always the first colour, so that an empty slot is one that holds it.
    std::array<QRgb, slots> m_keys = {};
    std::array<uchar, slots> m_places = {};
    std::array<QRgb, largest> m_colors = {};
    std::size_t m_size = 1;
};

struct CompressorFreer
{
    void operator()(libdeflate_compressor *compressor) const
    {
        libdeflate_free_compressor(compressor);
    }
};

using Compressor = std::unique_ptr<libdeflate_compressor, CompressorFreer>;

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

/// False when \a image has too many colours for a palette.
bool writePaletteRows(const QImage &image, Palette &palette, Rows &rows)
{
    resize(rows, image, 1);
    uchar *out = rows.data();
    const int width = image.width();
    for (int y = 0; y < image.height(); ++y) {
        *out++ = 0;
        const QRgb *pixel = pixels(image, y);
        for (const QRgb *const end = pixel + width; pixel != end; ++pixel) {
            const std::optional<uchar> place = palette.placeOf(*pixel);
            if (!place)
                return false;
            *out++ = *place;
        }
    }
    return true;
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
        m_chunk = m_bytes.size();
        append(quint32{0});
        m_bytes.append(type, typeLength);
    }

    void end()
    {
        const int typed = m_bytes.size() - m_chunk - lengthLength;
        qToBigEndian(static_cast<quint32>(typed - typeLength), m_bytes.data() + m_chunk);
        append(libdeflate_crc32(0, m_bytes.constData() + m_chunk + lengthLength,
                                static_cast<std::size_t>(typed)));
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

    /// False when there is not enough memory.
    bool appendCompressed(libdeflate_compressor *compressor, const Rows &rows)
    {
        const int start = m_bytes.size();
        const std::size_t room = libdeflate_zlib_compress_bound(compressor, rows.size());
        m_bytes.resize(start + static_cast<int>(room));
        const std::size_t length = libdeflate_zlib_compress(compressor, rows.data(), rows.size(),
                                                            m_bytes.data() + start, room);
        m_bytes.truncate(start + static_cast<int>(length));
        return length > 0;
    }

    [[nodiscard]] const QByteArray &bytes() const { return m_bytes; }

private:
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

bool writeRows(PngFile &png, const Rows &rows)
{
    static const Compressor compressor(libdeflate_alloc_compressor(compressionLevel));
    if (!compressor)
        return false;
    png.begin("IDAT");
    const bool compressed = png.appendCompressed(compressor.get(), rows);
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
    if (image.isNull() || qint64{image.width()} * image.height() > largestPng)
        return {};
    static Rows rows;
    QByteArray png = encoded(image.convertToFormat(QImage::Format_ARGB32), rows);
    if (rows.size() > keptRows)
        Rows().swap(rows);
    return png;
}
