#include "render/gauges/InkCanvas.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace gauge {

namespace {

/// Coverages are in steps of this part of the whole.
constexpr unsigned steps = 31;
constexpr unsigned stepBits = 5;
constexpr unsigned stepMask = (1U << stepBits) - 1;
constexpr unsigned whole = 255;

constexpr std::array<quint32, whole + 1> makeSteps()
{
    std::array<quint32, whole + 1> nearest = {};
    for (unsigned value = 0; value <= whole; ++value)
        nearest[value] = (value * steps + whole / 2) / whole;
    return nearest;
}

constexpr std::array<quint32, whole + 1> nearestStep = makeSteps();

/// The steps of the three inks at a pixel, in one number.
quint32 stepsOf(QRgb weights)
{
    return nearestStep[static_cast<std::size_t>(qRed(weights))] << (2 * stepBits) |
           nearestStep[static_cast<std::size_t>(qGreen(weights))] << stepBits |
           nearestStep[static_cast<std::size_t>(qBlue(weights))];
}

struct Color
{
    float red = 0;
    float green = 0;
    float blue = 0;
};

Color colorFrom(const QColor &color)
{
    return {static_cast<float>(color.red()), static_cast<float>(color.green()),
            static_cast<float>(color.blue())};
}

/// Mixes inks and ground.
class Mixer
{
public:
    Mixer(const std::array<QColor, inks> &colors, const QColor &ground, qreal opacity)
        : m_ground(colorFrom(ground))
        , m_groundAlpha(ground.isValid() ? static_cast<float>(ground.alphaF()) : 0)
        , m_opacity(static_cast<float>(opacity))
    {
        std::transform(colors.begin(), colors.end(), m_colors.begin(), colorFrom);
    }

    /// The colour of a pixel with these steps of ink. Few of them are different.
    QRgb colorOf(quint32 inkSteps)
    {
        const quint32 place = (inkSteps >> stepBits ^ inkSteps << stepBits) % known;
        if (m_steps[place] != inkSteps + 1) {
            m_steps[place] = inkSteps + 1;
            m_mixed[place] = mixed(inkSteps);
        }
        return m_mixed[place];
    }

private:
    static constexpr quint32 known = 1024;

    [[nodiscard]] QRgb mixed(quint32 inkSteps) const
    {
        const std::array<float, inks> parts{
            static_cast<float>(inkSteps >> (2 * stepBits)),
            static_cast<float>(inkSteps >> stepBits & stepMask),
            static_cast<float>(inkSteps & stepMask),
        };
        const float covered = parts[0] + parts[1] + parts[2];
        const float left = std::max(0.0F, static_cast<float>(steps) - covered) * m_groundAlpha;
        const float all = covered + left;
        if (all <= 0)
            return 0;
        const auto channel = [&](float Color::*member) {
            float sum = m_ground.*member * left;
            for (std::size_t ink = 0; ink < inks; ++ink)
                sum += m_colors[ink].*member * parts[ink];
            return std::min(static_cast<int>(whole), qRound(sum / all));
        };
        const float alpha = std::min(1.0F, all / static_cast<float>(steps)) * m_opacity;
        const int alpha8 = qRound(alpha * static_cast<float>(whole));
        if (alpha8 == 0)
            return 0;
        return qRgba(channel(&Color::red), channel(&Color::green), channel(&Color::blue), alpha8);
    }

    std::array<Color, inks> m_colors;
    Color m_ground;
    float m_groundAlpha;
    float m_opacity;
    std::array<quint32, known> m_steps = {};
    std::array<QRgb, known> m_mixed = {};
};

/// Turns the weights of a row into colours. Most pixels are like their neighbours: blocks of such
/// ones are passed over at once.
void colorRow(QRgb *pixel, const QRgb *end, Mixer &mixer)
{
    constexpr std::ptrdiff_t block = 8;
    QRgb last = 0;
    QRgb color = mixer.colorOf(0);
    while (pixel != end) {
        const std::ptrdiff_t count = std::min(block, end - pixel);
        const QRgb different =
            std::accumulate(pixel, pixel + count, QRgb{0},
                            [last](QRgb all, QRgb weights) { return all | (weights ^ last); });
        if (different == 0) {
            std::fill_n(pixel, count, color);
            pixel += count;
            continue;
        }
        std::transform(pixel, pixel + count, pixel, [&](QRgb weights) {
            last = weights;
            return mixer.colorOf(stepsOf(weights));
        });
        pixel += count;
        color = *(pixel - 1);
    }
}

} // namespace

InkCanvas::InkCanvas(const QSize &size, const std::array<QColor, inks> &colors)
    : m_weights(size, QImage::Format_ARGB32_Premultiplied)
    , m_colors(colors)
{
    m_weights.fill(Qt::transparent);
    m_painter.begin(&m_weights);
    m_painter.setRenderHint(QPainter::Antialiasing);
}

QColor InkCanvas::colorOf(Ink ink, qreal strength) const
{
    const auto channel = static_cast<std::size_t>(ink);
    using Part = decltype(QColor().alphaF());
    const auto part = [channel](std::size_t number) { return Part(channel == number ? 1 : 0); };
    return QColor::fromRgbF(part(0), part(1), part(2),
                            static_cast<Part>(m_colors[channel].alphaF() * strength));
}

QImage InkCanvas::finished(const QColor &ground, qreal opacity)
{
    m_painter.end();
    Mixer mixer(m_colors, ground, opacity);
    for (int y = 0; y < m_weights.height(); ++y) {
        auto *const row = reinterpret_cast<QRgb *>(m_weights.scanLine(y));
        colorRow(row, row + m_weights.width(), mixer);
    }
    m_weights.reinterpretAsFormat(QImage::Format_ARGB32);
    return std::move(m_weights);
}

} // namespace gauge
