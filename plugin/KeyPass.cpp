#include "plugin/KeyPass.h"

#include "plugin/KeyKinds.h"
#include "render/normalAction.h"

std::optional<QString> KeyPass::paint(normalAction &key)
{
    const KeyKind *const kind = findKeyKind(key.GetAction());
    if (!kind)
        return std::nullopt;
    return kind->paint(key, kind->textOf(key, *this));
}
