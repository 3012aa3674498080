#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QSize>

#include <array>

namespace gauge {

/// The colours of a gauge, in the order of InkCanvas's channels.
enum class Ink { Letters, Gauge, Second };
constexpr std::size_t inks = 3;

/// A canvas on which each pixel holds how much of each ink covers it. The colours come in at the
/// end, with coverages in steps of a 31st: the letters and lines of a gauge then have few enough
/// colours for a palette, and colours do not suffer from faint pixels.
class InkCanvas
{
public:
    /// \a colors are those of the inks; what an ink's alpha leaves transparent stays so.
    InkCanvas(const QSize &size, const std::array<QColor, inks> &colors);
    ~InkCanvas() = default;
    Q_DISABLE_COPY(InkCanvas)

    [[nodiscard]] QSize size() const { return m_weights.size(); }
    /// Paints with antialiasing, and only with colours that colorOf gives.
    QPainter &painter() { return m_painter; }
    /// What the painter takes for \a ink at \a strength, 0 to 1.
    [[nodiscard]] QColor colorOf(Ink ink, qreal strength = 1) const;

    /// The finished picture, in QImage::Format_ARGB32, in front of \a ground, which may be
    /// transparent; \a opacity, 0 to 1, is that of both. Nothing can be painted afterwards.
    QImage finished(const QColor &ground, qreal opacity);

private:
    QImage m_weights;
    QPainter m_painter;
    std::array<QColor, inks> m_colors;
};

} // namespace gauge
