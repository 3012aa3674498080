#pragma once

#include <QRawFont>

#include <bitset>
#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

/// How much of each pixel a glyph covers, 0 to 255, in the smallest box that has all of it.
struct GlyphShape
{
    static constexpr int block = 8;

    int left = 0; ///< Of the box, from the pixel in which the glyph's origin lies.
    int top = 0;  ///< Likewise; downwards.
    int width = 0;
    int height = 0;
    int stride = 0;               ///< The width rounded up to whole blocks.
    std::vector<uchar> coverages; ///< Row by row, 0 behind the width.
    std::bitset<256> occurring;   ///< The coverages that there are.
};

/// What the painter draws for the glyphs of a font, asked of the painter once for each glyph and
/// quarter of a pixel in which its origin lies. Used on the main thread.
class GlyphShapes
{
public:
    /// The raster paint engine cuts horizontal positions off to this part of a pixel and rounds
    /// vertical ones to whole pixels.
    static constexpr int partsOfPixel = 4;
    /// A part by itself: at the very edge of a picture the engine does not add the little that it
    /// adds elsewhere.
    static constexpr int edge = partsOfPixel;

    explicit GlyphShapes(const QRawFont &font);

    /// Null when \a glyph is not drawn in the pen's colour alone or reaches far out of its box.
    /// \a part is below `partsOfPixel`, or `edge`; left of an edge there is nothing. Valid until
    /// the next call.
    const GlyphShape *find(quint32 glyph, int part);

    [[nodiscard]] const QRawFont &font() const { return m_font; }
    /// How many glyphs it knows, each part of a pixel by itself.
    [[nodiscard]] std::size_t count() const { return m_shapes.size(); }

    /// The shapes of \a font; those of a font that was not asked for lately are forgotten.
    static GlyphShapes &of(const QRawFont &font);

private:
    QRawFont m_font;
    std::unordered_map<quint64, std::optional<GlyphShape>> m_shapes;
};
