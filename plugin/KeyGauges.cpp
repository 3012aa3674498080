#include "plugin/KeyGauges.h"

#include "plugin/GaugeView.h"
#include "plugin/KeyKinds.h"
#include "render/normalAction.h"

#include <optional>

namespace {

using Style = DisplaySettings::Style;

GaugeSource sourceOf(const normalAction &key, const GaugeKind &kind)
{
    return {&kind, kind.selection ? kind.selection(key) : QString()};
}

QString letterColorOf(const DisplaySettings &display, gauge::Level level)
{
    switch (level) {
    case gauge::Level::Warning:
        return display.warningColor.name(QColor::HexArgb);
    case gauge::Level::Critical:
        return display.criticalColor.name(QColor::HexArgb);
    case gauge::Level::Normal:
        break;
    }
    return {};
}

/// The level of another selection does not hold on.
gauge::Level levelBefore(KeyGaugeState &state, const QString &selection)
{
    if (state.selection == selection)
        return state.level;
    state.selection = selection;
    return gauge::Level::Normal;
}

} // namespace

void KeyGauges::beginPass(qint64 now)
{
    m_history.beginPass(now);
}

QString KeyGauges::paint(normalAction &key, const KeyKind &kind, const QString &text, qint64 now)
{
    return paintOn(Occasion::Pass, key, kind, text, now);
}

QString KeyGauges::paintBetweenPasses(normalAction &key, const KeyKind &kind, const QString &text,
                                      qint64 now)
{
    return paintOn(Occasion::BetweenPasses, key, kind, text, now);
}

QString KeyGauges::paintOn(Occasion occasion, normalAction &key, const KeyKind &kind,
                           const QString &text, qint64 now)
{
    key.letterColor.clear();
    const GaugeKind *const gauge = kind.gauge();
    const bool isText = GaugeView::styleOf(key.display, gauge) == Style::Text;
    if (!gauge || (isText && !key.display.hasThreshold()))
        return kind.paint(key, text);

    const GaugeSource source = sourceOf(key, *gauge);
    GaugeRecord *const known = m_history.show(source, now);
    std::optional<GaugeRecord> alone;
    GaugeRecord &record = known ? *known : alone.emplace(GaugeHistory::newRecord(*gauge));
    if (occasion == Occasion::Pass || !known)
        GaugeHistory::sample(source, record, now);
    KeyGaugeState &state = m_states[&key];
    const GaugeView view(key, source, record, now);
    state.level = view.level(levelBefore(state, source.selection));
    if (isText) {
        key.letterColor = letterColorOf(key.display, state.level);
        return kind.paint(key, text);
    }
    kind.compose(key, text);
    const gauge::Content content = view.content(state);
    if (occasion == Occasion::Pass)
        state.turn.pass();
    return key.gaugePainting(content, GaugeView::lookOf(key));
}

bool KeyGauges::answersPresses(const normalAction &key)
{
    const KeyKind *const kind = findKeyKind(key.GetAction());
    return key.display.showsExtremes && kind &&
           GaugeView::styleOf(key.display, kind->gauge()) != Style::Text;
}

void KeyGauges::press(const normalAction &key, qint64 now)
{
    if (answersPresses(key))
        m_states[&key].turn.press(now);
}

void KeyGauges::release(const normalAction &key, qint64 now)
{
    if (!answersPresses(key))
        return;
    if (m_states[&key].turn.release(now) == ExtremeTurn::Release::Resets)
        m_history.resetExtremes(sourceOf(key, *findKeyKind(key.GetAction())->gauge()));
}

void KeyGauges::forget(const normalAction &key)
{
    m_states.erase(&key);
}
