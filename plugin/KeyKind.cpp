#include "plugin/KeyKind.h"

#include "render/normalAction.h"

namespace {

QString paintOneLine(normalAction &key, const QString &text)
{
    return key.normalPainting(text);
}

void composeOneLine(normalAction &key, const QString &text)
{
    key.composeLine(text);
}

} // namespace

KeyKind::KeyKind(const QString &uuid, Value value, Format format)
    : m_uuid(uuid)
    , m_value(value)
    , m_format(format)
    , m_painter(paintOneLine)
    , m_composer(composeOneLine)
{
}

KeyKind::KeyKind(const QString &uuid, ValueInPass value, Format format)
    : m_uuid(uuid)
    , m_valueInPass(value)
    , m_format(format)
    , m_painter(paintOneLine)
    , m_composer(composeOneLine)
{
}

KeyKind::KeyKind(const QString &uuid, Text text)
    : m_uuid(uuid)
    , m_text(text)
    , m_painter(paintOneLine)
    , m_composer(composeOneLine)
{
}

KeyKind &KeyKind::paintedBy(Painter painter, Composer composer)
{
    m_painter = painter;
    m_composer = composer;
    return *this;
}

KeyKind &KeyKind::gauging(const GaugeKind &gauge)
{
    m_gauge = gauge;
    return *this;
}

KeyKind &KeyKind::selecting(Selection selection)
{
    m_selection = selection;
    return *this;
}

KeyKind &KeyKind::replying(ReplyPart part)
{
    m_replyPart = part;
    return *this;
}

KeyKind &KeyKind::steppingThroughDrives()
{
    m_stepsThroughDrives = true;
    return *this;
}

QString KeyKind::textOf(Key key, KeyPass &pass) const
{
    if (m_text)
        return m_text(key);
    return m_format(m_value ? m_value(key) : m_valueInPass(key, pass));
}

void KeyKind::select(normalAction &key, SettingsOccasion occasion) const
{
    if (m_selection)
        m_selection(key, occasion);
}

void KeyKind::addToReply(SettingsDraft &draft) const
{
    if (m_replyPart)
        m_replyPart(draft);
}
