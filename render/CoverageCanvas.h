#pragma once

#include "render/PaintedPicture.h"

#include <QPoint>
#include <QRect>
#include <QSize>

#include <array>
#include <bitset>
#include <vector>

struct GlyphShape;

/// A picture of glyphs in one colour while it is made: how much of each pixel they cover. Blends
/// them with the arithmetic of the raster paint engine for QImage::Format_ARGB32.
class CoverageCanvas
{
public:
    /// Begins a picture; of the one before nothing is left.
    void begin(const QSize &size);

    [[nodiscard]] QRect rect() const { return {QPoint(0, 0), m_size}; }

    /// Adds the part of \a shape that is inside \a clip, which is inside the canvas; \a origin is
    /// the pixel that has the glyph's origin.
    void add(const GlyphShape &shape, const QPoint &origin, const QRect &clip);

    /// Whether two glyphs cover one pixel.
    [[nodiscard]] bool hasOverlaps() const { return !m_overlaps.empty(); }

    /// The picture in \a color, which is opaque, and the end of it. A null image when there is no
    /// memory for it, or where the engine may correct the gamma: where a glyph covers a part of a
    /// pixel that another one has filled.
    [[nodiscard]] PaintedPicture finish(QRgb color);

private:
    /// A pixel that one more glyph covers.
    struct Overlap
    {
        int x;
        int y;
        uchar coverage;
    };

    void addSlowly(uchar *to, const uchar *from, int length, const QPoint &place);
    bool blendOverlaps(PaintedPicture &picture, QRgb color,
                       const std::array<uchar, 256> &numberOf) const;

    QSize m_size;
    int m_stride = 0;
    std::vector<uchar> m_coverages;  ///< By the first glyph on each pixel.
    std::bitset<256> m_occurring;    ///< At least the coverages that there are.
    std::vector<Overlap> m_overlaps; ///< In the order of the glyphs.
    bool m_isEmpty = true;           ///< All coverages are 0.
};
