#include "deck_simulator/gui/KeyCell.h"

#include "deck_simulator/deck/ContactSheet.h"
#include "deck_simulator/gui/DeckMime.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QMouseEvent>
#include <QPainter>

namespace deck {

namespace {

// A deck is dark even in a light colour scheme.
const QColor keyColor(0x08, 0x08, 0x0a);
const QColor keyEdgeColor(0x4a, 0x4c, 0x52);
const QColor captionColor(0xa8, 0xac, 0xb4);
const QColor plusColor(0x6a, 0x6e, 0x76);

constexpr qreal dimmedOpacity = 0.35;
constexpr int dropMarkOpacity = 102; // of 255
constexpr int holdTime = 200;        // milliseconds

QString toolTipOf(const KeyFace &face)
{
    const QString text = face.title.isEmpty() ? face.caption : face.title;
    // As plain text, whatever it looks like.
    return text.isEmpty()
               ? QString()
               : QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped());
}

} // namespace

KeyCell::KeyCell(const DeckPlace &place, QWidget *parent)
    : QWidget(parent)
    , m_place(place)
    , m_releaseTimer(this)
{
    setAcceptDrops(true);
    m_holdTimer.setSingleShot(true);
    m_holdTimer.setInterval(holdTime);
    connect(&m_holdTimer, &QTimer::timeout, this, &KeyCell::press);
    m_releaseTimer.setObjectName(QStringLiteral("releaseTimer"));
    m_releaseTimer.setSingleShot(true);
    m_releaseTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_releaseTimer, &QTimer::timeout, this, &KeyCell::release);
    setAttribute(Qt::WA_Hover);
    setFace({});
}

void KeyCell::setFace(const KeyFace &face)
{
    m_face = face;
    setToolTip(toolTipOf(face));
    setAccessibleName(face.caption.isEmpty() ? tr("Empty key") : face.caption);
    setAccessibleDescription(face.title);
    update();
}

void KeyCell::setCurrent(bool current)
{
    m_current = current;
    update();
}

void KeyCell::setDown(bool down)
{
    m_down = down;
    update();
}

QRect KeyCell::screenRect() const
{
    return rect().adjusted(3, 3, -3, -3);
}

bool KeyCell::pressesAt(const QPoint &point) const
{
    return rect().contains(point);
}

void KeyCell::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    paintGround(painter);
    if (m_dropTarget) {
        QColor mark = palette().color(QPalette::Highlight);
        mark.setAlpha(dropMarkOpacity);
        painter.fillRect(screenRect(), mark);
    }
    if (m_current) {
        const qreal radius = qMin(width(), height()) / 7.0;
        painter.setPen(QPen(palette().color(QPalette::Highlight), 3));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), radius, radius);
    }
}

void KeyCell::paintGround(QPainter &painter)
{
    paintScreen(painter, screenRect());
}

