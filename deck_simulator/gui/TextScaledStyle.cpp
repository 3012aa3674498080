#include "deck_simulator/gui/TextScaledStyle.h"

#include <QApplication>
#include <QFontInfo>
#include <QIconEngine>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>

namespace deck {

namespace {

constexpr qreal usualPoints = 9;
constexpr qreal widestScrollBar =
    1.5; // of the usual; beyond that it takes the room of what scrolls

bool growsWithText(QStyle::PixelMetric metric)
{
    switch (metric) {
    case QStyle::PM_IndicatorWidth:
    case QStyle::PM_IndicatorHeight:
    case QStyle::PM_ExclusiveIndicatorWidth:
    case QStyle::PM_ExclusiveIndicatorHeight:
    case QStyle::PM_CheckBoxLabelSpacing:
    case QStyle::PM_SmallIconSize:
    case QStyle::PM_ButtonIconSize:
    case QStyle::PM_ListViewIconSize:
    case QStyle::PM_TreeViewIndentation:
    case QStyle::PM_ScrollBarSliderMin:
    case QStyle::PM_SliderThickness:
    case QStyle::PM_SliderLength:
    case QStyle::PM_SliderControlThickness:
    case QStyle::PM_ToolBarExtensionExtent:
        return true;
    default:
        return false;
    }
}

bool isArrow(QStyle::PrimitiveElement element)
{
    return element == QStyle::PE_IndicatorBranch || element == QStyle::PE_IndicatorArrowDown ||
           element == QStyle::PE_IndicatorArrowRight;
}

// The marks of the buttons that close a panel, make it a window, or open the rest of a bar. The
// pictures of a style have one size and one colour.
class WindowMark : public QIconEngine
{
public:
    explicit WindowMark(QStyle::StandardPixmap mark)
        : m_mark(mark)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        Q_UNUSED(state)
        const QPalette::ColorGroup group =
            mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const qreal side = qMin(rect.width(), rect.height()) * 0.5;
        QRectF box(0, 0, side, side);
        box.moveCenter(QRectF(rect).center());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(
            QPen(QApplication::palette().color(group, QPalette::WindowText), qMax(1.2, side / 7)));
        if (m_mark == QStyle::SP_TitleBarNormalButton)
            paintWindows(*painter, box);
        else if (m_mark == QStyle::SP_ToolBarHorizontalExtensionButton)
            paintChevrons(*painter, box);
        else
            painter->drawLines(
                {{box.topLeft(), box.bottomRight()}, {box.bottomLeft(), box.topRight()}});
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, {QPoint(), size}, mode, state);
        return pixmap;
    }

    [[nodiscard]] QIconEngine *clone() const override { return new WindowMark(m_mark); }

private:
    static void paintWindows(QPainter &painter, const QRectF &box)
    {
        const qreal offset = box.width() * 0.3;
        painter.drawRect(box.adjusted(offset, 0, 0, -offset));
        painter.drawRect(box.adjusted(0, offset, -offset, 0));
    }

    static void paintChevrons(QPainter &painter, const QRectF &box)
    {
        const qreal half = box.width() / 2;
        for (const qreal left : {box.left(), box.left() + half})
            painter.drawPolyline(QPolygonF(
                {{left, box.top()}, {left + half, box.center().y()}, {left, box.bottom()}}));
    }

    QStyle::StandardPixmap m_mark;
};

QFont fontOf(const QWidget *widget)
{
    return widget == nullptr ? QApplication::font() : widget->font();
}

} // namespace

TextScaledStyle::TextScaledStyle(QStyle *base)
    : QProxyStyle(base)
{
}

int TextScaledStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                                 const QWidget *widget) const
{
    const int usual = QProxyStyle::pixelMetric(metric, option, widget);
    if (metric == PM_ScrollBarExtent || metric == PM_TabBarScrollButtonWidth)
        return qRound(usual * qMin(widestScrollBar, textScale(fontOf(widget))));
    return growsWithText(metric) ? qRound(usual * textScale(fontOf(widget))) : usual;
}

QIcon TextScaledStyle::standardIcon(StandardPixmap icon, const QStyleOption *option,
                                    const QWidget *widget) const
{
    if (icon == SP_TitleBarCloseButton || icon == SP_DockWidgetCloseButton)
        return QIcon(new WindowMark(SP_TitleBarCloseButton));
    if (icon == SP_TitleBarNormalButton || icon == SP_ToolBarHorizontalExtensionButton)
        return QIcon(new WindowMark(icon));
    return QProxyStyle::standardIcon(icon, option, widget);
}

void TextScaledStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                    QPainter *painter, const QWidget *widget) const
{
    const qreal scale = isArrow(element) ? textScale(fontOf(widget)) : 1;
    if (scale <= 1 || m_enlarges) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    // An arrow has one size: it is drawn in a smaller rectangle, and all of it painted larger.
    QStyleOption small;
    small.state = option->state;
    small.palette = option->palette;
    small.direction = option->direction;
    small.rect.setSize((QSizeF(option->rect.size()) / scale).toSize());
    small.rect.moveCenter({});
    painter->save();
    painter->translate(QRectF(option->rect).center());
    painter->scale(scale, scale);
    m_enlarges = true;
    QProxyStyle::drawPrimitive(element, &small, painter, widget);
    m_enlarges = false;
    painter->restore();
}

qreal textScale(const QFont &font)
{
    const qreal points = font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
    return qMax(1.0, points / usualPoints);
}

} // namespace deck
