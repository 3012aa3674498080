#include "deck_simulator/gui/ElidedLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace deck {

namespace {

constexpr int fewestLetters = 3;

} // namespace

ElidedLabel::ElidedLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::minimumSizeHint() const
{
    const int width = fontMetrics().horizontalAdvance(QLatin1Char('0')) * fewestLetters;
    return QLabel::minimumSizeHint().boundedTo({qMax(0, indent()) + width, QWIDGETSIZE_MAX});
}

QString ElidedLabel::shownText() const
{
    const int room = contentsRect().width() - qMax(0, indent());
    return fontMetrics().elidedText(text(), Qt::ElideRight, room);
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || shownText() == text())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), text(), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    const QRect rect = contentsRect().adjusted(qMax(0, indent()), 0, 0, 0);
    style()->drawItemText(&painter, rect, int(Qt::AlignLeft) | Qt::AlignVCenter, palette(),
                          isEnabled(), shownText(), foregroundRole());
}

} // namespace deck
