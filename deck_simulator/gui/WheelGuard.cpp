#include "deck_simulator/gui/WheelGuard.h"

#include <QEvent>
#include <QWidget>

namespace deck {

WheelGuard::WheelGuard(QWidget *field)
    : QObject(field)
{
    field->setFocusPolicy(Qt::StrongFocus); // not from the wheel
    field->installEventFilter(this);
}

bool WheelGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Wheel || static_cast<QWidget *>(watched)->hasFocus())
        return QObject::eventFilter(watched, event);
    event->ignore();
    return true;
}

} // namespace deck
