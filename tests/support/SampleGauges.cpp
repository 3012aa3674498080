#include "tests/support/SampleGauges.h"

#include <cmath>

namespace samplegauges {

QVector<gauge::Point> samples(int seconds, double phase)
{
    QVector<gauge::Point> run;
    for (int age = seconds; age >= 0; --age) {
        const double time = seconds - age + phase;
        run.append({static_cast<double>(age),
                    0.45 + 0.25 * std::sin(time / 7) + 0.15 * std::sin(time * 1.7)});
    }
    return run;
}

gauge::Content contentOf(gauge::Style style)
{
    gauge::Content content;
    content.style = style;
    content.title = QStringLiteral("CPU");
    content.first = {
        QStringLiteral("37"), QStringLiteral("%"), QStringLiteral("100"), 0.37, {samples(60, 3)}};
    if (style == gauge::Style::Pair) {
        content.title = QStringLiteral("Network");
        content.first = {QStringLiteral("1.2"),
                         QStringLiteral("MB/s"),
                         QStringLiteral("1.2"),
                         0.1,
                         {samples(60, 3)}};
        content.second = {QStringLiteral("12.4"),
                          QStringLiteral("MB/s"),
                          QStringLiteral("12.4"),
                          0.6,
                          {samples(60, 20)}};
    }
    return content;
}

gauge::Look look(int side)
{
    QFont font(QStringLiteral("Roboto"));
    font.setStyleName(QStringLiteral("Bold"));
    // Else each platform fits the letters to the pixels in its own way.
    font.setHintingPreference(QFont::PreferNoHinting);
    return {QSize(side, side),
            font,
            QColor(Qt::white),
            QColor(0x56, 0xB4, 0xE9),
            QColor(0xF0, 0xE4, 0x42),
            QColor(0xFF, 0x70, 0x43),
            QColor(),
            1.0};
}

} // namespace samplegauges
