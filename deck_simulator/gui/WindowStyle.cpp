#include "deck_simulator/gui/WindowStyle.h"

#include "deck_simulator/gui/TextScaledStyle.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>

namespace deck {

namespace {

struct Colors
{
    QColor window;
    QColor base;
    QColor alternate;
    QColor text;
    QColor faint;
    QColor button;
    QColor highlight;
};

QPalette paletteOf(const Colors &colors)
{
    QPalette palette(colors.button, colors.window);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, colors.text);
        palette.setColor(QPalette::Disabled, role, colors.faint);
    }
    palette.setColor(QPalette::Base, colors.base);
    palette.setColor(QPalette::AlternateBase, colors.alternate);
    palette.setColor(QPalette::ToolTipBase, colors.base);
    palette.setColor(QPalette::PlaceholderText, colors.faint);
    palette.setColor(QPalette::Highlight, colors.highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, colors.highlight);
    return palette;
}

} // namespace

void applyColors(const QString &name)
{
    const Colors light{QColor(0xf2, 0xf3, 0xf5), Qt::white,
                       QColor(0xf6, 0xf7, 0xf9), QColor(0x1d, 0x1f, 0x24),
                       QColor(0x84, 0x88, 0x90), QColor(0xe6, 0xe8, 0xec),
                       QColor(0x2f, 0x6f, 0xd0)};
    // Fields are lighter than the window: the style draws their edges darker than it.
    const Colors dark{QColor(0x29, 0x2b, 0x2f), QColor(0x38, 0x3b, 0x40), QColor(0x3d, 0x40, 0x46),
                      QColor(0xe6, 0xe8, 0xec), QColor(0x8f, 0x93, 0x9b), QColor(0x45, 0x48, 0x4f),
                      QColor(0x3d, 0x82, 0xe6)};
    if (name != QLatin1String("light") && name != QLatin1String("dark")) {
        QApplication::setStyle(new TextScaledStyle);
        return;
    }
    // The desktop's own style may not follow a palette.
    QApplication::setStyle(new TextScaledStyle(QStyleFactory::create(QStringLiteral("Fusion"))));
    QApplication::setPalette(paletteOf(name == QLatin1String("dark") ? dark : light));
}

void applyTextSize(int percent)
{
    QFont font = QApplication::font();
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * percent / 100);
    else
        font.setPixelSize(font.pixelSize() * percent / 100);
    QApplication::setFont(font);
}

} // namespace deck
