#include "plugin/KeyPass.h"

#include "plugin/KeyGauges.h"
#include "plugin/KeyKinds.h"
#include "render/normalAction.h"

KeyPass::KeyPass(KeyGauges &gauges, qint64 now)
    : m_gauges(gauges)
    , m_now(now)
{
    m_gauges.beginPass(m_now);
}

std::optional<QString> KeyPass::paint(normalAction &key)
{
    const KeyKind *const kind = findKeyKind(key.GetAction());
    if (!kind)
        return std::nullopt;
    return m_gauges.paint(key, *kind, kind->textOf(key, *this), m_now);
}
