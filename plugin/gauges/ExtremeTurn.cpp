#include "plugin/gauges/ExtremeTurn.h"

namespace {

constexpr int passesEach = 3;
constexpr qint64 longPress = 1000;

gauge::Extreme following(gauge::Extreme extreme)
{
    switch (extreme) {
    case gauge::Extreme::None:
        return gauge::Extreme::Minimum;
    case gauge::Extreme::Minimum:
        return gauge::Extreme::Maximum;
    case gauge::Extreme::Maximum:
        return gauge::Extreme::Mean;
    case gauge::Extreme::Mean:
        break;
    }
    return gauge::Extreme::None;
}

} // namespace

void ExtremeTurn::press(qint64 now)
{
    m_pressed = now;
}

ExtremeTurn::Release ExtremeTurn::release(qint64 now)
{
    const bool isLong = m_pressed && now - *m_pressed >= longPress;
    m_pressed.reset();
    if (isLong) {
        m_shown = gauge::Extreme::None;
        return Release::Resets;
    }
    goOn();
    return Release::GoesOn;
}

void ExtremeTurn::pass()
{
    if (m_shown != gauge::Extreme::None && --m_passesLeft <= 0)
        goOn();
}

void ExtremeTurn::goOn()
{
    m_shown = following(m_shown);
    m_passesLeft = passesEach;
}
