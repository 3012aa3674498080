#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <vector>

struct GlyphShape;

/// A picture of glyphs in one colour while it is made: how much of each pixel they cover. Blends
/// them with the arithmetic of the raster paint engine for QImage::Format_ARGB32.
class CoverageCanvas
{
public:
    explicit CoverageCanvas(const QSize &size);

    [[nodiscard]] QRect rect() const { return {QPoint(0, 0), m_size}; }

    /// Adds the part of \a shape that is inside \a clip and the canvas; \a origin is the pixel that
    /// has the glyph's origin.
    void add(const GlyphShape &shape, const QPoint &origin, const QRect &clip);

    /// The picture in \a color, which is multiplied with its alpha. A null image when there is no
    /// memory for it, or where the engine would correct the gamma: where a glyph covers a part of a
    /// pixel that another one has filled with an opaque colour.
    [[nodiscard]] QImage picture(QRgb color) const;

private:
    /// A pixel that one more glyph covers.
    struct Overlap
    {
        int x;
        int y;
        uchar coverage;
    };

    void addSlowly(uchar *to, const uchar *from, int length, const QPoint &place);
    bool blendOverlaps(QImage &picture, QRgb color) const;

    QSize m_size;
    int m_stride;
    std::vector<uchar> m_coverages; ///< By the first glyph on each pixel.
    std::vector<Overlap> m_overlaps; ///< In the order of the glyphs.
};
