#include "deck_simulator/gui/ScreenRoom.h"

#include <QDialog>
#include <QGuiApplication>
#include <QScreen>
#include <QStyle>

namespace deck {

namespace {

constexpr QSize usualScreen(1366, 768);
constexpr qreal leastPoints = 6;
constexpr qreal step = 0.9;

} // namespace

QSize roomOnScreen(const QWidget &window)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const int frame = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QSize available = screen == nullptr ? usualScreen : screen->availableSize();
    return available - QSize(frame, 2 * frame);
}

void shrinkTextToFit(QDialog *dialog, const QSize &room)
{
    QFont font = dialog->font();
    while (dialog->sizeHint().boundedTo(room) != dialog->sizeHint() &&
           font.pointSizeF() * step > leastPoints) {
        font.setPointSizeF(font.pointSizeF() * step);
        dialog->setFont(font);
    }
}

} // namespace deck
