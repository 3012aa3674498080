#include "deck_simulator/gui/FlowLayout.h"

#include <QWidget>

namespace deck {

FlowLayout::FlowLayout(QWidget *parent, Qt::Alignment alignment)
    : QLayout(parent)
    , m_alignment(alignment)
{
}

FlowLayout::~FlowLayout()
{
    qDeleteAll(m_items);
}

void FlowLayout::addItem(QLayoutItem *item)
{
    m_items.append(item);
}

int FlowLayout::count() const
{
    return static_cast<int>(m_items.size());
}

QLayoutItem *FlowLayout::itemAt(int index) const
{
    return m_items.value(index);
}

QLayoutItem *FlowLayout::takeAt(int index)
{
    return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
}

Qt::Orientations FlowLayout::expandingDirections() const
{
    return {};
}

bool FlowLayout::hasHeightForWidth() const
{
    return true;
}

int FlowLayout::heightForWidth(int width) const
{
    int height = 0;
    for (const Line &line : lines(width - marginSize().width()))
        height += (height > 0 ? spacing() : 0) + heightOf(line);
    return height + marginSize().height();
}

QSize FlowLayout::sizeHint() const
{
    Line all;
    for (QLayoutItem *item : m_items) {
        if (!item->isEmpty())
            all.append(item);
    }
    return QSize(widthOf(all), heightOf(all)) + marginSize();
}

QSize FlowLayout::minimumSize() const
{
    QSize least;
    for (const QLayoutItem *item : m_items) {
        if (!item->isEmpty())
            least = least.expandedTo(item->minimumSize());
    }
    return least + marginSize();
}

void FlowLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    const QRect inner = contentsRect();
    int top = inner.top();
    for (const Line &line : lines(inner.width())) {
        const int spare = qMax(0, inner.width() - widthOf(line));
        int left = inner.left() + ((m_alignment & Qt::AlignHCenter) != 0 ? spare / 2 : 0);
        const int height = heightOf(line);
        for (QLayoutItem *item : line) {
            const QSize size = item->sizeHint().boundedTo({inner.width(), height});
            item->setGeometry({QPoint(left, top + (height - size.height()) / 2), size});
            left += size.width() + spacing();
        }
        top += height + spacing();
    }
}

QVector<FlowLayout::Line> FlowLayout::lines(int width) const
{
    QVector<Line> result;
    for (QLayoutItem *item : m_items) {
        if (item->isEmpty())
            continue;
        if (result.isEmpty() ||
            widthOf(result.constLast()) + spacing() + item->sizeHint().width() > width)
            result.append(Line());
        result.last().append(item);
    }
    return result;
}

int FlowLayout::widthOf(const Line &line) const
{
    int width = 0;
    for (const QLayoutItem *item : line)
        width += (width > 0 ? spacing() : 0) + item->sizeHint().width();
    return width;
}

int FlowLayout::heightOf(const Line &line)
{
    int height = 0;
    for (const QLayoutItem *item : line)
        height = qMax(height, item->sizeHint().height());
    return height;
}

QSize FlowLayout::marginSize() const
{
    const QMargins margins = contentsMargins();
    return {margins.left() + margins.right(), margins.top() + margins.bottom()};
}

} // namespace deck
