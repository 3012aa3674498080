#include "tests/soak/Measurements.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr double width = 720;
constexpr double height = 160;
constexpr double leftMargin = 60;
constexpr double gap = 50;

/// One panel: a frame from 0 to the most, its title, and the line.
QString panel(const QString &title, const QVector<double> &times, const QVector<double> &values,
              double top)
{
    const double most = std::max(1.0, *std::max_element(values.begin(), values.end()) * 1.2);
    const double longest = std::max(times.constLast(), 1e-9);
    QStringList points;
    for (int i = 0; i < times.size(); ++i) {
        points.append(QStringLiteral("%1,%2")
                          .arg(leftMargin + times.at(i) / longest * width, 0, 'f', 1)
                          .arg(top + height - values.at(i) / most * height, 0, 'f', 1));
    }
    return QStringLiteral("<rect x='%1' y='%2' width='%3' height='%4' fill='none' stroke='#999'/>"
                          "<text x='%1' y='%5'>%6</text>"
                          "<text x='%7' y='%8' text-anchor='end'>%9</text>")
               .arg(leftMargin)
               .arg(top)
               .arg(width)
               .arg(height)
               .arg(top - 8)
               .arg(title)
               .arg(leftMargin - 6)
               .arg(top + 12)
               .arg(most, 0, 'f', 0) +
           QStringLiteral("<text x='%1' y='%2' text-anchor='end'>0</text>"
                          "<text x='%3' y='%4' text-anchor='end'>%5 min</text>"
                          "<polyline fill='none' stroke='#1769aa' stroke-width='1.5' points='%6'/>")
               .arg(leftMargin - 6)
               .arg(top + height)
               .arg(leftMargin + width)
               .arg(top + height + 16)
               .arg(times.constLast(), 0, 'f', 1)
               .arg(points.join(QLatin1Char(' ')));
}

} // namespace

QByteArray Measurements::plot() const
{
    if (m_samples.isEmpty())
        return {};
    QVector<double> times;
    QVector<double> memory;
    QVector<double> descriptors;
    for (const Sample &sample : m_samples) {
        times.append(sample.minutes);
        memory.append(sample.residentMB);
        descriptors.append(sample.descriptors);
    }
    const double total = 2 * (height + gap) + 20;
    const QString picture =
        QStringLiteral("<svg xmlns='http://www.w3.org/2000/svg' width='%1' height='%2' "
                       "font-family='sans-serif' font-size='13'>"
                       "<rect width='100%' height='100%' fill='white'/>%3%4</svg>\n")
            .arg(leftMargin + width + 20)
            .arg(total)
            .arg(panel(QStringLiteral("resident memory, MB"), times, memory, 30),
                 panel(QStringLiteral("open files"), times, descriptors, 30 + height + gap));
    return picture.toUtf8();
}