void KeyCell::paintScreen(QPainter &painter, const QRect &rect)
{
    const QRect shown = m_down ? rect.adjusted(2, 2, -2, -2) : rect;
    const qreal radius = qMin(shown.width(), shown.height()) / 8.0;
    painter.setPen(QPen(m_dropTarget ? palette().color(QPalette::Highlight) : keyEdgeColor, 1));
    painter.setBrush(m_hovered ? keyColor.lighter(250) : keyColor);
    painter.drawRoundedRect(QRectF(shown).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    if (m_face.isDimmed)
        painter.setOpacity(dimmedOpacity);
    if (m_face.isGauge)
        paintGaugePicture(painter, shown, m_face.picture);
    else if (!m_face.picture.isNull())
        paintText(painter, shown);
    else if (isOccupied())
        paintCaption(painter, shown);
    else if (m_hovered || m_dropTarget || m_current)
        paintPlus(painter, shown);
    painter.setOpacity(1);
}

void KeyCell::paintText(QPainter &painter, const QRect &rect)
{
    const QSize size = shownTextOnScreen(m_face.picture.size(), rect.size());
    QRect target(QPoint(), size);
    target.moveCenter(rect.center());
    const qreal ratio = devicePixelRatioF();
    QImage fitted =
        m_face.picture.scaled(size * ratio, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    fitted.setDevicePixelRatio(ratio);
    painter.drawImage(target.topLeft(), fitted);
}

void KeyCell::paintCaption(QPainter &painter, const QRect &rect)
{
    const int side = rect.height() * 2 / 5;
    QRect iconRect(0, 0, side, side);
    iconRect.moveCenter(QPoint(rect.center().x(), rect.top() + rect.height() * 3 / 10));
    painter.setOpacity(0.6);
    m_face.icon.paint(&painter, iconRect);
    painter.setOpacity(1);
    QFont small = font();
    small.setPixelSize(qMax(9, rect.height() / 8));
    painter.setFont(small);
    painter.setPen(captionColor);
    const QRect textRect(rect.left() + 4, rect.top() + rect.height() / 2, rect.width() - 8,
                         rect.height() / 2 - 4);
    painter.drawText(textRect, int(Qt::AlignCenter) | Qt::TextWordWrap, m_face.caption);
}

void KeyCell::paintPlus(QPainter &painter, const QRect &rect)
{
    const qreal arm = rect.height() / 8.0;
    const QPointF center = QRectF(rect).center();
    painter.setPen(QPen(plusColor, qMax(1.5, arm / 4), Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(center - QPointF(arm, 0), center + QPointF(arm, 0));
    painter.drawLine(center - QPointF(0, arm), center + QPointF(0, arm));
}

void KeyCell::mousePressEvent(QMouseEvent *event)
{
    Q_EMIT chosen();
    if (event->button() != Qt::LeftButton)
        return;
    release(); // of the click before, if that is still to come
    m_pressPoint = event->pos();
    m_sincePress.start();
    if (isOccupied() && pressesAt(event->pos()))
        m_holdTimer.start();
}

void KeyCell::mouseMoveEvent(QMouseEvent *event)
{
    const bool far =
        (event->pos() - m_pressPoint).manhattanLength() >= QApplication::startDragDistance();
    if ((event->buttons() & Qt::LeftButton) != 0 && far && isOccupied())
        startDrag();
}

void KeyCell::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (m_holdTimer.isActive())
        press();
    if (m_down)
        m_releaseTimer.start(m_pressDelay);
}

void KeyCell::press()
{
    m_holdTimer.stop();
    if (!isOccupied() || m_down)
        return;
    m_pressDelay = int(m_sincePress.elapsed());
    setDown(true);
    Q_EMIT pressed();
}

void KeyCell::release()
{
    m_releaseTimer.stop();
    if (!m_down)
        return;
    setDown(false);
    Q_EMIT released();
}

void KeyCell::mouseDoubleClickEvent(QMouseEvent *event)
{
    mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        Q_EMIT doubleClicked();
}

void KeyCell::contextMenuEvent(QContextMenuEvent *event)
{
    Q_EMIT menuRequested(event->globalPos());
}

void KeyCell::startDrag()
{
    m_holdTimer.stop();
    release(); // after a pause it has been pressed
    auto *drag = new QDrag(this);
    drag->setMimeData(placeMime(m_place));
    drag->setPixmap(dragPicture());
    drag->setHotSpot(dragOffset);
    drag->exec(Qt::MoveAction);
}

// Small and beside the pointer, so that the key below it can be seen.
QPixmap KeyCell::dragPicture()
{
    const QPixmap face = grab(screenRect());
    QPixmap small = face.scaled(face.size() / 2, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    small.setDevicePixelRatio(face.devicePixelRatio());
    return small;
}

void KeyCell::enterEvent(EnterEvent *event)
{
    m_hovered = true;
    update();
    QWidget::enterEvent(event);
}

void KeyCell::leaveEvent(QEvent *event)
{
    m_hovered = false;
    update();
    QWidget::leaveEvent(event);
}

bool KeyCell::takes(const QMimeData &dragged) const
{
    if (!actionFrom(dragged).isEmpty())
        return true;
    const std::optional<DeckPlace> from = placeFrom(dragged);
    return from && *from != m_place;
}

void KeyCell::dragEnterEvent(QDragEnterEvent *event)
{
    if (!takes(*event->mimeData()))
        return;
    event->acceptProposedAction();
    m_dropTarget = true;
    update();
}

void KeyCell::dragLeaveEvent(QDragLeaveEvent *event)
{
    m_dropTarget = false;
    update();
    QWidget::dragLeaveEvent(event);
}

void KeyCell::dropEvent(QDropEvent *event)
{
    m_dropTarget = false;
    update();
    if (!takes(*event->mimeData()))
        return;
    event->acceptProposedAction();
    const QString action = actionFrom(*event->mimeData());
    if (!action.isEmpty())
        Q_EMIT actionDropped(action);
    else if (const std::optional<DeckPlace> from = placeFrom(*event->mimeData()))
        Q_EMIT keyDropped(*from);
}

} // namespace deck
