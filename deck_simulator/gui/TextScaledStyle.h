#pragma once

#include <QProxyStyle>

class QFont;

namespace deck {

/// The desktop's style with check boxes, icons, arrows and scroll bars that grow with the text:
/// styles follow the resolution of the screen, but not the size of a font.
class TextScaledStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// Takes \a base; null for the desktop's style.
    explicit TextScaledStyle(QStyle *base = nullptr);

    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr,
                                  const QWidget *widget = nullptr) const override;
    [[nodiscard]] QIcon standardIcon(StandardPixmap icon, const QStyleOption *option = nullptr,
                                     const QWidget *widget = nullptr) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;

private:
    mutable bool m_enlarges = false; // a style draws a branch by drawing an arrow
};

/// How many times larger than a style expects the letters are, at least 1. A style expects 9
/// points.
qreal textScale(const QFont &font);

} // namespace deck
